#include "support/error_of.h"
#include "testbank/frmexamination.h"
#include "testbank/frmquestion.h"
#include "windows/journey_bank.h"

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

    frmExamination& open(qint16 id = 0) {
        frmExamination& w = frmExamination::Default();
        w.AddMode = id == 0;
        w.ExaminationIDOf = id;
        w.Show();
        return w;
    }

    // Number, then lower, upper and word of each band, parted by "|"; missing ones are left empty.
    void fill(frmExamination& w, const QString& type, const QString& values) {
        if (w.ui->cmbTestingType->text() != type) {
            choose(w.ui->cmbTestingType, type);
        }
        QWidget* const fields[] = {w.ui->txtExaminationNum, w.ui->txtScope10, w.ui->txtScope11,
                                   w.ui->cmbTestingResult0, w.ui->txtScope20, w.ui->txtScope21,
                                   w.ui->cmbTestingResult1, w.ui->txtScope30, w.ui->txtScope31,
                                   w.ui->cmbTestingResult2, w.ui->txtScope40, w.ui->txtScope41,
                                   w.ui->cmbTestingResult3};
        QStringList texts = values.split(u'|');
        texts.resize(std::size(fields));
        for (std::size_t i = 0; i < std::size(fields); ++i) {
            const QString text = texts[static_cast<int>(i)];
            if (auto* word = qobject_cast<ComboBox*>(fields[i])) {
                word->setText(text);
            } else {
                retype(fields[i], text);
            }
        }
    }

    void add(frmExamination& w, const QString& name) {
        whenModal<frmQuestion>([=](frmQuestion& q) {
            type(q.ui->txtQuestionName, name);
            for (QLineEdit* answer : {q.ui->txtAnswerA, q.ui->txtAnswerB, q.ui->txtAnswerC}) {
                answer->setText(answer->isEnabled() ? u"do"_s : QString());
            }
            for (QLineEdit* score : {q.ui->txtScoreA, q.ui->txtScoreB, q.ui->txtScoreC}) {
                score->setText(score->isEnabled() ? u"5"_s : QString());
            }
            click(q.ui->Command1);
        });
        w.ui->Toolbar1->pressButton(u"add"_s);
    }

    QString grid(const frmExamination& w) {
        QStringList rows;
        for (int row = 1; row < w.ui->fg2->Rows(); ++row) {
            rows += w.ui->fg2->TextMatrix(row, 0) + u'/' + w.ui->fg2->TextMatrix(row, 1) + u'/' +
                    w.ui->fg2->TextMatrix(row, 2);
        }
        return rows.join(u' ');
    }

    PromptScript script_;
};

const QString subtype = u" |-逻辑推理"_s;
const QString good = u"N|0|5|差|6|6|一般"_s;
const QString ask = u"如果暂时保存本试卷，请选择［是］；如果确信本试卷已设置完整，请选择［否］！"_s;

