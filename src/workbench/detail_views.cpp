#include "workbench/detail_views.h"

#include "platform/numbers.h"
#include "platform/text.h"
#include "results/ctesting.h"
#include "results/ctestingdetail.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"
#include "toolkit/look/theme.h"
#include "workbench/list_colours.h"
#include "workbench/list_rows.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

void fillQuestions(const FlexGrid& list, FlexGrid& detail) {
    detail.setCols(12);
    detail.setFormatString(
        u"序号| 测试题目                                     |选项A      |分数   |选项B      |分数   |选项C      |分数   |选项D      |分数   |选项E      |分数   "_s);
    for (int col = 0; col < detail.Cols(); ++col) {
        const bool score = col >= 3 && col % 2 == 1;
        detail.setColAlignment(col, score ? GridAlign::RightCenter : GridAlign::LeftCenter);
    }
    if (list.Row() < 0 || list.IsSubtotal(list.Row())) {
        return;
    }
    // A type that its neighbours in the list leave without a node has nothing behind its code.
    const QString paper = dropLeft(list.TextMatrix(list.Row(), 0), subtypeCodeLength);
    if (paper.isEmpty()) {
        return;
    }
    int number = 0;
    for (const auto& item : cExamination::GetQuestions(toInt16(paper))) {
        const cQuestion& q = *item;
        detail.AddItem(rowText(++number, q.QuestionName, q.Answer1, q.Score1, q.Answer2, q.Score2, q.Answer3, q.Score3,
                               q.Answer4, q.Score4, q.Answer5, q.Score5));
    }
}

// A row of the test's family as a node above its answers. What is neither a model, a main type nor a subtype keeps
// level and look of a plain row.
void addPart(FlexGrid& detail, const cTesting& part) {
    detail.AddItem(rowText(part.TypeName));
    const int row = detail.Rows() - 1;
    const GridRange cells{row, 0, row, detail.Cols() - 1};
    detail.setIsSubtotal(row, true);
    switch (part.TypeCode.size()) {
        case 0:
            detail.setRowOutlineLevel(row, 1);
            break;
        case mainTypeCodeLength:
            detail.setRowOutlineLevel(row, 2);
            detail.setCellBackColor(cells, theme::Workspace);
            break;
        case subtypeCodeLength:
            detail.setRowOutlineLevel(row, 3);
            detail.setCellBackColor(cells, PaleYellow);
            break;
        default:
            break;
    }
    detail.setTextMatrix(row, 7, QString::number(part.Score));
}

void addAnswers(FlexGrid& detail, qint32 testingId) {
    cTestingDetails answers;
    answers.Find(testingId);
    for (const auto& item : answers) {
        const cTestingDetail& a = *item;
        detail.AddItem(
            rowText(a.QuestionName, a.Answer1, a.Answer2, a.Answer3, a.Answer4, a.Answer5, a.SelectAnswer, a.Score));
        const auto chosen = static_cast<int>(u"ABCDE"_s.indexOf(a.SelectAnswer)) + 1;
        if (a.SelectAnswer.size() == 1 && chosen > 0) {
            const int row = detail.Rows() - 1;
            detail.setCellForeColor({row, chosen, row, chosen}, Red);
        }
    }
}

void fillAnswers(const FlexGrid& list, FlexGrid& detail) {
    detail.setOutlineBar(GridOutlineBar::CompleteLeaf);
    detail.setCols(8);
    detail.setFormatString(
        u" 测试题目                                        |  选项A           |  选项B           |  选项C            |  选项D           |  选项E           |选择答案|  得分"_s);
    for (int col = 0; col < detail.Cols(); ++col) {
        detail.setColAlignment(col, col == 7 ? GridAlign::RightCenter : GridAlign::LeftCenter);
    }
    if (list.Row() < 0) {
        return;
    }
    cTestings family;
    family.Find(toInt16(list.TextMatrix(list.Row(), 1)), QString());
    for (const auto& part : family) {
        addPart(detail, *part);
        addAnswers(detail, part->TestingID);
    }
}

}  // namespace

void FillDetailGrid(const QString& module, const FlexGrid& list, FlexGrid& detail) {
    detail.setRows(1);
    detail.setFitToTexts(true);
    if (module.toLower() == "testingtype"_L1) {
        fillQuestions(list, detail);
        detail.setFrozenCols(2);
    } else if (module.toLower() == "testing"_L1) {
        fillAnswers(list, detail);
        detail.setFrozenCols(1);
    }
}

}  // namespace talvora
