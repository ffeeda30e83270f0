#include "toolkit/grid/flexgrid_merge.h"

namespace talvora {

namespace {

// The columns around `col` whose cells in `row` hold the same text.
GridRange runAcross(const GridModel& model, int row, int col) {
    GridRange run{row, col, row, col};
    const QString text = model.text(row, col);
    if (text.isEmpty()) {
        return run;
    }
    while (run.col > 0 && model.text(row, run.col - 1) == text) {
        --run.col;
    }
    while (run.col2 + 1 < model.cols() && model.text(row, run.col2 + 1) == text) {
        ++run.col2;
    }
    return run;
}

}  // namespace

GridRange mergedTitle(const GridModel& model, const GridMerging& merging, int row, int col) {
    GridRange cell{row, col, row, col};
    if (merging.mode == GridMerge::Never) {
        return cell;
    }
    if (model.row(row).merges) {
        cell = runAcross(model, row, col);
    }
    const QString text = model.text(row, col);
    if (cell.col != cell.col2 || !merging.merges(col) || text.isEmpty()) {
        return cell;
    }
    while (cell.row > 0 && model.text(cell.row - 1, col) == text) {
        --cell.row;
    }
    while (cell.row2 + 1 < model.fixedRows() && model.text(cell.row2 + 1, col) == text) {
        ++cell.row2;
    }
    return cell;
}

std::vector<GridRange> mergedCells(const GridModel& model, const GridMerging& merging) {
    std::vector<GridRange> found;
    if (merging.mode == GridMerge::Never) {
        return found;
    }
    const int rows = model.rowCount();
    // Rows at which a merging column before this one has begun a new cell.
    std::vector<bool> breaks(static_cast<std::size_t>(rows));
    for (int col = 0; col < model.cols(); ++col) {
        if (!merging.merges(col)) {
            continue;
        }
        int start = 0;
        QString text = rows > 0 ? model.text(model.gridRow(0), col) : QString();
        for (int row = 1; row <= rows; ++row) {
            const QString next = row < rows ? model.text(model.gridRow(row), col) : QString();
            const bool barred =
                merging.mode == GridMerge::RestrictColumns && row < rows && breaks[static_cast<std::size_t>(row)];
            if (row < rows && !barred && !next.isEmpty() && next == text) {
                continue;
            }
            if (row - start > 1) {
                found.push_back({start, col, row - 1, col});
            }
            if (row < rows) {
                breaks[static_cast<std::size_t>(row)] = true;
            }
            start = row;
            text = next;
        }
    }
    return found;
}

}  // namespace talvora
