#include "assessment/frmmodel.h"
#include "assessment/frmtesting.h"
#include "assessment/question_sheet.h"
#include "windows/grid_listing.h"
#include "windows/journey_bank.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

/// An operator's window, with what a candidate has to give.
class TestWindow : public JourneyTest {
 protected:
    TestWindow() { w.Show(); }

    void reopenByPosition() {
        w.Unload();
        setOption(u"blnPostRelational"_s, u"Y"_s);
        w.Show();
    }

    void start(const QString& name, const QString& test) {
        retype(w.ui->txtID, u"1001"_s);
        retype(w.ui->txtName, name);
        choose(w.ui->cmbTypeName, test);
        click(w.ui->cmdStart);
    }

    static frmModel& openModel() {
        frmModel::Default().SolutionID = 1;
        frmModel::Default().Show();
        return frmModel::Default();
    }

    frmTesting& w = frmTesting::Default();
};

QStringList items(const ComboBox* list) {
    QStringList texts;
    for (int i = 0; i < list->ListCount(); ++i) {
        texts += u"%1=%2"_s.arg(list->List(i)).arg(list->ItemData(i));
    }
    return texts;
}

TEST_F(TestWindow, OpensForAnOperatorAndTakesTheChosenPaper) {
    EXPECT_EQ(focused(), w.ui->txtID);
    EXPECT_EQ(items(w.ui->cmbTypeName),
              (QStringList{u"职业素养=1001"_s, u"|-责任心=2001001"_s, u"|-诚信=2001002"_s, u"专业能力=1002"_s,
                           u"|-逻辑推理=2002001"_s, u"|-沟通=2002002"_s, u"素质模型=3000"_s, u"|-销售经理模型=41"_s}));
    EXPECT_EQ(items(w.ui->cmbPosition), (QStringList{u"总经理=0"_s, u"|-销售经理=0"_s, u"||-销售专员=0"_s}));
    EXPECT_EQ(w.ui->cmbTypeName->text() + w.ui->cmbExamNum->text() + w.ui->cmbPosition->text() +
                  w.ui->cmbSalary->text() + w.ui->cmbSex->text() + w.ui->cmbEducation->text(),
              u"|-责任心ZR-12000~4000男博士"_s);
    choose(w.ui->cmbTypeName, u"|-逻辑推理"_s);
    EXPECT_GE(w.ui->cmbExamNum->ListIndex(), 0) << "one is drawn";
    choose(w.ui->cmbExamNum, u"LJ-2"_s);
    type(w.ui->txtID, u"1"_s);
    type(w.ui->txtName, u"a"_s);
    click(w.ui->cmdStart);
    EXPECT_TRUE(w.ui->fg1->TextMatrix(2, 1).startsWith(u"LJ-2"_s));
}

TEST_F(TestWindow, ChecksInTheirOrder) {
    const QString quote = u"文本框中不可输入字符［'］！"_s;
    QWidget* const fields[] = {w.ui->txtID, w.ui->txtName, w.ui->txtAge, w.ui->cmbSalary};
    const struct {
        QString typed, typeName, words;  // typed into these fields
        QWidget* field;
    } table[] = {
        {u"  ||x|?"_s, u"素质模型"_s, u"［身份证号］不能为空！"_s, w.ui->txtID},
        {u"1|  |x|?"_s, u"素质模型"_s, u"［姓名］不能为空！"_s, w.ui->txtName},
        {u"1|a|x|?"_s, u"素质模型"_s, u"［年龄］中只能输入数字！"_s, w.ui->txtAge},
        {u"1|a'|30|4０00"_s, u"素质模型"_s, u"［薪资范围］输入不合法，请重新输入！"_s, w.ui->cmbSalary},
        {u"1|a||"_s, u"素质模型"_s, u"请选择一种具体的［测评类型］进行测评！"_s, w.ui->cmbTypeName},
        {u"1|a'||1~2~3"_s, u"|-诚信"_s, u"所选测评类型尚未设置测评试卷，请换一种测评类型！"_s, w.ui->cmbExamNum},
        {u"1'|a||"_s, u"|-沟通"_s, quote, w.ui->txtName},
        {u"1|a'||"_s, u"|-销售经理模型"_s, quote, w.ui->txtName},
    };
    for (const auto& row : table) {
        const QStringList texts = row.typed.split(u'|');
        for (int i = 0; i < 4; ++i) {
            retype(fields[i], texts[i]);
        }
        choose(w.ui->cmbTypeName, row.typeName);
        refuses(w.ui->cmdStart, row.words, row.field);
        EXPECT_TRUE(w.ui->cmdStart->isEnabled() && w.ui->fg1->Rows() == 1) << row.words.toStdString();
    }
}

