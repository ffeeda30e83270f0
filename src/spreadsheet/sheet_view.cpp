#include "spreadsheet/sheet_view.h"

#include "spreadsheet/sheet_painter.h"
#include "toolkit/look/theme.h"

#include <QAbstractTableModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// A sheet has no edge: some of what lies behind the last cell is shown too.
constexpr int SpareRows = 20;
constexpr int SpareColumns = 3;
constexpr int LeastRows = 40;
constexpr int LeastColumns = 14;

class SheetModel : public QAbstractTableModel {
 public:
    SheetModel(std::shared_ptr<const SheetPrinter> sheet, QObject* parent)
        : QAbstractTableModel(parent), sheet_(std::move(sheet)) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : std::max(sheet_->workbook().rows() + SpareRows, LeastRows);
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : std::max(sheet_->workbook().columns() + SpareColumns, LeastColumns);
    }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? sheet_->workbook().text(index.row() + 1, index.column() + 1) : QVariant();
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role == Qt::TextAlignmentRole) {
            return Qt::AlignCenter;
        }
        if (role != Qt::DisplayRole) {
            return {};
        }
        return orientation == Qt::Vertical ? QString::number(section + 1) : letters(section);
    }

 private:
    static QString letters(int section) {
        constexpr int count = 26;
        QString name;
        for (int rest = section; rest >= 0; rest = rest / count - 1) {
            name.prepend(QChar(u'A' + rest % count));
        }
        return name;
    }

    std::shared_ptr<const SheetPrinter> sheet_;
};

class SheetDelegate : public QStyledItemDelegate {
 public:
    SheetDelegate(std::shared_ptr<const SheetPrinter> sheet, QObject* parent)
        : QStyledItemDelegate(parent),
          sheet_(std::move(sheet)),
          painter_(sheet_->workbook(), sheet_->layout(), SheetPainter::Lines::Faint) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        painter_.paintCell(*painter, sheet_->workbook().mergeAt(index.row() + 1, index.column() + 1), option.rect);
        if (option.state & QStyle::State_Selected) {
            constexpr int tint = 36;
            QColor over = theme::Accent;
            over.setAlpha(tint);
            painter->fillRect(option.rect, over);
        }
        if (option.state & QStyle::State_HasFocus) {
            painter->setPen(QPen(theme::Accent, 2));
            painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
        }
    }

 private:
    std::shared_ptr<const SheetPrinter> sheet_;
    SheetPainter painter_;
};

}  // namespace

SheetView::SheetView(QWidget* parent) : QTableView(parent) {
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setMinimumSectionSize(SheetLayout::DefaultHeight);
    verticalHeader()->setDefaultSectionSize(SheetLayout::DefaultHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

void SheetView::setSheet(std::shared_ptr<const SheetPrinter> sheet) {
    sheet_ = std::move(sheet);
    setModel(new SheetModel(sheet_, this));
    setItemDelegate(new SheetDelegate(sheet_, this));
    const Workbook& workbook = sheet_->workbook();
    for (int column = 1; column <= model()->columnCount(); ++column) {
        setColumnWidth(column - 1, sheet_->layout().columnWidth(column));
    }
    // Without updates the header doesn't look up each row's place, which would make this quadratic.
    verticalHeader()->setUpdatesEnabled(false);
    for (int row = 1; row <= workbook.rows(); ++row) {
        if (const int height = sheet_->layout().rowHeight(row); height != SheetLayout::DefaultHeight) {
            verticalHeader()->resizeSection(row - 1, height);
        }
    }
    verticalHeader()->setUpdatesEnabled(true);
    for (const CellRange& merge : workbook.merges()) {
        setSpan(merge.row - 1, merge.column - 1, merge.row2 - merge.row + 1, merge.column2 - merge.column + 1);
    }
    const CellRange& selection = workbook.selection();
    setCurrentIndex(model()->index(selection.row - 1, selection.column - 1));
}

void SheetView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        return;
    }
    QTableView::keyPressEvent(event);
}

void SheetView::copySelection() const {
    const QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty()) {
        return;
    }
    const QItemSelectionRange& block = selection.last();
    QString text;
    // What lies behind the last cell is empty.
    const int bottom = std::min(block.bottom(), sheet_->workbook().rows() - 1);
    const int right = std::min(block.right(), sheet_->workbook().columns() - 1);
    for (int row = block.top(); row <= bottom; ++row) {
        for (int column = block.left(); column <= right; ++column) {
            text += sheet_->workbook().text(row + 1, column + 1) + (column < right ? u'\t' : u'\n');
        }
    }
    QGuiApplication::clipboard()->setText(text);
}

}  // namespace talvora
