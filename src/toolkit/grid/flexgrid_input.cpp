#include "toolkit/grid/flexgrid.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace talvora {

// The focus alone chooses no record: the first arrow key or Space does. The grid's frame shows where the keys go.
void FlexGrid::focusInEvent(QFocusEvent* event) {
    settle();
    if (currentIndex().isValid()) {
        QTableView::focusInEvent(event);
        return;
    }
    // The table view would make a row current.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    settle();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // Moving on is the window's.
        event->ignore();
        return;
    }
    const int before = Row();
    const bool space = event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier;
    if (space && before >= 0) {
        click(before, Col());
        return;
    }
    if (space && model_->rowCount() > 0) {
        Select(model_->gridRow(0), firstVisibleCol());
    } else if (!foldByKey(event->key())) {
        QTableView::keyPressEvent(event);
        keepCurrentSelected();
    }
    tellRowChange(before);
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
    settle();
    rowBeforePress_ = Row();
    secondPress_ = false;
    expanderPressed_ = pressExpander(*event);
    if (expanderPressed_) {
        return;
    }
    pressed_ = indexAt(event->position().toPoint());
    QTableView::mousePressEvent(event);
    keepCurrentSelected();
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) {
    if (expanderPressed_) {
        expanderPressed_ = false;
        tellRowChange(rowBeforePress_);
        return;
    }
    QTableView::mouseReleaseEvent(event);
    keepCurrentSelected();
    const QModelIndex released = indexAt(event->position().toPoint());
    // A click may slip over the edge of a column. It is then one on the row, and on no cell of it.
    const bool onOneRow = released.isValid() && pressed_.isValid() && released.row() == pressed_.row();
    const int column = onOneRow && released.column() == pressed_.column() ? released.column() : -1;
    pressed_ = QPersistentModelIndex();
    if (secondPress_) {
        return;
    }
    if (event->button() == Qt::LeftButton && onOneRow) {
        click(model_->gridRow(released.row()), column);
    } else {
        tellRowChange(rowBeforePress_);
    }
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    settle();
    rowBeforePress_ = Row();
    expanderPressed_ = pressExpander(*event);
    if (expanderPressed_) {
        return;
    }
    QTableView::mouseDoubleClickEvent(event);
    keepCurrentSelected();
    secondPress_ = true;
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && cell.isValid()) {
        clickedRow_ = model_->gridRow(cell.row());
        clickedCol_ = cell.column();
        Q_EMIT DblClick();
    }
}

void FlexGrid::click(int row, int col) {
    clickedRow_ = row;
    clickedCol_ = col;
    Q_EMIT Click();
}

void FlexGrid::tellRowChange(int before) {
    settle();
    if (Row() != before) {
        Q_EMIT RowChange();
    }
}

}  // namespace talvora