TEST_F(PaperEditor, ChecksInTheirOrder) {
    frmExamination& w = open();
    const QString noNumber = u"［得分范围］必须输入数字类型！"_s;
    const QString swapped = u"［得分范围］中的前一个数字必须小于后一个数字！"_s;
    const auto incomplete = [](int band) { return u"［序号%1］中的［得分范围］必须输入完整！"_s.arg(band); };
    const auto half = [](int n) { return u"［序号%1］中的［得分范围］必须全部输入（或者全部不输入）！"_s.arg(n); };
    const auto noWord = [](int band) { return u"［序号%1］中的［评价结果］必须选择一个值！"_s.arg(band); };
    const struct {
        QString values, words;
        QWidget* field;
    } table[] = {
        {u""_s, u"［试卷编号］不能为空！"_s, w.ui->txtExaminationNum},
        {u" |0|  "_s, incomplete(1), w.ui->txtScope10},
        {u"N|x|x||6"_s, incomplete(2), w.ui->txtScope20},
        {u"N|x|x||y|y||  |9"_s, half(3), w.ui->txtScope30},
        {u"N|x|x||y|y|||||9"_s, half(4), w.ui->txtScope40},
        {u"N|0|x||y|y||z|z"_s, noNumber, w.ui->txtScope10},
        {u"N|5|4||6|1,"_s + u"x"_s, noNumber, w.ui->txtScope20},
        {u"N|5|4||6|5"_s, swapped, w.ui->txtScope10},
        {u"N|-1|-1||.5|.4"_s, swapped, w.ui->txtScope20},
        {u"N|0|5||6|6|一般|x|9"_s, noWord(1), w.ui->cmbTestingResult0},
        {u"N|0|5|差|6|6||x|9"_s, noWord(2), w.ui->cmbTestingResult1},
        {u"N|0|5|差|6|6|差|x|9"_s, u"［序号1］和［序号2］的［评价结果］不能一样！"_s, w.ui->cmbTestingResult0},
        {good + u"|7|x||8|x"_s, noNumber, w.ui->txtScope30},
        {good + u"|7|6||8|x"_s, swapped, w.ui->txtScope30},
        {good + u"|7|7||8|x"_s, noWord(3), w.ui->cmbTestingResult2},
        {good + u"|7|7|一般|8|x"_s, u"［序号1］、［序号2］、［序号3］中的［评价结果］不能重复选择！"_s,
         w.ui->cmbTestingResult0},
        {good + u"|||较差|8|x"_s, noNumber, w.ui->txtScope40},
        {good + u"|7|7|较差|8|7"_s, swapped, w.ui->txtScope40},
        {good + u"|||较差|8|8"_s, noWord(4), w.ui->cmbTestingResult3},
        {good + u"|||较差|8|8|较差"_s, u"［序号1］、［序号2］、［序号3］、［序号4］中的［评价结果］不能重复选择！"_s,
         w.ui->cmbTestingResult0},
        {u"'|0|5|差|6|6|一般|||一般"_s, u"文本框中不可输入字符［'］！"_s, w.ui->cmbTestingType},
        {good, u"请设置本试卷的［测评题目］！"_s, w.ui->txtScope41},
    };
    script_.expect(vbOK, u"［测评类型］只能选择二级类型！"_s);
    click(w.ui->Command1);
    EXPECT_EQ(focused(), w.ui->cmbTestingType);
    for (const auto& row : table) {
        fill(w, subtype, row.values);
        w.ui->txtScope41->setFocus();
        script_.expect(vbOK, row.words);
        w.ui->Command1->click();
        EXPECT_EQ(focused(), row.field) << row.values.toStdString();
        EXPECT_EQ(script_.last().style, vbExclamation);
    }
}

TEST_F(PaperEditor, SavesAPaperOfOneQuestion) {
    frmExamination& w = open();
    EXPECT_EQ(w.ui->cmbTestingType->ListIndex(), 0);
    EXPECT_EQ(w.ui->cmbTestingResult0->ListCount(), 0) << "a main type has no words";
    add(w, u"一"_s);
    fill(w, subtype, good + u"|||优秀"_s);
    choose(w.ui->cmbTestingType, u" |-沟通"_s);
    EXPECT_EQ(w.ui->cmbTestingResult1->text(), QString());
    const std::tuple<QString, qsizetype, QString> refused[] = {{u"LJ-1"_s, 0, u"［试卷编号］重复，请重新输入！"_s},
                                                               {u"N"_s, 3, u"增加失败，请稍后重试！"_s}};
    for (const auto& [number, failing, words] : refused) {
        fill(w, subtype, number + good.mid(1) + u"|||优秀"_s);
        script_.expect(vbYes, ask).expect(vbOK, words);
        statementsOf([&] { click(w.ui->Command1); }, failing);
        EXPECT_EQ(w.window()->focusWidget(), w.ui->txtExaminationNum);
    }
    script_.expect(vbNo, ask).expect(vbOK, u"增加成功！"_s);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(u"select TypeCode, ScoreScope1, ScoreScope2, ScoreScope3, DescScope3, Status, TestingTime, "
                     "ApproverDate, QuestionName, Answer1, Score2 from Examination E, ExaminationQuestion Q "
                     "where E.ExaminationID=Q.ExaminationID and ExaminationNum='N'"_s),
              u"002001|0-5|6-6|-|优秀|1 - 已完成|10|2009-09-13|一|do|5"_s);
}

// What no check looks at ends the program, with nothing stored of it.
TEST_F(PaperEditor, EndsAtASecondQuestionAndAtATimeThatIsNone) {
    for (const bool second : {true, false}) {
        frmExamination& w = open();
        fill(w, subtype, good);
        add(w, u"一"_s);
        if (second) {
            add(w, u"二"_s);
        } else {
            retype(w.ui->txtTestingTime, u"1x"_s);
            script_.expect(vbYes, ask);
        }
        script_.expect();
        click(w.ui->Command1);
        EXPECT_TRUE(script_.last().text.contains(second ? u"457"_s : u"13"_s));
        EXPECT_EQ(programEnds().size(), second ? 1U : 2U);
    }
    EXPECT_EQ(rowsOf(u"select count(*) from Examination where ExaminationNum='N'"_s), u"0"_s);
}

