#include "toolkit/grid/flexgrid.h"
#include "toolkit/grid/flexgrid_delegate.h"
#include "toolkit/grid/flexgrid_header.h"
#include "toolkit/grid/flexgrid_paint.h"
#include "toolkit/look/theme.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace talvora {

void FlexGrid::showEvent(QShowEvent* event) {
    settle();
    QTableView::showEvent(event);
}

void FlexGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        applyFont();
    }
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
    placeStaying();
}

int FlexGrid::stayingColumns() const {
    return std::max(0, std::min(frozenCols_, Cols() - 1));
}

void FlexGrid::placeStaying() {
    const int staying = stayingColumns();
    header_->setStaying(staying, staying == 0 ? 0 : header_->sectionPosition(staying));
}

QModelIndex FlexGrid::indexAt(const QPoint& place) const {
    const int staying = stayingColumns();
    if (staying > 0 && place.x() < header_->sectionPosition(staying)) {
        return QTableView::indexAt(place - QPoint(header_->offset(), 0));
    }
    return QTableView::indexAt(place);
}

QRect FlexGrid::visualRect(const QModelIndex& index) const {
    QRect rect = QTableView::visualRect(index);
    if (index.isValid() && index.column() < stayingColumns()) {
        rect.translate(header_->offset(), 0);
    }
    return rect;
}

void FlexGrid::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (dx != 0 && stayingColumns() > 0) {
        viewport()->update();
        header_->viewport()->update();
    }
}

void FlexGrid::paintEvent(QPaintEvent* event) {
    settle();
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    const int top = rowAt(0);
    if (top < 0) {
        return;
    }
    paintBeyond(painter, model_->index(top, 0));
    if (header_->offset() > 0) {
        paintStaying(painter, model_->index(top, 0));
    }
}

// Rows go on to the grid's edge, so that they don't end in the middle of nowhere.
void FlexGrid::paintBeyond(QPainter& painter, const QModelIndex& first) const {
    const int left = header_->length() - header_->offset();
    for (int row = first.row(); row < model_->rowCount() && left < viewport()->width(); ++row) {
        const QRect strip(left, rowViewportPosition(row), viewport()->width() - left, rowHeight(row));
        if (strip.top() > viewport()->height()) {
            return;
        }
        const QVariant back = model_->index(row, Cols() - 1).data(Qt::BackgroundRole);
        const QColor ground = back.isValid() ? back.value<QColor>() : theme::Surface;
        const bool selected = selectionBehavior() == SelectRows && selectionModel()->rowIntersectsSelection(row);
        grid::fillCrisp(painter, strip, selected ? grid::selected(ground) : ground);
        grid::lineBelow(painter, strip, theme::Line);
    }
}

void FlexGrid::paintStaying(QPainter& painter, const QModelIndex& first) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int staying = stayingColumns();
    for (int row = first.row(); row < model_->rowCount() && rowViewportPosition(row) < viewport()->height(); ++row) {
        for (int col = 0; col < staying; ++col) {
            if (isColumnHidden(col)) {
                continue;
            }
            const QModelIndex cell = model_->index(row, col);
            option.rect = visualRect(cell);
            option.state.setFlag(QStyle::State_HasFocus, hasFocus() && cell == currentIndex());
            delegate_->paint(&painter, option, cell);
        }
    }
    if (staying > 0) {
        const QRect frame(0, 0, header_->sectionPosition(staying), viewport()->height());
        grid::lineRightOf(painter, frame, grid::QuietLine);
    }
}

}  // namespace talvora
