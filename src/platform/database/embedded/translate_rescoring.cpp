#include "platform/database/embedded/collation.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>

// An update such as
//
//     update Answers set Score = case Answer when 'A' then q.Score1 when 'B' then q.Score2 end
//     from Questions q where Answers.Paper = q.Paper and Answers.Question = q.Question and Answers.Paper = 7
//
// rescores everything ever stored for a paper, and changes next to nothing: what it would write stands there already.
// With an index on (Paper, Question, Answer, Score) the few rows that do change can be found without reading the
// others. For each answer of each question they lie in three ranges of the index: no score yet, a lower one, a higher
// one. The answers that no branch names, whose score must become NULL, are found by stepping through the distinct
// answers.
namespace talvora::embedded {

using namespace Qt::StringLiterals;

struct Translator::Rescoring {
    const CatalogTable& table;
    const CatalogColumn* answer = nullptr;  ///< what the case looks at
    const CatalogColumn* score = nullptr;   ///< what is set
    const Expression* value = nullptr;      ///< the case
    Scope scope;                            ///< the updated table, then the one of the from clause
};

namespace {

bool same(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

bool isPlain(const Expression& e) {
    return e.form == Form::Column || e.form == Form::Literal;
}

/// Whether `where` is one comparison or several joined by and, each of plain operands.
bool isPlainConjunction(const Expression* where) {
    if (!where) {
        return false;
    }
    const auto plain = [](const Expression& e) {
        return e.form == Form::Compare && isPlain(*e.args[0]) && isPlain(*e.args[1]);
    };
    return plain(*where) || (where->form == Form::And && std::all_of(where->args.begin(), where->args.end(),
                                                                     [&](const auto& part) { return plain(*part); }));
}

std::vector<const Expression*> conjuncts(const Expression& where) {
    std::vector<const Expression*> parts;
    if (where.form != Form::And) {
        return {&where};
    }
    for (const auto& part : where.args) {
        parts.push_back(part.get());
    }
    return parts;
}

}  // namespace

bool Translator::rescore(const Update& update, const CatalogTable& table) {
    Rescoring rescoring{table, nullptr, nullptr, nullptr, {}};
    if (!isRescoring(update, rescoring)) {
        return false;
    }
    rescoring.scope.ranges.push_back(rangeOf(table, table.name));
    const QString other = source(update.from[0].source, rescoring.scope);
    rescoring.answer = ownColumn(*rescoring.value->args[0], rescoring);
    if (!rescoring.answer || !bindsByIndex(update, rescoring) || !hasDistinctConstants(rescoring)) {
        return false;
    }
    const QString target = quoted(table.name);
    const QString from = u" FROM "_s + other + u" CROSS JOIN "_s + target + u" AS "_s + target + u" WHERE "_s +
                         condition(*update.where, rescoring.scope) + u" AND "_s;
    const QString answer = target + u'.' + quoted(rescoring.answer->name);
    const QString score = target + u'.' + quoted(rescoring.score->name);
    const auto& args = rescoring.value->args;
    const std::size_t pairsEnd = args.size() - (rescoring.value->hasElse ? 1 : 0);
    QStringList arms;
    for (std::size_t i = 1; i < pairsEnd; i += 2) {
        const QString rows = comparison(value(*args[0], rescoring.scope), u"="_s, value(*args[i], rescoring.scope));
        out_.structural.push_back(args[i]->literal);
        addArms(arms, from, rows, score, assigned(value(*args[i + 1], rescoring.scope), *rescoring.score));
    }
    const QString otherwise =
        rescoring.value->hasElse ? assigned(value(*args.back(), rescoring.scope), *rescoring.score) : u"NULL"_s;
    addArms(arms, from, answer + u" IN ("_s + otherAnswers(update, rescoring) + u')', score, otherwise);
    addArms(arms, from, answer + u" IS NULL"_s, score, otherwise);
    rescoreFew(update, rescoring);
    out_.statement = (u"UPDATE "_s + target + u" AS "_s + target + u" SET "_s + quoted(rescoring.score->name) +
                      u" = \"changed\".\"score\" FROM ("_s + arms.join(u" UNION ALL "_s) +
                      u") AS \"changed\" WHERE "_s + target + u".rowid = \"changed\".\"row\""_s)
                         .toUtf8();
    return true;
}

bool Translator::isRescoring(const Update& update, Rescoring& found) const {
    if (update.assignments.size() != 1 || update.from.size() != 1 || update.from[0].source.derived ||
        !isPlainConjunction(update.where.get())) {
        return false;
    }
    found.value = update.assignments[0].value.get();
    found.score = found.table.column(update.assignments[0].column);
    const auto& args = found.value->args;
    return found.value->form == Form::Case && found.value->hasOperand && found.score && found.score->type.isNumber() &&
           !found.score->identity &&
           std::all_of(args.begin(), args.end(), [](const auto& part) { return isPlain(*part); });
}

const CatalogColumn* Translator::ownColumn(const Expression& e, const Rescoring& rescoring) const {
    if (e.form != Form::Column) {
        return nullptr;
    }
    const QString own = rescoring.scope.ranges[0].sqlName() + u'.';
    return column(e, rescoring.scope).sql.startsWith(own) ? rescoring.table.column(e.name) : nullptr;
}

bool Translator::bindsByIndex(const Update& update, const Rescoring& rescoring) const {
    QStringList bound;
    for (const Expression* part : conjuncts(*update.where)) {
        for (const auto& side : part->args) {
            const CatalogColumn* own = part->name == "="_L1 ? ownColumn(*side, rescoring) : nullptr;
            if (own) {
                bound += own->name;
            }
        }
    }
    // New scores must come from the other table: one that is read from the updated row itself could not be compared
    // with a range of the index.
    const auto& args = rescoring.value->args;
    if (std::any_of(args.begin() + 1, args.end(), [&](const auto& part) { return ownColumn(*part, rescoring); })) {
        return false;
    }
    return std::any_of(rescoring.table.indexes.begin(), rescoring.table.indexes.end(), [&](const QStringList& index) {
        const qsizetype last = index.size() - 1;
        return last > 1 && same(index[last], rescoring.score->name) && same(index[last - 1], rescoring.answer->name) &&
               std::all_of(index.begin(), index.begin() + last - 1,
                           [&bound](const QString& name) { return bound.contains(name, Qt::CaseInsensitive); });
    });
}

bool Translator::hasDistinctConstants(const Rescoring& rescoring) const {
    // The branches must exclude one another: of two that name one answer, the first counts.
    const auto& args = rescoring.value->args;
    const std::size_t pairsEnd = args.size() - (rescoring.value->hasElse ? 1 : 0);
    QStringList seen;
    for (std::size_t i = 1; i < pairsEnd; i += 2) {
        if (args[i]->form != Form::Literal || args[i]->literalKind != TokenKind::Text ||
            !rescoring.answer->type.isText()) {
            return false;
        }
        const QString constant = tokens_.literals[static_cast<std::size_t>(args[i]->literal)].content();
        if (std::any_of(seen.begin(), seen.end(),
                        [&](const QString& one) { return compareText(one, constant) == 0; })) {
            return false;
        }
        seen += constant;
    }
    return true;
}

QString Translator::otherAnswers(const Update& update, const Rescoring& rescoring) {
    const QString collate = u" COLLATE "_s + QLatin1StringView(collationName);
    Scope scope = rescoring.scope;
    scope.ranges[0].translatedName = u"stored"_s;
    const QString least = u"SELECT min(\"stored\"."_s + quoted(rescoring.answer->name) + u") FROM "_s +
                          quoted(rescoring.table.name) + u" AS \"stored\" WHERE "_s + condition(*update.where, scope);
    QStringList named;
    const auto& args = rescoring.value->args;
    for (std::size_t i = 1; i + 1 < args.size(); i += 2) {
        named += as(value(*args[i], scope), Kind::Text);
    }
    return u"WITH RECURSIVE \"answers\"(\"answer\") AS ("_s + least + u" UNION ALL SELECT ("_s + least +
           u" AND \"stored\"."_s + quoted(rescoring.answer->name) +
           u" > \"answers\".\"answer\") FROM \"answers\" WHERE \"answers\".\"answer\" IS NOT NULL) "
           "SELECT \"answer\" FROM \"answers\" WHERE \"answer\""_s +
           collate + u" NOT IN ("_s + named.join(u", "_s) + u')';
}

void Translator::rescoreFew(const Update& update, const Rescoring& rescoring) {
    constexpr int few = 1000;
    QStringList own;
    for (const Expression* part : conjuncts(*update.where)) {
        const bool onlyOwn = std::all_of(part->args.begin(), part->args.end(), [&](const auto& side) {
            return side->form == Form::Literal || ownColumn(*side, rescoring);
        });
        if (onlyOwn) {
            own += condition(*part, rescoring.scope);
        }
    }
    if (own.isEmpty()) {
        return;
    }
    const QString table = quoted(rescoring.table.name);
    out_.forFewRows.probe =
        u"SELECT 1 FROM %1 AS %1 WHERE %2 LIMIT 1 OFFSET %3"_s.arg(table, own.join(u" AND "_s), QString::number(few))
            .toUtf8();
    updateJoined(update, rescoring.table, update.from.size());
    const QString changed = u" AND "_s + table + u'.' + quoted(rescoring.score->name) + u" IS NOT "_s +
                            assigned(value(*rescoring.value, rescoring.scope), *rescoring.score);
    out_.forFewRows.statement = out_.statement + changed.toUtf8();
}

void Translator::addArms(QStringList& arms, const QString& from, const QString& rows, const QString& column,
                         const QString& newValue) const {
    const QString table = column.section(u'.', 0, 0);
    const QString begin = u"SELECT "_s + table + u".rowid AS \"row\", "_s + newValue + u" AS \"score\""_s + from + rows;
    // Written so, not as "is not null", a range of the index answers it.
    const QString any = u" AND "_s + column + u" >= -9e999"_s;
    if (newValue == "NULL"_L1) {
        arms += begin + any;
        return;
    }
    arms += begin + u" AND "_s + column + u" IS NULL AND "_s + newValue + u" IS NOT NULL"_s;
    arms += begin + u" AND "_s + column + u" < "_s + newValue;
    arms += begin + u" AND "_s + column + u" > ifnull("_s + newValue + u", -9e999)"_s;
}

}  // namespace talvora::embedded
