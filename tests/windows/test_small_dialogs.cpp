#include "organisation/frmposition.h"
#include "organisation/post_prefix.h"
#include "settings/frmoption.h"
#include "testbank/frmquestion.h"
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
        {true, false, u"新"_s, u"1E9"_s, u"实时错误 '6':\n\n溢出"_s},  // more than a head count holds
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
    EXPECT_EQ(programEnds().size(), 1U);
}

TEST_F(JourneyTest, OptionsAreCheckedThenWrittenOneByOne) {
    const auto stored = [] { return rowsOf(u"select VarValue from Options order by VarName"_s).replace(u'\n', u' '); };
    setOption(u"intTimeInterval"_s, u"30"_s);
    setOption(u"blnCheckId"_s, u"N"_s);
    setOption(u"blnLockTerminal"_s, u"Y"_s);
    setOption(u"blnPostRelational"_s, u"?"_s);
    frmOption& w = frmOption::Default();
    w.Show();
    EXPECT_TRUE(w.ui->chkPostRelational->isChecked()) << "any value but N";
    click(w.ui->chkCheckID);
    click(w.ui->chkLockTerminal);
    const struct {
        int failing;
        QString interval, left, words;
    } table[] = {
        {0, {}, u"N Y ? 30"_s, u"［间隔时间］不能为空！"_s},
        {0, u"1a"_s, u"N Y ? 30"_s, u"［间隔时间］只能输入数字类型！"_s},
        {0, u"-1"_s, u"N Y ? 30"_s, u"［间隔时间］不能小于0！"_s},
        {1, u".5"_s, u"N Y ? 30"_s, u"［间隔时间］修改不成功，请稍后重试！"_s},
        {2, u".5"_s, u"N Y ? .5"_s, u"［职位关联］修改不成功，请稍后重试！"_s},
        {3, u".5"_s, u"N Y Y .5"_s, u"［锁定自助测评］修改不成功，请稍后重试！"_s},
        {4, u".5"_s, u"N N Y .5"_s, u"［验证身份证合法性］修改不成功，请稍后重试！"_s},
    };
    for (const auto& row : table) {
        retype(w.ui->txtTimeInterval, row.interval);
        PromptScript script;
        script.expect(vbOK, row.words);
        EXPECT_EQ(statementsOf([&] { click(w.ui->cmdOK); }, row.failing).size(), row.failing);
        EXPECT_EQ(script.last().style, vbExclamation);
        EXPECT_TRUE(w.isLoaded() && (row.failing > 0 || focused() == w.ui->txtTimeInterval));
        EXPECT_EQ(stored(), row.left);
    }
    click(w.ui->cmdOK);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(stored(), u"Y N Y .5"_s);
}

class QuestionDialog : public WindowTest {
 protected:
    void open(bool add, qint16 answers) {
        dialog.AddMode = add;
        dialog.AnswerAmount = answers;
        dialog.Show();
    }

    QLineEdit* field(const QString& name) { return dialog.window()->findChild<QLineEdit*>(u"txt"_s + name); }

    /// The texts of the answers' fields, "-" for one that is off.
    QString shown() {
        QString texts;
        for (const QChar letter : u"ABCDE"_s) {
            const QLineEdit *answer = field(u"Answer"_s + letter), *score = field(u"Score"_s + letter);
            texts += answer->isEnabled() && score->isEnabled() ? answer->text() + score->text() + u',' : u"-"_s;
        }
        return texts;
    }
    QString handedBack() {
        const cQuestion& q = *dialog.Questions.Item(1);
        return u"%1 %2 %3"_s.arg(q.QuestionID)
                   .arg(q.QuestionName, QStringList{q.Answer1, q.Answer2, q.Answer3, q.Answer4, q.Answer5}.join(u'|')) +
               u" %1%2%3%4%5"_s.arg(q.Score1).arg(q.Score2).arg(q.Score3).arg(q.Score4).arg(q.Score5);
    }

    frmQuestion& dialog = frmQuestion::Default();
};

TEST_F(QuestionDialog, ChecksInTheirOrder) {
    const QString numeric = u"［分数］只能为数字型！"_s;
    const auto both = [](QChar which) { return u"请输入［答案%1］及其分数！"_s.arg(which); };
    // Each row breaks one more field, and its refusal comes before those of the rows above.
    const QString table[][4] = {
        {u"ScoreE"_s, u"x"_s, numeric, u"ScoreE"_s},
        {u"AnswerE"_s, u" "_s, both(u'E'), u"AnswerE"_s},
        {u"ScoreC"_s, u"+"_s, numeric, u"ScoreC"_s},
        {u"ScoreC"_s, {}, both(u'C'), u"AnswerC"_s},
        {u"ScoreA"_s, u"x"_s, numeric, u"ScoreA"_s},
        {u"ScoreB"_s, u" "_s, both(u'B'), u"AnswerB"_s},
        {u"AnswerA"_s, u"  "_s, both(u'A'), u"AnswerA"_s},
        {u"AnswerE"_s, u"'"_s, u"文本框中不可输入字符［'］！"_s, u"QuestionName"_s},
        {u"QuestionName"_s, u"E'"_s, u"［题目名称］中的第一个字符不能为［A、B、C、D、E］！"_s, u"QuestionName"_s},
        {u"QuestionName"_s, {}, u"请输入［题目名称］！"_s, u"QuestionName"_s},
    };
    open(true, 5);
    retype(field(u"QuestionName"_s), u"a"_s);
    for (const QChar answer : u"ABCDE"_s) {
        retype(field(u"Answer"_s + answer), u"做"_s);
        press(Qt::Key_Return);
        type(focused(), u"12"_s);  // of which one digit fits
        EXPECT_EQ(field(u"Score"_s + answer)->text(), u"1"_s);
    }
    for (const auto& [broken, text, words, focus] : table) {
        SCOPED_TRACE((broken + text).toStdString());
        retype(field(broken), text);
        PromptScript script;
        script.expect(vbOK, words);
        click(dialog.ui->Command1);
        EXPECT_EQ(script.last().style, vbExclamation);
        EXPECT_EQ(focused(), field(focus));
        EXPECT_EQ(dialog.Questions.Count(), 0);
    }
}

TEST_F(QuestionDialog, HandsTheQuestionBack) {
    open(true, 2);
    EXPECT_EQ(shown(), u",,---"_s);
    for (const auto& name : {u"QuestionName"_s, u"AnswerA"_s, u"ScoreA"_s, u"AnswerB"_s, u"ScoreB"_s}) {
        retype(field(name), name.startsWith(u"Score"_s) ? u"9"_s : u"Ｅ"_s);
    }
    click(dialog.ui->Command1);
    ASSERT_FALSE(dialog.isLoaded());
    open(true, 3);
    press(Qt::Key_Escape);
    cQuestion& question = *dialog.Questions.Item(1);
    EXPECT_EQ(handedBack(), u"0 Ｅ Ｅ|Ｅ||| 99000"_s) << "closing leaves the earlier question";

    question.QuestionID = 7;
    question.Answer4 = u"丁"_s;
    question.Answer5 = u"戊"_s;
    open(false, 4);
    EXPECT_EQ(shown(), u"Ｅ9,Ｅ9,0,丁0,-"_s);
    retype(field(u"QuestionName"_s), u" "_s);
    retype(field(u"AnswerC"_s), u" 丙"_s);
    click(dialog.ui->Command1);
    EXPECT_EQ(handedBack(), u"7   Ｅ|Ｅ| 丙|丁| 99000"_s) << "a switched-off field is empty";
}

}  // namespace
}  // namespace talvora::test