TEST_F(TestWindow, PositionsBringTheirModels) {
    reopenByPosition();
    EXPECT_TRUE(w.ui->cmbPostName->isVisible() && !w.ui->cmbPosition->isVisible());
    EXPECT_EQ(w.ui->cmbTypeName->ListCount(), 6) << "subtypes can be chosen until a position is";

    type(w.ui->txtID, u"1"_s);
    type(w.ui->txtName, u"a"_s);
    for (const QString& position : {u"||-销售专员"_s, u"|-销售经理"_s, u"总经理"_s}) {
        const bool hasModel = position == u"|-销售经理"_s;
        const QStringList tests{u"素质模型=3000"_s, u"|-销售经理模型=41"_s};
        choose(w.ui->cmbPostName, position);
        EXPECT_EQ(items(w.ui->cmbTypeName), tests.first(hasModel ? 2 : 1));
        EXPECT_EQ(w.ui->cmbTypeName->ListIndex(), hasModel ? 1 : -1);
    }
    refuses(w.ui->cmdStart, u"请选择一种具体的［测评类型］进行测评！"_s, w.ui->cmbTypeName);
    // A first-level position loses its first character.
    for (const auto& [name, tests] : {std::pair(u"总经理"_s, 1), {u"经理"_s, 2}}) {
        cnnPublic.Execute(u"update TestingSolution set PostName='"_s + name + u"'"_s);
        choose(w.ui->cmbPostName, u"|-销售经理"_s);
        choose(w.ui->cmbPostName, u"总经理"_s);
        EXPECT_EQ(w.ui->cmbTypeName->ListCount(), tests);
    }
}

TEST_F(TestWindow, ModelDialogListsThePapersAndChangesNothing) {
    frmModel& model = openModel();
    const QString drawn = model.ui->fg1->TextMatrix(4, 2);
    clickCell(model.ui->fg1, 4, 2);
    EXPECT_EQ(model.Combo1->text(), drawn);
    choose(model.Combo1, drawn == u"LJ-1"_s ? u"LJ-2"_s : u"LJ-1"_s);
    EXPECT_EQ(model.ui->fg1->TextMatrix(4, 2), drawn);
    clickCell(model.ui->fg1, 3, 2);
    EXPECT_TRUE(model.Combo1->isVisible() && model.Combo1->ListCount() == 0) << "a dimension's list comes up empty";
    clickCell(model.ui->fg1, 4, 1);
    EXPECT_FALSE(model.Combo1->isVisible());
    clickCell(model.ui->fg1, 4, 2);
    model.ui->fg1->setIsCollapsed(1, true);
    EXPECT_TRUE(!model.ui->fg1->CellRect(4, 2).isEmpty() && !model.Combo1->isVisible()) << "its cell has moved";

    model.ui->fg1->setIsCollapsed(1, false);
    cnnPublic.Execute(u"update Examination set Status='0 - 建立中' where ExaminationNum='"_s + drawn + u"'"_s);
    clickCell(model.ui->fg1, 4, 2);
    EXPECT_EQ(model.Combo1->ListIndex(), -1);
    EXPECT_EQ(model.Combo1->placeholderText(), drawn) << "a paper that is no longer to be drawn is shown all the same";
    EXPECT_EQ(model.Combo1->ListCount(), 1);
    press(Qt::Key_Return);  // leaves without a choice
    EXPECT_EQ(model.ui->fg1->TextMatrix(4, 2), drawn);
    click(model.ui->cmdOK);
    EXPECT_EQ(model.Testings->Item(4)->TestingDesc, drawn);
}

TEST_F(TestWindow, ModelDialogRefusesAModelWithAnElementWithoutPapers) {
    cnnPublic.Execute(u"update Examination set Status='0 - 建立中' where TypeCode='002001'"_s);
    frmModel& model = openModel();
    EXPECT_EQ(listing(*model.ui->fg1), u"1 001|职业素养\n- 001001|责任心|ZR-1\n1 002|专业能力\n- 002001|逻辑推理"_s);
    PromptScript script;
    script.expect(vbOK, u"某些测评维度尚未设置试卷，您不能继续测评！"_s);
    click(model.ui->cmdOK);
    EXPECT_EQ(model.Testings->Count(), 3) << "the rows up to the refused one";
    click(model.ui->cmdClose);
    EXPECT_TRUE(model.IsCancel);
}

