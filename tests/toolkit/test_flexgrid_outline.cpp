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
    explicit TreeGrid(const QStringList& keys) : WatchedGrid(keys) {
        grid.setOutlineBar(GridOutlineBar::CompleteLeaf);
        grid.setOutlineCol(1);
        grid.setSubtotalPosition(GridSubtotalPosition::Above);
        for (int row = 1; row < grid.Rows(); ++row) {
            const QChar last = grid.TextMatrix(row, 0).back();
            grid.setTextMatrix(row, 1, u"row"_s);
            grid.setIsSubtotal(row, last.isDigit());
            grid.setRowOutlineLevel(row, std::max(0, last.digitValue()));
        }
    }
    void clickExpander(int row, int depth) {
        const QRect cell = grid.CellRect(row, 1);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, {cell.left() + 14 + 20 * depth, cell.center().y()});
    }
};

const QStringList papers{u"m1"_s, u"s2"_s, u"pa"_s, u"pb"_s, u"t2"_s, u"pc"_s, u"n1"_s, u"u2"_s, u"pd"_s};

}  // namespace

TEST(FlexGridOutline, FoldsToALevel) {
    const std::pair<int, QStringList> cases[] = {
        {1, {u"m1"_s, u"n1"_s}},
        {2, {u"m1"_s, u"s2"_s, u"t2"_s, u"n1"_s, u"u2"_s}},
        {3, papers},
        {10, papers},
    };
    TreeGrid tree(papers);
    for (const auto& [level, seen] : cases) {
        tree.grid.Outline(level);
        EXPECT_EQ(tree.seen(), seen) << "level " << level;
    }
    EXPECT_EQ(tree.grid.Rows(), 10);
}

TEST(FlexGridOutline, AFoldedNodeHidesWhatIsDeeper) {
    struct Case {
        QStringList keys;
        int folded;
        QStringList seen;
    };
    const Case cases[] = {
        {papers, 1, {u"m1"_s, u"n1"_s, u"u2"_s, u"pd"_s}},
        {papers, 2, {u"m1"_s, u"s2"_s, u"t2"_s, u"pc"_s, u"n1"_s, u"u2"_s, u"pd"_s}},
        {{u"x"_s, u"m1"_s, u"y"_s}, 2, {u"x"_s, u"m1"_s}},
        // Levels may be skipped, and a lesser level ends every deeper one.
        {{u"a1"_s, u"b4"_s, u"c"_s, u"d3"_s, u"e"_s}, 2, {u"a1"_s, u"b4"_s, u"d3"_s, u"e"_s}},
        {{u"a3"_s, u"b"_s, u"c1"_s, u"d"_s}, 1, {u"a3"_s, u"c1"_s, u"d"_s}},
        // Every row a node, as positions are.
        {{u"a1"_s, u"b2"_s, u"c3"_s, u"d2"_s, u"e1"_s}, 2, {u"a1"_s, u"b2"_s, u"d2"_s, u"e1"_s}},
    };
    for (const Case& one : cases) {
        TreeGrid tree(one.keys);
        tree.grid.setIsCollapsed(one.folded, true);
        EXPECT_EQ(tree.seen(), one.seen) << one.keys.join(u' ').toStdString();
        tree.grid.setIsCollapsed(one.folded, false);
        EXPECT_EQ(tree.seen(), one.keys);
    }
}

TEST(FlexGridOutline, NodesMayStandBelowTheirRows) {
    TreeGrid tree({u"pa"_s, u"pb"_s, u"s2"_s, u"pc"_s, u"t2"_s, u"m1"_s});
    tree.grid.setSubtotalPosition(GridSubtotalPosition::Below);
    tree.grid.setIsCollapsed(3, true);
    EXPECT_EQ(tree.seen(), QStringList({u"s2"_s, u"pc"_s, u"t2"_s, u"m1"_s}));
    tree.grid.setIsCollapsed(6, true);
    EXPECT_EQ(tree.seen(), QStringList({u"m1"_s}));
}

TEST(FlexGridOutline, DrawsBranchesByNesting) {
    std::vector<GridRow> rows(1);
    // A lone level 3, then a tree of three depths whose first inner branch goes on.
    for (const int level : {3, 0, 1, 2, 0, 2, 0}) {
        GridRow& row = rows.emplace_back();
        row.node = level > 0;
        row.level = static_cast<qint16>(level);
    }
    const GridOutline outline = GridOutline::of(rows, 1, GridSubtotalPosition::Above);
    std::vector<int> depths;
    std::vector<bool> foldable;
    for (std::size_t row = 1; row < rows.size(); ++row) {
        depths.push_back(outline.branches[row].depth);
        foldable.push_back(outline.branches[row].foldable);
    }
    EXPECT_THAT(depths, ElementsAre(0, 1, 0, 1, 2, 1, 2));
    EXPECT_THAT(foldable, ElementsAre(true, false, true, true, false, true, false));
    EXPECT_EQ(outline.branches[2].lines & 2U, 0U);  // the only row of its node
    EXPECT_NE(outline.branches[4].lines & 2U, 0U);  // its branch goes on with the second level 2
    EXPECT_NE(outline.branches[5].lines & 2U, 0U);  // and passes the row between
    EXPECT_EQ(outline.branches[6].lines & 2U, 0U);
}

