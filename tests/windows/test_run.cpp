#include "assessment/frmmodel.h"
#include "assessment/frmtesting.h"
#include "windows/journey_bank.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

/// An operator's window, with what a candidate has to give.
class Run : public JourneyTest {
 protected:
    Run() : w(frmTesting::Default()) { w.Show(); }

    void start(const QString& name, const QString& test) {
        retype(w.ui->txtID, u"1001"_s);
        retype(w.ui->txtName, name);
        choose(w.ui->cmbTypeName, test);
        click(w.ui->cmdStart);
    }

    frmTesting& w;
};

TEST_F(Run, OperatorTestsOneCandidateAfterAnother) {
    start(u"甲"_s, u"|-责任心"_s);
    for (int question = 1; question <= 3; ++question) {
        answer(w.ui->fg1, question, u'D');
    }
    click(w.ui->cmdSubmit);
    EXPECT_TRUE(w.ui->txtTestingResult->toPlainText().contains(u"测评得分：12\n测评结果：优秀"_s));
    w.ui->SSTab1->setCurrentIndex(0);
    answer(w.ui->fg1, 1, u'A');
    EXPECT_EQ(marks(w.ui->fg1), u"DDD"_s) << "after the submission clicks do nothing";

    click(w.ui->cmdNew);
    EXPECT_TRUE(w.ui->txtID->text().isEmpty() && w.ui->txtName->text().isEmpty());
    EXPECT_TRUE(w.ui->txtTestingResult->toPlainText().isEmpty());
    EXPECT_EQ(w.ui->fg1->Rows(), 1);
    EXPECT_EQ(w.ui->SSTab1->currentIndex(), 0);
    EXPECT_FALSE(w.ui->cmdNew->isVisible() || w.ui->cmdSubmit->isEnabled());
    EXPECT_EQ(w.ui->cmbTypeName->text(), u"|-责任心"_s) << "the test stays chosen";
    EXPECT_EQ(focused(), w.ui->txtID);

    // The 20 minutes left over count in a model.
    whenModal<frmModel>([](frmModel& model) { click(model.ui->cmdOK); });
    start(u"乙"_s, u"|-销售经理模型"_s);
    EXPECT_EQ(w.ui->lblTime->text(), u"41"_s);
    click(w.ui->cmdSubmit);
    click(w.ui->cmdNew);

    // As long as a position can be typed, and nothing answered at all.
    type(w.ui->cmbPosition, QString(60, u'岗'));
    start(u"丙"_s, u"|-沟通"_s);
    EXPECT_EQ(w.ui->lblTime->text(), u"0"_s);
    EXPECT_FALSE(w.Timer1->isActive()) << "no time limit, no countdown";
    click(w.ui->cmdSubmit);
    EXPECT_TRUE(w.ui->txtTestingResult->toPlainText().endsWith(u"测评得分：0\n测评结果："_s));
    EXPECT_EQ(rowsOf(u"select Name, len(PostName), ExamQuestions, FactQuestions, Score, TestingResult from "
                     "TestingResult where SolutionID=0"_s),
              u"甲|0|3|3|12|优秀\n丙|50|2|null|null|null"_s);
    EXPECT_EQ(rowsOf(u"select count(*) from TestingResultDetail where SelectAnswer=''"_s), u"7"_s);
}

TEST_F(Run, CountdownSubmitsWhatIsMarked) {
    PromptScript script;
    start(u"甲"_s, u"|-逻辑推理"_s);
    ASSERT_EQ(w.ui->lblTime->text(), u"1"_s);
    ASSERT_TRUE(w.Timer1->isActive());
    answer(w.ui->fg1, 1, u'B');
    script.expect(vbOK, u"系统正在提交试卷......"_s);
    w.Timer1->setInterval(1);
    waitFor([&] { return w.ui->cmdNew->isVisible(); });
    EXPECT_EQ(script.last().style, vbInformation);
    EXPECT_EQ(w.ui->lblTime->text(), u"0"_s);
    EXPECT_FALSE(w.Timer1->isActive());
    EXPECT_TRUE(w.ui->cmdStart->isEnabled()) << "only here it ends up enabled beside cmdNew";
    EXPECT_EQ(rowsOf(u"select SelectAnswer from TestingResultDetail order by ID"_s), u"B\n"_s);

    w.Timer1->setInterval(60000);
    click(w.ui->cmdStart);
    EXPECT_EQ(w.ui->fg1->Rows(), 1 + 1 + 2 * 3);
    EXPECT_TRUE(w.ui->cmdNew->isVisible());
    w.ui->SSTab1->setCurrentIndex(0);
    answer(w.ui->fg1, 1, u'B');
    EXPECT_EQ(marks(w.ui->fg1), u"--"_s) << "clicks are ignored while cmdNew is visible";
}

TEST_F(Run, PositionChosenInMidRunEmptiesTheGrid) {
    w.Unload();
    setOption(u"blnPostRelational"_s, u"Y"_s);
    w.Show();
    start(u"甲"_s, u"|-责任心"_s);
    answer(w.ui->fg1, 1, u'D');
    ASSERT_TRUE(w.ui->cmbPostName->isEnabled()) << "it is not among the fields that a run disables";
    choose(w.ui->cmbPostName, u"|-销售经理"_s);
    EXPECT_EQ(w.ui->fg1->Rows(), 1);
    click(w.ui->cmdSubmit);
    EXPECT_EQ(rowsOf(u"select QuestionName, Answer1, SelectAnswer, Score from TestingResultDetail"_s),
              u"|||null\n|||null\n|||null"_s);
    EXPECT_EQ(rowsOf(u"select PostName from TestingResult"_s), u"销售经理"_s);
}

TEST_F(Run, DimensionBeyondTheThirdIsTakenForAnElement) {
    cnnPublic.Execute(
        u"insert into TestingSolutionDetail (SolutionID, TypeCode, TypeName, Score, Weighing) values "
        "(1, '004', '领导力', 5, 0.25)"_s);
    PromptScript script;
    script.expect();
    whenModal<frmModel>([](frmModel& model) { click(model.ui->cmdOK); });
    start(u"甲"_s, u"|-销售经理模型"_s);
    EXPECT_EQ(programEnds(), std::vector<ProgramEnd>{ProgramEnd::Failed});
    EXPECT_TRUE(script.last().text.contains(u"3021"_s)) << script.last().text.toStdString();
}

// A step of the storing fails: no message, and the report shows what this connection can see.
TEST_F(Run, FailedStoringStillReports) {
    start(u"甲"_s, u"|-责任心"_s);
    answer(w.ui->fg1, 1, u'D');
    cnnPublic.setObserver([](const QString& statement) {
        if (statement.startsWith(u"update TestingResult set FactQuestions"_s)) {
            throw DatabaseError(50000, u"refused by the test"_s, u"HY000"_s);
        }
    });
    click(w.ui->cmdSubmit);
    cnnPublic.setObserver({});
    EXPECT_TRUE(w.ui->txtTestingResult->toPlainText().endsWith(u"测评得分：4\n测评结果："_s));
    EXPECT_TRUE(w.ui->cmdNew->isVisible());
}

}  // namespace
}  // namespace talvora::test
