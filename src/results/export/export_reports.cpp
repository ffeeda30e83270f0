#include "results/export/export_reports.h"

#include "platform/numbers.h"
#include "platform/text.h"
#include "results/ctesting.h"
#include "results/ctestingdetail.h"
#include "results/export/export_sheet.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/grid/flexgrid.h"

#include <array>
#include <initializer_list>
#include <unordered_set>
#include <vector>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

/// A label of a block's head and the cell of the list that stands beside it: its column, and its row counted from the
/// record's.
struct HeadCell {
    QString label;
    int column;
    int rowOffset = 0;
};

/// Writes one row of a block's head: labels in the odd columns, the values to their right.
void writeHead(ExportSheet& output, const FlexGrid& grid, int gridRow, int row, const std::vector<HeadCell>& cells) {
    int column = 1;
    for (const HeadCell& cell : cells) {
        output.write(row, column, cell.label);
        output.write(row, column + 1, [&] { return grid.TextMatrix(gridRow + cell.rowOffset, cell.column); });
        column += 2;
    }
}

void writeRow(ExportSheet& output, int row, int column, std::initializer_list<QString> texts) {
    for (const QString& text : texts) {
        output.write(row, column++, text);
    }
}

/// Runs `writeBlock(output, grid, gridRow, r)` for each record of the list, which gives the row after its block, and
/// shows the sheet.
template <class WriteBlock>
void exportBlocks(FlexGrid& grid, bool isPrint, const QString& title, int titleColumn, QProgressBar& progressBar,
                  bool onlySelected, WriteBlock writeBlock) {
    const std::vector<int> selectedRows = grid.SelectedRows();
    const int rows = grid.Rows();
    if (onlySelected ? selectedRows.empty() : rows <= 1) {
        MsgBox(u"没有选择或不存在数据记录，不需导出！"_s, vbInformation);
        return;
    }
    const std::unordered_set<int> selected(selectedRows.begin(), selectedRows.end());
    ExportSheet output(title, titleColumn, progressBar, onlySelected ? static_cast<int>(selected.size()) : rows - 1);
    int r = 2;
    int done = 0;
    for (int row = 1; row < rows; ++row) {
        if (grid.IsSubtotal(row) || (onlySelected && !selected.contains(row))) {
            continue;
        }
        output.setProgress(++done);
        r = writeBlock(output, grid, row, r);
    }
    output.show(isPrint);
}

// --- The report of tests

constexpr int testColumns = 10;
constexpr int questionColumns = 3;
constexpr int firstAnswerColumn = 4;

/// Writes the person's rows from r on and gives the row below them.
int writeTestHead(ExportSheet& output, const FlexGrid& grid, int gridRow, int r) {
    static const std::array<std::vector<HeadCell>, 3> lines{{
        {{u"姓    名"_s, 2}, {u"性    别"_s, 3}, {u"年    龄"_s, 4}, {u"身份证号"_s, 5}, {u"学    历"_s, 6}},
        {{u"职    位"_s, 7}, {u"薪资范围"_s, 8}, {u"测评时间"_s, 9}, {u"测评类型"_s, 10}, {u"模型版本"_s, 11}},
        {{u"试卷题目数"_s, 12}, {u"实际答题数"_s, 13}, {u"测评得分"_s, 14}, {u"测评结果"_s, 15}, {u"结果说明"_s, 16}},
    }};
    int row = r;
    for (const auto& line : lines) {
        writeHead(output, grid, gridRow, row, line);
        for (int column = 2; column <= testColumns; column += 2) {
            output.format({row, column, row, column}, &Workbook::AlignLeft);
        }
        ++row;
    }
    for (int column = 1; column < testColumns; column += 2) {
        output.format({r, column, row - 1, column}, &Workbook::Shade);
    }
    return row;
}

void mergeQuestion(ExportSheet& output, int row) {
    output.format({row, 1, row, questionColumns}, &Workbook::Merge);
}

// The row does not advance after a name: whatever is written next at `row` takes its place, and only a family's last
// name without answers remains. That is meant.
void writeFamilyName(ExportSheet& output, const cTesting& member, int row) {
    QString blanks;
    switch (member.TypeCode.size()) {
        case 0:
            blanks = u" "_s;
            break;
        case mainTypeCodeLength:
            blanks = u"  "_s;
            break;
        case subtypeCodeLength:
            blanks = u"   "_s;
            break;
        default:
            return;
    }
    output.write(row, 1, blanks + member.TypeName);
}

void writeAnswers(ExportSheet& output, const cTestingDetail& detail, int row) {
    output.write(row, 1, detail.QuestionName);
    writeRow(output, row, firstAnswerColumn,
             {detail.Answer1, detail.Answer2, detail.Answer3, detail.Answer4, detail.Answer5, detail.SelectAnswer});
    output.write(row, testColumns, [&] { return double(detail.Score); });
    mergeQuestion(output, row);
}

