#include "platform/database/embedded/sql_type.h"

#include <QHash>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

SqlType typeNamed(const QString& name, int length) {
    static const QHash<QString, Kind> kinds = {
        {u"bit"_s, Kind::Bit},
        {u"tinyint"_s, Kind::SmallInt},
        {u"smallint"_s, Kind::SmallInt},
        {u"int"_s, Kind::Int},
        {u"integer"_s, Kind::Int},
        {u"bigint"_s, Kind::BigInt},
        {u"float"_s, Kind::Real},
        {u"real"_s, Kind::Real},
        {u"decimal"_s, Kind::Real},
        {u"numeric"_s, Kind::Real},
        {u"money"_s, Kind::Real},
        {u"datetime"_s, Kind::DateTime},
        {u"datetime2"_s, Kind::DateTime},
        {u"smalldatetime"_s, Kind::DateTime},
        {u"nvarchar"_s, Kind::Text},
        {u"varchar"_s, Kind::Text},
        {u"nchar"_s, Kind::Text},
        {u"char"_s, Kind::Text},
        {u"ntext"_s, Kind::Text},
        {u"text"_s, Kind::Text},
    };
    const QString word = name.toLower();
    SqlType type{kinds.value(word, Kind::Null), SqlType::Unlimited};
    if (type.isText() && !word.endsWith("text"_L1)) {
        type.length = length;
    }
    return type;
}

QString declaration(const SqlType& type) {
    switch (type.kind) {
        case Kind::Bit:
            return u"bit int"_s;
        case Kind::Real:
            return u"real"_s;
        case Kind::DateTime:
            return u"datetime text"_s;
        case Kind::Null:
        case Kind::Text:
            return type.length == SqlType::Unlimited ? u"text"_s : u"nvarchar(%1)"_s.arg(type.length);
        default:
            return typeWord(type.kind);
    }
}

SqlType declaredType(const QString& declaration) {
    const QString words = declaration.toLower();
    const qsizetype bracket = words.indexOf(u'(');
    if (bracket > 0) {
        return typeNamed(words.left(bracket), words.mid(bracket + 1, words.size() - bracket - 2).toInt());
    }
    return typeNamed(words.section(u' ', 0, 0), 0);
}

QString typeWord(Kind kind) {
    switch (kind) {
        case Kind::Bit:
            return u"bit"_s;
        case Kind::SmallInt:
            return u"smallint"_s;
        case Kind::Int:
            return u"int"_s;
        case Kind::BigInt:
            return u"bigint"_s;
        case Kind::Real:
            return u"float"_s;
        case Kind::DateTime:
            return u"datetime"_s;
        case Kind::Null:
        case Kind::Text:
            break;
    }
    return u"nvarchar"_s;
}

}  // namespace talvora::embedded