TEST_F(TestWindow, OperatorTestsOneCandidateAfterAnother) {
    start(u"甲"_s, u"|-责任心"_s);
    for (int question = 1; question <= 3; ++question) {
        answer(w.ui->fg1, question, u'D');
    }
    click(w.ui->cmdSubmit);
    EXPECT_TRUE(w.ui->txtTestingResult->toPlainText().contains(u"测评得分：12\n测评结果：优秀"_s));
    click(w.ui->cmdNew);
    EXPECT_EQ(w.ui->txtID->text() + w.ui->txtName->text() + w.ui->txtTestingResult->toPlainText(), QString());
    EXPECT_FALSE(w.ui->cmdNew->isVisible() || w.ui->cmdSubmit->isEnabled() || w.ui->fg1->Rows() > 1);
    EXPECT_EQ(w.ui->cmbTypeName->text(), u"|-责任心"_s) << "the test stays chosen";
    EXPECT_EQ(focused(), w.ui->txtID);

    whenModal<frmModel>([](frmModel& model) { model.window()->close(); });  // hands back an empty list
    start(u"乙"_s, u"|-销售经理模型"_s);
    EXPECT_TRUE(w.ui->cmdStart->isEnabled() && !w.ui->cmdSubmit->isEnabled());
    // The 20 minutes left over count in a model.
    whenModal<frmModel>([](frmModel& model) { click(model.ui->cmdOK); });
    start(u"乙"_s, u"|-销售经理模型"_s);
    EXPECT_EQ(w.ui->lblTime->text(), u"41"_s);
    click(w.ui->cmdSubmit);
    click(w.ui->cmdNew);

    // As long as a position and a salary can be typed, an age that ends in a sign, and nothing answered at all.
    type(w.ui->cmbPosition, QString(60, u'岗'));
    retype(w.ui->cmbSalary, QString(60, u'~'));
    type(w.ui->txtAge, u"5-"_s);
    start(u"丙"_s, u"|-沟通"_s);
    EXPECT_FALSE(w.Timer1->isActive()) << "no time limit, no countdown";
    click(w.ui->cmdSubmit);
    EXPECT_EQ(
        rowsOf(u"select Name, len(PostName), len(Salary), Age, ExamQuestions, FactQuestions, Score, TestingResult "
               "from TestingResult where SolutionID=0"_s),
        u"甲|0|9|0|3|3|12|优秀\n丙|50|50|5|2|null|null|null"_s);
}

TEST_F(TestWindow, CountdownSubmitsWhatIsMarked) {
    PromptScript script;
    start(u"甲"_s, u"|-逻辑推理"_s);
    ASSERT_EQ(w.ui->lblTime->text(), u"1"_s);
    answer(w.ui->fg1, 1, u'B');
    script.expect(vbOK, u"系统正在提交试卷......"_s);
    w.Timer1->setInterval(1);
    waitFor([&] { return w.ui->cmdNew->isVisible(); });
    EXPECT_FALSE(w.Timer1->isActive());
    EXPECT_TRUE(w.ui->cmdStart->isEnabled()) << "only here it ends up enabled beside cmdNew";
    w.ui->txtTestingResult->setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), w.ui->cmdStart) << "from left to right";
    EXPECT_EQ(rowsOf(u"select SelectAnswer from TestingResultDetail order by ID"_s), u"B\n"_s);

    w.Timer1->setInterval(60000);
    click(w.ui->cmdStart);
    w.ui->SSTab1->setCurrentIndex(0);
    answer(w.ui->fg1, 1, u'B');
    EXPECT_EQ(marks(w.ui->fg1), u"--"_s) << "clicks are ignored while cmdNew is visible";
}

TEST_F(TestWindow, PositionChosenInMidRunEmptiesTheGrid) {
    reopenByPosition();
    start(u"甲"_s, u"|-责任心"_s);
    answer(w.ui->fg1, 1, u'D');
    choose(w.ui->cmbPostName, u"|-销售经理"_s);
    click(w.ui->cmdSubmit);
    EXPECT_EQ(rowsOf(u"select QuestionName, Answer1, SelectAnswer, Score from TestingResultDetail"_s),
              u"|||null\n|||null\n|||null"_s);
}

TEST_F(TestWindow, DimensionBeyondTheThirdIsTakenForAnElement) {
    cnnPublic.Execute(
        u"insert into TestingSolutionDetail (SolutionID, TypeCode, TypeName, Score, Weighing) values "
        "(1, '004', '领导力', 5, 0.25)"_s);
    PromptScript script;
    script.expect();
    whenModal<frmModel>([](frmModel& model) { click(model.ui->cmdOK); });
    start(u"甲"_s, u"|-销售经理模型"_s);
    EXPECT_TRUE(script.last().text.contains(u"3021"_s)) << script.last().text.toStdString();
}

