#include "toolkit/grid/flexgrid_delegate.h"

#include "toolkit/grid/flexgrid_paint.h"
#include "toolkit/look/theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace talvora {

namespace {

constexpr int TreeStep = 20;
constexpr int PictureGap = 6;

QFont fontOf(const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QVariant own = index.data(Qt::FontRole);
    return own.isValid() ? own.value<QFont>().resolve(option.font) : option.font;
}

Qt::Alignment alignmentOf(const QModelIndex& index) {
    return index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
}

}  // namespace

GridDelegate::GridDelegate(const GridModel& model, const GridMerging& merging, QTableView* grid)
    : QStyledItemDelegate(grid), model_(model), merging_(merging), grid_(*grid) {}

bool GridDelegate::wraps(int col) const {
    return static_cast<std::size_t>(col) < wrapped.size() && wrapped[static_cast<std::size_t>(col)];
}

int GridDelegate::heightFor(const QStyleOptionViewItem& option, const QModelIndex& index, int width) const {
    QStyleOptionViewItem cell = option;
    cell.rect = QRect(0, 0, width, grid::rowHeight(option.fontMetrics));
    const int room = contentOf(cell, index).text.width();
    const QString text = index.data(Qt::DisplayRole).toString();
    const QFontMetrics metrics(fontOf(option, index));
    // No glyph is wider than a Chinese one, so most texts need no measuring.
    const bool oneLine = text.size() * qsizetype{metrics.horizontalAdvance(u'国')} <= room && !text.contains(u'\n');
    if (oneLine || room <= 0) {
        return cell.rect.height();
    }
    const int lines = grid::brokenHeight(text, fontOf(option, index), room);
    return std::max(cell.rect.height(), lines + 2 * grid::PaddingY);
}

bool GridDelegate::carriesTree(const QModelIndex& index) const {
    return index.column() == outlineCol && model_.hasNodes();
}

int GridDelegate::indentOf(const QModelIndex& index) const {
    return carriesTree(index) ? TreeStep * (model_.branch(model_.gridRow(index.row())).depth + 1) : 0;
}

QRect GridDelegate::expanderAt(const QRect& cell, const QModelIndex& index) const {
    if (!carriesTree(index) || !model_.branch(model_.gridRow(index.row())).foldable) {
        return {};
    }
    const int left = cell.left() + grid::PaddingX / 2 + indentOf(index) - TreeStep;
    return {left, cell.top(), TreeStep, cell.height()};
}

GridDelegate::Content GridDelegate::contentOf(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    Content content;
    const int indent = indentOf(index);
    const int left = indent > 0 ? indent + grid::PaddingX / 2 : grid::PaddingX;
    content.text = option.rect.adjusted(left, grid::PaddingY, -grid::PaddingX, -grid::PaddingY);
    const QVariant picture = index.data(Qt::DecorationRole);
    if (!picture.isValid()) {
        return content;
    }
    // Beside the first line, so that it stays with the beginning of a long text.
    const QFontMetrics metrics(option.font);
    const int side = metrics.height();
    const bool broken = wraps(index.column()) && option.rect.height() > grid::rowHeight(metrics);
    const int line = broken ? metrics.lineSpacing() + 2 * grid::PaddingY : option.rect.height();
    const int top = option.rect.top() + (line - side) / 2;
    if (index.data(Qt::DisplayRole).toString().isEmpty() && (alignmentOf(index) & Qt::AlignHCenter)) {
        content.picture = QRect(option.rect.center().x() - side / 2, top, side, side);
        return content;
    }
    content.picture = QRect(content.text.left(), top, side, side);
    content.text.setLeft(content.picture.left() + side + PictureGap);
    return content;
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    painter->save();
    const QVariant back = index.data(Qt::BackgroundRole);
    const QColor ground = back.isValid() ? back.value<QColor>() : theme::Surface;
    const GridRange merged = mergedCell(model_, merging_, index.row(), index.column());
    grid::fillCrisp(*painter, option.rect, isSelected(merged) ? grid::selected(ground) : ground);
    if (index.row() == merged.row2) {
        grid::lineBelow(*painter, option.rect, theme::Line);
    }
    if (columnLines) {
        grid::lineRightOf(*painter, option.rect, theme::Line);
    }
    if (carriesTree(index)) {
        paintTree(painter, option.rect, index);
    }
    if (index.data(Qt::CheckStateRole).isValid()) {
        paintCheck(painter, option, index);
    } else {
        // Each row draws its own part of a text that stands over several.
        QStyleOptionViewItem whole = option;
        whole.rect = placeOf(merged, option.rect);
        painter->setClipRect(option.rect, Qt::IntersectClip);
        paintText(painter, whole, index);
    }
    if (option.state & QStyle::State_HasFocus) {
        painter->setPen(QPen(theme::Accent, 1));
        painter->drawRect(QRectF(option.rect).adjusted(0.5, 0.5, -1.5, -1.5));
    }
    painter->restore();
}

