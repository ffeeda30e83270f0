#include "platform/runtime_error.h"
#include "tests/toolkit/flexgrid_sample.h"

#include <QHeaderView>
#include <QPixmap>
#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace talvora::test {

namespace {

QIcon dot(const QColor& color) {
    QPixmap picture(8, 8);
    picture.fill(color);
    return picture;
}

int errorOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace

TEST(FlexGrid, TakesATabSeparatedRowApart) {
    struct Case {
        QString row;
        QStringList cells;
    };
    const Case cases[] = {
        {u"1\tA\t2"_s, {u"1"_s, u"A"_s, u"2"_s}},
        {u"1\t\t2"_s, {u"1"_s, u""_s, u"2"_s}},
        {u"\t\t2"_s, {u""_s, u""_s, u"2"_s}},
        {u"1"_s, {u"1"_s, u""_s, u""_s}},
        {u""_s, {u""_s, u""_s, u""_s}},
        {u"1\tA\t"_s, {u"1"_s, u"A"_s, u""_s}},
        {u"1\tA\t2\t3"_s, {u"1"_s, u"A"_s, u"2"_s}},
    };
    for (const Case& one : cases) {
        WatchedGrid watched({one.row});
        for (int col = 0; col < 3; ++col) {
            EXPECT_EQ(watched.grid.TextMatrix(1, col), one.cells[col]) << one.row.toStdString() << " col " << col;
        }
    }
}

TEST(FlexGrid, KeepsBlanksOfTitlesAndMakesColumnsAsWide) {
    WatchedGrid watched;
    EXPECT_EQ(watched.grid.TextMatrix(0, 1), u"Name            "_s);
    EXPECT_EQ(watched.grid.Rows(), 1);
    FlexGrid grid;
    grid.setStretchCol(3);
    grid.setFormatString(u"编号|编号    |编号        |说明"_s);
    grid.CellRect(0, 0);
    const int blanks = grid.columnWidth(2) - grid.columnWidth(1);
    EXPECT_EQ(grid.columnWidth(1) - grid.columnWidth(0), blanks);
    EXPECT_GT(blanks, 0);
}

TEST(FlexGrid, KeepsADraggedWidthWhenTheListIsFilledAfresh) {
    WatchedGrid watched;
    watched.show();
    watched.grid.setColumnWidth(1, 222);
    watched.grid.setRows(1);
    watched.grid.setCols(1);
    watched.grid.setFormatString(u"Key|Name            |Score   "_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(watched.grid.columnWidth(1), 222);
    watched.grid.setFormatString(u"Key|Another         |Score   "_s);
    QCoreApplication::processEvents();
    EXPECT_NE(watched.grid.columnWidth(1), 222);
}

TEST(FlexGrid, WhatBelongsToARowMovesWithIt) {
    WatchedGrid watched({u"a"_s, u"b"_s, u"c"_s});
    FlexGrid& grid = watched.grid;
    const QIcon picture = dot(Qt::red);
    grid.setRowData(2, u"B"_s);
    grid.setCellPicture(2, 1, picture);
    grid.setCellForeColor(2, 2, Qt::red);
    grid.setCellFontBold(2, 1, true);
    grid.setTextMatrix(2, 1, u"with a\ttab"_s);
    const auto expectAt = [&](int row) {
        EXPECT_EQ(grid.TextMatrix(row, 0), u"b"_s);
        EXPECT_EQ(grid.TextMatrix(row, 1), u"with a\ttab"_s);
        EXPECT_EQ(grid.RowData(row), u"B"_s);
        EXPECT_EQ(grid.CellPicture(row, 1).cacheKey(), picture.cacheKey());
        EXPECT_EQ(grid.CellForeColor(row, 2), QColor(Qt::red));
        EXPECT_TRUE(grid.CellFontBold(row, 1));
        EXPECT_TRUE(grid.CellPicture(row - 1, 1).isNull());
        EXPECT_EQ(watched.seen().size(), grid.Rows() - 1);
    };
    expectAt(2);
    grid.AddItem(u"new"_s, 1);
    expectAt(3);
    grid.AddItem(u"last"_s);
    grid.RemoveItem(1);
    grid.RemoveItem(1);
    expectAt(1);
    grid.RemoveItem(1);
    EXPECT_EQ(watched.seen(), QStringList({u"c"_s, u"last"_s}));
}

TEST(FlexGrid, EmptiesToItsHeaderAndForgetsCells) {
    WatchedGrid watched({u"a\tx\ty"_s});
    FlexGrid& grid = watched.grid;
    grid.setCellBackColor({1, 0, 1, 2}, Qt::yellow);
    grid.setColAlignment(2, GridAlign::RightCenter);
    watched.show();
    grid.setCols(1);
    grid.setCols(3);
    EXPECT_EQ(grid.TextMatrix(1, 1), QString());
    EXPECT_EQ(grid.CellBackColor(1, 0), QColor(Qt::yellow));
    EXPECT_FALSE(grid.CellBackColor(1, 1).isValid());
    EXPECT_EQ(grid.ColAlignment(2), GridAlign::LeftCenter);
    grid.setRows(1);
    grid.setRows(3);
    EXPECT_EQ(grid.TextMatrix(1, 0), QString());
    EXPECT_FALSE(grid.CellBackColor(1, 0).isValid());
    EXPECT_EQ(watched.seen().size(), 2);
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
        [&] {
            grid.setCellFontBold({1, 0, 3, 0}, true);
        },
    };
    int number = 0;
    for (const auto& step : steps) {
        EXPECT_EQ(errorOf(step), errors::SubscriptOutOfRange) << "step " << number;
        ++number;
    }
    EXPECT_EQ(watched.seen(), QStringList({u"a"_s, u"b"_s}));
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
    EXPECT_EQ(watched.grid.Rows(), count + 1);
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
        EXPECT_EQ(watched.grid.TextMatrix(1, 1), text);
    }
}

