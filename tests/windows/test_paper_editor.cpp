#include "support/error_of.h"
#include "testbank/frmexamination.h"
#include "testbank/frmquestion.h"
#include "windows/grid_listing.h"
#include "windows/journey_bank.h"

#include <QHeaderView>
#include <QTest>
#include <QToolButton>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class PaperEditor : public JourneyTest {
 protected:
    PaperEditor() {
        cnnPublic.Execute(
            u"update TestingType set TestingResult1='优秀', TestingResult2='一般', TestingResult3='较差', "
            "TestingResult4='差' where TypeCode='002001'"_s);
    }

    void open(qint16 id = 0) {
        w.AddMode = id == 0;
        w.ExaminationIDOf = id;
        w.Show();
    }

    static void put(QWidget* field, const QString& text) {
        auto* list = qobject_cast<ComboBox*>(field);
        list ? list->setText(text) : retype(field, text);
    }

    /// Subtype, number, then lower, upper and word of the bands, parted by "/".
    void fill(const QString& values) {
        const QString fields =
            u"cmbTestingType txtExaminationNum txtScope10 txtScope11 cmbTestingResult0 txtScope20 "
            "txtScope21 cmbTestingResult1 txtScope30 txtScope31 cmbTestingResult2 txtScope40 txtScope41 cmbTestingResult3"_s;
        const QStringList texts = values.split(u'/');
        for (qsizetype i = 0; i < texts.size(); ++i) {
            put(w.window()->findChild<QWidget*>(fields.section(u' ', i, i)), texts[i]);
        }
    }

    /// Adds a question whose answers and scores are all 5.
    void add(const QString& name) {
        whenModal<frmQuestion>([=](frmQuestion& q) {
            for (QLineEdit* field : q.window()->findChildren<QLineEdit*>()) {
                field->setText(field->isEnabled() ? u"5"_s : QString());
            }
            retype(q.ui->txtQuestionName, name);
            click(q.ui->Command1);
        });
        w.ui->Toolbar1->button(u"add"_s)->click();
    }

    void act(const QString& key, int row) {
        w.ui->fg2->Select(row, 1);
        w.ui->Toolbar1->button(key)->click();
    }

    frmExamination& w = frmExamination::Default();
    PromptScript script_;
};

const QString good = u" |-逻辑推理/N/0/5/差/6/6/一般///较差/8/8/优秀"_s;
const QString ask = u"如果暂时保存本试卷，请选择［是］；如果确信本试卷已设置完整，请选择［否］！"_s;

TEST_F(PaperEditor, ChecksInTheirOrder) {
    const QString noNumber = u"［得分范围］必须输入数字类型！"_s;
    const QString swapped = u"［得分范围］中的前一个数字必须小于后一个数字！"_s;
    const QString incomplete = u"［序号%1］中的［得分范围］必须输入完整！"_s;
    const QString half = u"［序号%1］中的［得分范围］必须全部输入（或者全部不输入）！"_s;
    const QString noWord = u"［序号%1］中的［评价结果］必须选择一个值！"_s;
    const QString repeated = u"［序号1］、［序号2］、［序号3］%1中的［评价结果］不能重复选择！"_s;
    open();
    // Each row changes one field more, and its fault comes before those that the rows above have made.
    const auto& ui = w.ui;
    const struct {
        QWidget* field;
        QString text, words;
        QWidget* focus;
    } table[] = {
        {ui->txtNote, {}, u"请设置本试卷的［测评题目］！"_s, ui->Command1},
        {ui->txtNote, u"'"_s, u"文本框中不可输入字符［'］！"_s, ui->cmbTestingType},
        {ui->cmbTestingResult3, u"较差"_s, repeated.arg(u"、［序号4］"_s), ui->cmbTestingResult0},
        {ui->cmbTestingResult3, {}, noWord.arg(4), ui->cmbTestingResult3},
        {ui->txtScope41, u"7"_s, swapped, ui->txtScope40},
        {ui->txtScope41, u"x"_s, noNumber, ui->txtScope40},
        {ui->cmbTestingResult2, u"一般"_s, noNumber, ui->txtScope40},  // the third band is not in use yet
        {ui->txtScope31, u"7"_s, half.arg(3), ui->txtScope30},
        {ui->txtScope30, u"7"_s, repeated.arg(u""_s), ui->cmbTestingResult0},
        {ui->txtScope30, u"8"_s, swapped, ui->txtScope30},
        {ui->cmbTestingResult1, u"差"_s, u"［序号1］和［序号2］的［评价结果］不能一样！"_s, ui->cmbTestingResult0},
        {ui->cmbTestingResult0, {}, noWord.arg(1), ui->cmbTestingResult0},
        {ui->txtScope10, u"+"_s, noNumber, ui->txtScope10},
        {ui->txtScope40, u" "_s, half.arg(4), ui->txtScope40},
        {ui->txtScope20, u" "_s, incomplete.arg(2), ui->txtScope20},
        {ui->txtScope11, {}, incomplete.arg(1), ui->txtScope10},
        {ui->txtExaminationNum, {}, u"［试卷编号］不能为空！"_s, ui->txtExaminationNum},
        {ui->cmbTestingType, u"职业素养"_s, u"［测评类型］只能选择二级类型！"_s, ui->cmbTestingType},
    };
    fill(good);
    for (const auto& row : table) {
        put(row.field, row.text);
        refuses(ui->Command1, row.words, row.focus);
    }
}

