#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

QString Translator::condition(const Expression& e, const Scope& scope) {
    switch (e.form) {
        case Form::And:
        case Form::Or:
            return junction(e, scope);
        case Form::Compare:
            return compare(e, scope);
        case Form::In:
            return inList(e, scope);
        case Form::Like:
            return like(e, scope);
        case Form::IsNull: {
            const Piece operand = value(*e.args[0], scope);
            return u'(' + as(operand, operand.type.kind) + (e.negated ? u" IS NOT NULL)"_s : u" IS NULL)"_s);
        }
        default:
            throw serverError(server_error::NoCondition, {e.near.toString()});
    }
}

QString Translator::junction(const Expression& e, const Scope& scope) {
    QStringList parts;
    for (const auto& part : e.args) {
        parts += condition(*part, scope);
    }
    return u'(' + parts.join(e.form == Form::And ? u" AND "_s : u" OR "_s) + u')';
}

QString Translator::compare(const Expression& e, const Scope& scope) {
    return comparison(value(*e.args[0], scope), e.name, value(*e.args[1], scope));
}

QString Translator::comparison(const Piece& left, const QString& symbol, const Piece& right) {
    const Kind kind = std::max(left.type.kind, right.type.kind);
    // Numbers compare by value whatever their kinds; only a text has to become what it meets.
    const auto operand = [this, kind](const Piece& piece) {
        const bool asItIs = piece.type.isNumber() && kind != Kind::DateTime;
        return as(piece, asItIs ? piece.type.kind : kind);
    };
    QString a = operand(left);
    if (kind == Kind::Text && !left.collated && !right.collated) {
        a = collated(a);
    }
    return u'(' + a + u' ' + symbol + u' ' + operand(right) + u')';
}

QString Translator::inList(const Expression& e, const Scope& scope) {
    const Piece left = value(*e.args[0], scope);
    const QString word = e.negated ? u" NOT IN ("_s : u" IN ("_s;
    const auto operand = [&](Kind kind) {
        const QString sql = as(left, kind);
        return kind == Kind::Text && !left.collated ? collated(sql) : sql;
    };
    if (e.query) {
        const Rows rows = query(*e.query, &scope);
        if (rows.columns.size() != 1) {
            throw serverError(server_error::SubqueryColumns);
        }
        const SqlType type = rows.columns[0].type;
        const Kind kind = std::max(left.type.kind, type.kind);
        QString list = rows.sql;
        if (type.isText() && kind != Kind::Text) {
            list = u"SELECT "_s + as({quoted(rows.columns[0].name), type}, kind) + u" FROM ("_s + rows.sql + u')';
        }
        return u'(' + operand(kind) + word + list + u"))"_s;
    }
    std::vector<Piece> items;
    Kind kind = left.type.kind;
    for (std::size_t i = 1; i < e.args.size(); ++i) {
        items.push_back(value(*e.args[i], scope));
        kind = std::max(kind, items.back().type.kind);
    }
    QStringList list;
    for (const Piece& item : items) {
        list += as(item, kind);
    }
    return u'(' + operand(kind) + word + list.join(u", "_s) + u"))"_s;
}

QString Translator::like(const Expression& e, const Scope& scope) {
    QStringList arguments;
    for (const auto& argument : e.args) {
        arguments += as(value(*argument, scope), Kind::Text);
    }
    return u"tsql_like("_s + arguments.join(u", "_s) + u')';
}

}  // namespace talvora::embedded
