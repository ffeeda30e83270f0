#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>
#include <tuple>

// T-SQL refuses a column outside the aggregates that the groups do not fix. SQLite would give the value of some row.
namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

bool hasAggregate(const Expression& e) {
    return isAggregate(e) ||
           std::any_of(e.args.begin(), e.args.end(), [](const auto& part) { return hasAggregate(*part); });
}

}  // namespace

void Translator::checkGrouping(const Select& select, const Scope& scope) {
    std::vector<const Expression*> outside;
    for (const SelectItem& item : select.items) {
        if (item.value) {
            outside.push_back(item.value.get());
        }
    }
    if (select.having) {
        outside.push_back(select.having.get());
    }
    const bool grouped = !select.groupBy.empty() || select.having ||
                         std::any_of(outside.begin(), outside.end(), [](const auto* e) { return hasAggregate(*e); });
    if (!grouped) {
        return;
    }
    for (const Expression* e : outside) {
        checkGrouped(*e, select, scope);
    }
}

void Translator::checkGrouped(const Expression& e, const Select& select, const Scope& scope) {
    const bool fixed = std::any_of(select.groupBy.begin(), select.groupBy.end(),
                                   [&](const auto& group) { return sameValue(e, *group, scope); });
    if (fixed || isAggregate(e)) {
        return;
    }
    if (e.form == Form::Column) {
        const QString sql = column(e, scope).sql;
        const bool own = std::any_of(scope.ranges.begin(), scope.ranges.end(),
                                     [&](const Range& range) { return sql.startsWith(range.sqlName() + u'.'); });
        if (own) {
            throw serverError(8120,
                              u"Column '%1' is invalid in the select list because it is not contained in either "
                              "an aggregate function or the GROUP BY clause."_s.arg(e.name));
        }
    }
    for (const auto& part : e.args) {
        checkGrouped(*part, select, scope);
    }
}

bool Translator::sameValue(const Expression& a, const Expression& b, const Scope& scope) {
    if (a.form != b.form || a.args.size() != b.args.size() || a.query || b.query) {
        return false;
    }
    if (a.form == Form::Column) {
        return column(a, scope).sql == column(b, scope).sql;
    }
    if (a.form == Form::Literal) {
        // The answer rests on what the literals say, so it does not hold for others.
        out_.structural.insert(out_.structural.end(), {a.literal, b.literal});
        const auto textOf = [this](const Expression& e) {
            return tokens_.literals[static_cast<std::size_t>(e.literal)].text;
        };
        return a.literalKind == b.literalKind && a.negative == b.negative && textOf(a) == textOf(b);
    }
    const auto traits = [](const Expression& e) {
        return std::tuple(e.name.toCaseFolded(), e.type.kind, e.type.length, e.negated, e.distinct, e.starred,
                          e.hasOperand, e.hasElse);
    };
    return traits(a) == traits(b) && std::equal(a.args.begin(), a.args.end(), b.args.begin(),
                                                [&](const auto& x, const auto& y) { return sameValue(*x, *y, scope); });
}

}  // namespace talvora::embedded
