#include "tests/toolkit/flexgrid_sample.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace talvora::test {

namespace {

const QStringList four{u"1\ta\t1"_s, u"2\tb\t2"_s, u"3\tc\t3"_s, u"4\td\t4"_s};

struct Clicked {
    int row;
    int col;
};

void clickCell(FlexGrid& grid, int row, int col, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, keys, grid.CellRect(row, col).center());
}

}  // namespace

TEST(FlexGridInput, AClickTellsItsCell) {
    WatchedGrid watched(four);
    FlexGrid& grid = watched.grid;
    watched.show();
    std::vector<Clicked> clicked;
    QObject::connect(&grid, &FlexGrid::Click, &grid, [&] { clicked.push_back({grid.Row(), grid.Col()}); });
    EXPECT_EQ(grid.Row(), -1);
    clickCell(grid, 3, 2);
    clickCell(grid, 1, 1);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, {40, grid.CellRect(4, 1).bottom() + 30});
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, grid.CellRect(2, 1).center());
    ASSERT_EQ(clicked.size(), 2U) << "below the rows, and with the other button, there is no click";
    EXPECT_EQ(clicked[0].row, 3);
    EXPECT_EQ(clicked[0].col, 2);
    EXPECT_EQ(clicked[1].row, 1);
    EXPECT_EQ(clicked[1].col, 1);
}

TEST(FlexGridInput, AClickOnATitleGivesRow0) {
    WatchedGrid watched(four);
    FlexGrid& grid = watched.grid;
    watched.show();
    grid.Select(2, 1);
    QSignalSpy clicks(&grid, &FlexGrid::Click);
    const QHeaderView& header = *grid.horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {header.sectionViewportPosition(2) + 20, 8});
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_THAT(grid.SelectedRows(), IsEmpty());
    clickCell(grid, 2, 1);
    EXPECT_EQ(grid.Row(), 2);
}

TEST(FlexGridInput, ADoubleClickIsOneClickAndOneDoubleClick) {
    WatchedGrid watched(four);
    watched.show();
    QStringList order;
    QObject::connect(&watched.grid, &FlexGrid::Click, &watched.grid, [&] { order.append(u"Click"_s); });
    QObject::connect(&watched.grid, &FlexGrid::DblClick, &watched.grid, [&] { order.append(u"DblClick"_s); });
    const QPoint place = watched.grid.CellRect(2, 1).center();
    QTest::mouseClick(watched.grid.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(watched.grid.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(watched.grid.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(order, QStringList({u"Click"_s, u"DblClick"_s}));
    clickCell(watched.grid, 3, 1);
    EXPECT_EQ(order.last(), u"Click"_s);
}

TEST(FlexGridInput, SpaceClicksTheCurrentRowAndEnterIsLeftToTheWindow) {
    struct Window : QWidget {
        int enters = 0;
        void keyPressEvent(QKeyEvent* event) override { enters += event->key() == Qt::Key_Return ? 1 : 0; }
    };
    Window window;
    WatchedGrid watched(four);
    FlexGrid& grid = watched.grid;
    grid.setParent(&window);
    window.resize(500, 400);
    window.show();
    QSignalSpy clicks(&grid, &FlexGrid::Click);
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 0) << "no row is current";
    grid.Select(2, 1);
    QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_TRUE(grid.IsSelected(3)) << "Space must not take the selection off";
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_EQ(window.enters, 1);
    EXPECT_EQ(clicks.size(), 1);
    grid.setParent(nullptr);
}

TEST(FlexGridInput, MovesByKeysThroughWholeRows) {
    WatchedGrid watched(four);
    FlexGrid& grid = watched.grid;
    watched.show();
    grid.Select(2, 1);
    const std::pair<Qt::Key, int> steps[] = {{Qt::Key_Up, 1},   {Qt::Key_Up, 1},   {Qt::Key_End, 4},
                                             {Qt::Key_Down, 4}, {Qt::Key_Home, 1}, {Qt::Key_Down, 2}};
    for (const auto& [key, row] : steps) {
        QTest::keyClick(&grid, key);
        EXPECT_EQ(grid.Row(), row);
        EXPECT_THAT(grid.SelectedRows(), ElementsAre(row));
    }
}

TEST(FlexGridInput, SelectsRowsByCodeAndByHand) {
    WatchedGrid watched(four);
    FlexGrid& grid = watched.grid;
    watched.show();
    grid.Select(3, 1, 2, 2);
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(2, 3));
    EXPECT_EQ(grid.Row(), 3);
    clickCell(grid, 4, 1);
    clickCell(grid, 2, 1, Qt::ControlModifier);
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(2, 4));
    EXPECT_FALSE(grid.IsSelected(3));
    EXPECT_EQ(grid.Row(), 2);
    grid.setRow(1);
    EXPECT_EQ(grid.Col(), 1);
    grid.setCol(2);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 2);
    grid.setRows(1);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_THAT(grid.SelectedRows(), IsEmpty());
}

TEST(FlexGridInput, TheCursorStaysWithItsRowWhenOthersComeAndGo) {
    WatchedGrid watched(four);
    FlexGrid& grid = watched.grid;
    watched.show();
    grid.Select(2, 1);
    grid.AddItem(u"new"_s, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.Row(), 3);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Row(), 2);
    grid.RemoveItem(2);
    EXPECT_EQ(grid.TextMatrix(grid.Row(), 0), u"3"_s) << "the next row takes its place";
    EXPECT_TRUE(grid.IsSelected(grid.Row()));
    grid.Select(3, 2);
    grid.RemoveItem(3);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 2);
    grid.RemoveItem(1);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Row(), -1);
}

TEST(FlexGridInput, TabLeavesTheGridAndArrivingSelectsARow) {
    QWidget window;
    QWidget before(&window);
    before.setFocusPolicy(Qt::StrongFocus);
    WatchedGrid watched(four);
    FlexGrid& grid = watched.grid;
    grid.setParent(&window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(1));
    EXPECT_EQ(grid.Col(), 1);
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_TRUE(before.hasFocus());
    grid.setParent(nullptr);
}

TEST(FlexGridInput, FrozenColumnsStayWhenTheGridScrolls) {
    FlexGrid grid;
    grid.resize(400, 200);
    grid.setFormatString(u"序号|题目      |选项A            |选项B            |选项C            |选项D            "_s);
    grid.AddItem(u"1\tq\ta\tb\tc\td"_s);
    grid.setFrozenCols(2);
    grid.show();
    QCoreApplication::processEvents();
    const QRect number = grid.CellRect(1, 0);
    const QRect question = grid.CellRect(1, 1);
    grid.horizontalScrollBar()->setValue(100);
    EXPECT_EQ(grid.CellRect(1, 0), number);
    EXPECT_EQ(grid.CellRect(1, 1), question);
    clickCell(grid, 1, 1);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.horizontalScrollBar()->value(), 100) << "a column in view needs no scrolling";
    QTest::keyClick(&grid, Qt::Key_Right);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_GE(grid.CellRect(1, 2).left(), question.right() + 1) << "the cursor's cell comes out from underneath";
}

}  // namespace talvora::test
