#include "windows/grid_listing.h"

#include <QHash>
#include <QStringList>

namespace talvora::test {

using namespace Qt::StringLiterals;

QString listing(const FlexGrid& grid) {
    const QHash<QRgb, QString> names{{0xffffffc0, u" yellow"_s}, {0xffff0000, u" red"_s}, {0xffd3d8e0, u" grey"_s}};
    QStringList lines;
    for (int row = 1; row < grid.Rows(); ++row) {
        QStringList cells;
        QStringList marks;
        for (int col = 0; col < grid.Cols(); ++col) {
            cells += grid.TextMatrix(row, col);
            const QColor back = grid.CellBackColor(row, col);
            const QColor mark = back.isValid() ? back : grid.CellForeColor(row, col);
            marks += mark.isValid() ? names.value(mark.rgba(), mark.name()) : QString();
        }
        const QString level = grid.IsSubtotal(row) ? QString::number(grid.RowOutlineLevel(row)) : u"-"_s;
        marks.removeDuplicates();
        while (cells.last().isEmpty()) {
            cells.removeLast();
        }
        lines += level + u' ' + cells.join(u'|') + (marks.size() == 1 ? marks.front() : u" mixed"_s);
    }
    return lines.join(u'\n');
}

QString alignments(const FlexGrid& grid) {
    QString letters;
    for (int col = 0; col < grid.Cols(); ++col) {
        letters += grid.CellAlignment(0, col) == GridAlign::RightCenter ? u'R' : u'L';
    }
    return letters;
}

}  // namespace talvora::test
