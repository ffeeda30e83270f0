#include "spreadsheet/workbook.h"

#include "platform/numbers.h"
#include "platform/runtime_error.h"

#include <QRegularExpression>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MaxText = 32'767;
// Longer numbers are shown rounded or with an exponent.
constexpr qsizetype MaxShownDigits = 11;

[[noreturn]] void refuse(const QString& words) {
    throw RuntimeError(Workbook::Refused, words);
}

std::optional<double> shownNumber(const QString& text) {
    if (text.isEmpty() || text.size() > MaxShownDigits || !(text[0].isDigit() || text[0] == u'-')) {
        return {};
    }
    bool spelled = false;
    const double value = text.toDouble(&spelled);
    return spelled && numberText(value) == text ? std::optional(value) : std::nullopt;
}

int columnNumber(const QString& letters) {
    int number = 0;
    for (const QChar letter : letters.toUpper()) {
        number = number * 26 + letter.unicode() - u'A' + 1;
    }
    return number;
}

CellRange parseRange(const QString& address) {
    static const QRegularExpression form(
        uR"(\A([A-Za-z]{1,3})([1-9][0-9]{0,6})(?::([A-Za-z]{1,3})([1-9][0-9]{0,6}))?\z)"_s);
    const QRegularExpressionMatch match = form.match(address);
    if (!match.hasMatch()) {
        refuse(u"“%1”不是单元格区域的地址"_s.arg(address));
    }
    const int second = match.hasCaptured(3) ? 3 : 1;
    const auto [row, row2] = std::minmax({match.captured(2).toInt(), match.captured(second + 1).toInt()});
    const auto [column, column2] = std::minmax({columnNumber(match.captured(1)), columnNumber(match.captured(second))});
    return {row, column, row2, column2};
}

}  // namespace

void Workbook::SetCell(int row, int column, const QString& value) {
    const bool forced = value.startsWith(u'\'');
    const QStringView text = QStringView(value).sliced(forced ? 1 : 0);
    if (text.size() > MaxText) {
        refuse(u"单元格的文字不能超过 %1 个字符"_s.arg(MaxText));
    }
    if (!forced) {
        if (const auto number = shownNumber(value)) {
            SetCell(row, column, *number);
            return;
        }
    }
    Cell& cell = at(row, column);
    cell.format.text = forced;
    cell.kind = text.isEmpty() ? Cell::Kind::Empty : Cell::Kind::Text;
    cell.text = text.isEmpty() ? nullptr : texts_.add(text);
}

void Workbook::SetCell(int row, int column, double value) {
    Cell& cell = at(row, column);
    cell.format.text = false;
    cell.kind = Cell::Kind::Number;
    cell.number = value;
}

void Workbook::SelectRange(const CellRange& cells) {
    if (cells.row < 1 || cells.row2 > MaxSheetRow || cells.column < 1 || cells.column2 > MaxSheetColumn) {
        refuse(u"所选区域超出了工作表"_s);
    }
    selection_ = cells;
}

void Workbook::SelectRange(const QString& address) {
    SelectRange(parseRange(address));
}

template <class Change>
void Workbook::changeSelected(Change change) {
    for (int row = selection_.row; row <= selection_.row2; ++row) {
        // From the right, so that a row that is short grows once.
        for (int column = selection_.column2; column >= selection_.column; --column) {
            change(at(row, column));
        }
    }
}

void Workbook::SetFont(bool bold, int points) {
    changeSelected([&](Cell& cell) {
        cell.format.bold = bold;
        cell.format.size = static_cast<quint8>(points);
    });
}

void Workbook::Shade() {
    changeSelected([](Cell& cell) { cell.format.shaded = true; });
}

void Workbook::Box() {
    changeSelected([](Cell& cell) { cell.format.boxed = true; });
}

void Workbook::AlignLeft() {
    changeSelected([](Cell& cell) { cell.format.left = true; });
}

void Workbook::AlignMiddle() {
    changeSelected([](Cell& cell) { cell.format.middle = true; });
}

void Workbook::Merge() {
    if (selection_.row == selection_.row2 && selection_.column == selection_.column2) {
        return;
    }
    changeSelected([](const Cell& cell) {
        if (cell.merged) {
            refuse(u"所选区域与合并的单元格重叠"_s);
        }
    });
    const Cell first = at(selection_.row, selection_.column);
    changeSelected([&](Cell& cell) {
        cell = Cell();
        cell.format = first.format;
        cell.merged = true;
    });
    Cell& cell = at(selection_.row, selection_.column);
    cell = first;
    cell.merged = true;
    for (int row = selection_.row; row <= selection_.row2; ++row) {
        mergesOfRow_[row].push_back(static_cast<int>(merges_.size()));
    }
    merges_.push_back(selection_);
}

QString Workbook::text(int row, int column) const {
    const Cell& shown = cell(row, column);
    switch (shown.kind) {
        case Cell::Kind::Text:
            return QString::fromUtf8(shown.text);
        case Cell::Kind::Number:
            return numberText(shown.number);
        case Cell::Kind::Empty:
            break;
    }
    return {};
}

const char* Workbook::utf8(int row, int column) const {
    const Cell& shown = cell(row, column);
    return shown.kind == Cell::Kind::Text ? shown.text : nullptr;
}

std::optional<double> Workbook::number(int row, int column) const {
    const Cell& shown = cell(row, column);
    return shown.kind == Cell::Kind::Number ? std::optional(shown.number) : std::nullopt;
}

CellRange Workbook::mergeAt(int row, int column) const {
    if (cell(row, column).merged) {
        const auto touching = mergesOfRow_.constFind(row);
        for (const int number : *touching) {
            const CellRange& merge = merges_[static_cast<std::size_t>(number)];
            if (merge.contains(row, column)) {
                return merge;
            }
        }
    }
    return {row, column, row, column};
}

Cell& Workbook::at(int row, int column) {
    if (row < 1 || row > MaxSheetRow || column < 1 || column > MaxSheetColumn) {
        refuse(u"工作表没有第 %1 行第 %2 列的单元格"_s.arg(row).arg(column));
    }
    if (row > rows()) {
        rows_.resize(static_cast<std::size_t>(row));
    }
    auto& cells = rows_[static_cast<std::size_t>(row - 1)];
    const auto count = static_cast<std::size_t>(column);
    if (cells.size() < count) {
        // Most rows of a sheet are as long as the longest so far.
        cells.reserve(std::max(count, static_cast<std::size_t>(columns_)));
        cells.resize(count);
        columns_ = std::max(columns_, column);
    }
    return cells[count - 1];
}

const Cell& Workbook::cell(int row, int column) const {
    static const Cell nothing;
    if (row < 1 || row > rows()) {
        return nothing;
    }
    const auto& cells = rows_[static_cast<std::size_t>(row - 1)];
    const auto count = static_cast<std::size_t>(column);
    return column >= 1 && count <= cells.size() ? cells[count - 1] : nothing;
}

}  // namespace talvora
