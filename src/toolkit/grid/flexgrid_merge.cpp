#include "toolkit/grid/flexgrid_merge.h"

namespace talvora {

namespace {

/// Takes the run from `from` to `to` as far as `isEqual` holds within `first` and `last`.
template <class IsEqual>
void grow(int& from, int& to, int first, int last, IsEqual isEqual) {
    while (from > first && isEqual(from - 1)) {
        --from;
    }
    while (to < last && isEqual(to + 1)) {
        ++to;
    }
}

}  // namespace

GridRange mergedTitle(const GridModel& model, const GridMerging& merging, int row, int col) {
    GridRange cell{row, col, row, col};
    const QString text = model.text(row, col);
    if (merging.mode == GridMerge::Never || text.isEmpty()) {
        return cell;
    }
    if (model.row(row).merges) {
        grow(cell.col, cell.col2, 0, model.cols() - 1, [&](int other) { return model.text(row, other) == text; });
    }
    if (cell.col == cell.col2 && merging.merges(col)) {
        grow(cell.row, cell.row2, 0, model.fixedRows() - 1, [&](int other) { return model.text(other, col) == text; });
    }
    return cell;
}

GridRange mergedCell(const GridModel& model, const GridMerging& merging, int modelRow, int col) {
    GridRange cell{modelRow, col, modelRow, col};
    if (merging.mode == GridMerge::Never || !merging.merges(col)) {
        return cell;
    }
    const QString text = model.text(model.gridRow(modelRow), col);
    if (!text.isEmpty()) {
        grow(cell.row, cell.row2, 0, model.rowCount() - 1,
             [&](int other) { return model.text(model.gridRow(other), col) == text; });
    }
    return cell;
}

}  // namespace talvora