TEST(FlexGrid, RowsAreAsHighAsTheirBrokenTexts) {
    const QString sentence = u"当您负责的项目进度明显落后于计划，您通常会首先采取哪一种做法？"_s;
    WatchedGrid watched({u"1\t短"_s, u"2\t"_s + sentence.repeated(4), u"3\t"_s + sentence});
    FlexGrid& grid = watched.grid;
    grid.setColWordWrap(1, true);
    grid.setStretchCol(1);
    watched.show();
    const auto heights = [&] {
        return std::vector<int>{grid.CellRect(1, 1).height(), grid.CellRect(2, 1).height(),
                                grid.CellRect(3, 1).height()};
    };
    const std::vector<int> wide = heights();
    EXPECT_LT(wide[0], wide[2] + 1);
    EXPECT_LT(wide[2], wide[1]);
    EXPECT_EQ(grid.CellRect(3, 1).top(), grid.CellRect(2, 1).bottom() + 1);
    grid.resize(280, 400);
    QCoreApplication::processEvents();
    const std::vector<int> narrow = heights();
    EXPECT_EQ(narrow[0], wide[0]);
    EXPECT_GT(narrow[1], wide[1]);
    EXPECT_GE(narrow[1],
              QFontMetrics(grid.font())
                  .boundingRect(QRect(0, 0, grid.columnWidth(1) - 16, 9999), Qt::TextWordWrap, sentence.repeated(4))
                  .height());
    grid.setTextMatrix(2, 1, u"短"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.CellRect(2, 1).height(), wide[0]);
}

