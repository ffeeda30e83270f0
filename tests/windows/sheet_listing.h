#pragma once

#include "platform/workbook.h"

#include <QString>
#include <QStringList>

namespace talvora::test {

/// A workbook as lines of text, a row each, as tests/windows/list_workbook.py gives a file: cells parted by "|", each
/// with its looks behind a "~": s shaded, b boxed, l left, m centred in height, t text for good, B16 bold of 16 points;
/// a number has a "#" in front. Then a line for each merged block.
inline QStringList sheetListing(const Workbook& sheet) {
    QStringList lines;
    for (int row = 1; row <= sheet.rows(); ++row) {
        QStringList cells;
        for (int column = 1; column <= sheet.columns(); ++column) {
            const CellRange whole = sheet.mergeAt(row, column);
            if (whole.row != row || whole.column != column) {
                cells += QString();
                continue;
            }
            const CellFormat look = sheet.format(row, column);
            QString looks;
            looks += look.shaded ? QStringLiteral("s") : QString();
            looks += look.boxed ? QStringLiteral("b") : QString();
            looks += look.left ? QStringLiteral("l") : QString();
            looks += look.middle ? QStringLiteral("m") : QString();
            looks += look.text ? QStringLiteral("t") : QString();
            looks += look.bold ? QStringLiteral("B%1").arg(look.size) : QString();
            const QString text =
                (sheet.number(row, column) ? QStringLiteral("#") : QString()) + sheet.text(row, column);
            cells += looks.isEmpty() ? text : text + QLatin1Char('~') + looks;
        }
        lines += cells.join(QLatin1Char('|'));
    }
    for (const CellRange& merge : sheet.merges()) {
        lines += QStringLiteral("%1,%2-%3,%4").arg(merge.row).arg(merge.column).arg(merge.row2).arg(merge.column2);
    }
    return lines;
}

}  // namespace talvora::test
