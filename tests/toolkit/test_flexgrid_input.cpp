#include "tests/support/windows.h"
#include "tests/toolkit/flexgrid_sample.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace talvora::test {

static void clickCell(FlexGrid& grid, int row, int col, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, keys, grid.CellRect(row, col).center());
}

class FlexGridInput : public testing::Test {
 protected:
    FlexGridInput() {
        watched.show();
        const auto record = [this](const QString& event, int row) { events << event + QString::number(row); };
        QObject::connect(&grid, &FlexGrid::Click, &grid,
                         [=, this] { record(u"C%1,"_s.arg(grid.ClickedRow()), grid.ClickedCol()); });
        QObject::connect(&grid, &FlexGrid::DblClick, &grid, [=, this] { record(u"D"_s, grid.ClickedRow()); });
        QObject::connect(&grid, &FlexGrid::RowChange, &grid, [=, this] { record(u"R"_s, grid.Row()); });
    }
    void clickTitle(int col, Qt::MouseButton button = Qt::LeftButton) {
        const QHeaderView& header = *grid.horizontalHeader();
        QTest::mouseClick(header.viewport(), button, {}, {header.sectionViewportPosition(col) + 20, 8});
    }
    /// Presses the mouse in one cell, draws it to another and lets it go.
    void draw(QPoint from, QPoint to) {
        QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, grid.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(grid.viewport(), &move);
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, to);
    }
    QPoint middle(int row, int col) { return grid.CellRect(row, col).center(); }
    QPoint belowTheRows() { return {40, grid.CellRect(4, 1).bottom() + 30}; }
    void expectSelected(const std::vector<int>& rows, int current) {
        EXPECT_EQ(grid.SelectedRows(), rows);
        EXPECT_EQ(grid.Row(), current);
    }

    WatchedGrid watched{{u"1\ta\t1"_s, u"2\tb\t2"_s, u"3\tc\t3"_s, u"4\td\t4"_s}};
    FlexGrid& grid = watched.grid;
    QStringList events;  ///< clicks and double clicks with the cell clicked, and moves with the row reached
};

TEST_F(FlexGridInput, ClicksTellTheirCell) {
    clickCell(grid, 3, 2);
    // Below the rows, and with the other button, there is no click.
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, belowTheRows());
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, middle(2, 1));
    clickCell(grid, 2, 1);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, middle(2, 1));
    EXPECT_EQ(events, QStringList({u"C3,2"_s, u"R2"_s, u"C2,1"_s, u"D2"_s}));
}

TEST_F(FlexGridInput, ATitleIsClickedWithoutTakingTheRowAway) {
    clickTitle(1);
    expectSelected({}, -1);
    clickCell(grid, 3, 1);
    clickTitle(2);
    clickTitle(1, Qt::RightButton);
    QWidget* header = grid.horizontalHeader()->viewport();
    QTest::mouseDClick(header, Qt::LeftButton, {}, {grid.columnWidth(1) / 2, 8});
    QTest::mousePress(header, Qt::LeftButton, {}, {20, 8});
    EXPECT_EQ(events, QStringList({u"C0,1"_s, u"C3,1"_s, u"C0,2"_s})) << "a press alone is no click yet";
    expectSelected({3}, 3);
}

TEST_F(FlexGridInput, ATitleIsNoColumnToChooseWhereCellsAreSelected) {
    grid.setSelectionBehavior(QAbstractItemView::SelectItems);
    clickCell(grid, 3, 1);
    clickTitle(2);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(FlexGridInput, WhatIsCurrentStaysSelected) {
    clickCell(grid, 2, 1);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, belowTheRows());
    expectSelected({2}, 2);
    clickCell(grid, 2, 1, Qt::ControlModifier);
    expectSelected({2}, 2);
    clickCell(grid, 4, 1, Qt::ControlModifier);
    clickCell(grid, 4, 1, Qt::ControlModifier);
    expectSelected({2}, 2);
    QTest::keyClick(&grid, Qt::Key_Space, Qt::ControlModifier);
    expectSelected({2}, 2);
    QTest::keyClick(&grid, Qt::Key_Down, Qt::ControlModifier);
    expectSelected({3}, 3);
    draw(belowTheRows(), middle(4, 1));
    EXPECT_THAT(grid.SelectedRows(), testing::Contains(grid.Row()));
    grid.Select(0, 1);
    expectSelected({}, -1);
    QTest::keyClick(&grid, Qt::Key_A, Qt::ControlModifier);
    expectSelected({1, 2, 3, 4}, 1);
    // Where cells are selected, the same holds for the cell.
    grid.setSelectionBehavior(FlexGrid::SelectItems);
    clickCell(grid, 3, 2);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, belowTheRows());
    EXPECT_TRUE(grid.selectionModel()->isSelected(grid.currentIndex()));
}

