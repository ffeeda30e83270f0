#include "platform/database/recordset.h"

#include "platform/numbers.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <QHash>
#include <QStringView>

#include <algorithm>
#include <cmath>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

/// A stored real number as its text has it, with 15 significant digits: 0.7 * 45 is stored as 31.499999999999996 and
/// reads 31.5, which rounds to 32. Only around a half can the digits behind matter.
double asSpelled(double value) {
    constexpr double nearHalf = 1E-3;
    const double fraction = value - std::floor(value);
    return std::fabs(fraction - 0.5) < nearHalf ? numberText(value).toDouble() : value;
}

}  // namespace

/// A column's name, and the texts read from it lately: a column of few different values (a sex, an education, a
/// position) then hands out shared strings in place of one allocation a row.
struct Recordset::Column {
    static constexpr std::size_t rememberedTexts = 64;

    QString name;
    mutable std::unique_ptr<std::array<QString, rememberedTexts>> remembered;
};

Recordset::Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

int Recordset::RecordCount() const {
    return columns_.empty() ? 0 : static_cast<int>(cells_.size() / columns_.size());
}

int Recordset::FieldCount() const {
    return static_cast<int>(columns_.size());
}

Row Recordset::row(int index) const {
    if (index < 0 || index >= RecordCount()) {
        throw RuntimeError(errors::NoCurrentRow);
    }
    return {this, index};
}

void Recordset::addColumn(const QString& name) {
    columns_.push_back({name, nullptr});
}

void Recordset::addNull() {
    cells_.push_back({Kind::Null, 0, {0}});
}

void Recordset::addWhole(qint64 value) {
    cells_.push_back({Kind::Whole, 0, {value}});
}

void Recordset::addReal(double value) {
    Cell cell{Kind::Real, 0, {0}};
    cell.real = value;
    cells_.push_back(cell);
}

void Recordset::addText(const char16_t* text, qsizetype length) {
    Cell cell{Kind::Text, static_cast<quint32>(length), {0}};
    cell.offset = characters_.size();
    characters_.insert(characters_.end(), text, text + length);
    cells_.push_back(cell);
}

int Recordset::columnOf(FieldName name) const {
    const char* literal = name.get();
    std::size_t slot = (reinterpret_cast<std::uintptr_t>(literal) >> 1) % knownSlots;
    for (std::size_t probes = 0; known_[slot].name != nullptr && probes < knownSlots; ++probes) {
        if (known_[slot].name == literal) {
            return known_[slot].column;
        }
        slot = (slot + 1) % knownSlots;
    }
    const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const Column& column) {
        return column.name.compare(QLatin1StringView(literal), Qt::CaseInsensitive) == 0;
    });
    if (found == columns_.end()) {
        throw RuntimeError(errors::NoSuchField);
    }
    known_[slot] = {literal, static_cast<int>(found - columns_.begin())};
    return known_[slot].column;
}

const Recordset::Cell& Recordset::cell(int row, int column) const {
    return cells_[static_cast<std::size_t>(row) * columns_.size() + static_cast<std::size_t>(column)];
}

QString Recordset::textOf(const Cell& cell, int column) const {
    switch (cell.kind) {
        case Kind::Null:
            return {};
        case Kind::Whole:
            return QString::number(cell.whole);
        case Kind::Real:
            return numberText(cell.real);
        case Kind::Text:
            break;
    }
    const QStringView view(characters_.data() + cell.offset, static_cast<qsizetype>(cell.length));
    if (view.isEmpty()) {
        return {};
    }
    auto& remembered = columns_[static_cast<std::size_t>(column)].remembered;
    if (!remembered) {
        remembered = std::make_unique<std::array<QString, Column::rememberedTexts>>();
    }
    QString& slot = (*remembered)[qHash(view) % Column::rememberedTexts];
    if (slot != view) {
        slot = view.toString();
    }
    return slot;
}

double Recordset::number(int row, int column) const {
    const Cell& value = cell(row, column);
    switch (value.kind) {
        case Kind::Null:
            throw RuntimeError(errors::InvalidUseOfNull);
        case Kind::Whole:
            return static_cast<double>(value.whole);
        case Kind::Real:
            return asSpelled(value.real);
        case Kind::Text:
            break;
    }
    return toNumber(textOf(value, column));
}

bool Row::isNull(int column) const {
    return rows_->cell(index_, column).kind == Recordset::Kind::Null;
}
bool Row::isNull(FieldName name) const {
    return isNull(rows_->columnOf(name));
}

QString Row::rawText(FieldName name) const {
    const int column = rows_->columnOf(name);
    return rows_->textOf(rows_->cell(index_, column), column);
}

QString Row::text(int column) const {
    return trimBlanks(rows_->textOf(rows_->cell(index_, column), column));
}
QString Row::text(FieldName name) const {
    return trimBlanks(rawText(name));
}

QString Row::literal(int column) const {
    const auto& value = rows_->cell(index_, column);
    if (value.kind == Recordset::Kind::Null) {
        return u"null"_s;
    }
    if (value.kind == Recordset::Kind::Real) {
        // With an exponent: a server would take it for a decimal number otherwise, and lose digits on its way back.
        constexpr int digitsBehindThePoint = 16;
        return QString::number(value.real, 'e', digitsBehindThePoint);
    }
    QString text = rows_->textOf(value, column);
    if (value.kind == Recordset::Kind::Whole) {
        return text;
    }
    text.replace(u'\'', "''"_L1);
    // A server takes a backslash before a line break, and the break, for one long line of the statement.
    text.replace("\\\r"_L1, "\\'+N'\r"_L1).replace("\\\n"_L1, "\\'+N'\n"_L1);
    return u"N'"_s + text + u'\'';
}

qint16 Row::number16(FieldName name) const {
    return toInt16(rows_->number(index_, rows_->columnOf(name)));
}
qint32 Row::number32(FieldName name) const {
    return number32(rows_->columnOf(name));
}
qint32 Row::number32(int column) const {
    return toInt32(rows_->number(index_, column));
}
qint16 Row::number16Or0(FieldName name) const {
    return isNull(name) ? qint16{0} : number16(name);
}
qint32 Row::number32Or0(FieldName name) const {
    return isNull(name) ? 0 : number32(name);
}

}  // namespace talvora
