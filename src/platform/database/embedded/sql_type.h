#pragma once

#include <QString>

namespace talvora::embedded {

/// The data types that the translator tells apart, in rising order of T-SQL's precedence: where two meet, the lower
/// one is converted. Null is the type of the bare word NULL.
enum class Kind : quint8 { Null, Text, Bit, SmallInt, Int, BigInt, Real, DateTime };

/// A type of T-SQL as far as it matters here. `length` counts the characters of a text; Unlimited is nvarchar(max)
/// and the length of a text that nobody bounds.
struct SqlType {
    static constexpr int Unlimited = -1;

    Kind kind = Kind::Null;
    int length = Unlimited;

    bool isText() const { return kind == Kind::Text; }
    bool isWhole() const { return kind >= Kind::Bit && kind <= Kind::BigInt; }
    bool isNumber() const { return isWhole() || kind == Kind::Real; }
};

/// The type that T-SQL calls `name`, with the length of a text type (Unlimited for "max"). Kind::Null when there is no
/// such type here.
SqlType typeNamed(const QString& name, int length);

/// How a column of this type is declared in the file. SQLite takes its own storage rules from these words and
/// declaredType gives the type back, so the file needs no catalogue beside its schema.
QString declaration(const SqlType& type);
SqlType declaredType(const QString& declaration);

/// The server's word for the type in its messages.
QString typeWord(Kind kind);

}  // namespace talvora::embedded
