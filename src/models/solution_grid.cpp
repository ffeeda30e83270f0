#include "models/solution_grid.h"

#include "models/line_text.h"
#include "platform/numbers.h"
#include "platform/optional_format.h"

#include <QStringList>

namespace talvora::solution {

using namespace Qt::StringLiterals;

namespace {

QString named(const cDimension& line) {
    return lineText(line.TypeCode, line.TypeName);
}

QString storedPercent(const cDimension& line) {
    return percentText(toNumber(line.Weighing));
}

bool hasElement(const FlexGrid& fg, int row) {
    return !fg.TextMatrix(row, ElementCol).isEmpty();
}

// The cells of the row's dimension.
QString dimensionCells(const FlexGrid& fg, int row) {
    return QStringList{fg.TextMatrix(row, DimensionCol), fg.TextMatrix(row, DimensionScoreCol),
                       fg.TextMatrix(row, DimensionWeightCol)}
        .join(u'\t');
}

}  // namespace

QString percentText(double share) {
    constexpr int decimals = 2;
    return formatOptionalPercent(share, decimals);
}

void setUpGrid(FlexGrid& fg) {
    constexpr int nameWidth = 16;  // in Chinese characters
    constexpr int numberWidth = 6;
    fg.setFixedRows(FirstRow);
    fg.setFormatString(u"测评维度|测评维度|测评维度|测评要素|测评要素|测评要素"_s);
    const QStringList titles = u"维度名称|分数|权重|要素名称|分数|权重"_s.split(u'|');
    const int character = fg.fontMetrics().horizontalAdvance(u'国');
    for (int col = 0; col < fg.Cols(); ++col) {
        const bool isName = col == DimensionCol || col == ElementCol;
        fg.setTextMatrix(1, col, titles[col]);
        fg.setColumnWidth(col, character * (isName ? nameWidth : numberWidth));
        fg.setColAlignment(col, isName ? GridAlign::LeftCenter : GridAlign::RightCenter);
    }
    fg.setStretchCol(ElementCol);
    fg.setMergeCells(GridMerge::Free);
    fg.setMergeRow(0, true);
    for (const int col : {DimensionCol, DimensionScoreCol, DimensionWeightCol}) {
        fg.setMergeCol(col, true);
    }
    fg.setSelectionBehavior(FlexGrid::SelectItems);
}

void showLines(FlexGrid& fg, const cDimensions& lines) {
    for (const auto& line : lines) {
        if (line->TypeCode.size() == DimensionDigits) {
            fg.AddItem(named(*line) + u'\t' + line->Score + u'\t' + storedPercent(*line));
            continue;
        }
        int last = fg.Rows() - 1;
        if (dimensionCode(fg, last) != dimensionCodeOf(*line) || hasElement(fg, last)) {
            fg.AddItem(dimensionCells(fg, last));
            ++last;
        }
        writeElement(fg, last, *line);
        fg.setTextMatrix(last, ElementWeightCol, storedPercent(*line));
    }
}

bool isFirstRow(const FlexGrid& fg, int row) {
    return fg.TextMatrix(row, DimensionCol) != fg.TextMatrix(row - 1, DimensionCol);
}

QString dimensionCode(const FlexGrid& fg, int row) {
    return fg.TextMatrix(row, DimensionCol).left(DimensionDigits);
}

QString dimensionCodeOf(const cDimension& line) {
    return line.TypeCode.left(DimensionDigits);
}

std::shared_ptr<cDimension> dimensionLine(const FlexGrid& fg, int row) {
    auto line = lineOf(fg.TextMatrix(row, DimensionCol), DimensionDigits, fg.TextMatrix(row, DimensionScoreCol));
    line->ID = toInt16(row);
    line->Weighing = fg.TextMatrix(row, DimensionWeightCol);
    return line;
}

cDimensions dimensionLines(const FlexGrid& fg) {
    cDimensions lines;
    for (int row = FirstRow; row < fg.Rows(); ++row) {
        if (isFirstRow(fg, row)) {
            lines.Add(dimensionLine(fg, row));
        }
    }
    return lines;
}

cDimensions modelLines(const FlexGrid& fg) {
    cDimensions lines = dimensionLines(fg);
    for (int row = FirstRow; row < fg.Rows(); ++row) {
        if (hasElement(fg, row)) {
            lines.Add(elementLine(fg, row));
        }
    }
    return lines;
}

std::shared_ptr<cDimension> elementLine(const FlexGrid& fg, int row) {
    constexpr int elementIds = 1000;  // keeps the two kinds of keys apart
    auto line = lineOf(fg.TextMatrix(row, ElementCol), ElementDigits, fg.TextMatrix(row, ElementScoreCol));
    line->ID = toInt16(row + elementIds);
    line->Weighing = fg.TextMatrix(row, ElementWeightCol);
    return line;
}

void appendDimension(FlexGrid& fg, const cDimension& line) {
    fg.AddItem(named(line) + u'\t' + line.Score + u'\t' + line.Weighing);
}

void writeElement(FlexGrid& fg, int row, const cDimension& line) {
    fg.setTextMatrix(row, ElementCol, named(line));
    fg.setTextMatrix(row, ElementScoreCol, line.Score);
}

int placeElement(FlexGrid& fg, const cDimension& line) {
    const QString code = dimensionCodeOf(line);
    int last = FirstRow;
    for (int row = FirstRow; row < fg.Rows(); ++row) {
        if (dimensionCode(fg, row) != code) {
            continue;
        }
        if (!hasElement(fg, row)) {
            writeElement(fg, row, line);
            return row;
        }
        last = row;
    }
    // The rows below move down by their texts: the cursor stays at its place.
    fg.AddItem(QString());
    for (int row = fg.Rows() - 1; row > last; --row) {
        for (int col = 0; col < fg.Cols(); ++col) {
            fg.setTextMatrix(row, col, fg.TextMatrix(row - 1, col));
        }
    }
    fg.setTextMatrix(last + 1, ElementWeightCol, QString());
    writeElement(fg, last + 1, line);
    return last + 1;
}

void removeDimension(FlexGrid& fg, const QString& code) {
    const int last = fg.Rows() - 1;
    for (int row = FirstRow; row <= last; ++row) {
        // The row that moves up in place of a removed one is not looked at, which is meant: the user deletes again.
        const bool beyond = row >= fg.Rows();
        const int candidate = beyond ? fg.Rows() - 1 : row;
        if (candidate >= FirstRow && dimensionCode(fg, candidate) == code) {
            fg.RemoveItem(candidate);
        }
        if (beyond) {
            return;
        }
    }
}

}  // namespace talvora::solution
