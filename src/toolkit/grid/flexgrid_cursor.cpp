#include "toolkit/grid/flexgrid.h"

#include <QEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>

namespace talvora {

int FlexGrid::Row() const {
    return currentIndex().isValid() ? model_->gridRow(currentIndex().row()) : -1;
}

int FlexGrid::Col() const {
    return currentIndex().column();
}

int FlexGrid::firstVisibleCol() const {
    int col = 0;
    while (col < Cols() - 1 && isColumnHidden(col)) {
        ++col;
    }
    return col;
}

QModelIndex FlexGrid::indexOf(int row, int col) const {
    const int place = model_->modelRow(row);
    return place < 0 ? QModelIndex() : model_->index(place, col);
}

void FlexGrid::Select(int row, int col, int rowSel, int colSel) {
    const int row2 = rowSel < 0 ? row : rowSel;
    const int col2 = colSel < 0 ? col : colSel;
    static_cast<void>(model_->row(row));
    static_cast<void>(model_->row(row2));
    static_cast<void>(model_->column(col));
    static_cast<void>(model_->column(col2));
    if (row < FixedRows()) {
        selectionModel()->clear();
        return;
    }
    model_->reveal(row);
    model_->reveal(row2);
    later();
    settle();
    const QModelIndex one = indexOf(row, col);
    const QModelIndex other = indexOf(std::max(row2, FixedRows()), col2);
    const QItemSelection block(model_->index(std::min(one.row(), other.row()), std::min(col, col2)),
                               model_->index(std::max(one.row(), other.row()), std::max(col, col2)));
    selectionModel()->setCurrentIndex(one, QItemSelectionModel::NoUpdate);
    selectionModel()->select(block, selectAnew());
    scrollTo(currentIndex());
}

std::vector<int> FlexGrid::SelectedRows() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(model_->gridRow(row));
        }
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

QRect FlexGrid::CellRect(int row, int col) {
    static_cast<void>(model_->text(row, col));
    settle();
    const QModelIndex cell = row < FixedRows() ? QModelIndex() : indexOf(row, col);
    return cell.isValid() && !isColumnHidden(col) ? visualRect(cell) : QRect();
}

void FlexGrid::ShowCell(int row, int col) {
    static_cast<void>(model_->text(row, col));
    settle();
    if (row >= FixedRows()) {
        scrollTo(indexOf(row, col));
    }
}

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    viewport()->update();
}

void FlexGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    // The strip beyond the last column and the columns that stay in view are drawn by the grid itself.
    viewport()->update();
}

QItemSelectionModel::SelectionFlags FlexGrid::selectAnew() const {
    const bool rows = selectionBehavior() == SelectRows;
    return QItemSelectionModel::ClearAndSelect | (rows ? QItemSelectionModel::Rows : QItemSelectionModel::NoUpdate);
}

/// A press beside the rows leaves the selection as it is, and no key moves the current row out of it.
QItemSelectionModel::SelectionFlags FlexGrid::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    if (!index.isValid()) {
        return QItemSelectionModel::NoUpdate;
    }
    const QItemSelectionModel::SelectionFlags command = QTableView::selectionCommand(index, event);
    const bool byKey = event && event->type() == QEvent::KeyPress;
    return byKey && command == QItemSelectionModel::NoUpdate ? selectAnew() : command;
}

/// When the user has taken the current row out of the selection, the selected row next to it becomes current. The last
/// one can't be taken out.
void FlexGrid::keepCurrentSelected() {
    const QModelIndex current = currentIndex();
    const QItemSelection selection = selectionModel()->selection();
    if (selectionModel()->isSelected(current) || (selection.isEmpty() && !current.isValid())) {
        return;
    }
    if (selection.isEmpty()) {
        selectionModel()->select(current, selectAnew());
        return;
    }
    const auto rowNextTo = [&](const QItemSelectionRange& range) {
        return std::clamp(current.row(), range.top(), range.bottom());
    };
    const auto nearest = std::min_element(selection.begin(), selection.end(), [&](const auto& one, const auto& other) {
        return std::abs(rowNextTo(one) - current.row()) < std::abs(rowNextTo(other) - current.row());
    });
    const int col = std::clamp(std::max(current.column(), firstVisibleCol()), nearest->left(), nearest->right());
    selectionModel()->setCurrentIndex(model_->index(rowNextTo(*nearest), col), QItemSelectionModel::NoUpdate);
}

QModelIndex FlexGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    settle();
    const int rows = model_->rowCount();
    if (rows > 0 && selectionBehavior() == SelectRows && (action == MoveHome || action == MoveEnd)) {
        return model_->index(action == MoveHome ? 0 : rows - 1, std::max(Col(), firstVisibleCol()));
    }
    return QTableView::moveCursor(action, modifiers);
}

void FlexGrid::scrollTo(const QModelIndex& index, ScrollHint hint) {
    settle();
    QScrollBar* across = horizontalScrollBar();
    const int before = across->value();
    QTableView::scrollTo(index, hint);
    const int staying = stayingColumns();
    if (index.column() < staying) {
        across->setValue(before);
    } else if (staying > 0) {
        const int hidden = columnViewportPosition(staying) + across->value() - visualRect(index).left();
        if (hidden > 0) {
            across->setValue(across->value() - hidden);
        }
    }
}

}  // namespace talvora
