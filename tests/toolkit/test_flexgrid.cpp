#include "tests/support/windows.h"
#include "tests/toolkit/flexgrid_sample.h"

#include <QPixmap>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace talvora::test {

TEST(FlexGrid, KeepsBlanksOfTitlesAndDraggedWidths) {
    WatchedGrid watched;
    FlexGrid& grid = watched.grid;
    grid.setStretchCol(2);
    watched.show();
    EXPECT_EQ(grid.TextMatrix(0, 1), u"Name            "_s);
    const int own = grid.columnWidth(1);
    grid.setColumnWidth(1, 222);
    const auto widthUnder = [&](const QString& titles) {
        grid.setRows(1);
        grid.setCols(1);
        grid.setFormatString(titles);
        QCoreApplication::processEvents();
        return grid.columnWidth(1);
    };
    EXPECT_EQ(widthUnder(u"Key|Name            |"_s), 222);
    EXPECT_EQ(widthUnder(u"Key|Nama            |"_s), own);
    EXPECT_LT(widthUnder(u"Key|Nama    |"_s), own) << "blanks give a column its width";
}

TEST(FlexGrid, ColumnsGrowWithTheTextsAtBothEndsOfAList) {
    const auto widthWith = [](int wideRow, int length) {
        WatchedGrid watched(QStringList(300, u"k\t1"_s));
        watched.grid.setTextMatrix(wideRow, 1, QString(length, u'8'));
        watched.grid.setFitToTexts(true);
        watched.show();
        return watched.grid.columnWidth(1);
    };
    const int wide = WatchedGrid().grid.fontMetrics().horizontalAdvance(QString(36, u'8'));
    EXPECT_GT(std::min(widthWith(1, 36), widthWith(300, 36)), wide);
    EXPECT_EQ(widthWith(150, 36), widthWith(150, 1));
    EXPECT_LT(widthWith(1, 360), 3 * wide) << "a long text does not push the other columns away";
}

TEST(FlexGrid, WhatBelongsToARowMovesWithItAndGoesWithIt) {
    WatchedGrid watched({u"a"_s, u"b"_s, u"c"_s});
    FlexGrid& grid = watched.grid;
    const QIcon picture = QPixmap(8, 8);
    grid.setRowData(2, u"B"_s);
    grid.setCellPicture(2, 1, picture);
    grid.setCellForeColor({2, 1, 2, 2}, Qt::red);
    grid.setCellFontBold(2, 1, true);
    grid.setColAlignment(2, GridAlign::RightCenter);
    grid.setTextMatrix(2, 1, u"with a\ttab"_s);
    watched.show();
    const auto expectAt = [&](int row) {
        EXPECT_EQ(grid.TextMatrix(row, 0) + grid.TextMatrix(row, 1) + grid.RowData(row), u"bwith a\ttabB"_s);
        EXPECT_EQ(grid.CellPicture(row, 1).cacheKey(), picture.cacheKey());
        EXPECT_TRUE(grid.CellFontBold(row, 1) && grid.CellForeColor(row, 2) == Qt::red);
        EXPECT_TRUE(grid.CellPicture(row - 1, 1).isNull());
    };
    grid.AddItem(u"new"_s, 1);
    expectAt(3);
    EXPECT_EQ(watched.seen(), u"new a b c"_s);
    grid.RemoveItem(1);
    grid.RemoveItem(1);
    expectAt(1);
    grid.setCols(2);
    grid.setCols(3);
    EXPECT_EQ(grid.CellForeColor(1, 1), QColor(Qt::red));
    EXPECT_FALSE(grid.CellForeColor(1, 2).isValid());
    EXPECT_EQ(grid.CellAlignment(1, 2), GridAlign::LeftCenter);
    grid.setRows(1);
    grid.setRows(3);
    EXPECT_FALSE(grid.CellForeColor(1, 1).isValid());
    EXPECT_EQ(watched.seen(), u" "_s);
}

TEST(FlexGrid, ShowsTruthValuesAsCheckBoxes) {
    WatchedGrid watched({u"\tTrue"_s, u"\tFalse"_s});
    watched.grid.setColDataType(1, GridDataType::Boolean);
    watched.show();
    const auto state = [&](int row) { return watched.grid.model()->index(row, 1).data(Qt::CheckStateRole).toInt(); };
    EXPECT_EQ(state(0) - state(1), Qt::Checked);
}

TEST(FlexGrid, RowsAreAsHighAsTheirBrokenTexts) {
    const QString text = u"当您负责的项目进度明显落后于计划，您通常会首先采取哪一种做法？"_s.repeated(4);
    WatchedGrid watched({u"1\t短"_s, u"2\t"_s + text});
    FlexGrid& grid = watched.grid;
    grid.setColWordWrap(1, true);
    grid.setStretchCol(1);
    watched.show();
    const auto height = [&](int row) { return grid.CellRect(row, 1).height(); };
    const int line = height(1);
    const int wide = height(2);
    grid.resize(280, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(height(1), line);
    EXPECT_GT(height(2), wide);
    const QRect room(0, 0, grid.columnWidth(1) - 16, 9999);
    EXPECT_GE(height(2), QFontMetrics(grid.font()).boundingRect(room, Qt::TextWordWrap, text).height());
    grid.setTextMatrix(2, 1, u"短"_s);
    EXPECT_EQ(height(2), line);
}

TEST(FlexGrid, MergesEqualNeighboursAsTheirTextsStand) {
    // Two dimensions of the same score, the first with three rows, the second with two.
    WatchedGrid watched({u"\tA\t5"_s, u"\tA\t5"_s, u"\tA\t5"_s, u"\tB\t5"_s, u"\tB\t5"_s, u"\t\t"_s, u"\t\t"_s});
    FlexGrid& grid = watched.grid;
    grid.setMergeCol(1, true);
    grid.setMergeCol(2, true);
    grid.setMergeCells(GridMerge::Free);
    watched.show();
    // The rows of a column that have no line below them.
    const auto joined = [&](int col) {
        QCoreApplication::processEvents();
        const QImage picture = grid.viewport()->grab().toImage();
        QString found;
        for (int row = 1; row < grid.Rows(); ++row) {
            const QRect cell = grid.CellRect(row, col);
            const QColor below = picture.pixelColor(cell.left() + 2, cell.bottom());
            found += below == picture.pixelColor(cell.left() + 2, cell.top() + 2) ? QString::number(row) : QString();
        }
        return found;
    };
    EXPECT_EQ(joined(1) + u' ' + joined(2), u"124 1234"_s);
    grid.setTextMatrix(4, 1, u"A"_s);
    EXPECT_EQ(joined(1), u"123"_s);
    grid.RemoveItem(2);
    EXPECT_EQ(joined(1), u"12"_s);
    // A press takes the row that it meets, though the text stands over several.
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.CellRect(3, 1).center());
    EXPECT_EQ(grid.Row(), 3);
    QTest::keyClick(&grid, Qt::Key_Up);
    EXPECT_EQ(grid.Row(), 2);
    grid.setMergeCells(GridMerge::Never);
    EXPECT_EQ(joined(2), QString());
}

}  // namespace talvora::test
