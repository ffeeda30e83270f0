#pragma once

#include "toolkit/grid/flexgrid_merge.h"

#include <QColor>
#include <QHash>
#include <QIcon>
#include <QString>
#include <QTableView>

#include <vector>

class QPainter;

namespace talvora {

class GridDelegate;
class GridHeader;

/// The program's grid: lists, outlines and tables by row and column number.
///
/// Rows are counted from 0 and the first `FixedRows` of them are the header, so an empty list has `Rows` 1. Rows under
/// a folded node keep their numbers. What is added is laid out when the grid is next looked at, so a list of 100,000
/// rows fills as fast as its texts come; code that wants places on the screen asks CellRect, not model().
///
/// A row or column number outside the grid is RuntimeError 9 wherever it is given.
class FlexGrid : public QTableView {
    Q_OBJECT

 public:
    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    /// Rows with the header rows. Growing adds empty rows; setRows(FixedRows()) empties the grid and keeps the header.
    int Rows() const { return model_->rows(); }
    void setRows(int count);
    int Cols() const { return model_->cols(); }
    void setCols(int count);
    /// Header rows, at least 1; all of them stay in view. Changing the number empties the grid.
    int FixedRows() const { return model_->fixedRows(); }
    void setFixedRows(int count);
    /// Columns at the left that stay in view when the grid scrolls. They give up what they want of width beyond three
    /// quarters of the view, so that there is always room for the others to scroll beside them.
    void setFrozenCols(int count);

    /// Sets the titles of row 0, separated by "|", and each column's width by its title, blanks included. A grid of
    /// fewer columns gets more. A width that the user has dragged under the same title stays.
    void setFormatString(const QString& titles);

    bool ColHidden(int col) const;
    void setColHidden(int col, bool hidden);
    /// Where the column's texts and its title stand. The default is left, centred in height.
    void setColAlignment(int col, GridAlign align);
    void setColDataType(int col, GridDataType type);
    /// Texts of this column are broken into lines, and rows are as high as they need.
    void setColWordWrap(int col, bool wrap);
    /// The column that takes the width left over. By default, -1, the last one does if its texts stand left.
    void setStretchCol(int col);
    /// Whether columns grow beyond their titles' width with their texts, so that short ones are not cut off; those of
    /// the first and the last hundred rows count, up to a limit. Width that the user has dragged stays. Off by default.
    void setFitToTexts(bool fit);

    /// Adds a row from one text, its cells separated by tabs; at the end, or in front of row `at`.
    void AddItem(const QString& cells, int at = -1);
    /// Removes a row below the header. If it was the current one, the row that takes its place becomes current, and the
    /// new last row after the last.
    void RemoveItem(int row);

    QString TextMatrix(int row, int col) const { return model_->text(row, col); }
    void setTextMatrix(int row, int col, const QString& text);
    /// A text that a row carries unseen. It moves with its row.
    QString RowData(int row) const { return model_->row(row).data; }
    void setRowData(int row, const QString& text);

    /// Colours, faces and pictures of cells. An invalid colour or a null picture gives the cell its own look back.
    QColor CellBackColor(int row, int col) const { return model_->format(row, col).back; }
    void setCellBackColor(const GridRange& cells, const QColor& color);
    QColor CellForeColor(int row, int col) const { return model_->format(row, col).fore; }
    void setCellForeColor(const GridRange& cells, const QColor& color);
    bool CellFontBold(int row, int col) const { return model_->format(row, col).bold; }
    void setCellFontBold(int row, int col, bool bold);
    GridAlign CellAlignment(int row, int col) const { return model_->align(row, col); }
    void setCellAlignment(int row, int col, GridAlign align);
    /// The picture before the text; isNull() when there is none. Two are the same picture when their cacheKey() is.
    QIcon CellPicture(int row, int col) const { return model_->format(row, col).picture; }
    void setCellPicture(int row, int col, const QIcon& picture);