TEST(FlexGrid, MergesEqualNeighbours) {
    struct Case {
        GridMerge mode;
        std::vector<int> nameSpans;
        std::vector<int> scoreSpans;
    };
    // Two dimensions of the same score, the first with three rows, the second with two.
    const QStringList rows{u"\tA\t5"_s, u"\tA\t5"_s, u"\tA\t5"_s, u"\tB\t5"_s, u"\tB\t5"_s, u"\t\t"_s, u"\t\t"_s};
    const Case cases[] = {{GridMerge::Never, {1, 1, 1, 1}, {1, 1, 1, 1}},
                          {GridMerge::Free, {3, 2, 1, 1}, {5, 5, 1, 1}},
                          {GridMerge::RestrictColumns, {3, 2, 1, 1}, {3, 2, 1, 1}}};
    for (const Case& one : cases) {
        WatchedGrid watched(rows);
        FlexGrid& grid = watched.grid;
        grid.setMergeCells(one.mode);
        grid.setMergeCol(1, true);
        grid.setMergeCol(2, true);
        watched.show();
        const int line = grid.rowHeight(0);
        int at = 0;
        for (const int row : {1, 4, 6, 7}) {
            const auto place = static_cast<std::size_t>(at++);
            EXPECT_EQ(grid.CellRect(row, 1).height(), line * one.nameSpans[place]) << "row " << row;
            EXPECT_EQ(grid.CellRect(row, 2).height(), line * one.scoreSpans[place]) << "row " << row;
        }
        EXPECT_EQ(grid.TextMatrix(3, 1), u"A"_s);
    }
}

TEST(FlexGrid, MergesFollowTheTexts) {
    WatchedGrid watched({u"\tA"_s, u"\tA"_s, u"\tB"_s});
    FlexGrid& grid = watched.grid;
    grid.setMergeCells(GridMerge::Free);
    grid.setMergeCol(1, true);
    watched.show();
    const int line = grid.rowHeight(0);
    grid.setTextMatrix(3, 1, u"A"_s);
    EXPECT_EQ(grid.CellRect(1, 1).height(), 3 * line);
    grid.RemoveItem(2);
    EXPECT_EQ(grid.CellRect(1, 1).height(), 2 * line);
    grid.setTextMatrix(1, 1, u"C"_s);
    EXPECT_EQ(grid.CellRect(1, 1).height(), line);
}

TEST(FlexGrid, TwoHeaderRowsMergeAndStayAboveTheData) {
    FlexGrid grid;
    grid.resize(500, 300);
    grid.setFixedRows(2);
    grid.setFormatString(u"测评维度|测评维度|测评要素|备注"_s);
    for (int col = 0; col < 3; ++col) {
        grid.setTextMatrix(1, col, QStringList({u"名称"_s, u"分数"_s, u"名称"_s})[col]);
    }
    grid.setTextMatrix(1, 3, u"备注"_s);
    grid.AddItem(u"001 领导\t5"_s);
    grid.setMergeCol(3, true);
    grid.setMergeRow(0, true);
    grid.setMergeCells(GridMerge::Free);
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.TextMatrix(2, 0), u"001 领导"_s);
    grid.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.model()->headerData(1, Qt::Horizontal).toString(), u"测评维度 分数"_s);
    EXPECT_EQ(grid.model()->headerData(3, Qt::Horizontal).toString(), u"备注"_s);
    EXPECT_EQ(grid.CellRect(2, 0).top(), 0);
    EXPECT_EQ(grid.horizontalHeader()->height(), 2 * grid.rowHeight(0));
    GridMerging merging{GridMerge::Free, {false, false, false, true}};
    const auto& model = *qobject_cast<GridModel*>(grid.model());
    const GridRange wide = mergedTitle(model, merging, 0, 1);
    EXPECT_THAT((std::vector{wide.row, wide.col, wide.row2, wide.col2}), ElementsAre(0, 0, 0, 1));
    const GridRange tall = mergedTitle(model, merging, 1, 3);
    EXPECT_THAT((std::vector{tall.row, tall.col, tall.row2, tall.col2}), ElementsAre(0, 3, 1, 3));
}

}  // namespace talvora::test