TEST_F(PaperEditor, QuestionsAreAddedChangedAndTakenOut) {
    frmExamination& w = open();
    w.ui->UpDown1->findChildren<QAbstractButton*>().first()->click();
    EXPECT_EQ(w.ui->txtAnswerAmount->text(), u"3"_s);
    script_.expect(vbOK, u"已经没有记录可以删除！"_s);
    w.ui->Toolbar1->pressButton(u"del"_s);
    for (const auto& name : {u"一"_s, u"二"_s}) {
        add(w, name);
    }
    const QString answers = u" /A.do/5 /B.do/5 /C.do/5"_s;
    EXPECT_EQ(grid(w), u"1/一/"_s + answers + u" 2/二/"_s + answers);
    w.ui->fg2->Select(7, 1);
    whenModal<frmQuestion>([](frmQuestion& q) {
        EXPECT_EQ(q.ui->txtQuestionName->text() + q.ui->txtAnswerC->text(), u"二do"_s);
        retype(q.ui->txtScoreC, u"9"_s);
        click(q.ui->Command1);
    });
    w.ui->Toolbar1->pressButton(u"edit"_s);
    w.ui->fg2->Select(2, 1);
    w.ui->Toolbar1->pressButton(u"del"_s);
    EXPECT_EQ(grid(w), u"2/二/ /A.do/5 /B.do/5 /C.do/9"_s);
    // A cancelled addition finds the question handed over last; the numbers are made anew.
    whenModal<frmQuestion>([](frmQuestion& q) { click(q.ui->Command2); });
    w.ui->Toolbar1->pressButton(u"add"_s);
    EXPECT_EQ(grid(w), u"1/二/ /A.do/5 /B.do/5 /C.do/9 2/二/ /A.do/5 /B.do/5 /C.do/9"_s);
    w.ui->fg2->Select(0, 0);
    script_.expect();
    w.ui->Toolbar1->pressButton(u"edit"_s);
    EXPECT_TRUE(script_.last().text.contains(u"13"_s)) << "the header's title is no number";
}

TEST_F(PaperEditor, EditLosesWhatItDoesNotShow) {
    const QString stored =
        u"select ExaminationNum, Note, Auditing, AuditingDate, Author, TypeCode, Status from Examination "
        "where ExaminationID=3"_s;
    cnnPublic.Execute(
        u"update Examination set Note='n', Auditing='b', AuditingDate='2010-01-01', Author='a', "
        "ScoreScope3='-5-9', ScoreScope4='' where ExaminationID=3"_s);
    frmExamination& w = open(3);
    EXPECT_FALSE(w.ui->UpDown1->isEnabled());
    EXPECT_EQ(w.ui->cmbTestingType->text() + w.ui->cmbTestingResult0->text() + w.ui->txtAuthor->text(),
              subtype + u"较差a"_s);
    EXPECT_EQ(w.ui->txtScope10->text() + w.ui->txtScope11->text() + w.ui->txtScope30->text() + u'/' +
                  w.ui->txtScope31->text(),
              u"03/5-9"_s);
    EXPECT_TRUE(grid(w).startsWith(u"1/LJ-1 第1题/ /A．做法1/1 /B．做法2/2 2/"_s));
    w.ui->fg2->Select(4, 1);
    w.ui->Toolbar1->pressButton(u"del"_s);
    choose(w.ui->cmbTestingType, u"专业能力"_s);
    fill(w, subtype, u"LJ-2|0|5|差|6|6|一般"_s);
    script_.expect(vbNo, ask).expect(vbOK, u"［试卷编号］重复，请重新输入！"_s);
    click(w.ui->Command1);
    retype(w.ui->txtExaminationNum, u"X"_s);
    script_.expect(vbYes, ask).expect(vbOK, u"修改成功！"_s);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(stored), u"X|||2009-09-13|a|002001|0 - 建立中"_s);

    // A failing statement has no handler, and a word that the subtype lost is refused by its list.
    open(3);
    script_.expect(vbYes, ask).expect();
    statementsOf([&] { click(w.ui->Command1); }, 3);
    EXPECT_EQ(programEnds().size(), 1U);
    commitWhatIsOpen();
    cnnPublic.Execute(u"update Examination set DescScope1='甲' where ExaminationID=3"_s);
    EXPECT_EQ(errorOf([&] { open(3); }), 383);
}

}  // namespace
}  // namespace talvora::test
