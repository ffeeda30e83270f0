#include "toolkit/grid/flexgrid.h"
#include "toolkit/grid/flexgrid_delegate.h"

#include <QKeyEvent>

#include <algorithm>

namespace talvora {

void FlexGrid::setIsSubtotal(int row, bool node) {
    model_->setNode(row, node);
    later();
}

void FlexGrid::setRowOutlineLevel(int row, int level) {
    model_->setLevel(row, level);
    later();
}

void FlexGrid::setOutlineBar(GridOutlineBar bar) {
    outlineBar_ = bar;
    later();
}

void FlexGrid::setOutlineCol(int col) {
    outlineCol_ = col;
    later();
}

void FlexGrid::Outline(int level) {
    model_->foldTo(level);
    later();
}

void FlexGrid::setIsCollapsed(int row, bool collapsed) {
    model_->setCollapsed(row, collapsed);
    later();
    viewport()->update();
}

bool FlexGrid::pressExpander(const QMouseEvent& event) {
    const QModelIndex index = indexAt(event.position().toPoint());
    if (event.button() != Qt::LeftButton || !index.isValid() ||
        !delegate_->expanderAt(visualRect(index), index).contains(event.position().toPoint())) {
        return false;
    }
    const int row = model_->gridRow(index.row());
    setIsCollapsed(row, !IsCollapsed(row));
    return true;
}

// Folds with the keys of a tree: left and right in the column of the tree, plus and minus anywhere in the row.
bool FlexGrid::foldByKey(int key) {
    const QModelIndex current = currentIndex();
    if (delegate_->outlineCol < 0 || !current.isValid() || !model_->hasNodes()) {
        return false;
    }
    const int row = model_->gridRow(current.row());
    const bool foldable = model_->branch(row).foldable;
    const bool inTree = current.column() <= delegate_->outlineCol;
    const bool folds = key == Qt::Key_Minus || (key == Qt::Key_Left && inTree);
    const bool opens = key == Qt::Key_Plus || (key == Qt::Key_Right && inTree);
    if (foldable && ((folds && !IsCollapsed(row)) || (opens && IsCollapsed(row)))) {
        setIsCollapsed(row, folds);
        return true;
    }
    const int parent = key == Qt::Key_Left && inTree ? model_->visibleParent(row) : -1;
    if (parent >= 0) {
        Select(parent, current.column());
    }
    return parent >= 0;
}

}  // namespace talvora
