#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

/// The server's word for an operator in its messages.
QString operatorWord(const QString& symbol) {
    return symbol == "*"_L1 ? u"multiply"_s : symbol == "-"_L1 ? u"subtract"_s : u"add"_s;
}

}  // namespace

Translator::Piece Translator::value(const Expression& e, const Scope& scope) {
    switch (e.form) {
        case Form::Literal:
            return literal(e);
        case Form::Null:
            return {u"NULL"_s, {}};
        case Form::Column:
            return column(e, scope);
        case Form::Arithmetic:
            return arithmetic(e, scope);
        case Form::Call:
            return call(e, scope);
        case Form::Case:
            return caseOf(e, scope);
        case Form::Cast:
            return castTo(e, scope);
        default:
            // A condition is no value in T-SQL.
            throw incorrectSyntax(e.near);
    }
}

Translator::Piece Translator::literal(const Expression& e) const {
    Kind kind = Kind::Text;
    if (e.literalKind != TokenKind::Text) {
        kind = e.literalKind == TokenKind::Integer ? Kind::Int : Kind::Real;
    }
    return {{}, {kind}, false, &e};
}

Translator::Piece Translator::column(const Expression& e, const Scope& scope) const {
    bool qualifierKnown = e.qualifier.isEmpty();
    for (const Scope* at = &scope; at; at = at->outer) {
        const Column* found = nullptr;
        const Range* in = nullptr;
        for (const Range& range : at->ranges) {
            if (!e.qualifier.isEmpty() && range.name.compare(e.qualifier, Qt::CaseInsensitive) != 0) {
                continue;
            }
            qualifierKnown = true;
            for (const Column& column : range.columns) {
                if (column.name.compare(e.name, Qt::CaseInsensitive) != 0) {
                    continue;
                }
                if (found) {
                    throw serverError(server_error::AmbiguousColumn, {e.name});
                }
                found = &column;
                in = &range;
            }
        }
        if (found) {
            return {in->sqlName() + u'.' + quoted(found->name), found->type, found->type.isText()};
        }
    }
    if (!qualifierKnown) {
        throw serverError(server_error::UnboundName, {e.qualifier + u'.' + e.name});
    }
    throw serverError(server_error::InvalidColumn, {e.name});
}

Translator::Piece Translator::arithmetic(const Expression& e, const Scope& scope) {
    const Piece left = value(*e.args[0], scope);
    const bool isSign = e.args.size() == 1;
    const Piece right = isSign ? left : value(*e.args[1], scope);
    Kind kind = std::max(left.type.kind, right.type.kind);
    if (kind == Kind::Text && e.name == "+"_L1) {
        return {collated(u'(' + as(left, kind) + u" || "_s + as(right, kind) + u')'), {Kind::Text}, true};
    }
    if (kind == Kind::Text || kind == Kind::DateTime) {
        throw serverError(server_error::InvalidOperand, {typeWord(kind), isSign ? u"minus"_s : operatorWord(e.name)});
    }
    kind = std::max(kind, Kind::Int);
    const QString before = isSign ? QString() : as(left, kind) + u' ';
    const QString sql = u'(' + before + e.name + u' ' + as(right, kind) + u')';
    // SQLite goes on in 64 bits or in floating point where T-SQL overflows.
    return {kind == Kind::Real ? sql : u"tsql_"_s + typeWord(kind) + sql, {kind}};
}

Translator::Piece Translator::caseOf(const Expression& e, const Scope& scope) {
    const std::size_t first = e.hasOperand ? 1 : 0;
    const std::size_t pairsEnd = e.args.size() - (e.hasElse ? 1 : 0);
    // The results meet in one kind, and so do the operand and what it is compared with.
    SqlType result{Kind::Null, 0};
    const auto meet = [&result](const SqlType& type) {
        const bool unlimited = result.length == SqlType::Unlimited || type.length == SqlType::Unlimited;
        result = {std::max(result.kind, type.kind),
                  unlimited ? SqlType::Unlimited : std::max(result.length, type.length)};
    };
    std::vector<Piece> results;
    for (std::size_t i = first + 1; i < pairsEnd; i += 2) {
        results.push_back(value(*e.args[i], scope));
        meet(results.back().type);
    }
    if (e.hasElse) {
        results.push_back(value(*e.args.back(), scope));
        meet(results.back().type);
    }
    QString sql = u"CASE"_s;
    for (std::size_t i = first, n = 0; i < pairsEnd; i += 2, ++n) {
        sql += u" WHEN "_s;
        if (e.hasOperand) {
            sql += comparison(value(*e.args[0], scope), u"="_s, value(*e.args[i], scope));
        } else {
            sql += condition(*e.args[i], scope);
        }
        sql += u" THEN "_s + as(results[n], result.kind);
    }
    if (e.hasElse) {
        sql += u" ELSE "_s + as(results.back(), result.kind);
    }
    sql = u'(' + sql + u" END)"_s;
    return result.isText() ? Piece{collated(sql), result, true} : Piece{sql, result};
}

Translator::Piece Translator::castTo(const Expression& e, const Scope& scope) {
    const Piece operand = value(*e.args[0], scope);
    const QString sql = as(operand, e.type.kind);
    if (!e.type.isText()) {
        return {sql, e.type};
    }
    const QString cut =
        e.type.length == SqlType::Unlimited ? sql : u"tsql_cut(%1, %2)"_s.arg(sql, QString::number(e.type.length));
    return {collated(u'(' + cut + u')'), e.type, true};
}

QString Translator::parameter(const Expression& literal, SqlType target) {
    const Parameter wanted{literal.literal, target.kind, target.length, literal.negative};
    for (const int index : parametersOf_.values(literal.literal)) {
        if (out_.parameters[static_cast<std::size_t>(index)] == wanted) {
            return u'?' + QString::number(index + 1);
        }
    }
    parametersOf_.insert(literal.literal, static_cast<int>(out_.parameters.size()));
    out_.parameters.push_back(wanted);
    return u'?' + QString::number(out_.parameters.size());
}

QString Translator::as(const Piece& piece, Kind target) {
    const Kind from = piece.type.kind;
    if (piece.literal) {
        return parameter(*piece.literal, {target == Kind::Null ? from : target});
    }
    if (from == target || from == Kind::Null || target == Kind::Null) {
        return piece.sql;
    }
    if (target == Kind::Real && piece.type.isWhole()) {
        return u"CAST("_s + piece.sql + u" AS REAL)"_s;
    }
    const bool widened = piece.type.isWhole() && SqlType{target}.isWhole() && from < target;
    const bool dateText = from == Kind::DateTime && target == Kind::Text;
    if (widened || dateText) {
        return piece.sql;
    }
    return u"tsql_"_s + typeWord(target) + u'(' + piece.sql + u')';
}

QString Translator::assigned(const Piece& piece, const CatalogColumn& column) {
    const SqlType& type = column.type;
    if (piece.literal) {
        return parameter(*piece.literal, type);
    }
    const QString sql = as(piece, type.kind);
    const bool mayBeLonger = type.isText() && type.length != SqlType::Unlimited && piece.type.kind != Kind::Null &&
                             (piece.type.length == SqlType::Unlimited || piece.type.length > type.length);
    return mayBeLonger ? u"tsql_fit(%1, %2)"_s.arg(sql, QString::number(type.length)) : sql;
}

}  // namespace talvora::embedded
