#include "platform/database/embedded/binding.h"

#include "platform/database/embedded/conversion.h"

#include <QLocale>
#include <sqlite3.h>

namespace talvora::embedded {

namespace {

void bindText(sqlite3_stmt* statement, int index, QStringView text, bool lasting) {
    sqlite3_bind_text16(statement, index, text.utf16(), static_cast<int>(text.size() * sizeof(char16_t)),
                        lasting ? SQLITE_STATIC : SQLITE_TRANSIENT);
}

QString digitsOf(const Parameter& parameter, const Literal& literal) {
    QString text =
        literal.kind == TokenKind::Integer ? QString::number(literal.text.toLongLong()) : textFromDecimal(literal.text);
    return parameter.negative ? u'-' + text : text;
}

double numberOf(const Parameter& parameter, const Literal& literal) {
    const double value = QLocale::c().toDouble(literal.text);
    return parameter.negative ? -value : value;
}

qint64 wholeOf(const Parameter& parameter, const Literal& literal) {
    if (literal.kind == TokenKind::Text) {
        return wholeFromText(literal.content(), parameter.kind);
    }
    if (literal.kind == TokenKind::Decimal) {
        return wholeFromReal(numberOf(parameter, literal), parameter.kind);
    }
    const qint64 value = literal.text.toLongLong();
    return wholeFromWhole(parameter.negative ? -value : value, parameter.kind);
}

void bindOne(sqlite3_stmt* statement, int index, const Parameter& parameter, const Literal& literal) {
    const bool text = literal.kind == TokenKind::Text;
    switch (parameter.kind) {
        case Kind::Null:
        case Kind::Text:
            if (text && !literal.doubled) {
                bindText(statement, index, fitted(literal.text, parameter.length), true);
            } else {
                const QString content = text ? literal.content() : digitsOf(parameter, literal);
                bindText(statement, index, fitted(content, parameter.length), false);
            }
            break;
        case Kind::Real:
            sqlite3_bind_double(statement, index,
                                text ? realFromText(literal.content()) : numberOf(parameter, literal));
            break;
        case Kind::DateTime:
            bindText(statement, index, dateTimeFromText(text ? literal.content() : digitsOf(parameter, literal)),
                     false);
            break;
        default:
            sqlite3_bind_int64(statement, index, wholeOf(parameter, literal));
    }
}

}  // namespace

void bindParameters(sqlite3_stmt* statement, const std::vector<Parameter>& parameters,
                    const std::vector<Literal>& literals) {
    int index = 0;
    for (const Parameter& parameter : parameters) {
        bindOne(statement, ++index, parameter, literals[static_cast<std::size_t>(parameter.literal)]);
    }
}

void addCell(Recordset& rows, sqlite3_stmt* statement, int column) {
    sqlite3_value* value = sqlite3_column_value(statement, column);
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            rows.addWhole(sqlite3_value_int64(value));
            break;
        case SQLITE_FLOAT:
            rows.addReal(sqlite3_value_double(value));
            break;
        case SQLITE_NULL:
            rows.addNull();
            break;
        default: {
            const auto* text = static_cast<const char16_t*>(sqlite3_value_text16(value));
            rows.addText(text, sqlite3_value_bytes16(value) / static_cast<int>(sizeof(char16_t)));
        }
    }
}

}  // namespace talvora::embedded
