#include "results/frmfind.h"
#include "windows/journey_bank.h"

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
        QString texts;
        for (int i = 0; i < list->count(); ++i) {
            texts += list->item(i)->text() + u',';
        }
        return texts;
    }

    /// Ticks or unticks an item by keyboard alone.
    static void tick(QListWidget* list, const QString& text) {
        list->setFocus();
        for (press(Qt::Key_Home); list->currentItem()->text() != text;) {
            press(Qt::Key_Down);
        }
        press(Qt::Key_Space);
    }

    void showTab(int index) {
        w.ui->SSTab1->tabBar()->setFocus();
        press(index == 0 ? Qt::Key_Left : Qt::Key_Right);
        ASSERT_EQ(w.ui->SSTab1->currentIndex(), index);
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
    EXPECT_EQ(texts(w.ui->lstEducation), u"初中,高中,专科,本科,硕士,博士,"_s);
    EXPECT_EQ(texts(w.ui->lstPosition), u"销售经理,销售专员,总经理,"_s);
    EXPECT_EQ(texts(w.ui->lstType), u"沟通,责任心,"_s);
    const QString steps[][2] = {{u"沟通"_s, u",优秀,"_s},
                                {u"责任心"_s, u",优秀,较差,优秀,"_s},
                                {u"沟通"_s, u"较差,优秀,"_s},
                                {u"责任心"_s, {}}};
    for (const auto& [type, verdicts] : steps) {
        tick(w.ui->lstType, type);
        EXPECT_EQ(texts(w.ui->lstResult), verdicts);
    }
}

TEST_F(FindWindow, RefusesAndComposesByKeyboard) {
    EXPECT_EQ(focused(), w.ui->cmbDate);
    EXPECT_FALSE(w.ui->dtpDate1->isVisible() || w.ui->Label2->isVisible());
    choose(w.ui->cmbDate, u"2 - 定制日期"_s);
    const QWidget* order[] = {w.ui->dtpDate1,     w.ui->dtpDate2,    w.ui->txtName, w.ui->chkSex1,   w.ui->chkSex2,
                              w.ui->lstEducation, w.ui->lstPosition, w.ui->lstType, w.ui->lstResult, w.ui->optAnd};
    for (const QWidget* next : order) {
        press(Qt::Key_Return);
        EXPECT_EQ(focused(), next);
    }
    w.ui->dtpDate1->setDate(w.ui->dtpDate2->date().addDays(1));
    type(w.ui->txtName, u"o'"_s);
    const auto refused = [&](const QString& words, const QWidget* field) {
        PromptScript script;
        script.expect(vbOK, words);
        click(w.ui->cmdFind);
        EXPECT_EQ(focused(), field);
        EXPECT_TRUE(w.isLoaded() && w.strSQL.isEmpty());
    };
    refused(u"［姓名］中不可输入字符[']！"_s, w.ui->txtName);
    w.ui->txtName->clear();
    refused(u"［开始日期］必须小于等于［截止日期］！"_s, w.ui->dtpDate1);
    w.ui->dtpDate1->setDate(w.ui->dtpDate2->date().addDays(-30));

    click(w.ui->optOR);
    click(w.ui->chkSex2);
    tick(w.ui->lstEducation, u"硕士"_s);
    tick(w.ui->lstPosition, u"总经理"_s);
    tick(w.ui->lstType, u"沟通"_s);
    tick(w.ui->lstResult, u"优秀"_s);
    w.ui->cmdFind->setFocus();
    press(Qt::Key_Return);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(where(w.strSQL),
              range +
                  u" or  sex in ('女')  or  Education in ('硕士')  or  PostName in ('总经理')  or  TypeName "
                  "in ('沟通')  or  TestingResult in ('优秀')"_s);
}

TEST_F(FindWindow, KeepsQueriesAndDeletesThem) {
    const QString saved = u"保存成功！"_s;
    PromptScript script;
    script.expectInput({}).expectInput(u"乙"_s).expect(vbOK, saved).expectInput(u"乙"_s).expect(vbOK, saved);
    script.expectInput(u"甲"_s).expect(vbOK, saved);
    click(w.ui->cmdSave);  // cancelled
    click(w.ui->cmdSave);
    type(w.ui->txtName, u"李"_s);
    click(w.ui->cmdSave);  // a description that is taken
    click(w.ui->optOR);
    click(w.ui->cmdSave);
    EXPECT_EQ(script.shown()[1].text, u"请输入简要的查询说明："_s);
    EXPECT_EQ(script.last().style, vbInformation);

    showTab(1);
    EXPECT_FALSE(w.ui->optAnd->isVisible() || w.ui->optOR->isVisible() || w.ui->cmdSave->isVisible());
    FlexGrid* fg1 = w.ui->fg1;
    ASSERT_EQ(fg1->Rows(), 3);
    EXPECT_EQ(fg1->TextMatrix(1, 0) + fg1->TextMatrix(1, 1) + fg1->TextMatrix(1, 2), u"1甲删除"_s);
    EXPECT_EQ(where(fg1->RowData(1)), u"Name like '%李%' or"_s);
    EXPECT_EQ(where(fg1->RowData(2)), range + u"and"_s);
    clickCell(fg1, 2, 1);
    click(w.ui->cmdFind);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(where(w.strSQL), range + u' ') << "the afresh loaded window's own statement";

    w.Show();
    showTab(1);
    clickCell(fg1 = w.ui->fg1, 1, 2);
    EXPECT_EQ(rowsOf(u"select Query from Query"_s), u"乙"_s);
    fg1->setFocus();
    press(Qt::Key_Space);  // the row that took its place
    EXPECT_EQ(rowsOf(u"select Query from Query"_s), QString());
    EXPECT_EQ(fg1->Rows(), 1);
    EXPECT_FALSE(w.ui->cmdFind->isEnabled());
    showTab(0);
    EXPECT_TRUE(w.ui->cmdFind->isEnabled() && w.ui->cmdSave->isVisible() && w.ui->optOR->isVisible());
}

}  // namespace
}  // namespace talvora::test