TEST_F(PaperEditor, SavesAPaperOfOneQuestion) {
    open();
    add(u"一"_s);
    fill(good);
    script_.expect(vbYes, ask).expect(vbOK, u"增加失败，请稍后重试！"_s);
    statementsOf([&] { click(w.ui->Command1); }, 3);
    script_.expect(vbNo, ask).expect(vbOK, u"增加成功！"_s);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(u"select TypeCode, ScoreScope1, ScoreScope2, ScoreScope3, DescScope3, Status, TestingTime, "
                     "ApproverDate, QuestionName, Answer1, Score2 from Examination E, ExaminationQuestion Q "
                     "where E.ExaminationID=Q.ExaminationID and ExaminationNum='N'"_s),
              u"002001|0-5|6-6|-|较差|1 - 已完成|10|2009-09-13|一|5|5"_s);
}

TEST_F(PaperEditor, QuestionsAreAddedChangedAndTakenOut) {
    open();
    QAbstractButton* const edit = w.ui->Toolbar1->button(u"edit"_s);
    EXPECT_FALSE(edit->isEnabled());
    script_.expect(vbOK, u"已经没有记录可以删除！"_s);
    act(u"del"_s, 0);
    w.ui->txtAnswerAmount->setFocus();
    for (const auto key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down}) {
        press(key);
    }
    add(u"一"_s);
    EXPECT_TRUE(edit->isEnabled());
    EXPECT_EQ(w.ui->fg2->Row(), 1) << "the first question is at hand";
    w.ui->fg2->setFixedHeight(120);  // room for one question
    add(u"二"_s);
    EXPECT_EQ(w.ui->fg2->Row(), 1) << "a later one leaves the choice alone";
    EXPECT_TRUE(w.ui->fg2->viewport()->rect().contains(w.ui->fg2->CellRect(5, 1))) << "but is in view";
    QTest::mouseClick(w.ui->fg2->horizontalHeader()->viewport(), Qt::LeftButton, {}, {30, 8});
    EXPECT_EQ(w.ui->fg2->Row(), 1) << "a title is nothing to edit";
    const QString answers = u"\n- |A.5|5\n- |B.5|5\n- |C.5|5"_s;
    EXPECT_EQ(listing(*w.ui->fg2), u"- 1|一"_s + answers + u"\n- 2|二"_s + answers);
    whenModal<frmQuestion>([](frmQuestion& q) {
        EXPECT_EQ(q.ui->txtQuestionName->text() + q.ui->txtAnswerC->text(), u"二5"_s);
        retype(q.ui->txtScoreC, u"9"_s);
        click(q.ui->Command1);
    });
    act(u"edit"_s, 7);
    act(u"del"_s, 2);
    const QString changed = u"|二\n- |A.5|5\n- |B.5|5\n- |C.5|9"_s;
    EXPECT_EQ(listing(*w.ui->fg2), u"- 2"_s + changed);
    // A cancelled addition finds the question handed over last; the numbers are made anew.
    whenModal<frmQuestion>([](frmQuestion& q) { click(q.ui->Command2); });
    w.ui->Toolbar1->button(u"add"_s)->click();
    EXPECT_EQ(listing(*w.ui->fg2), u"- 1"_s + changed + u"\n- 2"_s + changed);
    act(u"del"_s, 1);
    act(u"del"_s, 1);
    EXPECT_FALSE(edit->isEnabled());
    // Escape is no way out of half a paper.
    press(Qt::Key_Escape);
    EXPECT_TRUE(w.isLoaded());
    // Nothing guards a second question on OK: it ends the program.
    add(u"一"_s);
    add(u"二"_s);
    fill(good);
    script_.expect();
    click(w.ui->Command1);
    EXPECT_TRUE(script_.last().text.contains(u"457"_s));
}

TEST_F(PaperEditor, EditLosesWhatItDoesNotShow) {
    cnnPublic.Execute(
        u"update Examination set Note='n', Auditing='b', AuditingDate='2010-01-01', Author='a', "
        "ScoreScope3='-5-9', ScoreScope4='' where ExaminationID=3"_s);
    open(3);
    EXPECT_FALSE(w.ui->UpDown1->isEnabled());
    EXPECT_EQ(w.ui->cmbTestingType->text() + w.ui->cmbTestingResult0->text() + w.ui->txtAuthor->text() +
                  w.ui->txtScope11->text() + w.ui->txtScope30->text() + w.ui->txtScope31->text(),
              u" |-逻辑推理较差a35-9"_s);
    EXPECT_EQ(w.ui->fg2->Row(), 1);
    act(u"del"_s, 4);
    fill(good);
    retype(w.ui->txtExaminationNum, u"LJ-2"_s);
    script_.expect(vbNo, ask).expect(vbOK, u"［试卷编号］重复，请重新输入！"_s);
    click(w.ui->Command1);
    retype(w.ui->txtExaminationNum, u"X"_s);
    script_.expect(vbYes, ask).expect(vbOK, u"修改成功！"_s);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(u"select ExaminationNum, Note, Auditing, AuditingDate, Author, TypeCode, Status from Examination "
                     "where ExaminationID=3"_s),
              u"X|||2009-09-13|a|002001|0 - 建立中"_s);

    // No handler is there for a failing statement, for a time that is no number, for a word that the subtype lost.
    for (const auto& [minutes, statements] : {std::pair(u"10"_s, 3), {u"1x"_s, 0}}) {
        open(3);
        retype(w.ui->txtTestingTime, minutes);
        script_.expect(vbYes, ask).expect();
        EXPECT_EQ(statementsOf([&] { click(w.ui->Command1); }, statements).size(), statements);
        commitWhatIsOpen();
    }
    EXPECT_EQ(programEnds().size(), 2U);
    cnnPublic.Execute(u"update Examination set DescScope1='甲' where ExaminationID=3"_s);
    EXPECT_EQ(errorOf([&] { open(3); }), 383);
}

}  // namespace
}  // namespace talvora::test
