#pragma once

#include "toolkit/grid/flexgrid.h"

namespace talvora::test {

/// The rows of a grid as text, one a line: the level of an outline node or "-", the cells parted by "|" without empty
/// ones at the end, and the colours of its cells, "none" for some of them uncoloured beside coloured ones.
inline QString listing(const FlexGrid& grid) {
    QString text;
    for (int row = 1; row < grid.Rows(); ++row) {
        QStringList cells, colours;
        for (int col = 0; col < grid.Cols(); ++col) {
            const QColor back = grid.CellBackColor(row, col);
            const QColor colour = back.isValid() ? back : grid.CellForeColor(row, col);
            cells += grid.TextMatrix(row, col);
            colours += colour.isValid() ? colour.name() : QStringLiteral("none");
        }
        while (cells.last().isEmpty()) {
            cells.removeLast();
        }
        colours.sort();
        colours.removeDuplicates();
        const bool plain = colours == QStringList(QStringLiteral("none"));
        text += (grid.IsSubtotal(row) ? QString::number(grid.RowOutlineLevel(row)) : QStringLiteral("-")) + u' ' +
                cells.join(u'|') + (plain ? QString() : u' ' + colours.join(u' ')) + u'\n';
    }
    return text.trimmed();
}

}  // namespace talvora::test