int writeTest(ExportSheet& output, const FlexGrid& grid, int gridRow, int r) {
    const int first = r;
    r = writeTestHead(output, grid, gridRow, r);
    const int headRow = r;
    output.write(r, 1, u"测评题目（类型）"_s);
    writeRow(output, r, firstAnswerColumn,
             {u"选项A"_s, u"选项B"_s, u"选项C"_s, u"选项D"_s, u"选项E"_s, u"选择"_s, u"得分"_s});
    mergeQuestion(output, r);
    output.format({r, 1, r, testColumns}, &Workbook::Shade);
    ++r;
    cTestings family;
    output.attempt([&] { family.Find(toInt32(grid.TextMatrix(gridRow, 1)), {}); });
    for (const auto& member : family) {
        writeFamilyName(output, *member, r);
        cTestingDetails details;
        output.attempt([&] { details.Find(member->TestingID); });
        for (const auto& detail : details) {
            writeAnswers(output, *detail, r);
            ++r;
        }
    }
    output.format({first, 1, r - 1, testColumns}, &Workbook::Box);
    // A name that has remained goes with its block.
    output.sheet().KeepTogether({first, output.sheet().isEmpty(r, 1) ? r - 1 : r, headRow});
    return r + 1;
}

// --- The report of papers

constexpr int paperColumns = 12;

void writeQuestion(ExportSheet& output, const cQuestion& question, int number, int row) {
    int column = 1;
    output.write(row, column++, [&] { return double(number); });
    output.write(row, column++, question.QuestionName);
    for (std::size_t answer = 0; answer < questionAnswers.size(); ++answer) {
        output.write(row, column++, question.*questionAnswers[answer]);
        output.write(row, column++, [&] { return double(question.*questionScores[answer]); });
    }
}

/// Writes the paper's rows from r on and gives the row below them.
int writePaperHead(ExportSheet& output, const FlexGrid& grid, int gridRow, int r) {
    // The row above is that of the type only for its first paper; for the others it is the paper before. That is meant.
    static const std::array<std::vector<HeadCell>, 2> lines{{
        {{u"试卷类型"_s, 1, -1},
         {u"试卷编号"_s, 1},
         {u"编制人员"_s, 2},
         {u"编制日期"_s, 5},
         {u"审核人员"_s, 3},
         {u"审核日期"_s, 6}},
        {{u"批准人员"_s, 4},
         {u"批准日期"_s, 7},
         {u"每题答案数"_s, 8},
         {u"试卷题目数"_s, 9},
         {u"测评时长"_s, 10},
         {u"试卷说明"_s, 11}},
    }};
    int row = r;
    for (const auto& line : lines) {
        writeHead(output, grid, gridRow, row++, line);
    }
    for (int column = 1; column < paperColumns; column += 2) {
        output.format({r, column, row - 1, column}, &Workbook::Shade);
    }
    return row;
}

int writePaper(ExportSheet& output, const FlexGrid& grid, int gridRow, int r) {
    const int first = r;
    r = writePaperHead(output, grid, gridRow, r);
    const int headRow = r;
    writeRow(output, r, 1,
             {u"序号"_s, u"题目"_s, u"选项A"_s, u"分数"_s, u"选项B"_s, u"分数"_s, u"选项C"_s, u"分数"_s, u"选项D"_s,
              u"分数"_s, u"选项E"_s, u"分数"_s});
    output.format({r, 1, r, paperColumns}, &Workbook::Shade);
    ++r;
    cQuestions questions;
    output.attempt([&] {
        const QString typeCode = grid.TextMatrix(gridRow, 0).left(subtypeCodeLength);
        questions =
            cExamination::GetQuestions(cExamination::GetExamIDByNum(typeCode, trimBlanks(grid.TextMatrix(gridRow, 1))));
    });
    int number = 0;
    for (const auto& question : questions) {
        writeQuestion(output, *question, ++number, r);
        ++r;
    }
    const CellRange block{first, 1, r - 1, paperColumns};
    output.format(block, &Workbook::AlignLeft);
    output.format(block, &Workbook::AlignMiddle);
    output.format(block, &Workbook::Box);
    output.sheet().KeepTogether({first, r - 1, headRow});
    return r + 1;
}

}  // namespace

void ExportTestingReport(FlexGrid& grid, bool isPrint, const QString& title, QProgressBar& progressBar,
                         bool onlySelected) {
    constexpr int titleColumn = 5;
    exportBlocks(grid, isPrint, title, titleColumn, progressBar, onlySelected, writeTest);
}

void ExportPaperReport(FlexGrid& grid, bool isPrint, const QString& title, QProgressBar& progressBar,
                       bool onlySelected) {
    constexpr int titleColumn = 6;
    exportBlocks(grid, isPrint, title, titleColumn, progressBar, onlySelected, writePaper);
}

}  // namespace talvora
