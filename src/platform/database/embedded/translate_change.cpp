#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

const CatalogColumn& columnOf(const CatalogTable& table, const QString& name) {
    const CatalogColumn* column = table.column(name);
    if (!column) {
        throw serverError(server_error::InvalidColumn, u"Invalid column name '%1'."_s.arg(name));
    }
    return *column;
}

void requireOnce(const std::vector<const CatalogColumn*>& columns, const CatalogColumn& column) {
    if (std::find(columns.begin(), columns.end(), &column) != columns.end()) {
        throw serverError(264, u"The column name '%1' is specified more than once."_s.arg(column.name));
    }
}

void requireCount(std::size_t columns, std::size_t values) {
    if (values < columns) {
        throw serverError(109,
                          u"There are more columns in the INSERT statement than values specified in the VALUES "
                          "clause."_s);
    }
    if (values > columns) {
        throw serverError(110,
                          u"There are fewer columns in the INSERT statement than values specified in the VALUES "
                          "clause."_s);
    }
}

bool same(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// The place in `from` of the table that an update changes; its size when the from clause does not repeat it.
std::size_t targetIn(const std::vector<Join>& from, const QString& target) {
    const auto at = [&from](auto&& test) {
        return static_cast<std::size_t>(std::find_if(from.begin(), from.end(), test) - from.begin());
    };
    const std::size_t byAlias = at([&](const Join& join) {
        return same(join.source.alias.isEmpty() ? join.source.table : join.source.alias, target);
    });
    return byAlias < from.size() ? byAlias : at([&](const Join& join) { return same(join.source.table, target); });
}

}  // namespace

std::vector<const CatalogColumn*> Translator::insertedColumns(const Insert& insert, const CatalogTable& table) const {
    std::vector<const CatalogColumn*> columns;
    for (const QString& name : insert.columns) {
        const CatalogColumn& column = columnOf(table, name);
        requireOnce(columns, column);
        if (column.identity) {
            throw serverError(server_error::ExplicitIdentity,
                              u"Cannot insert explicit value for identity column in table '%1' when IDENTITY_INSERT is "
                              "set to OFF."_s.arg(table.name));
        }
        columns.push_back(&column);
    }
    if (insert.columns.empty()) {
        for (const CatalogColumn& column : table.columns) {
            if (!column.identity) {
                columns.push_back(&column);
            }
        }
    }
    return columns;
}

void Translator::insert(const Insert& insert) {
    const CatalogTable& table = catalog_.table(insert.table);
    const auto columns = insertedColumns(insert, table);
    QStringList names;
    for (const CatalogColumn* column : columns) {
        names += quoted(column->name);
    }
    QString sql = u"INSERT INTO "_s + quoted(table.name) + u" ("_s + names.join(u", "_s) + u") "_s;
    if (insert.query) {
        out_.statement = (sql + insertedQuery(*insert.query, columns)).toUtf8();
        return;
    }
    constexpr std::size_t mostRows = 1000;
    if (insert.rows.size() > mostRows) {
        throw serverError(10738,
                          u"The number of row value expressions in the INSERT statement exceeds the maximum "
                          "allowed number of 1000 row values."_s);
    }
    const Scope nothing;
    QStringList rows;
    for (const auto& row : insert.rows) {
        requireCount(columns.size(), row.size());
        QStringList values;
        for (std::size_t i = 0; i < row.size(); ++i) {
            values += assigned(value(*row[i], nothing), *columns[i]);
        }
        rows += u'(' + values.join(u", "_s) + u')';
    }
    out_.statement = (sql + u"VALUES "_s + rows.join(u", "_s)).toUtf8();
}

QString Translator::insertedQuery(const Query& query, const std::vector<const CatalogColumn*>& columns) {
    const Rows rows = this->query(query, nullptr);
    requireCount(columns.size(), rows.columns.size());
    QStringList names;
    QStringList values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        names += u"\"c%1\""_s.arg(i);
        values += assigned({names.back(), rows.columns[i].type}, *columns[i]);
    }
    return u"WITH inserted_rows("_s + names.join(u", "_s) + u") AS ("_s + rows.sql + u") SELECT "_s +
           values.join(u", "_s) + u" FROM inserted_rows"_s;
}

