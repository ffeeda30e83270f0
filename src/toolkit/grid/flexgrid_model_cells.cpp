#include "platform/runtime_error.h"
#include "toolkit/grid/flexgrid_model.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace talvora {

GridRow& GridModel::at(int row) {
    checkCell(row, 0);
    return rows_[static_cast<std::size_t>(row)];
}

void GridModel::checkCell(int row, int col) const {
    // A grid without columns still has rows, which column 0 stands for.
    if (row < 0 || row >= rows() || col < 0 || (col >= cols() && col > 0)) {
        throw RuntimeError(errors::SubscriptOutOfRange);
    }
}

const GridRow& GridModel::row(int number) const {
    checkCell(number, 0);
    return rows_[static_cast<std::size_t>(number)];
}

const GridColumn& GridModel::column(int number) const {
    if (number < 0 || number >= cols()) {
        throw RuntimeError(errors::SubscriptOutOfRange);
    }
    return columns_[static_cast<std::size_t>(number)];
}

void GridModel::setColumn(int number, const GridColumn& column) {
    static_cast<void>(this->column(number));
    columns_[static_cast<std::size_t>(number)] = column;
    announceCells({fixedRows_, number, rows() - 1, number});
    Q_EMIT headerDataChanged(Qt::Horizontal, number, number);
}

QString GridModel::text(int row, int col) const {
    checkCell(row, col);
    return rows_[static_cast<std::size_t>(row)].text(col);
}

void GridModel::setText(int row, int col, const QString& text) {
    checkCell(row, col);
    rows_[static_cast<std::size_t>(row)].setText(col, text);
    announceCells({row, col, row, col});
}

const GridFormat& GridModel::format(int row, int col) const {
    checkCell(row, col);
    return formats_.at(rows_[static_cast<std::size_t>(row)].format(col));
}

void GridModel::changeFormats(const GridRange& cells, const std::function<void(GridFormat&)>& change) {
    checkCell(cells.row, cells.col);
    checkCell(cells.row2, cells.col2);
    quint32 before = 0;
    quint32 after = 0;
    bool known = false;
    for (int row = cells.row; row <= cells.row2; ++row) {
        for (int col = cells.col; col <= cells.col2; ++col) {
            GridRow& target = rows_[static_cast<std::size_t>(row)];
            if (!known || target.format(col) != before) {
                before = target.format(col);
                GridFormat format = formats_.at(before);
                change(format);
                after = formats_.idOf(format);
                known = true;
            }
            target.setFormat(col, after);
        }
    }
    announceCells(cells);
}

GridAlign GridModel::align(int row, int col) const {
    return format(row, col).align.value_or(column(col).align);
}

// Rows that the view doesn't know yet need no signal: it asks for them when they are announced.
void GridModel::announceCells(const GridRange& cells) {
    if (cells.row < fixedRows_ && cols() > 0) {
        Q_EMIT headerDataChanged(Qt::Horizontal, cells.col, cells.col2);
    }
    const auto from = std::lower_bound(visible_.begin(), visible_.end(), cells.row);
    const auto to = std::upper_bound(from, visible_.end(), cells.row2);
    if (from != to) {
        Q_EMIT dataChanged(index(static_cast<int>(from - visible_.begin()), cells.col),
                           index(static_cast<int>(to - visible_.begin()) - 1, cells.col2));
    }
}

void GridModel::setNode(int row, bool node) {
    at(row).node = node;
}

void GridModel::setLevel(int row, int level) {
    at(row).level = static_cast<qint16>(std::clamp(level, 0, 32767));
}

void GridModel::setCollapsed(int row, bool collapsed) {
    at(row).collapsed = collapsed;
}

void GridModel::foldTo(int level) {
    for (GridRow& row : rows_) {
        row.collapsed = row.node && row.level >= level;
    }
}

void GridModel::reveal(int row) {
    for (const int node : ancestorsOf(rows_, fixedRows_, row)) {
        rows_[static_cast<std::size_t>(node)].collapsed = false;
    }
}

GridBranch GridModel::branch(int row) const {
    const auto number = static_cast<std::size_t>(row);
    return number < outline_.size() ? outline_[number] : GridBranch();
}

int GridModel::visibleParent(int row) const {
    for (const int node : ancestorsOf(rows_, fixedRows_, row)) {
        if (modelRow(node) >= 0) {
            return node;
        }
    }
    return -1;
}

bool GridModel::isTrue(const QString& text) {
    bool number = false;
    const double value = text.trimmed().toDouble(&number);
    return number ? value != 0 : text.trimmed().compare("True"_L1, Qt::CaseInsensitive) == 0;
}

}  // namespace talvora