TEST_F(FlexGridInput, TellsWhatMovesTheCursorBesidesClicks) {
    draw(middle(2, 1), middle(2, 2));
    EXPECT_EQ(events, QStringList({u"C2,-1"_s})) << "a click may slip over the edge of a column";
    events.clear();
    draw(middle(2, 1), middle(4, 1));
    expectSelected({2, 3, 4}, 4);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Home, Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Down, Qt::Key_PageUp}) {
        QTest::keyClick(&grid, key);
    }
    EXPECT_EQ(events, QStringList({u"R4"_s, u"R3"_s, u"R1"_s, u"R4"_s, u"R1"_s}));
}

TEST_F(FlexGridInput, SelectsRowsByCodeByHandAndByKeys) {
    grid.Select(3, 1, 2, 2);
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(2, 3));
    EXPECT_EQ(grid.Row(), 3);
    clickCell(grid, 4, 1);
    clickCell(grid, 2, 1, Qt::ControlModifier);
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(2, 4));
    for (const auto& [key, row] : {std::pair(Qt::Key_Up, 1), {Qt::Key_Up, 1}, {Qt::Key_End, 4}, {Qt::Key_Down, 4}}) {
        QTest::keyClick(&grid, key);
        EXPECT_EQ(grid.Row(), row);
        EXPECT_THAT(grid.SelectedRows(), ElementsAre(row));
    }
    grid.setRows(1);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_THAT(grid.SelectedRows(), ElementsAre());
}

TEST_F(FlexGridInput, TheCursorStaysWithItsRowWhenOthersComeAndGo) {
    grid.Select(2, 1);
    grid.AddItem(u"new"_s, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.Row(), 3);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Row(), 2);
    grid.RemoveItem(2);
    EXPECT_EQ(grid.TextMatrix(grid.Row(), 0), u"3"_s) << "the next row takes its place";
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(2));
    grid.Select(3, 2);
    grid.RemoveItem(3);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 2);
}

TEST_F(FlexGridInput, TabEntersAndLeavesSpaceClicksEnterIsTheWindows) {
    struct Window : QWidget {
        int enters = 0;
        void keyPressEvent(QKeyEvent* event) override { enters += event->key() == Qt::Key_Return ? 1 : 0; }
    } window;
    QWidget before(&window);
    before.setFocusPolicy(Qt::StrongFocus);
    grid.setParent(&window);
    grid.show();
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(grid.hasFocus());
    expectSelected({}, -1);
    QTest::keyClick(&grid, Qt::Key_Space);
    expectSelected({1}, 1);
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_EQ(events, QStringList({u"R1"_s, u"C1,1"_s}));
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(1)) << "Space must not take the selection off";
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_EQ(window.enters, 1);
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_TRUE(before.hasFocus());
    grid.Select(0, 1);
    grid.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&grid, Qt::Key_Down);
    expectSelected({1}, 1);
    grid.setParent(nullptr);
}

TEST_F(FlexGridInput, FrozenColumnsStayWhenTheGridScrolls) {
    grid.resize(400, 200);
    grid.setFormatString(u"序号|题目      |选项A            |选项B            |选项C            |选项D            "_s);
    grid.setColHidden(0, false);
    grid.setFrozenCols(2);
    QCoreApplication::processEvents();
    const QRect question = grid.CellRect(1, 1);
    grid.horizontalScrollBar()->setValue(100);
    EXPECT_EQ(grid.CellRect(1, 1), question);
    clickCell(grid, 1, 1);
    EXPECT_EQ(events, QStringList({u"C1,1"_s}));
    EXPECT_EQ(grid.horizontalScrollBar()->value(), 100) << "a column in view needs no scrolling";
    QTest::keyClick(&grid, Qt::Key_Right);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_GE(grid.CellRect(1, 2).left(), question.right() + 1) << "the cursor's cell comes out from underneath";
    grid.horizontalScrollBar()->setValue(100);
    QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, {question.center().x(), 8});
    EXPECT_EQ(events.last(), u"C0,1"_s) << "its title stays, too";
}

