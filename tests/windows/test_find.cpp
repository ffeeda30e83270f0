#include "results/search/frmfind.h"
#include "windows/journey_bank.h"

#include <QHeaderView>
#include <QTest>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class FindWindow : public JourneyTest {
 protected:
    FindWindow() {
        cnnPublic.Execute(
            u"insert into TestingResult (TestingNumber, TypeName, TypeCode, SolutionID, TestingResult) values "
            "(1,'责任心','001001',0,'优秀'), (2,'责任心','001001',0,'较差'), (3,'沟通','002002',0,'优秀'), "
            "(4,'沟通','002002',0,null)"_s);
        w.Show();
    }

    static QString texts(const QListWidget* list) {
        QStringList texts;
        for (const auto* item : list->findItems({}, Qt::MatchContains)) {
            texts += item->text();
        }
        return texts.join(u',');
    }

    /// Ticks or unticks an item by the blank key.
    static void tick(QListWidget* list, const QString& text) {
        list->setFocus();
        list->setCurrentItem(list->findItems(text, Qt::MatchExactly).first());
        press(Qt::Key_Space);
    }

    /// The part of a statement that the criteria make.
    static QString where(const QString& statement) {
        const auto start = statement.indexOf(u"=0)) and "_s) + 9;
        return statement.mid(start, statement.indexOf(u" ORDER BY testingNumber"_s) - start);
    }

    frmFind& w = frmFind::Default();
    const QString range = u"(testingdate>='%1' and testingdate<='%2')"_s.arg(
        QDate::currentDate().addDays(-30).toString(Qt::ISODate), QDate::currentDate().toString(Qt::ISODate));
};

TEST_F(FindWindow, VerdictsFollowTheTicksOfTheTypes) {
    EXPECT_EQ(texts(w.ui->lstEducation), u"初中,高中,专科,本科,硕士,博士"_s);
    EXPECT_EQ(texts(w.ui->lstPosition), u"销售经理,销售专员,总经理"_s);
    EXPECT_EQ(texts(w.ui->lstType), u"沟通,责任心"_s);
    const QString first = u"沟通"_s, second = u"责任心"_s;
    for (const auto& [type, verdicts] :
         {std::pair(first, u",优秀"_s), {second, u",优秀,较差,优秀"_s}, {first, u"较差,优秀"_s}, {second, u""_s}}) {
        tick(w.ui->lstType, type);
        EXPECT_EQ(texts(w.ui->lstResult), verdicts);
    }
}

TEST_F(FindWindow, RefusesAndComposes) {
    EXPECT_EQ(focused(), w.ui->cmbDate);
    EXPECT_FALSE(w.ui->dtpDate1->isVisible() || w.ui->Label2->isVisible());
    choose(w.ui->cmbDate, u"2 - 定制日期"_s);
    w.ui->dtpDate1->setDate(w.ui->dtpDate2->date().addDays(1));
    type(w.ui->txtName, u"o'"_s);
    PromptScript script;
    script.expect(vbOK, u"［姓名］中不可输入字符[']！"_s).expect(vbOK, u"［开始日期］必须小于等于［截止日期］！"_s);
    click(w.ui->cmdFind);
    EXPECT_EQ(focused(), w.ui->txtName);
    w.ui->txtName->clear();
    click(w.ui->cmdFind);
    EXPECT_EQ(focused(), w.ui->dtpDate1);
    EXPECT_TRUE(w.isLoaded() && w.strSQL.isEmpty());
    w.ui->dtpDate1->setDate(w.ui->dtpDate2->date().addDays(-30));

    click(w.ui->optOR);
    click(w.ui->chkSex2);
    tick(w.ui->lstEducation, u"硕士"_s);
    tick(w.ui->lstPosition, u"总经理"_s);
    tick(w.ui->lstType, u"沟通"_s);
    tick(w.ui->lstResult, u"优秀"_s);
    click(w.ui->cmdFind);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(where(w.strSQL), range +
                                   u" or  sex in ('女')  or  Education in ('硕士')  or  PostName in ('总经理')  or "
                                   " TypeName in ('沟通')  or  TestingResult in ('优秀')"_s);
}

TEST_F(FindWindow, KeepsQueriesAndDeletesThem) {
    PromptScript script;
    script.expectInput({});
    click(w.ui->cmdSave);
    for (const auto& description : {u"乙"_s, u"乙"_s, u"甲"_s}) {  // one is taken the second time
        script.expectInput(description).expect(vbOK, u"保存成功！"_s);
        click(w.ui->cmdSave);
        type(w.ui->txtName, u"李"_s);
        click(w.ui->optOR);
    }
    EXPECT_EQ(script.shown()[1].text, u"请输入简要的查询说明："_s);
    EXPECT_EQ(script.last().style, vbInformation);

    const int findPlace = w.ui->cmdFind->x(), savePlace = w.ui->cmdSave->x();
    w.ui->SSTab1->setCurrentIndex(1);
    waitFor([&] { return w.ui->cmdFind->x() == savePlace; });
    EXPECT_FALSE(w.ui->optAnd->isVisible() || w.ui->optOR->isVisible() || w.ui->cmdSave->isVisible());
    FlexGrid* fg1 = w.ui->fg1;
    ASSERT_EQ(fg1->Rows(), 3);
    EXPECT_EQ(fg1->TextMatrix(1, 0) + fg1->TextMatrix(1, 1) + fg1->TextMatrix(1, 2), u"1甲删除"_s);
    EXPECT_EQ(where(fg1->RowData(1)), u"Name like '%李李%' or"_s);
    EXPECT_EQ(where(fg1->RowData(2)), range + u"and"_s);
    clickCell(fg1, 2, 1);
    click(w.ui->cmdFind);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(where(w.strSQL), range + u' ') << "the afresh loaded window's own statement";

    w.Show();
    w.ui->SSTab1->setCurrentIndex(1);
    clickCell(fg1 = w.ui->fg1, 1, 2);
    const QHeaderView& titles = *fg1->horizontalHeader();
    QTest::mouseClick(titles.viewport(), Qt::LeftButton, {}, {titles.sectionViewportPosition(2) + 9, 9});
    EXPECT_EQ(rowsOf(u"select Query from Query"_s), u"乙"_s) << "the title of the column deletes nothing";
    fg1->setFocus();
    press(Qt::Key_Space);  // the row that took its place
    EXPECT_EQ(rowsOf(u"select Query from Query"_s), QString());
    EXPECT_EQ(fg1->Rows(), 1);
    EXPECT_FALSE(w.ui->cmdFind->isEnabled());
    w.ui->SSTab1->setCurrentIndex(0);
    EXPECT_TRUE(w.ui->cmdFind->isEnabled() && w.ui->cmdSave->isVisible() && w.ui->optOR->isVisible());
    waitFor([&] { return w.ui->cmdFind->x() == findPlace && w.ui->cmdSave->x() == savePlace; });
}

}  // namespace
}  // namespace talvora::test
