#include "platform/database/embedded/collation.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>

// An update such as
//
//     update Answers set Score = case Answer when 'A' then q.Score1 when 'B' then q.Score2 end
//     from Questions q where Answers.Paper = q.Paper and Answers.Question = q.Question and Answers.Paper = 7
//
// rescores everything ever stored for a paper, and changes next to nothing: what it would write stands there already.
// With an index on (Paper, Answer, Score, Question) the few rows that do change can be found without reading the
// others. There are few different answers, and few different scores of each, which the index gives by stepping from one
// to the next. For each answer the rows to change lie in ranges of the index: those with no score yet, and, for each
// score that stands there, those of the questions that give the answer another one.
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
    const QString other = source(update.from[0], rescoring.scope);
    rescoring.answer = ownColumn(*rescoring.value->args[0], rescoring);
    if (!rescoring.answer || !bindsByIndex(update, rescoring) || !hasDistinctConstants(rescoring)) {
        return false;
    }
    const QString target = quoted(table.name);
    QStringList arms = namedArms(update, rescoring, other);
    arms += otherArms(update, rescoring, other);
    out_.statement = (u"UPDATE "_s + target + u" AS "_s + target + u" SET "_s + quoted(rescoring.score->name) +
                      u" = \"changed\".\"score\" FROM ("_s + arms.join(u" UNION ALL "_s) +
                      u") AS \"changed\" WHERE "_s + target + u".rowid = \"changed\".\"row\""_s)
                         .toUtf8();
    return true;
}

bool Translator::isRescoring(const Update& update, Rescoring& found) const {
    if (update.assignments.size() != 1 || update.from.size() != 1 || update.from[0].derived ||
        !isPlainConjunction(update.where.get())) {
        return false;
    }
    found.value = update.assignments[0].value.get();
    found.score = found.table.column(update.assignments[0].column);
    const auto& args = found.value->args;
    return found.value->form == Form::Case && found.value->hasOperand && !found.value->hasElse && found.score &&
           found.score->type.isNumber() && !found.score->identity &&
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
    QStringList fixed;
    QStringList joined;
    for (const Expression* part : conjuncts(*update.where)) {
        for (std::size_t side = 0; side < part->args.size(); ++side) {
            const CatalogColumn* own = part->name == "="_L1 ? ownColumn(*part->args[side], rescoring) : nullptr;
            if (own) {
                (part->args[1 - side]->form == Form::Literal ? fixed : joined) += own->name;
            }
        }
    }
    // New scores must come from the other table: one that is read from the updated row itself could not be compared
    // with a range of the index.
    const auto& args = rescoring.value->args;
    if (std::any_of(args.begin() + 1, args.end(), [&](const auto& part) { return ownColumn(*part, rescoring); })) {
        return false;
    }
    const auto among = [](const QStringList& names) {
        return [&names](const QString& name) { return names.contains(name, Qt::CaseInsensitive); };
    };
    const auto indexes = catalog_.indexes(rescoring.table);
    return std::any_of(indexes.begin(), indexes.end(), [&](const QStringList& index) {
        const auto answer = std::find_if_not(index.begin(), index.end(), among(fixed));
        return answer != index.begin() && index.end() - answer > 2 && same(answer[0], rescoring.answer->name) &&
               same(answer[1], rescoring.score->name) && std::all_of(answer + 2, index.end(), among(joined));
    });
}

