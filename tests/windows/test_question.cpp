#include "support/windows.h"
#include "testbank/frmquestion.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

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
