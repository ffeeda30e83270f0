#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

const CatalogColumn& columnOf(const CatalogTable& table, const QString& name) {
    const CatalogColumn* column = table.column(name);
    if (!column) {
        throw serverError(server_error::InvalidColumn, {name});
    }
    return *column;
}

void requireOnce(const std::vector<const CatalogColumn*>& columns, const CatalogColumn& column) {
    if (std::find(columns.begin(), columns.end(), &column) != columns.end()) {
        throw serverError(server_error::ColumnSetTwice, {column.name});
    }
}

void requireCount(std::size_t columns, std::size_t values) {
    if (values < columns) {
        throw serverError(server_error::FewerValuesThanColumns);
    }
    if (values > columns) {
        throw serverError(server_error::MoreValuesThanColumns);
    }
}

}  // namespace

std::vector<const CatalogColumn*> Translator::insertedColumns(const Insert& insert, const CatalogTable& table) const {
    std::vector<const CatalogColumn*> columns;
    const bool givesKeys = table.name == catalog_.takesKeys();
    bool hasKey = false;
    for (const QString& name : insert.columns) {
        const CatalogColumn& column = columnOf(table, name);
        requireOnce(columns, column);
        hasKey = hasKey || column.identity;
        columns.push_back(&column);
    }
    if (hasKey != givesKeys) {
        throw serverError(hasKey ? server_error::ExplicitIdentity : server_error::MissingIdentity, {table.name});
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
        throw serverError(server_error::TooManyRows);
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
    const CatalogTable& table = catalog_.table(update.table);
    if (!rescore(update, table)) {
        updateJoined(update, table);
    }
}

void Translator::updateJoined(const Update& update, const CatalogTable& table) {
    Scope scope;
    scope.ranges.push_back(rangeOf(table, table.name));
    QStringList conditions;
    const QString from = sources(update.from, scope);

    std::vector<const CatalogColumn*> columns;
    QStringList assignments;
    for (const Assignment& assignment : update.assignments) {
        const CatalogColumn& column = columnOf(table, assignment.column);
        requireOnce(columns, column);
        if (column.identity) {
            throw serverError(server_error::UpdatedIdentity, {column.name});
        }
        columns.push_back(&column);
        assignments += quoted(column.name) + u" = "_s + assigned(value(*assignment.value, scope), column);
    }
    if (update.where) {
        conditions += condition(*update.where, scope);
    }
    if (update.from.size() == 1 && !update.from[0].derived) {
        conditions += isFirstMatch(update, update.from[0].table, scope);
    }
    const QString target = quoted(table.name);
    QString sql = u"UPDATE "_s + target + u" AS "_s + target + u" SET "_s + assignments.join(u", "_s) + from;
    if (!conditions.isEmpty()) {
        sql += u" WHERE "_s + conditions.join(u" AND "_s);
    }
    out_.statement = sql.toUtf8();
}

QString Translator::isFirstMatch(const Update& update, const QString& other, Scope scope) {
    const QString later = scope.ranges.back().sqlName();
    scope.ranges.back().translatedName = u"?earlier"_s;
    const QString earlier = scope.ranges.back().sqlName();
    QStringList conditions = {earlier + u".rowid < "_s + later + u".rowid"_s};
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
