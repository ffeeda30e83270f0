#include "tests/support/error_of.h"
#include "tests/support/windows.h"
#include "tests/toolkit/flexgrid_sample.h"

#include <QHeaderView>
#include <QPixmap>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace talvora::test {

TEST(FlexGrid, TakesATabSeparatedRowApart) {
    const std::pair<QString, QStringList> cases[] = {
        {u"1\tA\t2"_s, {u"1"_s, u"A"_s, u"2"_s}}, {u"\t\t2"_s, {u""_s, u""_s, u"2"_s}},
        {u"1"_s, {u"1"_s, u""_s, u""_s}},         {u""_s, {u""_s, u""_s, u""_s}},
        {u"1\tA\t"_s, {u"1"_s, u"A"_s, u""_s}},   {u"1\tA\t2\t3"_s, {u"1"_s, u"A"_s, u"2"_s}},
    };
    for (const auto& [row, cells] : cases) {
        WatchedGrid watched({row});
        for (int col = 0; col < 3; ++col) {
            EXPECT_EQ(watched.grid.TextMatrix(1, col), cells[col]) << row.toStdString() << " col " << col;
        }
    }
}

TEST(FlexGrid, KeepsBlanksOfTitlesAndDraggedWidths) {
    WatchedGrid watched;
    FlexGrid& grid = watched.grid;
    grid.setStretchCol(2);
    watched.show();
    EXPECT_EQ(grid.TextMatrix(0, 1), u"Name            "_s);
    const int own = grid.columnWidth(1);
    grid.setColumnWidth(1, 222);
    const std::pair<QString, int> fills[] = {
        {u"Key|Name            |"_s, 222}, {u"Key|Nama            |"_s, own}, {u"Key|Nama    |"_s, -1}};
    for (const auto& [titles, width] : fills) {
        grid.setRows(1);
        grid.setCols(1);
        grid.setFormatString(titles);
        QCoreApplication::processEvents();
        if (width > 0) {
            EXPECT_EQ(grid.columnWidth(1), width);
        }
    }
    EXPECT_LT(grid.columnWidth(1), own) << "blanks give a column its width";
}

TEST(FlexGrid, ColumnsGrowWithTheTextsAtBothEndsOfAList) {
    const QString number = u"440524188001010014"_s;
    const auto widthWith = [&](int wideRow, const QString& text) {
        WatchedGrid watched;
        for (int row = 1; row <= 300; ++row) {
            watched.grid.AddItem(u"k\t"_s + (row == wideRow ? text : u"1"_s));
        }
        watched.grid.setFitToTexts(true);
        watched.show();
        return watched.grid.columnWidth(1);
    };
    const int own = widthWith(0, {});
    const int wide = WatchedGrid().grid.fontMetrics().horizontalAdvance(number.repeated(2));
    EXPECT_GT(widthWith(1, number.repeated(2)), wide);
    EXPECT_GT(widthWith(300, number.repeated(2)), wide);
    EXPECT_EQ(widthWith(150, number.repeated(2)), own);
    EXPECT_LT(widthWith(1, number.repeated(20)), 3 * wide) << "a long text does not push the other columns away";
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
        EXPECT_EQ(grid.TextMatrix(row, 0), u"b"_s);
        EXPECT_EQ(grid.TextMatrix(row, 1), u"with a\ttab"_s);
        EXPECT_EQ(grid.RowData(row), u"B"_s);
        EXPECT_EQ(grid.CellPicture(row, 1).cacheKey(), picture.cacheKey());
        EXPECT_EQ(grid.CellForeColor(row, 2), QColor(Qt::red));
        EXPECT_TRUE(grid.CellFontBold(row, 1));
        EXPECT_TRUE(grid.CellPicture(row - 1, 1).isNull());
    };
    grid.AddItem(u"new"_s, 1);
    expectAt(3);
    EXPECT_EQ(watched.seen(), u"new a b c"_s);
    grid.RemoveItem(1);
    grid.RemoveItem(1);
    expectAt(1);
    EXPECT_EQ(watched.seen(), u"b c"_s);
    grid.setCols(2);
    grid.setCols(3);
    EXPECT_EQ(grid.CellForeColor(1, 1), QColor(Qt::red));
    EXPECT_FALSE(grid.CellForeColor(1, 2).isValid());
    EXPECT_EQ(grid.CellAlignment(1, 2), GridAlign::LeftCenter);
    grid.setRows(1);
    grid.setRows(3);
    EXPECT_EQ(grid.TextMatrix(1, 0), QString());
    EXPECT_FALSE(grid.CellForeColor(1, 1).isValid());
    EXPECT_EQ(watched.seen(), u" "_s);
}

