#include "toolkit/grid/flexgrid_rows.h"

namespace talvora {

bool operator==(const GridFormat& one, const GridFormat& other) {
    return one.back == other.back && one.fore == other.fore && one.bold == other.bold && one.align == other.align &&
           one.picture.cacheKey() == other.picture.cacheKey();
}

size_t qHash(const GridFormat& format, size_t seed) {
    const auto colour = [](const QColor& value) { return value.isValid() ? qint64{value.rgba()} : qint64{-1}; };
    const int align = format.align ? static_cast<int>(*format.align) : -1;
    return qHashMulti(seed, colour(format.back), colour(format.fore), format.picture.cacheKey(), align, format.bold);
}

quint32 GridFormats::idOf(const GridFormat& format) {
    const auto known = ids_.constFind(format);
    if (known != ids_.cend()) {
        return known.value();
    }
    const auto id = static_cast<quint32>(formats_.size());
    formats_.push_back(format);
    ids_.insert(format, id);
    return id;
}

QString GridRow::text(int col) const {
    if (!cells_.isEmpty()) {
        return cells_.value(col);
    }
    qsizetype start = 0;
    for (int skipped = 0; skipped < col; ++skipped) {
        start = packed_.indexOf(u'\t', start) + 1;
        if (start == 0) {
            return {};
        }
    }
    const qsizetype end = packed_.indexOf(u'\t', start);
    return packed_.mid(start, end < 0 ? -1 : end - start);
}

void GridRow::setText(int col, const QString& text) {
    unpack();
    while (cells_.size() <= col) {
        cells_.append(QString());
    }
    cells_[col] = text;
}

void GridRow::truncate(int count) {
    unpack();
    if (cells_.size() > count) {
        cells_.resize(count);
    }
    if (formats_.size() > static_cast<std::size_t>(count)) {
        formats_.resize(static_cast<std::size_t>(count));
    }
}

quint32 GridRow::format(int col) const {
    const auto at = static_cast<std::size_t>(col);
    return at < formats_.size() ? formats_[at] : 0;
}

void GridRow::setFormat(int col, quint32 id) {
    const auto at = static_cast<std::size_t>(col);
    if (at >= formats_.size()) {
        formats_.resize(at + 1);
    }
    formats_[at] = id;
}

void GridRow::unpack() {
    if (cells_.isEmpty()) {
        cells_ = packed_.split(u'\t');
        packed_.clear();
    }
}

}  // namespace talvora
