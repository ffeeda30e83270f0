#pragma once

#include "toolkit/grid/flexgrid_outline.h"

#include <QAbstractTableModel>

#include <functional>

namespace talvora {

/// What a column of a grid has in common.
struct GridColumn {
    GridAlign align = GridAlign::LeftCenter;
    GridDataType type = GridDataType::Text;
};

/// The rows of a FlexGrid for its view. The model's rows are the grid's rows without the header and without what is
/// folded away. Cells and rows are addressed by grid number; a number outside the grid is RuntimeError 9.
///
/// Changes that move rows in or out of sight are noted and become one signal in announce(); until then the model's
/// rows are those of before. Only rows that are removed leave at once.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    explicit GridModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Brings the model's rows up to date. True when it had to reset, so that the view has lost its cursor.
    bool announce();
    /// The grid's number of a model row, and back: -1 for a row that isn't to be seen.
    int gridRow(int modelRow) const { return visible_[static_cast<std::size_t>(modelRow)]; }
    int modelRow(int gridRow) const;

    int rows() const { return static_cast<int>(rows_.size()); }
    int fixedRows() const { return fixedRows_; }
    int cols() const { return static_cast<int>(columns_.size()); }
    void setRows(int count);
    void setFixedRows(int count);
    void setCols(int count);
    void addRow(const QString& cells, int at);
    void removeRow(int row);

    const GridRow& row(int number) const;
    const GridColumn& column(int number) const;
    void setColumn(int number, const GridColumn& column);
    QString text(int row, int col) const;
    void setText(int row, int col, const QString& text);
    const GridFormat& format(int row, int col) const;
    void changeFormats(const GridRange& cells, const std::function<void(GridFormat&)>& change);
    GridAlign align(int row, int col) const;
    void setRowData(int row, const QString& data) { at(row).data = data; }
    void setMerges(int row, bool merges) { at(row).merges = merges; }

    void setNode(int row, bool node);
    void setLevel(int row, int level);
    void setCollapsed(int row, bool collapsed);
    void foldTo(int level);
    /// Opens the nodes above a row, so that it is seen after the next announce().
    void reveal(int row);
    bool hasNodes() const { return !outline_.empty(); }
    /// The place in the tree as of the last announce().
    GridBranch branch(int row) const;
    /// The nearest node above a row that is to be seen, -1 for none.
    int visibleParent(int row) const;

    /// True for a text that a Boolean column shows as checked.
    static bool isTrue(const QString& text);

 private:
    GridRow& at(int row);
    void checkCell(int row, int col) const;
    void announceCells(const GridRange& cells);

    std::vector<GridRow> rows_{1};
    std::vector<GridColumn> columns_{1};
    std::vector<int> visible_;
    std::vector<GridBranch> outline_;
    GridFormats formats_;
    int fixedRows_ = 1;
};

}  // namespace talvora
