#include "tests/support/windows.h"
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

void clickCell(FlexGrid& grid, int row, int col, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, keys, grid.CellRect(row, col).center());
}

class FlexGridInput : public testing::Test {
 protected:
    FlexGridInput() {
        watched.show();
        const auto record = [this](QChar event) { events << u"%1%2,%3"_s.arg(event).arg(grid.Row()).arg(grid.Col()); };
        QObject::connect(&grid, &FlexGrid::Click, &grid, [=] { record(u'C'); });
        QObject::connect(&grid, &FlexGrid::DblClick, &grid, [=] { record(u'D'); });
    }

    WatchedGrid watched{{u"1\ta\t1"_s, u"2\tb\t2"_s, u"3\tc\t3"_s, u"4\td\t4"_s}};
    FlexGrid& grid = watched.grid;
    QStringList events;  ///< clicks and double clicks with the place that the grid told then
};

}  // namespace

TEST_F(FlexGridInput, ClicksTellTheirCell) {
    EXPECT_EQ(grid.Row(), -1) << "filling makes no row current";
    clickCell(grid, 3, 2);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, {40, grid.CellRect(4, 1).bottom() + 30});
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, grid.CellRect(2, 1).center());
    EXPECT_EQ(events, QStringList({u"C3,2"_s})) << "below the rows, and with the other button, there is no click";
    const QHeaderView& header = *grid.horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {header.sectionViewportPosition(2) + 20, 8});
    EXPECT_THAT(grid.SelectedRows(), IsEmpty());
    const QPoint place = grid.CellRect(2, 1).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(events, QStringList({u"C3,2"_s, u"C0,2"_s, u"C2,1"_s, u"D2,1"_s}));
}

TEST_F(FlexGridInput, SelectsRowsByCodeByHandAndByKeys) {
    grid.Select(3, 1, 2, 2);
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(2, 3));
    EXPECT_EQ(grid.Row(), 3);
    clickCell(grid, 4, 1);
    clickCell(grid, 2, 1, Qt::ControlModifier);
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(2, 4));
    EXPECT_FALSE(grid.IsSelected(3));
    EXPECT_EQ(grid.Row(), 2);
    const std::pair<Qt::Key, int> steps[] = {{Qt::Key_Up, 1},   {Qt::Key_Up, 1},   {Qt::Key_End, 4},
                                             {Qt::Key_Down, 4}, {Qt::Key_Home, 1}, {Qt::Key_Down, 2}};
    for (const auto& [key, row] : steps) {
        QTest::keyClick(&grid, key);
        EXPECT_EQ(grid.Row(), row);
        EXPECT_THAT(grid.SelectedRows(), ElementsAre(row));
    }
    grid.setRows(1);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_THAT(grid.SelectedRows(), IsEmpty());
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
    EXPECT_TRUE(grid.IsSelected(grid.Row()));
    grid.Select(3, 2);
    grid.RemoveItem(3);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 2);
    grid.RemoveItem(1);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Row(), -1);
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
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_EQ(events, QStringList()) << "no row is current";
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_THAT(grid.SelectedRows(), ElementsAre(1));
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_EQ(events, QStringList({u"C1,1"_s}));
    EXPECT_TRUE(grid.IsSelected(1)) << "Space must not take the selection off";
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_EQ(window.enters, 1);
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_TRUE(before.hasFocus());
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
    EXPECT_EQ(events.last(), u"C0,1"_s);
}

}  // namespace talvora::test
