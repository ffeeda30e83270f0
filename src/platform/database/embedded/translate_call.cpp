#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

/// A function of T-SQL that stands for one function of the engine's own. `takes` tells the arguments: t a text, i a
/// whole number.
struct Plain {
    QLatin1StringView name;
    std::string_view takes;
    Kind result;
};

constexpr std::array plainFunctions = {
    Plain{"len"_L1, "t", Kind::Int},
    Plain{"left"_L1, "ti", Kind::Text},
    Plain{"right"_L1, "ti", Kind::Text},
    Plain{"patindex"_L1, "tt", Kind::Int},
};

bool isAggregate(const Expression& e) {
    return e.name == "count"_L1 || e.name == "sum"_L1 || e.name == "max"_L1;
}

void requireArguments(const Expression& e, std::size_t count) {
    if (e.starred || e.args.size() != count) {
        throw serverError(server_error::ArgumentCount, {e.name, QString::number(count)});
    }
}

}  // namespace

Translator::Piece Translator::call(const Expression& e, const Scope& scope) {
    if (isAggregate(e)) {
        return aggregate(e, scope);
    }
    if (e.name == "ident_current"_L1) {
        return lastKey(e);
    }
    const auto plain = std::find_if(plainFunctions.begin(), plainFunctions.end(),
                                    [&](const Plain& known) { return e.name == known.name; });
    if (plain == plainFunctions.end()) {
        throw serverError(server_error::UnknownFunction, {e.name});
    }
    requireArguments(e, plain->takes.size());
    QStringList arguments;
    SqlType result{plain->result, SqlType::Unlimited};
    for (std::size_t i = 0; i < e.args.size(); ++i) {
        const Piece argument = value(*e.args[i], scope);
        if (i == 0 && result.isText()) {
            result.length = argument.type.length;
        }
        arguments += as(argument, plain->takes[i] == 't' ? Kind::Text : Kind::Int);
    }
    const QString sql = u"tsql_"_s + e.name + u'(' + arguments.join(u", "_s) + u')';
    return result.isText() ? Piece{collated(sql), result, true} : Piece{sql, result};
}

/// The last key that the table was given; 1 for a table that never was given one, as on the server.
Translator::Piece Translator::lastKey(const Expression& e) {
    requireArguments(e, 1);
    const Expression& argument = *e.args[0];
    if (argument.form != Form::Literal) {
        throw incorrectSyntax(argument.near);
    }
    out_.structural.push_back(argument.literal);
    const QString table = tokens_.literals[static_cast<std::size_t>(argument.literal)].content();
    return {u"coalesce((SELECT seq FROM main.sqlite_sequence WHERE name = "_s + sequenceName(keyedTable(table)) +
                u"), 1)"_s,
            {Kind::Int}};
}

Translator::Piece Translator::aggregate(const Expression& e, const Scope& scope) {
    if (e.starred) {
        if (e.name != "count"_L1) {
            throw incorrectSyntax(u"*");
        }
        return {u"count(*)"_s, {Kind::Int}};
    }
    if (e.args.size() != 1) {
        throw serverError(server_error::ArgumentCount, {e.name, u"1"_s});
    }
    const Piece operand = value(*e.args[0], scope);
    const SqlType type = operand.type;
    const QString sql = e.name + u'(' + as(operand, type.kind) + u')';
    if (e.name == "count"_L1) {
        return {sql, {Kind::Int}};
    }
    if (e.name == "max"_L1) {
        return type.isText() ? Piece{collated(sql), type, true} : Piece{sql, type};
    }
    if (!type.isNumber()) {
        throw serverError(server_error::InvalidOperand, {typeWord(type.kind), e.name});
    }
    if (type.kind == Kind::Real) {
        return {sql, type};
    }
    const Kind kind = std::max(type.kind, Kind::Int);
    return {u"tsql_"_s + typeWord(kind) + u'(' + sql + u')', {kind}};
}

}  // namespace talvora::embedded