TEST_F(FlexGridInput, FrozenColumnsLeaveRoomToScrollBesideThem) {
    grid.setFormatString(u"序号|题目      |选项A            |选项B            |选项C            |选项D            "_s);
    grid.setColHidden(0, false);
    grid.setTextMatrix(1, 1, QString(60, u'题'));
    grid.setFitToTexts(true);
    grid.setFrozenCols(2);
    for (const int width : {400, 250, 900}) {
        grid.resize(width, 200);
        QCoreApplication::processEvents();
        const QRect question = grid.CellRect(1, 1);
        EXPECT_LE(question.right() + 1, grid.viewport()->width() * 3 / 4) << width;
        grid.horizontalScrollBar()->setValue(grid.horizontalScrollBar()->maximum());
        EXPECT_EQ(grid.CellRect(1, 1), question) << width;
        grid.horizontalScrollBar()->setValue(0);
    }
    EXPECT_GE(grid.columnWidth(1), 40 * grid.fontMetrics().horizontalAdvance(u'题')) << "where there is room";
}

/// Rows told by their keys: a key that ends in a digit is a node of that level, any other a plain row.
struct TreeGrid : WatchedGrid {
    explicit TreeGrid(const QString& keys) : WatchedGrid(keys.split(u' ')) {
        grid.setOutlineBar(GridOutlineBar::CompleteLeaf);
        grid.setOutlineCol(1);
        for (int row = 1; row < grid.Rows(); ++row) {
            const QChar last = grid.TextMatrix(row, 0).back();
            grid.setTextMatrix(row, 1, u"row"_s);
            grid.setIsSubtotal(row, last.isDigit());
            grid.setRowOutlineLevel(row, std::max(0, last.digitValue()));
        }
        show();
    }
    void clickExpander(int row, int depth) {
        const QRect cell = grid.CellRect(row, 1);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, {cell.left() + 14 + 20 * depth, cell.center().y()});
    }
    void expectCursor(int row) {
        QCoreApplication::processEvents();
        EXPECT_EQ(grid.Row(), row);
        EXPECT_THAT(grid.SelectedRows(), ElementsAre(row));
    }
};

static const QString papers = u"m1 s2 pa pb t2 pc n1 u2 pd"_s;

TEST(FlexGridOutline, FoldsToALevelAndSelectOpensUpToItsRow) {
    TreeGrid tree(papers);
    for (const auto& [level, seen] : {std::pair(2, u"m1 s2 t2 n1 u2"_s), {10, papers}, {1, u"m1 n1"_s}}) {
        tree.grid.Outline(level);
        EXPECT_EQ(tree.seen(), seen) << "level " << level;
    }
    tree.grid.Select(4, 1);
    EXPECT_EQ(tree.seen(), u"m1 s2 pa pb t2 n1"_s);
    tree.expectCursor(4);
}

TEST(FlexGridOutline, AFoldedNodeHidesWhatIsDeeper) {
    struct Case {
        QString keys;
        int folded;
        QString seen;
    };
    const Case cases[] = {
        {papers, 2, u"m1 s2 t2 pc n1 u2 pd"_s},
        {u"x m1 y"_s, 2, u"x m1"_s},
        // Levels may be skipped, and a lesser level ends every deeper one.
        {u"a1 b4 c d3 e"_s, 2, u"a1 b4 d3 e"_s},
        {u"a1 b2 c3 d2 e1"_s, 2, u"a1 b2 d2 e1"_s},
    };
    for (const Case& one : cases) {
        TreeGrid tree(one.keys);
        tree.grid.setIsCollapsed(one.folded, true);
        EXPECT_EQ(tree.seen(), one.seen) << one.keys.toStdString();
        tree.grid.setIsCollapsed(one.folded, false);
        EXPECT_EQ(tree.seen(), one.keys);
    }
    TreeGrid tree(papers);
    tree.grid.setIsCollapsed(7, true);
    tree.grid.RemoveItem(7);
    EXPECT_EQ(tree.seen(), u"m1 s2 pa pb t2 pc u2 pd"_s) << "a node that goes gives its rows back";
}

TEST(FlexGridOutline, AClickOnTheExpanderFoldsAndIsNoClick) {
    TreeGrid tree(papers);
    QSignalSpy clicks(&tree.grid, &FlexGrid::Click);
    tree.clickExpander(7, 0);
    tree.clickExpander(2, 1);
    EXPECT_EQ(tree.seen(), u"m1 s2 t2 pc n1"_s);
    tree.clickExpander(2, 1);
    EXPECT_FALSE(tree.grid.IsCollapsed(2));
    EXPECT_EQ(tree.grid.Row(), -1);
    EXPECT_EQ(clicks.size(), 0);
    tree.clickExpander(3, 2);
    EXPECT_EQ(clicks.size(), 1) << "a leaf has no expander";
}

}  // namespace talvora::test