TEST(FlexGrid, RefusesPlacesOutsideItself) {
    WatchedGrid watched({u"a"_s, u"b"_s});
    FlexGrid& grid = watched.grid;
    const std::function<void()> steps[] = {
        [&] { grid.TextMatrix(3, 0); },
        [&] { grid.TextMatrix(-1, 0); },
        [&] { grid.TextMatrix(1, 3); },
        [&] { grid.setTextMatrix(1, -1, u"x"_s); },
        [&] { grid.RemoveItem(0); },
        [&] { grid.RemoveItem(3); },
        [&] { grid.AddItem(u"x"_s, 0); },
        [&] { grid.AddItem(u"x"_s, 4); },
        [&] { grid.setRows(0); },
        [&] { grid.setRowData(3, u"x"_s); },
        [&] { grid.setIsSubtotal(3, true); },
        [&] { grid.Select(3, 0); },
        [&] { grid.Select(1, 0, 5, 0); },
        [&] { grid.setColHidden(3, true); },
        [&] { grid.setCellFontBold(3, 0, true); },
    };
    for (const auto& step : steps) {
        EXPECT_EQ(errorOf(step), errors::SubscriptOutOfRange) << "step " << &step - steps;
    }
    EXPECT_EQ(watched.seen(), u"a b"_s);
}

