#include "tests/support/windows.h"
#include "tests/toolkit/flexgrid_sample.h"
#include "toolkit/flexgrid_outline.h"

#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace talvora::test {

namespace {

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

const QString papers = u"m1 s2 pa pb t2 pc n1 u2 pd"_s;

}  // namespace

TEST(FlexGridOutline, FoldsToALevelAndSelectOpensUpToItsRow) {
    const std::pair<int, QString> cases[] = {{2, u"m1 s2 t2 n1 u2"_s}, {3, papers}, {10, papers}, {1, u"m1 n1"_s}};
    TreeGrid tree(papers);
    for (const auto& [level, seen] : cases) {
        tree.grid.Outline(level);
        EXPECT_EQ(tree.seen(), seen) << "level " << level;
    }
    EXPECT_EQ(tree.grid.Rows(), 10);
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
        {papers, 1, u"m1 n1 u2 pd"_s},
        {papers, 2, u"m1 s2 t2 pc n1 u2 pd"_s},
        {u"x m1 y"_s, 2, u"x m1"_s},
        // Levels may be skipped, and a lesser level ends every deeper one.
        {u"a1 b4 c d3 e"_s, 2, u"a1 b4 d3 e"_s},
        {u"a3 b c1 d"_s, 1, u"a3 c1 d"_s},
        // Every row a node, as positions are.
        {u"a1 b2 c3 d2 e1"_s, 2, u"a1 b2 d2 e1"_s},
    };
    for (const Case& one : cases) {
        TreeGrid tree(one.keys);
        tree.grid.setIsCollapsed(one.folded, true);
        EXPECT_EQ(tree.seen(), one.seen) << one.keys.toStdString();
        tree.grid.setIsCollapsed(one.folded, false);
        EXPECT_EQ(tree.seen(), one.keys);
    }
}

TEST(FlexGridOutline, DrawsBranchesByNesting) {
    std::vector<GridRow> rows(1);
    // A lone level 3, then a tree of three depths whose first inner branch goes on.
    for (const int level : {3, 0, 1, 2, 0, 2, 0}) {
        GridRow& row = rows.emplace_back();
        row.node = level > 0;
        row.level = static_cast<qint16>(level);
    }
    const GridOutline outline = GridOutline::of(rows, 1);
    QStringList branches;
    for (std::size_t row = 1; row < rows.size(); ++row) {
        const GridBranch& branch = outline.branches[row];
        const bool goesOn = branch.lines & 2U;
        branches << u"%1%2%3"_s.arg(branch.depth).arg(branch.foldable ? u"+"_s : u""_s, goesOn ? u"|"_s : u""_s);
    }
    // The second level 2 continues the branch of the first, past the row between.
    EXPECT_EQ(branches.join(u' '), u"0+ 1 0+ 1+| 2| 1+ 2"_s);
}

TEST(FlexGridOutline, AClickOnTheExpanderFoldsAndIsNoClick) {
    TreeGrid tree(papers);
    tree.grid.Select(3, 1);
    QSignalSpy clicks(&tree.grid, &FlexGrid::Click);
    tree.clickExpander(7, 0);
    EXPECT_EQ(tree.grid.Row(), 3);
    tree.clickExpander(2, 1);
    EXPECT_EQ(tree.seen(), u"m1 s2 t2 pc n1"_s);
    tree.clickExpander(2, 1);
    EXPECT_FALSE(tree.grid.IsCollapsed(2));
    EXPECT_EQ(clicks.size(), 0);
    tree.clickExpander(3, 2);
    EXPECT_EQ(clicks.size(), 1) << "a leaf has no expander";
}

TEST(FlexGridOutline, TheCursorOutlastsFoldingAndGoesToTheNodeThatHidesIt) {
    TreeGrid tree(papers);
    tree.grid.Select(9, 2);
    tree.grid.setIsCollapsed(2, true);
    tree.grid.setIsCollapsed(5, true);
    tree.expectCursor(9);
    EXPECT_EQ(tree.grid.Col(), 2);
    tree.grid.setIsCollapsed(8, true);
    tree.expectCursor(8);
    tree.grid.Outline(1);
    tree.expectCursor(7);
}

TEST(FlexGridOutline, FoldsByKeys) {
    struct Step {
        Qt::Key key;
        int row;
        QString seen;
    };
    const QString folded = u"m1 s2 t2 pc"_s;
    const QString open = u"m1 s2 pa t2 pc"_s;
    const Step steps[] = {
        {Qt::Key_Left, 2, open},    // a leaf: up to its node
        {Qt::Key_Left, 2, folded},  // an open node: folds
        {Qt::Key_Left, 1, folded},  // a folded one: up
        {Qt::Key_Down, 2, folded}, {Qt::Key_Right, 2, open}, {Qt::Key_Minus, 2, folded}, {Qt::Key_Plus, 2, open},
    };
    TreeGrid tree(open);
    tree.grid.Select(3, 1);
    for (const Step& step : steps) {
        QTest::keyClick(&tree.grid, step.key);
        EXPECT_EQ(tree.seen(), step.seen) << "step " << &step - steps;
        tree.expectCursor(step.row);
    }
    QTest::keyClick(&tree.grid, Qt::Key_Right);
    EXPECT_EQ(tree.grid.Col(), 2) << "an open node lets the cursor go on to the right";
}

TEST(FlexGridOutline, RemovingANodeGivesItsRowsBack) {
    TreeGrid tree(papers);
    tree.grid.setIsCollapsed(7, true);
    tree.grid.RemoveItem(7);
    tree.grid.setIsCollapsed(2, true);
    tree.grid.RemoveItem(3);
    EXPECT_EQ(tree.seen(), u"m1 s2 t2 pc u2 pd"_s);
}

}  // namespace talvora::test
