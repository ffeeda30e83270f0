#include "toolkit/grid/flexgrid.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace talvora {

void FlexGrid::focusInEvent(QFocusEvent* event) {
    settle();
    const bool byKeyboard = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                            event->reason() == Qt::ShortcutFocusReason;
    if (byKeyboard && Row() < 0 && model_->rowCount() > 0) {
        Select(model_->gridRow(0), firstVisibleCol());
    }
    if (currentIndex().isValid()) {
        QTableView::focusInEvent(event);
        return;
    }
    // The table view would make a row current without showing it as selected.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    settle();
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // Moving on is the window's.
            event->ignore();
            return;
        case Qt::Key_Space:
            if (event->modifiers() == Qt::NoModifier) {
                if (currentIndex().isValid()) {
                    Q_EMIT Click();
                }
                return;
            }
            break;
        default:
            if (foldByKey(event->key())) {
                return;
            }
    }
    QTableView::keyPressEvent(event);
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
    settle();
    secondPress_ = false;
    expanderPressed_ = pressExpander(*event);
    if (expanderPressed_) {
        return;
    }
    pressed_ = indexAt(event->position().toPoint());
    QTableView::mousePressEvent(event);
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) {
    if (expanderPressed_) {
        expanderPressed_ = false;
        return;
    }
    QTableView::mouseReleaseEvent(event);
    const QModelIndex released = indexAt(event->position().toPoint());
    const bool onCell = released.isValid() && released == pressed_;
    pressed_ = QPersistentModelIndex();
    if (event->button() == Qt::LeftButton && onCell && !secondPress_) {
        Q_EMIT Click();
    }
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    settle();
    secondPress_ = true;
    expanderPressed_ = pressExpander(*event);
    if (expanderPressed_) {
        return;
    }
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid()) {
        Q_EMIT DblClick();
    }
}

void FlexGrid::headerClicked(int col) {
    settle();
    Select(0, col);
    Q_EMIT Click();
}

void FlexGrid::headerDoubleClicked(int col) {
    Select(0, col);
    Q_EMIT DblClick();
}

}  // namespace talvora