TEST(FlexGrid, AnnouncesALongFillOnce) {
    WatchedGrid watched;
    watched.show();
    QSignalSpy inserted(watched.grid.model(), &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(watched.grid.model(), &QAbstractItemModel::dataChanged);
    constexpr int count = 100'000;
    for (int row = 1; row <= count; ++row) {
        watched.grid.AddItem(QString::number(row) + u"\tname\t1"_s);
        watched.grid.setCellBackColor({row, 0, row, 2}, Qt::yellow);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(changed.size(), 0);
    EXPECT_EQ(watched.grid.model()->rowCount(), count);
    EXPECT_EQ(watched.grid.TextMatrix(count, 0), QString::number(count));
}

TEST(FlexGrid, ShowsTruthValuesAsCheckBoxes) {
    const std::pair<QString, bool> cases[] = {{u"True"_s, true},   {u"true"_s, true}, {u"-1"_s, true}, {u"1"_s, true},
                                              {u"False"_s, false}, {u"0"_s, false},   {u""_s, false},  {u"x"_s, false}};
    for (const auto& [text, checked] : cases) {
        WatchedGrid watched({u"1\t"_s + text});
        watched.grid.setColDataType(1, GridDataType::Boolean);
        watched.show();
        const QModelIndex cell = watched.grid.model()->index(0, 1);
        EXPECT_EQ(cell.data(Qt::CheckStateRole).toInt() == Qt::Checked, checked) << text.toStdString();
        EXPECT_FALSE(cell.data(Qt::DisplayRole).isValid());
    }
}

TEST(FlexGrid, RowsAreAsHighAsTheirBrokenTexts) {
    const QString sentence = u"当您负责的项目进度明显落后于计划，您通常会首先采取哪一种做法？"_s;
    WatchedGrid watched({u"1\t短"_s, u"2\t"_s + sentence.repeated(4), u"3\t"_s + sentence});
    FlexGrid& grid = watched.grid;
    grid.setColWordWrap(1, true);
    grid.setStretchCol(1);
    watched.show();
    const auto height = [&](int row) { return grid.CellRect(row, 1).height(); };
    const int line = height(1);
    const int wide = height(2);
    EXPECT_LT(height(3), wide);
    EXPECT_EQ(grid.CellRect(3, 1).top(), grid.CellRect(2, 1).bottom() + 1);
    grid.resize(280, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(height(1), line);
    EXPECT_GT(height(2), wide);
    const QRect room(0, 0, grid.columnWidth(1) - 16, 9999);
    EXPECT_GE(height(2), QFontMetrics(grid.font()).boundingRect(room, Qt::TextWordWrap, sentence.repeated(4)).height());
    grid.setTextMatrix(2, 1, u"短"_s);
    EXPECT_EQ(height(2), line);
}

TEST(FlexGrid, MergesEqualNeighboursAsTheirTextsStand) {
    struct Case {
        GridMerge mode;
        QList<int> nameSpans;
        QList<int> scoreSpans;
    };
    // Two dimensions of the same score, the first with three rows, the second with two.
    const QStringList rows{u"\tA\t5"_s, u"\tA\t5"_s, u"\tA\t5"_s, u"\tB\t5"_s, u"\tB\t5"_s, u"\t\t"_s, u"\t\t"_s};
    const Case cases[] = {{GridMerge::Never, {1, 1, 1, 1}, {1, 1, 1, 1}},
                          {GridMerge::Free, {3, 2, 1, 1}, {5, 5, 1, 1}},
                          {GridMerge::RestrictColumns, {3, 2, 1, 1}, {3, 2, 1, 1}}};
    WatchedGrid watched(rows);
    FlexGrid& grid = watched.grid;
    grid.setMergeCol(1, true);
    grid.setMergeCol(2, true);
    const auto spans = [&](int col, const QList<int>& at) {
        QList<int> found;
        for (const int row : at) {
            found << grid.CellRect(row, col).height() / grid.rowHeight(0);
        }
        return found;
    };
    for (const Case& one : cases) {
        grid.setMergeCells(one.mode);
        watched.show();
        EXPECT_EQ(spans(1, {1, 4, 6, 7}), one.nameSpans) << static_cast<int>(one.mode);
        EXPECT_EQ(spans(2, {1, 4, 6, 7}), one.scoreSpans) << static_cast<int>(one.mode);
    }
    grid.setTextMatrix(4, 1, u"A"_s);
    EXPECT_EQ(spans(1, {1, 5}), QList<int>({4, 1}));
    grid.RemoveItem(2);
    EXPECT_EQ(spans(1, {1, 4}), QList<int>({3, 1}));
    EXPECT_EQ(grid.TextMatrix(2, 1), u"A"_s);
}

TEST(FlexGrid, TwoHeaderRowsMergeAndStayAboveTheData) {
    FlexGrid grid;
    grid.resize(500, 300);
    grid.setFixedRows(2);
    grid.setFormatString(u"测评维度|测评维度|测评要素|备注"_s);
    const QStringList second{u"名称"_s, u"分数"_s, u"名称"_s, u"备注"_s};
    for (int col = 0; col < 4; ++col) {
        grid.setTextMatrix(1, col, second[col]);
    }
    grid.AddItem(u"001 领导\t5"_s);
    EXPECT_EQ(grid.TextMatrix(2, 0), u"001 领导"_s);
    grid.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.model()->headerData(1, Qt::Horizontal).toString(), u"测评维度 分数"_s);
    EXPECT_EQ(grid.model()->headerData(3, Qt::Horizontal).toString(), u"备注"_s);
    EXPECT_EQ(grid.CellRect(2, 0).top(), 0);
    EXPECT_EQ(grid.horizontalHeader()->height(), 2 * grid.rowHeight(0));
    grid.setMergeRow(0, true);
    const auto& model = *qobject_cast<GridModel*>(grid.model());
    const GridMerging merging{GridMerge::Free, {false, false, false, true}};
    const auto expectTitle = [&](int row, int col, const QList<int>& range) {
        const GridRange title = mergedTitle(model, merging, row, col);
        EXPECT_EQ(QList<int>({title.row, title.col, title.row2, title.col2}), range);
    };
    expectTitle(0, 1, {0, 0, 0, 1});
    expectTitle(1, 1, {1, 1, 1, 1});
    expectTitle(1, 3, {0, 3, 1, 3});
}

}  // namespace talvora::test