TEST(FlexGridOutline, AClickOnTheExpanderFoldsAndIsNoClick) {
    TreeGrid tree(papers);
    tree.show();
    tree.grid.Select(3, 1);
    QSignalSpy clicks(&tree.grid, &FlexGrid::Click);
    tree.clickExpander(7, 0);
    EXPECT_TRUE(tree.grid.IsCollapsed(7));
    EXPECT_EQ(tree.grid.Row(), 3);
    tree.clickExpander(2, 1);
    EXPECT_TRUE(tree.grid.IsCollapsed(2));
    EXPECT_EQ(tree.seen(), QStringList({u"m1"_s, u"s2"_s, u"t2"_s, u"pc"_s, u"n1"_s}));
    tree.clickExpander(2, 1);
    EXPECT_FALSE(tree.grid.IsCollapsed(2));
    EXPECT_EQ(clicks.size(), 0);
    tree.clickExpander(3, 2);
    EXPECT_EQ(clicks.size(), 1) << "a leaf has no expander";
}

TEST(FlexGridOutline, TheCursorOfAFoldedRowGoesToItsNode) {
    TreeGrid tree(papers);
    tree.show();
    tree.grid.Select(4, 1);
    tree.grid.setIsCollapsed(2, true);
    QCoreApplication::processEvents();
    EXPECT_EQ(tree.grid.Row(), 2);
    EXPECT_THAT(tree.grid.SelectedRows(), ElementsAre(2));
    tree.grid.Outline(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(tree.grid.Row(), 1);
    EXPECT_THAT(tree.grid.SelectedRows(), ElementsAre(1));
}

TEST(FlexGridOutline, TheSelectionOutlastsFoldingElsewhere) {
    TreeGrid tree(papers);
    tree.show();
    tree.grid.Select(9, 2);
    tree.grid.setIsCollapsed(2, true);
    tree.grid.setIsCollapsed(5, true);
    QCoreApplication::processEvents();
    EXPECT_EQ(tree.grid.Row(), 9);
    EXPECT_EQ(tree.grid.Col(), 2);
    EXPECT_THAT(tree.grid.SelectedRows(), ElementsAre(9));
}

TEST(FlexGridOutline, SelectOpensUpToItsRow) {
    TreeGrid tree(papers);
    tree.show();
    tree.grid.Outline(1);
    tree.grid.Select(4, 1);
    EXPECT_EQ(tree.seen(), QStringList({u"m1"_s, u"s2"_s, u"pa"_s, u"pb"_s, u"t2"_s, u"n1"_s}));
    EXPECT_EQ(tree.grid.Row(), 4);
}

TEST(FlexGridOutline, FoldsByKeys) {
    struct Step {
        Qt::Key key;
        int row;
        QStringList seen;
    };
    const QStringList folded{u"m1"_s, u"s2"_s, u"t2"_s, u"pc"_s};
    const QStringList open{u"m1"_s, u"s2"_s, u"pa"_s, u"t2"_s, u"pc"_s};
    const Step steps[] = {
        {Qt::Key_Left, 2, open},    // a leaf: up to its node
        {Qt::Key_Left, 2, folded},  // an open node: folds
        {Qt::Key_Left, 1, folded},  // a folded one: up
        {Qt::Key_Down, 2, folded}, {Qt::Key_Right, 2, open}, {Qt::Key_Minus, 2, folded}, {Qt::Key_Plus, 2, open},
    };
    TreeGrid tree({u"m1"_s, u"s2"_s, u"pa"_s, u"t2"_s, u"pc"_s});
    tree.show();
    tree.grid.Select(3, 1);
    int number = 0;
    for (const Step& step : steps) {
        QTest::keyClick(&tree.grid, step.key);
        QCoreApplication::processEvents();
        EXPECT_EQ(tree.grid.Row(), step.row) << "step " << number;
        EXPECT_EQ(tree.seen(), step.seen) << "step " << number;
        ++number;
    }
    QTest::keyClick(&tree.grid, Qt::Key_Right);
    EXPECT_EQ(tree.grid.Col(), 2) << "an open node lets the cursor go on to the right";
}

TEST(FlexGridOutline, RemovingANodeGivesItsRowsBack) {
    TreeGrid tree(papers);
    tree.show();
    tree.grid.setIsCollapsed(7, true);
    EXPECT_EQ(tree.seen().size(), 7);
    tree.grid.RemoveItem(7);
    EXPECT_EQ(tree.seen().last(), u"pd"_s);
    tree.grid.setIsCollapsed(2, true);
    tree.grid.RemoveItem(3);
    EXPECT_EQ(tree.seen(), QStringList({u"m1"_s, u"s2"_s, u"t2"_s, u"pc"_s, u"u2"_s, u"pd"_s}));
}

}  // namespace talvora::test
