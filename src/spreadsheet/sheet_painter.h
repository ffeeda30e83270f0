#pragma once

#include "spreadsheet/sheet_layout.h"
#include "spreadsheet/workbook.h"

#include <QFont>

class QPainter;
class QRectF;

namespace talvora {

/// Paints a workbook's cells, on the screen and on paper alike, in the sheet's pixels.
class SheetPainter {
 public:
    /// On the screen cells are parted by faint lines; on paper only boxes have lines.
    enum class Lines { Faint, BoxesOnly };

    SheetPainter(const Workbook& workbook, const SheetLayout& layout, Lines lines);

    /// Paints the cell into `place`, its lines on the far edges included, without what neighbours show in it. A merged
    /// cell is painted as a whole by its first cell.
    void paintCell(QPainter& painter, const CellRange& cell, const QRectF& place) const;

    /// The text of a neighbour on the left that flows over this empty cell. `place` is the cell's own.
    void paintOverflow(QPainter& painter, int row, int column, const QRectF& place) const;

 private:
    void paintText(QPainter& painter, int row, int column, const QRectF& place, bool wraps) const;
    void paintLines(QPainter& painter, const CellRange& cell, const QRectF& place) const;
    bool flows(int row, int column) const;
    QFont fontOf(const CellFormat& format) const;

    const Workbook& workbook_;
    const SheetLayout& layout_;
    Lines lines_;
    QFont font_;
};

}  // namespace talvora
