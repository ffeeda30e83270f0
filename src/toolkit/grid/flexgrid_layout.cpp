#include "toolkit/grid/flexgrid.h"
#include "toolkit/grid/flexgrid_delegate.h"
#include "toolkit/grid/flexgrid_header.h"
#include "toolkit/grid/flexgrid_paint.h"

#include <algorithm>

namespace talvora {

namespace {

constexpr ushort FirstWideCharacter = 0x1100;
// How many rows at either end of a list tell its columns' width, and how many Chinese characters a column shows at most
// without the user's doing.
constexpr int MeasuredRows = 100;
constexpr int MostCharacters = 40;

}  // namespace

void FlexGrid::setFormatString(const QString& titles) {
    formatString_ = titles;
    const QStringList names = titles.split(u'|');
    setCols(std::max(Cols(), static_cast<int>(names.size())));
    for (int col = 0; col < names.size(); ++col) {
        model_->setText(0, col, names[col]);
        resizeColumn(col, draggedWidths_.value(titleKey(col), widthOfTitle(names[col])));
    }
}

// A blank stands for half a Chinese character, which is how the titles' widths are meant, though few faces draw it so.
int FlexGrid::widthOfTitle(const QString& title) const {
    QFont face = font();
    face.setWeight(QFont::DemiBold);
    const QFontMetrics metrics(face);
    const auto wide = std::count_if(title.begin(), title.end(), [](QChar c) { return c >= FirstWideCharacter; });
    const auto halves = static_cast<int>(title.size() + wide);
    const int meant = halves * metrics.horizontalAdvance(u'国') / 2;
    return std::max(meant, metrics.horizontalAdvance(title)) + 2 * grid::PaddingX;
}

QString FlexGrid::titleKey(int col) const {
    return QString::number(col) + u'|' + model_->text(0, col);
}

void FlexGrid::resizeColumn(int col, int width) {
    widths_.resize(std::max(widths_.size(), static_cast<std::size_t>(Cols())), header_->defaultSectionSize());
    widths_[static_cast<std::size_t>(col)] = width;
    later();
}

void FlexGrid::setColWordWrap(int col, bool wrap) {
    static_cast<void>(model_->column(col));
    auto& wrapped = delegate_->wrapped;
    wrapped.resize(std::max(wrapped.size(), static_cast<std::size_t>(col) + 1));
    wrapped[static_cast<std::size_t>(col)] = wrap;
    heightsStale_ = true;
    later();
}

bool FlexGrid::anyWrap() const {
    return std::find(delegate_->wrapped.begin(), delegate_->wrapped.end(), true) != delegate_->wrapped.end();
}

void FlexGrid::setStretchCol(int col) {
    stretchCol_ = col;
    later();
}

void FlexGrid::setMergeCells(GridMerge merge) {
    merging_.mode = merge;
    delegate_->columnLines = merge != GridMerge::Never;
    later();
}

void FlexGrid::setMergeRow(int row, bool merge) {
    model_->setMerges(row, merge);
    later();
}

void FlexGrid::setMergeCol(int col, bool merge) {
    static_cast<void>(model_->column(col));
    merging_.cols.resize(std::max(merging_.cols.size(), static_cast<std::size_t>(col) + 1));
    merging_.cols[static_cast<std::size_t>(col)] = merge;
    later();
}

void FlexGrid::later() {
    if (!pending_) {
        pending_ = true;
        QMetaObject::invokeMethod(this, &FlexGrid::settle, Qt::QueuedConnection);
        viewport()->update();
    }
}

void FlexGrid::settle() {
    if (!pending_) {
        return;
    }
    pending_ = false;
    delegate_->outlineCol = outlineBar_ == GridOutlineBar::None ? -1 : outlineCol_;
    announceRows();
    if (fitToTexts_) {
        widenToTexts();
    }
    fitColumns();
    fitRowHeights();
    placeStaying();
    header_->viewport()->update();
    viewport()->update();
}

void FlexGrid::announceRows() {
    const int row = Row();
    const int col = Col();
    const std::vector<int> selected = SelectedRows();
    const bool reset = model_->announce();
    if (row >= FixedRows() && (reset || row != Row())) {
        keepCursor(row, col, selected);
    }
}

// The cursor of a row that was folded away goes to the node that hides it.
void FlexGrid::keepCursor(int row, int col, const std::vector<int>& selected) {
    const bool seen = model_->modelRow(row) >= 0;
    const int target = seen ? row : model_->visibleParent(row);
    if (target < 0) {
        return;
    }
    QItemSelection rows;
    for (const int number : selected) {
        const int place = model_->modelRow(number);
        if (place >= 0) {
            rows.select(model_->index(place, 0), model_->index(place, Cols() - 1));
        }
    }
    const QModelIndex cell = indexOf(target, col);
    if (!seen && !selected.empty()) {
        rows.select(cell.siblingAtColumn(0), cell.siblingAtColumn(Cols() - 1));
    }
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

int FlexGrid::columnToStretch() const {
    if (stretchCol_ >= 0) {
        return stretchCol_ < Cols() && !isColumnHidden(stretchCol_) ? stretchCol_ : -1;
    }
    int last = Cols() - 1;
    while (last >= 0 && isColumnHidden(last)) {
        --last;
    }
    // Numbers would be torn away from the columns that they belong to.
    const bool text = last >= 0 && model_->column(last).align < GridAlign::CenterTop;
    return text ? last : -1;
}

void FlexGrid::setFitToTexts(bool fit) {
    fitToTexts_ = fit;
    later();
}

void FlexGrid::widenToTexts() {
    for (int col = 0; col < Cols() && static_cast<std::size_t>(col) < widths_.size(); ++col) {
        if (!isColumnHidden(col) && !delegate_->wraps(col) && !draggedWidths_.contains(titleKey(col))) {
            int& width = widths_[static_cast<std::size_t>(col)];
            width = widthOfTexts(col, width);
        }
    }
}

/// What the texts of a column need, at least `width`.
int FlexGrid::widthOfTexts(int col, int width) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int character = option.fontMetrics.horizontalAdvance(u'国');
    const int most = std::max(width, MostCharacters * character);
    const int rows = model_->rowCount();
    for (int row = 0; row < rows; ++row) {
        if (row == MeasuredRows) {
            row = std::max(row, rows - MeasuredRows);
        }
        // No glyph is wider than a Chinese one, so most texts need no measuring.
        const qsizetype length = model_->text(model_->gridRow(row), col).size();
        if (col == delegate_->outlineCol || length * character + 2 * qsizetype{grid::PaddingX} > width) {
            const int needed = delegate_->sizeHint(option, model_->index(row, col)).width();
            width = std::min(std::max(width, needed), most);
        }
    }
    return width;
}

void FlexGrid::fitColumns() {
    const int stretched = columnToStretch();
    const int staying = stayingColumns();
    int room = viewport()->width();
    int stayingRoom = room * 3 / 4;
    sizing_ = true;
    for (int col = 0; col < Cols() && static_cast<std::size_t>(col) < widths_.size(); ++col) {
        if (col != stretched && !isColumnHidden(col)) {
            int width = widths_[static_cast<std::size_t>(col)];
            if (col < staying) {
                width = std::max(header_->minimumSectionSize(), std::min(width, stayingRoom));
                stayingRoom -= width;
            }
            setColumnWidth(col, width);
            room -= width;
        }
    }
    if (stretched >= 0 && static_cast<std::size_t>(stretched) < widths_.size()) {
        // The column asked for gives way to its neighbours; the last column only grows.
        const bool asked = stretched == stretchCol_;
        const int least =
            asked ? widthOfTitle(model_->text(0, stretched).trimmed()) : widths_[static_cast<std::size_t>(stretched)];
        setColumnWidth(stretched, std::max(least, room));
    }
    sizing_ = false;
}

// Rows are measured only where texts are broken; all others have the header view's one default height.
void FlexGrid::fitRowHeights() {
    const bool wraps = anyWrap();
    if (!wraps && !heightsStale_) {
        return;
    }
    heightsStale_ = false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QHeaderView* rows = verticalHeader();
    // Without updates the header doesn't look up each row's place, which would make this quadratic.
    rows->setUpdatesEnabled(false);
    for (int row = 0; row < model_->rowCount(); ++row) {
        rows->resizeSection(row, wraps ? heightOf(row, option) : rows->defaultSectionSize());
    }
    rows->setUpdatesEnabled(true);
    updateGeometries();
}

int FlexGrid::heightOf(int modelRow, const QStyleOptionViewItem& option) const {
    int height = verticalHeader()->defaultSectionSize();
    for (int col = 0; col < Cols(); ++col) {
        if (delegate_->wraps(col) && !isColumnHidden(col)) {
            const QModelIndex cell = model_->index(modelRow, col);
            height = std::max(height, delegate_->heightFor(option, cell, columnWidth(col)));
        }
    }
    return height;
}

void FlexGrid::applyFont() {
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(grid::rowHeight(fontMetrics()));
    heightsStale_ = true;
    if (!formatString_.isEmpty()) {
        setFormatString(formatString_);
    }
    later();
}

void FlexGrid::columnResized(int col) {
    if (!sizing_ && !isColumnHidden(col)) {
        draggedWidths_.insert(titleKey(col), columnWidth(col));
        resizeColumn(col, columnWidth(col));
    }
    if (delegate_->wraps(col)) {
        heightsStale_ = true;
        later();
    }
}

}  // namespace talvora
