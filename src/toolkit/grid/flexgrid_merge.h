#pragma once

#include "toolkit/grid/flexgrid_model.h"

#include <vector>

namespace talvora {

/// Which cells of a grid become one with equal neighbours.
struct GridMerging {
    GridMerge mode = GridMerge::Never;
    std::vector<bool> cols;

    bool merges(int col) const {
        return static_cast<std::size_t>(col) < cols.size() && cols[static_cast<std::size_t>(col)];
    }
};

/// The cell that the header cell (row, col) is drawn as part of.
GridRange mergedTitle(const GridModel& model, const GridMerging& merging, int row, int col);

/// The same of a cell below the header, in the model's row numbers. Equal texts are one cell whatever stands in the
/// columns before them.
GridRange mergedCell(const GridModel& model, const GridMerging& merging, int modelRow, int col);

}  // namespace talvora