    /// A node of the outline. It folds the rows below it up to the next node of its own level or a lower one.
    bool IsSubtotal(int row) const { return model_->row(row).node; }
    void setIsSubtotal(int row, bool node);
    int RowOutlineLevel(int row) const { return model_->row(row).level; }
    void setRowOutlineLevel(int row, int level);
    void setOutlineBar(GridOutlineBar bar);
    void setOutlineCol(int col);
    /// Opens the nodes of levels below `level` and folds the others. Rows that come later start open.
    void Outline(int level);
    bool IsCollapsed(int row) const { return model_->row(row).collapsed; }
    void setIsCollapsed(int row, bool collapsed);

    void setMergeCells(GridMerge merge);
    /// Of a header row.
    void setMergeRow(int row, bool merge);
    void setMergeCol(int col, bool merge);

    /// The current row, -1 when there is none. Filling a grid makes no row current, nor does a click on a title or the
    /// focus. Whatever the user presses, the current row is a selected one.
    int Row() const;
    int Col() const;
    /// The cell of the last Click or DblClick, row 0 for a title; -1 before the first.
    int ClickedRow() const { return clickedRow_; }
    int ClickedCol() const { return clickedCol_; }
    /// Makes (row, col) current, brings it into view and selects up to (rowSel, colSel), by default the cell alone.
    /// Where whole rows are selected, that means the rows. A row under a folded node is opened up to. A header row
    /// leaves nothing current and nothing selected.
    void Select(int row, int col, int rowSel = -1, int colSel = -1);
    /// The numbers of the selected rows, upwards.
    std::vector<int> SelectedRows() const;

    /// Brings a cell into view, the current one stays. Nothing happens for one of the header or under a folded node.
    void ShowCell(int row, int col);

    /// The cell's place in viewport() coordinates, empty when it is hidden or folded away. A cell that is drawn as part
    /// of a merged one has a place of its own in it.
    QRect CellRect(int row, int col);

    QModelIndex indexAt(const QPoint& place) const override;
    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 Q_SIGNALS:
    /// A row or a title was clicked, or Space was pressed on the current row. ClickedRow() and ClickedCol() tell which.
    /// A click on a row makes it current, one on a title leaves the current row as it is. A click on an expander or
    /// beside the rows is none.
    void Click();
    /// The second press of a double click on a row. Titles have none.
    void DblClick();
    /// The user made another row current otherwise than by a click: by keys, by drawing the mouse over several rows, or
    /// by folding the row away.
    void RowChange();

 protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
    // What was changed is announced to the view and laid out in one go, when the grid is next looked at.
    void later();
    void settle();
    void announceRows();
    void keepCursor(int row, int col, const std::vector<int>& selected);
    void fitRowHeights();
    int heightOf(int modelRow, const QStyleOptionViewItem& option) const;
    int columnToStretch() const;
    void widenToTexts();
    int widthOfTexts(int col, int width) const;
    void fitColumns();
    void applyFont();
    void columnResized(int col);
    int widthOfTitle(const QString& title) const;
    QString titleKey(int col) const;
    void resizeColumn(int col, int width);
    bool anyWrap() const;

    int stayingColumns() const;
    void placeStaying();
    void paintStaying(QPainter& painter, const QModelIndex& first) const;
    void paintBeyond(QPainter& painter, const QModelIndex& first) const;

    QModelIndex indexOf(int row, int col) const;
    int firstVisibleCol() const;
    bool pressExpander(const QMouseEvent& event);
    bool foldByKey(int key);
    void click(int row, int col);
    void tellRowChange(int before);
    void keepCurrentSelected();
    QItemSelectionModel::SelectionFlags selectAnew() const;

    GridModel* model_;
    GridMerging merging_;
    GridHeader* header_;
    GridDelegate* delegate_;

    QString formatString_;
    QHash<QString, int> draggedWidths_;
    std::vector<int> widths_;
    GridOutlineBar outlineBar_ = GridOutlineBar::None;
    int outlineCol_ = 0;
    int frozenCols_ = 0;
    int stretchCol_ = -1;
    int clickedRow_ = -1;
    int clickedCol_ = -1;
    int rowBeforePress_ = -1;
    QPersistentModelIndex pressed_;
    bool fitToTexts_ = false;
    bool pending_ = false;
    bool sizing_ = false;
    bool heightsStale_ = false;
    bool expanderPressed_ = false;
    bool secondPress_ = false;
};

}  // namespace talvora
