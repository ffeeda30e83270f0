#include "assessment/question_sheet.h"
#include "platform/numbers.h"
#include "support/windows.h"
#include "windows/journey_bank.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

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

TEST_F(Sheet, LaysOutEachNumberOfAnswers) {
    for (int answers = 2; answers <= 5; ++answers) {
        sheet.clear();
        addPaper(answers, {u"一"_s, u"二"_s});
        ASSERT_EQ(grid.Rows(), 2 + 2 * (answers + 1)) << answers;
        EXPECT_TRUE(grid.CellFontBold(1, 1));
        EXPECT_EQ(grid.CellAlignment(1, 1), GridAlign::CenterCenter);
        EXPECT_EQ(grid.TextMatrix(2 + answers + 1, 0), u" 2"_s);
        EXPECT_EQ(grid.TextMatrix(2 + answers, 1), QChar(u'A' + answers - 1) + u"． 一-"_s + QString::number(answers));
        EXPECT_TRUE(grid.CellPicture(2, 1).isNull());
        EXPECT_FALSE(grid.CellPicture(3, 1).isNull());
        EXPECT_TRUE(grid.CellPicture(2 + answers + 1, 1).isNull());
    }
}

// Every answer after every other, on the first question of a grid: the mark moves, the letter follows.
TEST_F(Sheet, MarkMovesFromAnyAnswerToAnyOther) {
    for (int first = 0; first < 5; ++first) {
        for (int second = 0; second < 5; ++second) {
            if (first == second) {
                continue;
            }
            sheet.clear();
            addPaper(5, {u"一"_s, u"二"_s});
            sheet.toggle(3 + first);
            EXPECT_EQ(grid.RowData(2), QString(QChar(u'A' + first)));
            sheet.toggle(3 + second);
            EXPECT_EQ(marks(&grid), QChar(u'A' + second) + u"-"_s) << first << " then " << second;
            EXPECT_EQ(grid.RowData(2), QString(QChar(u'A' + second)));
        }
    }
}

TEST_F(Sheet, LastRowOfTheGridKeepsItsMark) {
    addPaper(4, {u"一"_s, u"二"_s});
    sheet.toggle(11);
    sheet.toggle(9);
    EXPECT_EQ(marks(&grid), u"-BD"_s);
    EXPECT_EQ(grid.RowData(7), u"B"_s) << "only the letter last chosen counts";
    sheet.clear();
    addPaper(2, {u"一"_s});
    sheet.toggle(4);
    sheet.toggle(3);
    EXPECT_EQ(marks(&grid), u"A"_s) << "a B does not";
}

TEST_F(Sheet, TakingAMarkOffKeepsTheAnswer) {
    addPaper(2, {u"一"_s});
    sheet.toggle(4);
    sheet.toggle(4);
    EXPECT_EQ(marks(&grid), u"-"_s);
    EXPECT_EQ(sheet.answers(sections).Item(1)->SelectAnswer, u"B"_s);
}

// A paper of two answers: the sweep looks on into the next question, where only a text that begins with the letter
// sought is touched.
TEST_F(Sheet, SweepReachesQuestionsThatBeginWithItsLetter) {
    addPaper(2, {u"一"_s, u"C 字开头的题目"_s, u"三"_s});
    sheet.toggle(3);
    EXPECT_FALSE(grid.CellPicture(5, 1).isNull());
    EXPECT_TRUE(grid.CellPicture(8, 1).isNull());
}

TEST_F(Sheet, GathersTheAnswersOfAllSections) {
    addPaper(2, {u"一"_s, u"二"_s});
    auto dimension = std::make_shared<cTesting>();
    dimension->TestingID = 9;
    dimension->TypeCode = u"002"_s;
    sections.Add(dimension);
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