bool GridDelegate::isSelected(const GridRange& merged) const {
    bool selected = false;
    for (int row = merged.row; row <= merged.row2 && !selected; ++row) {
        selected = grid_.selectionModel()->isSelected(grid_.model()->index(row, merged.col));
    }
    return selected;
}

QRect GridDelegate::placeOf(const GridRange& merged, const QRect& cell) const {
    const int top = grid_.rowViewportPosition(merged.row);
    const int bottom = grid_.rowViewportPosition(merged.row2) + grid_.rowHeight(merged.row2);
    return merged.row == merged.row2 ? cell : QRect(cell.left(), top, cell.width(), bottom - top);
}

void GridDelegate::paintTree(QPainter* painter, const QRect& cell, const QModelIndex& index) const {
    const int number = model_.gridRow(index.row());
    const GridBranch branch = model_.branch(number);
    const int left = cell.left() + grid::PaddingX / 2;
    const auto middleOf = [&](int depth) { return left + depth * TreeStep + TreeStep / 2.0; };
    const qreal middle = cell.top() + cell.height() / 2.0;
    // Branches hang on their parent's box; the outermost rows have none and need no line.
    for (int depth = 1; depth <= branch.depth; ++depth) {
        const qreal x = middleOf(depth - 1);
        const bool goesOn = branch.lines & (quint32{1} << depth);
        if (depth == branch.depth) {
            grid::lineDown(*painter, x, cell.top(), goesOn ? cell.top() + cell.height() : middle, grid::QuietLine);
            grid::lineAcross(*painter, x, x + TreeStep / (branch.foldable ? 2.0 : 1.0), middle, grid::QuietLine);
        } else if (goesOn) {
            grid::lineDown(*painter, x, cell.top(), cell.top() + cell.height(), grid::QuietLine);
        }
    }
    if (branch.foldable) {
        const bool collapsed = model_.row(number).collapsed;
        const qreal x = middleOf(branch.depth);
        if (!collapsed) {
            grid::lineDown(*painter, x, middle, cell.top() + cell.height(), grid::QuietLine);
        }
        grid::expander(*painter, QPointF(x, middle), collapsed);
    }
}

void GridDelegate::paintCheck(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionButton box;
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    const int side = style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, option.widget);
    box.rect = QRect(0, 0, side, side);
    box.rect.moveCenter(option.rect.center());
    box.palette = option.palette;
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    box.state = (option.state & QStyle::State_Enabled) | (checked ? QStyle::State_On : QStyle::State_Off);
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, option.widget);
}

void GridDelegate::paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const Content content = contentOf(option, index);
    if (!content.picture.isNull()) {
        const bool enabled = option.state & QStyle::State_Enabled;
        index.data(Qt::DecorationRole)
            .value<QIcon>()
            .paint(painter, content.picture, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    }
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty() || content.text.width() <= 0) {
        return;
    }
    const QFont face = fontOf(option, index);
    painter->setFont(face);
    const QVariant fore = index.data(Qt::ForegroundRole);
    const QColor ink = option.state & QStyle::State_Enabled ? theme::Text : theme::TextQuiet;
    painter->setPen(fore.isValid() ? fore.value<QColor>() : ink);
    const Qt::Alignment align = alignmentOf(index);
    if (wraps(index.column())) {
        grid::drawBroken(*painter, content.text, align, text);
        return;
    }
    const QString shown = QFontMetrics(face).elidedText(text, Qt::ElideRight, content.text.width());
    painter->drawText(content.text, static_cast<int>(align) | Qt::TextSingleLine, shown);
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QFontMetrics metrics(fontOf(option, index));
    QStyleOptionViewItem cell = option;
    cell.rect = QRect(0, 0, QWIDGETSIZE_MAX, grid::rowHeight(metrics));
    // Rounded up, as a text that lacks a part of a pixel is cut off.
    const qreal advance =
        QFontMetricsF(fontOf(option, index)).horizontalAdvance(index.data(Qt::DisplayRole).toString());
    const int text = static_cast<int>(std::ceil(advance));
    return {QWIDGETSIZE_MAX - contentOf(cell, index).text.width() + text, cell.rect.height()};
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid() || wraps(index.column())) {
        return false;
    }
    QStyleOptionViewItem cell = option;
    cell.rect = view->visualRect(index);
    const QString text = index.data(Qt::DisplayRole).toString();
    const int width = QFontMetrics(fontOf(option, index)).horizontalAdvance(text);
    if (width <= contentOf(cell, index).text.width()) {
        // Leaves the hover to the grid's own legend.
        return false;
    }
    QToolTip::showText(event->globalPos(), text, view->viewport(), cell.rect);
    return true;
}

}  // namespace talvora
