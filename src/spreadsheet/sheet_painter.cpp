#include "spreadsheet/sheet_painter.h"

#include "toolkit/look/theme.h"

#include <QPainter>
#include <QTextOption>

namespace talvora {

namespace {

constexpr QColor Ink{0, 0, 0};
constexpr QColor Paper{255, 255, 255};
constexpr QColor Shaded{0xc0, 0xc0, 0xc0};
constexpr QColor Faint{0xdd, 0xe1, 0xe7};

/// A font's size in pixels for points of which 96 pixels are an inch, however large those pixels are painted.
int pixelSize(int points) {
    constexpr double pixelsForPoint = 96.0 / 72.0;
    return qRound(points * pixelsForPoint);
}

}  // namespace

SheetPainter::SheetPainter(const Workbook& workbook, const SheetLayout& layout, Lines lines)
    : workbook_(workbook), layout_(layout), lines_(lines), font_(theme::interfaceFont()) {}

void SheetPainter::paintCell(QPainter& painter, const CellRange& cell, const QRectF& place) const {
    const CellFormat format = workbook_.format(cell.row, cell.column);
    if (format.shaded) {
        painter.fillRect(place, Shaded);
    }
    paintLines(painter, cell, place);
    if (workbook_.isEmpty(cell.row, cell.column)) {
        paintOverflow(painter, cell.row, cell.column, place);
    } else {
        paintText(painter, cell.row, cell.column, place, layout_.wraps(workbook_, cell.row, cell.column));
    }
}

// Unboxed texts run on over the empty cells to their right, as in every spreadsheet program.
bool SheetPainter::flows(int row, int column) const {
    const CellFormat format = workbook_.format(row, column);
    return workbook_.utf8(row, column) && !format.boxed;
}

void SheetPainter::paintOverflow(QPainter& painter, int row, int column, const QRectF& place) const {
    double left = place.left();
    for (int source = column - 1; source >= 1; --source) {
        left -= layout_.columnWidth(source);
        if (workbook_.isEmpty(row, source)) {
            continue;
        }
        if (flows(row, source)) {
            painter.save();
            painter.setClipRect(place, Qt::IntersectClip);
            paintText(painter, row, source, {left, place.top(), place.right() - left, place.height()}, false);
            painter.restore();
        }
        return;
    }
}

void SheetPainter::paintText(QPainter& painter, int row, int column, const QRectF& place, bool wraps) const {
    const CellFormat format = workbook_.format(row, column);
    const bool right = workbook_.number(row, column) && !format.left;
    QTextOption option;
    option.setAlignment((right ? Qt::AlignRight : Qt::AlignLeft) |
                        (format.middle ? Qt::AlignVCenter : Qt::AlignBottom));
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.setFont(fontOf(format));
    painter.setPen(Ink);
    QRectF room = place.adjusted(SheetLayout::CellPadding, 0, -SheetLayout::CellPadding, -1);
    if (!wraps && !right) {
        // Text is cut at the edge of the place, not before it.
        room.setRight(place.left() + layout_.width());
    }
    painter.drawText(room, workbook_.text(row, column), option);
    painter.restore();
}

void SheetPainter::paintLines(QPainter& painter, const CellRange& cell, const QRectF& place) const {
    const auto boxed = [&](int row, int column) { return workbook_.format(row, column).boxed; };
    const bool own = boxed(cell.row, cell.column);
    const bool shaded = workbook_.format(cell.row, cell.column).shaded;
    const bool faint = lines_ == Lines::Faint;
    const auto line = [&](bool box, const QRectF& edge) {
        if (box || (faint && !shaded)) {
            painter.fillRect(edge, box ? Ink : Faint);
        }
    };
    // On the screen the line between two cells is the first one's.
    line(own || (faint && boxed(cell.row, cell.column2 + 1)), {place.right() - 1, place.top(), 1, place.height()});
    line(own || (faint && boxed(cell.row2 + 1, cell.column)), {place.left(), place.bottom() - 1, place.width(), 1});
    if (own && !faint) {
        // The far edges of what comes before may lie on another page.
        painter.fillRect(QRectF(place.left() - 1, place.top() - 1, 1, place.height() + 1), Ink);
        painter.fillRect(QRectF(place.left() - 1, place.top() - 1, place.width() + 1, 1), Ink);
    }
}

QFont SheetPainter::fontOf(const CellFormat& format) const {
    QFont font = font_;
    font.setPixelSize(pixelSize(format.size));
    font.setBold(format.bold);
    return font;
}

}  // namespace talvora
