#include "platform/database/odbc/odbc_rows.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
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

struct Column {
    Kind kind;
    SQLULEN size;  // of a text, in characters; 0 where the driver knows none
};

QString digits(int number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

QString dateText(int year, int month, int day) {
    return digits(year, 4) + u'-' + digits(month, 2) + u'-' + digits(day, 2);
}

void addText(Recordset& rows, const QString& text) {
    rows.addText(reinterpret_cast<const char16_t*>(text.utf16()), text.size());
}

// Dates and moments are formatted here, since drivers differ in the fractions of a second that they write.
void addDate(Recordset& rows, const SQL_DATE_STRUCT& value) {
    addText(rows, dateText(value.year, value.month, value.day));
}

void addMoment(Recordset& rows, const SQL_TIMESTAMP_STRUCT& value) {
    addText(rows, u"%1 %2:%3:%4"_s.arg(dateText(value.year, value.month, value.day), digits(value.hour, 2),
                                       digits(value.minute, 2), digits(value.second, 2)));
}

/// Reads the cells of the current row, one after the other, into a recordset: for rows with texts of any length.
class CellReader {
 public:
    CellReader(const Handle& statement, Recordset& rows) : statement_(statement), rows_(rows) {}

    void read(SQLUSMALLINT column, Kind kind) {
        switch (kind) {
            case Kind::Whole:
                return readFixed<std::int64_t>(column, SQL_C_SBIGINT, [this](auto value) { rows_.addWhole(value); });
            case Kind::Real:
                return readFixed<double>(column, SQL_C_DOUBLE, [this](auto value) { rows_.addReal(value); });
            case Kind::Date:
                return readFixed<SQL_DATE_STRUCT>(column, SQL_C_TYPE_DATE,
                                                  [this](const auto& value) { addDate(rows_, value); });
            case Kind::Moment:
                return readFixed<SQL_TIMESTAMP_STRUCT>(column, SQL_C_TYPE_TIMESTAMP,
                                                       [this](const auto& value) { addMoment(rows_, value); });
            case Kind::Text:
                return readText(column);
        }
    }

 private:
    template <class Value, class Add>
    void readFixed(SQLUSMALLINT column, SQLSMALLINT type, Add&& add) {
        Value value{};
        SQLLEN length = 0;
        statement_.check(SQLGetData(statement_.get(), column, type, &value, sizeof value, &length));
        length == SQL_NULL_DATA ? rows_.addNull() : add(value);
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

    static constexpr std::size_t pieceSize = 4096;

    const Handle& statement_;
    Recordset& rows_;
    std::array<SQLWCHAR, pieceSize> piece_{};
    std::vector<SQLWCHAR> text_;
};

/// Fetches rows of cells of limited size in blocks into buffers of its own.
class BlockReader {
 public:
    BlockReader(const Handle& statement, const std::vector<Column>& columns) : statement_(statement) {
        setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, asPointer(blockRows));
        setAttribute(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
        buffers_.reserve(columns.size());
        for (const Column& column : columns) {
            bind(column);
        }
    }
    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;

    ~BlockReader() {
        SQLFreeStmt(statement_.get(), SQL_UNBIND);
        SQLSetStmtAttrW(statement_.get(), SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
        SQLSetStmtAttrW(statement_.get(), SQL_ATTR_ROW_ARRAY_SIZE, asPointer(1), 0);
    }

    void readAll(Recordset& rows) {
        while (true) {
            const SQLRETURN result = SQLFetch(statement_.get());
            if (result == SQL_NO_DATA) {
                return;
            }
            statement_.check(result);
            for (SQLULEN row = 0; row < fetched_; ++row) {
                for (const Buffer& buffer : buffers_) {
                    add(rows, buffer, row);
                }
            }
        }
    }

 private:
    struct Buffer {
        Kind kind;
        std::size_t width;  // of one cell, in bytes
        std::vector<std::byte> bytes;
        std::vector<SQLLEN> lengths;
    };

    static SQLPOINTER asPointer(std::uintptr_t number) { return reinterpret_cast<SQLPOINTER>(number); }

    void setAttribute(SQLINTEGER attribute, SQLPOINTER value) {
        statement_.check(SQLSetStmtAttrW(statement_.get(), attribute, value, 0));
    }

    void bind(const Column& column) {
        SQLSMALLINT type = SQL_C_WCHAR;
        // Twice the size, for servers that count a pair of code units as one character, and the closing NUL.
        std::size_t width = (2 * column.size + 1) * sizeof(SQLWCHAR);
        switch (column.kind) {
            case Kind::Whole:
                type = SQL_C_SBIGINT;
                width = sizeof(std::int64_t);
                break;
            case Kind::Real:
                type = SQL_C_DOUBLE;
                width = sizeof(double);
                break;
            case Kind::Date:
                type = SQL_C_TYPE_DATE;
                width = sizeof(SQL_DATE_STRUCT);
                break;
            case Kind::Moment:
                type = SQL_C_TYPE_TIMESTAMP;
                width = sizeof(SQL_TIMESTAMP_STRUCT);
                break;
            case Kind::Text:
                break;
        }
        buffers_.push_back(
            {column.kind, width, std::vector<std::byte>(width * blockRows), std::vector<SQLLEN>(blockRows)});
        Buffer& buffer = buffers_.back();
        statement_.check(SQLBindCol(statement_.get(), static_cast<SQLUSMALLINT>(buffers_.size()), type,
                                    buffer.bytes.data(), static_cast<SQLLEN>(width), buffer.lengths.data()));
    }

    template <class Value>
    static Value valueAt(const std::byte* cell) {
        Value value{};
        std::memcpy(&value, cell, sizeof value);
        return value;
    }

    static void add(Recordset& rows, const Buffer& buffer, SQLULEN row) {
        const std::byte* cell = buffer.bytes.data() + row * buffer.width;
        if (buffer.lengths[row] == SQL_NULL_DATA) {
            return rows.addNull();
        }
        switch (buffer.kind) {
            case Kind::Whole:
                return rows.addWhole(valueAt<std::int64_t>(cell));
            case Kind::Real:
                return rows.addReal(valueAt<double>(cell));
            case Kind::Date:
                return addDate(rows, valueAt<SQL_DATE_STRUCT>(cell));
            case Kind::Moment:
                return addMoment(rows, valueAt<SQL_TIMESTAMP_STRUCT>(cell));
            case Kind::Text:
                return rows.addText(reinterpret_cast<const char16_t*>(cell),
                                    static_cast<qsizetype>(buffer.lengths[row] / SQLLEN{sizeof(SQLWCHAR)}));
        }
    }

    static constexpr SQLULEN blockRows = 200;

    const Handle& statement_;
    std::vector<Buffer> buffers_;
    SQLULEN fetched_ = 0;
};

std::vector<Column> addColumns(const Handle& statement, SQLSMALLINT count, Recordset& rows) {
    constexpr SQLSMALLINT longestName = 256;
    std::vector<Column> columns;
    for (SQLSMALLINT column = 1; column <= count; ++column) {
        std::array<SQLWCHAR, longestName> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLSMALLINT decimals = 0;
        SQLSMALLINT nullable = 0;
        SQLULEN size = 0;
        statement.check(SQLDescribeColW(statement.get(), static_cast<SQLUSMALLINT>(column), name.data(), longestName,
                                        &length, &type, &size, &decimals, &nullable));
        rows.addColumn(fromWide(name.data(), std::min<qsizetype>(length, longestName - 1)));
        columns.push_back({kindOf(type), size});
    }
    return columns;
}

bool fitsBlocks(const Column& column) {
    constexpr SQLULEN longest = 1000;
    return column.kind != Kind::Text || (column.size > 0 && column.size <= longest);
}

Recordset readRows(const Handle& statement, SQLSMALLINT count) {
    Recordset rows;
    const std::vector<Column> columns = addColumns(statement, count, rows);
    if (std::all_of(columns.begin(), columns.end(), fitsBlocks)) {
        BlockReader(statement, columns).readAll(rows);
        return rows;
    }
    CellReader reader(statement, rows);
    while (true) {
        const SQLRETURN result = SQLFetch(statement.get());
        if (result == SQL_NO_DATA) {
            return rows;
        }
        statement.check(result);
        SQLUSMALLINT number = 1;
        for (const Column& column : columns) {
            reader.read(number++, column.kind);
        }
    }
}

}  // namespace

std::vector<Recordset> readAllResults(const Handle& statement) {
    std::vector<Recordset> results;
    while (true) {
        SQLSMALLINT columns = 0;
        statement.check(SQLNumResultCols(statement.get(), &columns));
        if (columns > 0) {
            results.push_back(readRows(statement, columns));
        }
        const SQLRETURN result = SQLMoreResults(statement.get());
        if (result == SQL_NO_DATA) {
            return results;
        }
        statement.check(result);
    }
}

Recordset readResults(const Handle& statement) {
    std::vector<Recordset> results = readAllResults(statement);
    return results.empty() ? Recordset() : std::move(results.front());
}

}  // namespace talvora::odbc