bool Translator::hasDistinctConstants(const Rescoring& rescoring) const {
    // The branches must exclude one another: of two that name one answer, the first counts.
    const auto& args = rescoring.value->args;
    QStringList seen;
    for (std::size_t i = 1; i < args.size(); i += 2) {
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

Translator::Scope Translator::storedScope(const Rescoring& rescoring) {
    Scope scope = rescoring.scope;
    scope.ranges[0].translatedName = u"stored"_s;
    return scope;
}

QString Translator::ownConditions(const Update& update, const Rescoring& rescoring, const Scope& scope) {
    QStringList own;
    for (const Expression* part : conjuncts(*update.where)) {
        const bool onlyOwn = std::all_of(part->args.begin(), part->args.end(), [&](const auto& side) {
            return side->form == Form::Literal || ownColumn(*side, rescoring);
        });
        if (onlyOwn) {
            own += condition(*part, scope);
        }
    }
    return own.join(u" AND "_s);
}

QString Translator::differentValues(const Rescoring& rescoring, const CatalogColumn& column,
                                    const QString& rows) const {
    const QString name = u"\"stored\"."_s + quoted(column.name);
    const QString least =
        u"SELECT min("_s + name + u") FROM "_s + quoted(rescoring.table.name) + u" AS \"stored\" WHERE "_s + rows;
    return u"WITH RECURSIVE \"found\"(\"value\") AS ("_s + least + u" UNION ALL SELECT ("_s + least + u" AND "_s +
           name +
           u" > \"found\".\"value\") FROM \"found\" WHERE \"found\".\"value\" IS NOT NULL) "
           "SELECT \"value\" FROM \"found\" WHERE \"value\" IS NOT NULL"_s;
}

QStringList Translator::namedArms(const Update& update, const Rescoring& rescoring, const QString& other) {
    const QString target = quoted(rescoring.table.name);
    const QString score = target + u'.' + quoted(rescoring.score->name);
    const QString where = u" WHERE "_s + condition(*update.where, rescoring.scope) + u" AND "_s +
                          isFirstMatch(update, update.from[0].table, rescoring.scope) + u" AND "_s;
    const Scope stored = storedScope(rescoring);
    const QString own = ownConditions(update, rescoring, stored);
    const auto& args = rescoring.value->args;
    QStringList arms;
    for (std::size_t i = 1; i + 1 < args.size(); i += 2) {
        out_.structural.push_back(args[i]->literal);
        const auto isAnswer = [&](const Scope& scope) {
            return comparison(value(*args[0], scope), u"="_s, value(*args[i], scope));
        };
        const QString newScore = assigned(value(*args[i + 1], rescoring.scope), *rescoring.score);
        const QString rows = u"SELECT "_s + target + u".rowid AS \"row\", "_s + newScore + u" AS \"score\" FROM "_s;
        arms += rows + target + u" AS "_s + target + u" CROSS JOIN "_s + other + where + isAnswer(rescoring.scope) +
                u" AND "_s + score + u" IS NULL AND "_s + newScore + u" IS NOT NULL"_s;
        // Told that scores seldom differ, SQLite does not prepare itself for many look-ups by reading the whole index.
        arms += rows + u'(' + differentValues(rescoring, *rescoring.score, own + u" AND "_s + isAnswer(stored)) +
                u") AS \"old\" CROSS JOIN "_s + other + u" CROSS JOIN "_s + target + u" AS "_s + target + where +
                isAnswer(rescoring.scope) + u" AND "_s + score + u" = \"old\".\"value\" AND likelihood("_s + newScore +
                u" IS NOT \"old\".\"value\", 0.0001)"_s;
    }
    return arms;
}

QStringList Translator::otherArms(const Update& update, const Rescoring& rescoring, const QString& other) {
    const QString target = quoted(rescoring.table.name);
    const QString answer = target + u'.' + quoted(rescoring.answer->name);
    const QString score = target + u'.' + quoted(rescoring.score->name);
    const Scope stored = storedScope(rescoring);
    const auto& args = rescoring.value->args;
    QStringList named;
    for (std::size_t i = 1; i + 1 < args.size(); i += 2) {
        named += as(value(*args[i], stored), Kind::Text);
    }
    const QString others = differentValues(rescoring, *rescoring.answer, ownConditions(update, rescoring, stored)) +
                           u" AND "_s + collated(u"\"value\""_s) + u" NOT IN ("_s + named.join(u", "_s) + u')';
    // Written so, not as "is not null", a range of the index answers it.
    const QString differs = score + u" >= -9e999"_s;
    const QString rows = u"SELECT "_s + target + u".rowid AS \"row\", NULL AS \"score\" FROM "_s;
    const QString joined = target + u" AS "_s + target + u" CROSS JOIN "_s + other + u" WHERE "_s +
                           condition(*update.where, rescoring.scope) + u" AND "_s +
                           isFirstMatch(update, update.from[0].table, rescoring.scope) + u" AND "_s + differs +
                           u" AND "_s + answer;
    return {rows + u'(' + others + u") AS \"others\" CROSS JOIN "_s + joined + u" = \"others\".\"value\""_s,
            rows + joined + u" IS NULL"_s};
}

}  // namespace talvora::embedded
