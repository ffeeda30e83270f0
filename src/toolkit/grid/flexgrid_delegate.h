#pragma once

#include "toolkit/grid/flexgrid_merge.h"

#include <QStyledItemDelegate>
#include <QTableView>

#include <vector>

namespace talvora {

/// Draws the cells of a FlexGrid and measures broken texts.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT

 public:
    GridDelegate(const GridModel& model, const GridMerging& merging, QTableView* grid);

    // What the grid tells: the column that carries the tree or -1, columns of broken texts, and whether columns are
    // parted by lines.
    int outlineCol = -1;
    std::vector<bool> wrapped;
    bool columnLines = false;

    bool wraps(int col) const;
    /// The height that a cell's broken text takes in a column of `width`, in the font of `option`.
    int heightFor(const QStyleOptionViewItem& option, const QModelIndex& index, int width) const;
    /// The place of the box that folds a node, larger than its picture so that it is easily hit; empty without one.
    QRect expanderAt(const QRect& cell, const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

 private:
    struct Content {
        QRect picture;
        QRect text;
    };
    Content contentOf(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    bool carriesTree(const QModelIndex& index) const;
    int indentOf(const QModelIndex& index) const;
    /// Whether a row of a merged cell is selected; it is marked as a whole then.
    bool isSelected(const GridRange& merged) const;
    QRect placeOf(const GridRange& merged, const QRect& cell) const;
    void paintTree(QPainter* painter, const QRect& cell, const QModelIndex& index) const;
    void paintCheck(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    const GridModel& model_;
    const GridMerging& merging_;
    const QTableView& grid_;
};

}  // namespace talvora
