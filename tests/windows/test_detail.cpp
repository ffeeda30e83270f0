#include "windows/grid_listing.h"
#include "windows/journey_bank.h"
#include "workbench/detail_views.h"
#include "workbench/module_views.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class Detail : public JourneyTest {
 protected:
    QString detailOf(const QString& module, int row) {
        FillModuleGrid(fg, module);
        if (row > 0) {
            fg.Select(row, 1);
        }
        FillDetailGrid(module, fg, detail);
        return listing(detail);
    }
    FlexGrid fg;
    FlexGrid detail;
};

TEST_F(Detail, QuestionsOfAPaperButNotOfAType) {
    EXPECT_EQ(detailOf(u"TestingType"_s, 3),
              u"- 1|ZR-1 第1题|做法1|1|做法2|2|做法3|3|做法4|4||0\n"
              "- 2|ZR-1 第2题|做法1|1|做法2|2|做法3|3|做法4|4||0\n"
              "- 3|ZR-1 第3题|做法1|1|做法2|2|做法3|3|做法4|4||0"_s);
    EXPECT_EQ(alignments(detail), u"LLLRLRLRLRLR"_s);
    for (const int row : {0, 1, 2}) {
        EXPECT_EQ(detailOf(u"testingtype"_s, row), QString()) << row;
    }
    EXPECT_EQ(detailOf(u"position"_s, 1), QString());
}

TEST_F(Detail, AnswersOfATestUnderItsParts) {
    const auto row = [](const QString& values) {
        cnnPublic.Execute(
            u"insert into TestingResult (TestingNumber, TypeName, TypeCode, Score, SolutionID) values "_s + values);
    };
    row(u"(5, '推理', '002001', 6, 0)"_s);
    row(u"(7, '要素', '001001', 9, 1)"_s);
    row(u"(7, '维度', '001', 5, 1)"_s);
    row(u"(7, '模型', null, 7, 1)"_s);
    const auto answer = [](int testing, const QString& letter) {
        cnnPublic.Execute(
            u"insert into TestingResultDetail (TestingID, ExaminationID, QuestionName, Answer1, Answer5, SelectAnswer, "
            "Score) values (%1, 1, 'q', 'x', 'y', '%2', 4)"_s.arg(testing)
                .arg(letter));
    };
    for (const auto& letter : {u"A"_s, u"E"_s, u"e"_s, u"F"_s, QString()}) {
        answer(2, letter);
    }
    EXPECT_EQ(detailOf(u"testing"_s, 2),
              u"1 模型|||||||7\n"
              "2 维度|||||||5 grey\n"
              "3 要素|||||||9 yellow\n"
              "- q|x||||y|A|4 mixed\n"
              "- q|x||||y|E|4 mixed\n"
              "- q|x||||y|e|4\n"
              "- q|x||||y|F|4\n"
              "- q|x||||y||4"_s);
    EXPECT_EQ(detail.CellForeColor(4, 1), QColor(255, 0, 0));
    EXPECT_EQ(detail.CellForeColor(5, 5), QColor(255, 0, 0));
    EXPECT_EQ(detailOf(u"testing"_s, 1), u"3 推理|||||||6 yellow"_s);
    EXPECT_EQ(detailOf(u"testing"_s, 0), QString());
}

}  // namespace
}  // namespace talvora::test
