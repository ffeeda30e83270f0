#include "platform/database/odbc/odbc_rows.h"

#include <array>
#include <cstdint>
#include <vector>

namespace talvora::odbc {

using namespace Qt::StringLiterals;

namespace {

enum class Kind { Whole, Real, Date, Moment, Text };

Kind kindOf(SQLSMALLINT sqlType) {
    switch (sqlType) {
        case SQL_BIT:
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return Kind::Whole;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return Kind::Real;
        case SQL_TYPE_DATE:
            return Kind::Date;
        case SQL_TYPE_TIMESTAMP:
            return Kind::Moment;
        default:
            return Kind::Text;
    }
}

/// Reads the cells of the current row, one after the other, into a recordset.
class CellReader {
 public:
    CellReader(const Handle& statement, Recordset& rows) : statement_(statement), rows_(rows) {}

    void read(SQLUSMALLINT column, Kind kind) {
        switch (kind) {
            case Kind::Whole:
                return readWhole(column);
            case Kind::Real:
                return readReal(column);
            case Kind::Date:
                return readDate(column);
            case Kind::Moment:
                return readMoment(column);
            case Kind::Text:
                return readText(column);
        }
    }

 private:
    /// Gets a value of fixed size; false, with a NULL added, when there is none.
    template <class Value>
    bool get(SQLUSMALLINT column, SQLSMALLINT type, Value& value) {
        SQLLEN length = 0;
        statement_.check(SQLGetData(statement_.get(), column, type, &value, sizeof value, &length));
        if (length == SQL_NULL_DATA) {
            rows_.addNull();
            return false;
        }
        return true;
    }

    void readWhole(SQLUSMALLINT column) {
        std::int64_t value = 0;
        if (get(column, SQL_C_SBIGINT, value)) {
            rows_.addWhole(value);
        }
    }

    // As a number and not as text: drivers write 0.3333 as 0.33329999999999999.
    void readReal(SQLUSMALLINT column) {
        double value = 0;
        if (get(column, SQL_C_DOUBLE, value)) {
            rows_.addReal(value);
        }
    }

    // Dates and moments are formatted here, since drivers differ in the fractions of a second that they write.
    void readDate(SQLUSMALLINT column) {
        SQL_DATE_STRUCT value{};
        if (get(column, SQL_C_TYPE_DATE, value)) {
            addText(dateText(value.year, value.month, value.day));
        }
    }

    void readMoment(SQLUSMALLINT column) {
        SQL_TIMESTAMP_STRUCT value{};
        if (get(column, SQL_C_TYPE_TIMESTAMP, value)) {
            addText(u"%1 %2:%3:%4"_s.arg(dateText(value.year, value.month, value.day), digits(value.hour, 2),
                                         digits(value.minute, 2), digits(value.second, 2)));
        }
    }

    void readText(SQLUSMALLINT column) {
        text_.clear();
        bool more = true;
        while (more) {
            SQLLEN length = 0;
            const SQLRETURN result = SQLGetData(statement_.get(), column, SQL_C_WCHAR, piece_.data(),
                                                static_cast<SQLLEN>(sizeof piece_), &length);
            statement_.check(result);
            if (length == SQL_NULL_DATA) {
                rows_.addNull();
                return;
            }
            more = result != SQL_NO_DATA && (length == SQL_NO_TOTAL || length >= static_cast<SQLLEN>(sizeof piece_));
            const auto count = result == SQL_NO_DATA ? 0
                               : more                ? piece_.size() - 1
                                                     : static_cast<std::size_t>(length) / sizeof(SQLWCHAR);
            text_.insert(text_.end(), piece_.begin(), piece_.begin() + static_cast<std::ptrdiff_t>(count));
        }
        rows_.addText(reinterpret_cast<const char16_t*>(text_.data()), static_cast<qsizetype>(text_.size()));
    }

    void addText(const QString& text) { rows_.addText(reinterpret_cast<const char16_t*>(text.utf16()), text.size()); }

    static QString digits(int number, int width) { return QString::number(number).rightJustified(width, u'0'); }

    static QString dateText(int year, int month, int day) {
        return digits(year, 4) + u'-' + digits(month, 2) + u'-' + digits(day, 2);
    }

    static constexpr std::size_t pieceSize = 4096;

    const Handle& statement_;
    Recordset& rows_;
    std::array<SQLWCHAR, pieceSize> piece_{};
    std::vector<SQLWCHAR> text_;
};

std::vector<Kind> addColumns(const Handle& statement, SQLSMALLINT count, Recordset& rows) {
    constexpr SQLSMALLINT longestName = 256;
    std::vector<Kind> kinds;
    for (SQLSMALLINT column = 1; column <= count; ++column) {
        std::array<SQLWCHAR, longestName> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        SQLULEN size = 0;
        statement.check(SQLDescribeColW(statement.get(), static_cast<SQLUSMALLINT>(column), name.data(), longestName,
                                        &length, &type, &size, &digits, &nullable));
        rows.addColumn(fromWide(name.data(), std::min<qsizetype>(length, longestName - 1)));
        kinds.push_back(kindOf(type));
    }
    return kinds;
}

Recordset readRows(const Handle& statement, SQLSMALLINT columns) {
    Recordset rows;
    const std::vector<Kind> kinds = addColumns(statement, columns, rows);
    CellReader reader(statement, rows);
    while (true) {
        const SQLRETURN result = SQLFetch(statement.get());
        if (result == SQL_NO_DATA) {
            return rows;
        }
        statement.check(result);
        SQLUSMALLINT column = 1;
        for (const Kind kind : kinds) {
            reader.read(column++, kind);
        }
    }
}

}  // namespace

Recordset readResults(const Handle& statement) {
    Recordset rows;
    while (true) {
        SQLSMALLINT columns = 0;
        statement.check(SQLNumResultCols(statement.get(), &columns));
        if (columns > 0 && rows.FieldCount() == 0) {
            rows = readRows(statement, columns);
        }
        const SQLRETURN result = SQLMoreResults(statement.get());
        if (result == SQL_NO_DATA) {
            return rows;
        }
        statement.check(result);
    }
}

}  // namespace talvora::odbc
