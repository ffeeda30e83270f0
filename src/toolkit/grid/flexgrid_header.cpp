#include "toolkit/grid/flexgrid_header.h"

#include "toolkit/grid/flexgrid_paint.h"
#include "toolkit/look/theme.h"

#include <QMouseEvent>
#include <QPainter>

namespace talvora {

GridHeader::GridHeader(const GridModel& model, const GridMerging& merging, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), model_(model), merging_(merging) {
    setSectionsClickable(true);
    setHighlightSections(false);
    setMinimumSectionSize(2 * grid::PaddingX);
}

void GridHeader::setStaying(int columns, int width) {
    stayingColumns_ = columns;
    stayingWidth_ = width;
    viewport()->update();
}

void GridHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    QPainter painter(viewport());
    painter.setFont(font());
    const int end = length() - offset();
    const QRect rest(end, 0, viewport()->width() - end, viewport()->height());
    if (rest.width() > 0) {
        painter.fillRect(rest, theme::Header);
        grid::lineBelow(painter, rest, theme::Line);
    }
    for (int col = 0; offset() > 0 && col < stayingColumns_; ++col) {
        if (!isSectionHidden(col)) {
            paintSection(&painter, QRect(sectionPosition(col), 0, sectionSize(col), viewport()->height()), col);
        }
    }
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int col) const {
    if (!rect.isValid() || col >= model_.cols()) {
        return;
    }
    painter->save();
    painter->setClipRect(rect);
    painter->fillRect(rect, theme::Header);
    for (int row = 0; row < model_.fixedRows();) {
        const GridRange cell = mergedTitle(model_, merging_, row, col);
        paintTitle(painter, rect, cell);
        row = cell.row2 + 1;
    }
    painter->restore();
}

// Each section paints its own part of a title that spans several.
void GridHeader::paintTitle(QPainter* painter, const QRect& section, const GridRange& cell) const {
    const QRect place = placeOf(cell, section);
    const GridFormat& format = model_.format(cell.row, cell.col);
    if (format.back.isValid()) {
        painter->fillRect(place, format.back);
    }
    QFont face = font();
    face.setWeight(QFont::DemiBold);
    painter->setFont(face);
    const QColor ink = isEnabled() ? theme::Text : theme::TextQuiet;
    painter->setPen(format.fore.isValid() ? format.fore : ink);
    const bool wide = cell.col != cell.col2 || cell.row != cell.row2;
    const auto own = model_.headerData(cell.col, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>();
    const auto align = wide ? Qt::AlignCenter : (own & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter;
    const QRect inside = place.adjusted(grid::PaddingX, 0, -grid::PaddingX, 0);
    const QString title = model_.text(cell.row, cell.col).trimmed();
    const int flags = static_cast<int>(align) | Qt::TextSingleLine;
    painter->drawText(inside, flags, QFontMetrics(face).elidedText(title, Qt::ElideRight, inside.width()));
    grid::lineBelow(*painter, place, theme::Line);
    grid::lineRightOf(*painter, place, theme::Line);
}

QRect GridHeader::placeOf(const GridRange& cell, const QRect& section) const {
    const int fixedRows = model_.fixedRows();
    const int top = section.top() + section.height() * cell.row / fixedRows;
    const int bottom = section.top() + section.height() * (cell.row2 + 1) / fixedRows;
    int left = section.left();
    int right = section.left() + section.width();
    if (cell.col != cell.col2) {
        left = sectionPosition(cell.col) - offset();
        right = sectionPosition(cell.col2) + sectionSize(cell.col2) - offset();
    }
    return {left, top, right - left, bottom - top};
}

QSize GridHeader::sectionSizeFromContents(int col) const {
    QFont face = font();
    face.setWeight(QFont::DemiBold);
    const QFontMetrics metrics(face);
    const QString title = model_.headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
    return {metrics.horizontalAdvance(title) + 2 * grid::PaddingX, grid::rowHeight(metrics) * model_.fixedRows()};
}

// The header view knows only the titles that have scrolled away under those that stay. Over the latter the mouse is
// told where it would be without the scrolling, and so on until a button that was pressed there is let go. Clicks go
// by that; a staying title's edge is dragged only where nothing is scrolled.
bool GridHeader::viewportEvent(QEvent* event) {
    const auto type = event->type();
    const bool starts = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!starts && type != QEvent::MouseMove && type != QEvent::MouseButtonRelease) {
        return QHeaderView::viewportEvent(event);
    }
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (starts || (type == QEvent::MouseMove && mouse.buttons() == Qt::NoButton)) {
        overStaying_ = mouse.position().x() < stayingWidth_;
    }
    const QPointF place = mouse.position() - QPointF(overStaying_ ? offset() : 0, 0);
    QMouseEvent told(type, place, mouse.globalPosition(), mouse.button(), mouse.buttons(), mouse.modifiers());
    const bool handled = QHeaderView::viewportEvent(&told);
    event->setAccepted(told.isAccepted());
    return handled;
}

}  // namespace talvora
