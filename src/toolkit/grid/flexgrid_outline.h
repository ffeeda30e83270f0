#pragma once

#include "toolkit/grid/flexgrid_rows.h"

#include <vector>

namespace talvora {

/// Where a row stands in the drawn tree.
struct GridBranch {
    quint32 lines = 0;  ///< Bit d is set when the branch at depth d goes on past this row.
    quint8 depth = 0;   ///< Nodes above this one; counted by nesting, so that a lone deep level isn't indented.
    bool foldable = false;
};

/// What folding makes of a grid's rows: which are to be seen, and how the tree is drawn.
struct GridOutline {
    std::vector<int> visible;          ///< The rows to be seen, upwards; header rows aren't among them.
    std::vector<GridBranch> branches;  ///< By row number; empty when no row is a node.

    /// Reads the rows from number `first` on.
    static GridOutline of(const std::vector<GridRow>& rows, int first);
};

/// The nodes that have to be open for `row` to be seen.
std::vector<int> ancestorsOf(const std::vector<GridRow>& rows, int first, int row);

}  // namespace talvora
