#include "toolkit/grid/flexgrid_model.h"

#include "platform/runtime_error.h"

#include <QFont>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace talvora {

namespace {

Qt::Alignment alignmentOf(GridAlign align) {
    static constexpr Qt::AlignmentFlag across[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    static constexpr Qt::AlignmentFlag down[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    const int number = static_cast<int>(align);
    return across[number / 3] | down[number % 3];
}

void require(bool inside) {
    if (!inside) {
        throw RuntimeError(errors::SubscriptOutOfRange);
    }
}

}  // namespace

GridModel::GridModel(QObject* parent) : QAbstractTableModel(parent) {}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(visible_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : cols();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const int number = gridRow(index.row());
    const GridFormat& look = format(number, index.column());
    const bool boolean = column(index.column()).type == GridDataType::Boolean;
    switch (role) {
        case Qt::DisplayRole:
            return boolean ? QVariant() : text(number, index.column());
        case Qt::CheckStateRole:
            return boolean ? QVariant(isTrue(text(number, index.column())) ? Qt::Checked : Qt::Unchecked) : QVariant();
        case Qt::AccessibleTextRole:
            return boolean ? (isTrue(text(number, index.column())) ? u"是"_s : u"否"_s) : text(number, index.column());
        case Qt::TextAlignmentRole:
            return QVariant(alignmentOf(align(number, index.column())));
        case Qt::BackgroundRole:
            return look.back.isValid() ? QVariant(look.back) : QVariant();
        case Qt::ForegroundRole:
            return look.fore.isValid() ? QVariant(look.fore) : QVariant();
        case Qt::DecorationRole:
            return look.picture.isNull() ? QVariant() : QVariant(look.picture);
        case Qt::FontRole: {
            QFont bold;
            bold.setBold(true);
            return look.bold ? QVariant(bold) : QVariant();
        }
        default:
            return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (section < 0 || orientation != Qt::Horizontal || section >= cols()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(alignmentOf(align(0, section)));
    }
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) {
        return {};
    }
    QStringList titles;
    for (int row = 0; row < fixedRows_; ++row) {
        titles.append(text(row, section).trimmed());
    }
    titles.removeDuplicates();
    return titles.join(u' ').trimmed();
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

bool GridModel::announce() {
    GridOutline outline = GridOutline::of(rows_, fixedRows_);
    outline_ = std::move(outline.branches);
    const auto& next = outline.visible;
    const auto [oldFrom, newFrom] = std::mismatch(visible_.begin(), visible_.end(), next.begin(), next.end());
    const auto [oldBack, newBack] = std::mismatch(visible_.rbegin(), std::make_reverse_iterator(oldFrom),  //
                                                  next.rbegin(), std::make_reverse_iterator(newFrom));
    const int start = static_cast<int>(oldFrom - visible_.begin());
    const int gone = static_cast<int>(oldBack.base() - oldFrom);
    const int come = static_cast<int>(newBack.base() - newFrom);
    if (gone == 0 && come == 0) {
        return false;
    }
    if (gone > 0 && come > 0) {
        beginResetModel();
        visible_ = std::move(outline.visible);
        endResetModel();
        return true;
    }
    if (come > 0) {
        beginInsertRows({}, start, start + come - 1);
        visible_ = std::move(outline.visible);
        endInsertRows();
    } else {
        beginRemoveRows({}, start, start + gone - 1);
        visible_ = std::move(outline.visible);
        endRemoveRows();
    }
    return false;
}

int GridModel::modelRow(int gridRow) const {
    const auto found = std::lower_bound(visible_.begin(), visible_.end(), gridRow);
    return found != visible_.end() && *found == gridRow ? static_cast<int>(found - visible_.begin()) : -1;
}

void GridModel::setRows(int count) {
    require(count >= fixedRows_);
    const auto size = static_cast<std::size_t>(count);
    const auto firstGone = std::lower_bound(visible_.begin(), visible_.end(), count);
    if (firstGone != visible_.end()) {
        beginRemoveRows({}, static_cast<int>(firstGone - visible_.begin()), rowCount() - 1);
        visible_.erase(firstGone, visible_.end());
        rows_.resize(size);
        endRemoveRows();
    } else {
        rows_.resize(size);
    }
}

void GridModel::setFixedRows(int count) {
    require(count >= 1);
    setRows(fixedRows_);
    fixedRows_ = count;
    rows_.resize(static_cast<std::size_t>(count));
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, std::max(0, cols() - 1));
}

void GridModel::setCols(int count) {
    require(count >= 0);
    const int had = cols();
    if (count == had) {
        return;
    }
    // Cells beyond the last column are none, and must not come to light when the grid grows.
    for (GridRow& row : rows_) {
        row.truncate(std::min(had, count));
    }
    if (count < had) {
        beginRemoveColumns({}, count, had - 1);
        columns_.resize(static_cast<std::size_t>(count));
        endRemoveColumns();
    } else {
        beginInsertColumns({}, had, count - 1);
        columns_.resize(static_cast<std::size_t>(count));
        endInsertColumns();
    }
}

void GridModel::addRow(const QString& cells, int at) {
    if (at < 0 || at == rows()) {
        rows_.emplace_back(cells);
        return;
    }
    require(at >= fixedRows_ && at < rows());
    rows_.emplace(rows_.begin() + at, cells);
    for (auto row = std::lower_bound(visible_.begin(), visible_.end(), at); row != visible_.end(); ++row) {
        ++*row;
    }
}

void GridModel::removeRow(int row) {
    require(row >= fixedRows_ && row < rows());
    const auto from = std::lower_bound(visible_.begin(), visible_.end(), row);
    const bool seen = from != visible_.end() && *from == row;
    const int place = static_cast<int>(from - visible_.begin());
    if (seen) {
        beginRemoveRows({}, place, place);
    }
    rows_.erase(rows_.begin() + row);
    if (!outline_.empty() && static_cast<std::size_t>(row) < outline_.size()) {
        outline_.erase(outline_.begin() + row);
    }
    const auto next = seen ? visible_.erase(from) : from;
    std::for_each(next, visible_.end(), [](int& number) { --number; });
    if (seen) {
        endRemoveRows();
    }
}

}  // namespace talvora
