#include "toolkit/grid/flexgrid.h"

#include "toolkit/grid/flexgrid_delegate.h"
#include "toolkit/grid/flexgrid_header.h"
#include "toolkit/grid/flexgrid_paint.h"

#include <algorithm>

namespace talvora {

FlexGrid::FlexGrid(QWidget* parent)
    : QTableView(parent),
      model_(new GridModel(this)),
      header_(new GridHeader(*model_, merging_, this)),
      delegate_(new GridDelegate(*model_, merging_, this)) {
    setHorizontalHeader(header_);
    setModel(model_);
    setItemDelegate(delegate_);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setWordWrap(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    // The table would take its column for chosen.
    disconnect(header_, &QHeaderView::sectionPressed, this, nullptr);
    disconnect(header_, &QHeaderView::sectionEntered, this, nullptr);
    connect(header_, &QHeaderView::sectionClicked, this, [this](int col) { click(0, col); });
    connect(header_, &QHeaderView::sectionResized, this, &FlexGrid::columnResized);
    applyFont();
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::setRows(int count) {
    model_->setRows(count);
    later();
}

void FlexGrid::setCols(int count) {
    model_->setCols(count);
    later();
}

void FlexGrid::setFixedRows(int count) {
    model_->setFixedRows(count);
    later();
}

void FlexGrid::setFrozenCols(int count) {
    frozenCols_ = count;
    later();
}

bool FlexGrid::ColHidden(int col) const {
    static_cast<void>(model_->column(col));
    return isColumnHidden(col);
}

void FlexGrid::setColHidden(int col, bool hidden) {
    static_cast<void>(model_->column(col));
    sizing_ = true;
    setColumnHidden(col, hidden);
    sizing_ = false;
    later();
}

void FlexGrid::setColAlignment(int col, GridAlign align) {
    GridColumn column = model_->column(col);
    column.align = align;
    model_->setColumn(col, column);
}

void FlexGrid::setColDataType(int col, GridDataType type) {
    GridColumn column = model_->column(col);
    column.type = type;
    model_->setColumn(col, column);
}

void FlexGrid::AddItem(const QString& cells, int at) {
    model_->addRow(cells, at);
    later();
}

void FlexGrid::RemoveItem(int row) {
    const bool current = row == Row() && row >= FixedRows();
    const int place = model_->modelRow(row);
    const int col = Col();
    model_->removeRow(row);
    later();
    if (current) {
        settle();
        const int last = model_->rowCount() - 1;
        if (last >= 0) {
            Select(model_->gridRow(std::min(place, last)), col);
        }
    }
}

void FlexGrid::setTextMatrix(int row, int col, const QString& text) {
    model_->setText(row, col, text);
    if (delegate_->wraps(col) || merging_.mode != GridMerge::Never) {
        later();
    }
}

void FlexGrid::setRowData(int row, const QString& text) {
    model_->setRowData(row, text);
}

void FlexGrid::setCellBackColor(const GridRange& cells, const QColor& color) {
    model_->changeFormats(cells, [&](GridFormat& format) { format.back = color; });
}

void FlexGrid::setCellForeColor(const GridRange& cells, const QColor& color) {
    model_->changeFormats(cells, [&](GridFormat& format) { format.fore = color; });
}

void FlexGrid::setCellFontBold(int row, int col, bool bold) {
    model_->changeFormats({row, col, row, col}, [&](GridFormat& format) { format.bold = bold; });
    if (anyWrap()) {
        later();
    }
}

void FlexGrid::setCellAlignment(int row, int col, GridAlign align) {
    model_->changeFormats({row, col, row, col}, [&](GridFormat& format) { format.align = align; });
}

void FlexGrid::setCellPicture(int row, int col, const QIcon& picture) {
    // Only a picture that comes or goes changes the room for the text.
    const bool shifts = CellPicture(row, col).isNull() != picture.isNull();
    model_->changeFormats({row, col, row, col}, [&](GridFormat& format) { format.picture = picture; });
    if (shifts && anyWrap()) {
        later();
    }
}

}  // namespace talvora
