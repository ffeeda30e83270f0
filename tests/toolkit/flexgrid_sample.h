#pragma once

#include "toolkit/grid/flexgrid.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QStringList>

namespace talvora::test {

/// A grid whose model is watched for every rule that views rely on. A breach ends the test program.
struct WatchedGrid {
    FlexGrid grid;
    QAbstractItemModelTester watch{grid.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};

    /// Three columns, the first hidden, and a row a text, told as it will be shown.
    explicit WatchedGrid(const QStringList& rows = {}) {
        grid.resize(500, 400);
        grid.setFormatString(QStringLiteral("Key|Name            |Score   "));
        grid.setColHidden(0, true);
        for (const QString& row : rows) {
            grid.AddItem(row);
        }
    }
    void show() {
        grid.show();
        QCoreApplication::processEvents();
    }
    /// The keys of the rows that are to be seen.
    QString seen() {
        QStringList texts;
        for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
            if (!grid.CellRect(row, 1).isEmpty()) {
                texts.append(grid.TextMatrix(row, 0));
            }
        }
        return texts.join(QLatin1Char(' '));
    }
};

}  // namespace talvora::test
