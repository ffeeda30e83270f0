#include "toolkit/flexgrid.h"

#include "toolkit/flexgrid_delegate.h"
#include "toolkit/flexgrid_header.h"
#include "toolkit/flexgrid_paint.h"

#include <algorithm>

namespace talvora {

FlexGrid::FlexGrid(QWidget* parent)
    : QTableView(parent),
      model_(new GridModel(this)),
      header_(new GridHeader(*model_, merging_, this)),
      delegate_(new GridDelegate(*model_, this)) {
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
    connect(header_, &QHeaderView::sectionClicked, this, &FlexGrid::headerClicked);
    connect(header_, &QHeaderView::sectionDoubleClicked, this, &FlexGrid::headerDoubleClicked);
    connect(header_, &QHeaderView::sectionResized, this, &FlexGrid::columnResized);
    applyFont();
}

FlexGrid::~FlexGrid() = default;

int FlexGrid::Rows() const {
    return model_->rows();
}

void FlexGrid::setRows(int count) {
    model_->setRows(count);
    later();
}

int FlexGrid::Cols() const {
    return model_->cols();
}

void FlexGrid::setCols(int count) {
    model_->setCols(count);
    later();
}

int FlexGrid::FixedRows() const {
    return model_->fixedRows();
}

void FlexGrid::setFixedRows(int count) {
    model_->setFixedRows(count);
    later();
}

int FlexGrid::FixedCols() const {
    return fixedCols_;
}

void FlexGrid::setFixedCols(int count) {
    fixedCols_ = count;
    delegate_->fixedCols = count;
    later();
}

int FlexGrid::FrozenCols() const {
    return frozenCols_;
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

GridAlign FlexGrid::ColAlignment(int col) const {
    return model_->column(col).align;
}

void FlexGrid::setColAlignment(int col, GridAlign align) {
    GridColumn column = model_->column(col);
    column.align = align;
    model_->setColumn(col, column);
}

GridDataType FlexGrid::ColDataType(int col) const {
    return model_->column(col).type;
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

QString FlexGrid::TextMatrix(int row, int col) const {
    return model_->text(row, col);
}

void FlexGrid::setTextMatrix(int row, int col, const QString& text) {
    model_->setText(row, col, text);
    if (delegate_->wraps(col) || merging_.mode != GridMerge::Never) {
        later();
    }
}

QString FlexGrid::RowData(int row) const {
    return model_->row(row).data;
}

void FlexGrid::setRowData(int row, const QString& text) {
    model_->setRowData(row, text);
}

QColor FlexGrid::CellBackColor(int row, int col) const {
    return model_->format(row, col).back;
}

void FlexGrid::setCellBackColor(int row, int col, const QColor& color) {
    setCellBackColor({row, col, row, col}, color);
}

void FlexGrid::setCellBackColor(const GridRange& cells, const QColor& color) {
    model_->changeFormats(cells, [&](GridFormat& format) { format.back = color; });
}

QColor FlexGrid::CellForeColor(int row, int col) const {
    return model_->format(row, col).fore;
}

void FlexGrid::setCellForeColor(int row, int col, const QColor& color) {
    setCellForeColor({row, col, row, col}, color);
}

void FlexGrid::setCellForeColor(const GridRange& cells, const QColor& color) {
    model_->changeFormats(cells, [&](GridFormat& format) { format.fore = color; });
}

bool FlexGrid::CellFontBold(int row, int col) const {
    return model_->format(row, col).bold;
}

void FlexGrid::setCellFontBold(int row, int col, bool bold) {
    setCellFontBold({row, col, row, col}, bold);
}

void FlexGrid::setCellFontBold(const GridRange& cells, bool bold) {
    model_->changeFormats(cells, [&](GridFormat& format) { format.bold = bold; });
    if (anyWrap()) {
        later();
    }
}

GridAlign FlexGrid::CellAlignment(int row, int col) const {
    return model_->align(row, col);
}

void FlexGrid::setCellAlignment(int row, int col, GridAlign align) {
    setCellAlignment({row, col, row, col}, align);
}

void FlexGrid::setCellAlignment(const GridRange& cells, GridAlign align) {
    model_->changeFormats(cells, [&](GridFormat& format) { format.align = align; });
}

QIcon FlexGrid::CellPicture(int row, int col) const {
    return model_->format(row, col).picture;
}

void FlexGrid::setCellPicture(int row, int col, const QIcon& picture) {
    setCellPicture({row, col, row, col}, picture);
}

void FlexGrid::setCellPicture(const GridRange& cells, const QIcon& picture) {
    // Only a picture that comes or goes changes the room for the text.
    bool shifts = false;
    model_->changeFormats(cells, [&](GridFormat& format) {
        shifts = shifts || format.picture.isNull() != picture.isNull();
        format.picture = picture;
    });
    if (shifts && anyWrap()) {
        later();
    }
}

}  // namespace talvora