void Translator::update(const Update& update) {
    const std::size_t target = targetIn(update.from, update.table);
    const bool repeated = target < update.from.size();
    if (repeated && update.from[target].source.derived) {
        throw incorrectSyntax(update.table);
    }
    const CatalogTable& table = catalog_.table(repeated ? update.from[target].source.table : update.table);
    if (repeated || !rescore(update, table)) {
        updateJoined(update, table, target);
    }
}

void Translator::updateJoined(const Update& update, const CatalogTable& table, std::size_t target) {
    const bool repeated = target < update.from.size();
    const QString given = repeated ? update.from[target].source.alias : QString();
    const QString alias = given.isEmpty() ? table.name : given;
    Scope scope;
    scope.ranges.push_back(rangeOf(table, alias));
    QStringList conditions;
    const QString from = repeated ? otherSources(update.from, target, scope, conditions) : sources(update.from, scope);

    std::vector<const CatalogColumn*> columns;
    QStringList assignments;
    for (const Assignment& assignment : update.assignments) {
        const CatalogColumn& column = columnOf(table, assignment.column);
        requireOnce(columns, column);
        if (column.identity) {
            throw serverError(server_error::UpdatedIdentity, u"Cannot update identity column '%1'."_s.arg(column.name));
        }
        columns.push_back(&column);
        assignments += quoted(column.name) + u" = "_s + assigned(value(*assignment.value, scope), column);
    }
    if (update.where) {
        conditions += condition(*update.where, scope);
    }
    const bool hasOneOther = update.from.size() == (repeated ? 2U : 1U);
    const Source* other = hasOneOther ? &update.from[target == 0 ? 1 : 0].source : nullptr;
    if (other && !other->derived) {
        conditions += isFirstMatch(update, other->table, scope);
    }
    QString sql =
        u"UPDATE "_s + quoted(table.name) + u" AS "_s + quoted(alias) + u" SET "_s + assignments.join(u", "_s) + from;
    if (!conditions.isEmpty()) {
        sql += u" WHERE "_s + conditions.join(u" AND "_s);
    }
    out_.statement = sql.toUtf8();
}

QString Translator::otherSources(const std::vector<Join>& from, std::size_t target, Scope& scope,
                                 QStringList& conditions) {
    // SQLite wants the updated table out of the from clause. The joins then are plain conditions.
    QStringList texts;
    for (std::size_t i = 0; i < from.size(); ++i) {
        const JoinKind kind = from[i].kind;
        if (kind == JoinKind::Left || kind == JoinKind::Right || kind == JoinKind::Full) {
            throw incorrectSyntax(u"outer join");
        }
        if (i != target) {
            texts += source(from[i].source, scope);
        }
    }
    for (const Join& join : from) {
        if (join.on) {
            conditions += condition(*join.on, scope);
        }
    }
    return texts.isEmpty() ? QString() : u" FROM "_s + texts.join(u", "_s);
}

QString Translator::isFirstMatch(const Update& update, const QString& other, Scope scope) {
    const QString later = scope.ranges.back().sqlName();
    scope.ranges.back().translatedName = u"?earlier"_s;
    const QString earlier = scope.ranges.back().sqlName();
    QStringList conditions = {earlier + u".rowid < "_s + later + u".rowid"_s};
    for (const Join& join : update.from) {
        if (join.on) {
            conditions += condition(*join.on, scope);
        }
    }
    if (update.where) {
        conditions += condition(*update.where, scope);
    }
    return u"NOT EXISTS (SELECT 1 FROM "_s + quoted(catalog_.table(other).name) + u" AS "_s + earlier + u" WHERE "_s +
           conditions.join(u" AND "_s) + u')';
}

Translator::Range Translator::rangeOf(const CatalogTable& table, const QString& name) {
    Range range{name, {}, {}};
    for (const CatalogColumn& column : table.columns) {
        range.columns.push_back({column.name, column.type});
    }
    return range;
}

void Translator::remove(const Delete& remove) {
    const CatalogTable& table = catalog_.table(remove.table);
    Scope scope;
    scope.ranges.push_back(rangeOf(table, table.name));
    QString sql = u"DELETE FROM "_s + quoted(table.name);
    if (remove.where) {
        sql += u" WHERE "_s + condition(*remove.where, scope);
    }
    out_.statement = sql.toUtf8();
}

}  // namespace talvora::embedded