// A step of the storing fails: no message, and the report shows what this connection can see.
TEST_F(TestWindow, FailedStoringStillReports) {
    start(u"甲"_s, u"|-责任心"_s);
    answer(w.ui->fg1, 1, u'D');
    statementsOf([&] { click(w.ui->cmdSubmit); }, 13);  // which counts the answers
    EXPECT_TRUE(w.ui->txtTestingResult->toPlainText().endsWith(u"测评得分：4\n测评结果："_s));
}

/// The sheet of questions by itself, on a grid without a window.
class Sheet : public WindowTest {
 protected:
    /// Adds a paper and the section that a run keeps of it.
    void addPaper(int answers, const QStringList& questions, const QString& typeCode = u"001001"_s) {
        cQuestions list;
        for (const auto& text : questions) {
            auto question = std::make_shared<cQuestion>();
            question->QuestionID = static_cast<qint16>(list.Count() + 1);
            question->QuestionName = text;
            for (std::size_t i = 0; i < questionAnswers.size(); ++i) {
                (*question).*questionAnswers[i] = u"%1-%2"_s.arg(text).arg(i + 1);
            }
            list.Add(question);
        }
        auto section = std::make_shared<cTesting>();
        section->TestingID = sections.Count() + 1;
        section->TypeCode = typeCode;
        section->ExaminationID = QString::number(10 * section->TestingID);
        section->TestingDesc = QString::number(answers);
        section->ExamQuestions = sheet.addSection(u"试卷"_s, answers, list);
        sections.Add(section);
    }

    FlexGrid grid;
    QuestionSheet sheet{&grid};
    cTestings sections;
};

// Every answer after every other, on the first question of a grid: the mark moves, the letter follows. The same answer
// once more takes the mark off and keeps the letter.
TEST_F(Sheet, MarkMovesFromAnyAnswerToAnyOther) {
    for (int pair = 0; pair < 25; ++pair) {
        const int first = pair / 5;
        const int second = pair % 5;
        const QChar letter(u'A' + second);
        sheet.clear();
        addPaper(5, {u"一"_s, u"二"_s});
        sheet.toggle(3 + first);
        sheet.toggle(3 + second);
        EXPECT_EQ(marks(&grid), first == second ? u"--"_s : letter + u"-"_s) << first << " then " << second;
        EXPECT_EQ(grid.RowData(2), QString(letter));
    }
}

// A paper of two answers: the sweep looks on into the next question, and touches a text that begins with its letter.
TEST_F(Sheet, SweepSparesTheLastRowAndReachesTheNextQuestion) {
    addPaper(4, {u"一"_s, u"二"_s});
    sheet.toggle(11);
    sheet.toggle(9);
    EXPECT_EQ(marks(&grid), u"-BD"_s) << "the last row of the grid keeps its mark";
    EXPECT_EQ(grid.RowData(7), u"B"_s) << "only the letter last chosen counts";
    sheet.clear();
    addPaper(2, {u"一"_s, u"C 字开头的题目"_s, u"三"_s});
    sheet.toggle(3);
    EXPECT_FALSE(grid.CellPicture(5, 1).isNull());
    EXPECT_TRUE(grid.CellPicture(8, 1).isNull());
}

TEST_F(Sheet, GathersTheAnswersOfAllSections) {
    addPaper(2, {u"一"_s, u"二"_s});
    sections.Add(std::make_shared<cTesting>())->TypeCode = u"002"_s;  // a dimension
    addPaper(3, {}, u"002001"_s);
    addPaper(5, {u"有制表符\t的题"_s}, u"002002"_s);
    sheet.toggle(4);
    sheet.toggle(15);
    QStringList gathered;
    for (const auto& detail : sheet.answers(sections)) {
        gathered +=
            u"%1 %2 %3 %4 %5 %6 %7"_s.arg(detail->ID)
                .arg(detail->ExaminationID)
                .arg(detail->QuestionName, detail->Answer1, detail->Answer3, detail->Answer5, detail->SelectAnswer);
    }
    EXPECT_EQ(gathered, (QStringList{u"2 10 一 一-1   B"_s, u"5 10 二 二-1   "_s,
                                     u"10 40 有制表符\t的题 有制表符\t的题-1 有制表符\t的题-3 有制表符\t的题-5 E"_s}));
}

}  // namespace
}  // namespace talvora::test
