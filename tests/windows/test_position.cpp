#include "organisation/frmposition.h"
#include "organisation/post_prefix.h"
#include "windows/journey_bank.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

TEST(PostPrefixes, ShowTheDepthDownToTheFifthLevel) {
    PostPrefixes prefixes;
    QString shown;
    for (const int depth : {1, 2, 3, 5, 6, 2, 7, 1}) {  // what is too deep keeps the prefix of the one before
        shown += prefixes.of(u"001"_s.repeated(depth)) + u' ';
    }
    EXPECT_EQ(shown, u" |- ||- ||||- ||||- |- |-  "_s);
}

class PositionDialog : public JourneyTest {
 protected:
    static frmPosition& open(bool add, bool child, const QString& code) {
        frmPosition& dialog = frmPosition::Default();
        dialog.AddMode = add;
        dialog.ChildMode = child;
        dialog.PostCodeOf = code;
        dialog.Show();
        return dialog;
    }
};

TEST_F(PositionDialog, EachModeShowsItsParentAndWrites) {
    const struct {
        bool add, child;
        QString code, shown, peoples, stored;
    } table[] = {
        {true, false, u"001001"_s, u"总经理||"_s, u"4"_s, u"001002|4"_s},
        {true, true, u"001001"_s, u"销售经理||"_s, u"2.5"_s, u"001001002|2"_s},
        {false, true, u"001001"_s, u"总经理|销售经理|3"_s, u"2E4"_s, u"001001|20000"_s},
        {false, true, u"001001"_s, u"总经理|新|20000"_s, u"1.5"_s, u"001001|2"_s},
        {true, false, {}, u"||"_s, {}, u"001|0"_s},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.stored.toStdString());
        cnnPublic.Execute(u"delete from Position where PostName='新' and PostCode<>'%1' or '%1'=''"_s.arg(row.code));
        frmPosition& w = open(row.add, row.child, row.code);
        EXPECT_EQ(w.ui->lblParent->text() + u'|' + w.ui->txtName->text() + u'|' + w.ui->txtPeoples->text(), row.shown);
        retype(w.ui->txtName, u"新"_s);
        press(Qt::Key_Return);
        retype(focused(), row.peoples);
        press(Qt::Key_Return);
        press(Qt::Key_Return);
        EXPECT_FALSE(w.isLoaded());
        EXPECT_EQ(rowsOf(u"select PostCode, Peoples from Position where PostName='新'"_s), row.stored);
    }
}

TEST_F(PositionDialog, RefusesAndReports) {
    const QString before = rowsOf(u"select * from Position"_s);
    const QString noNumber = u"［编制人数］只能输入数字类型！"_s;
    const struct {
        bool add, stays;
        QString name, peoples, words;
    } table[] = {
        {true, true, {}, u"x"_s, u"［职位名称］不能为空！"_s},
        {true, true, u"新"_s, u" "_s, noNumber},
        {true, true, u"新"_s, u"1E9"_s, noNumber},  // more than a head count holds
        {true, false, u"o'"_s, u"1"_s, u"发生异常错误，增加不成功！"_s},
        {false, false, u"销售专员"_s, u"1"_s, u"发生异常错误，修改不成功！"_s},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.words.toStdString());
        frmPosition& w = open(row.add, true, u"001001"_s);
        retype(w.ui->txtName, row.name);
        retype(w.ui->txtPeoples, row.peoples);
        PromptScript script;
        script.expect(vbOK, row.words);
        click(w.ui->cmdOK);
        ASSERT_EQ(w.isLoaded(), row.stays);
        if (row.stays) {
            EXPECT_EQ(focused(), row.name.isEmpty() ? w.ui->txtName : w.ui->txtPeoples);
            EXPECT_EQ(w.ui->txtPeoples->text(), row.name.isEmpty() ? row.peoples : QString());
            press(Qt::Key_Escape);
        }
    }
    EXPECT_EQ(rowsOf(u"select * from Position"_s), before);
}

}  // namespace
}  // namespace talvora::test
