#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

/// The name of a column that the statement gave none: no name of T-SQL begins so.
QString unnamed(std::size_t position) {
    return u"?"_s + QString::number(position);
}

/// Whether `select` just reads rows of one table. Without an order of its own it then gives them as they were stored:
/// where a reader takes the first of several rows, no index may lead it to another one from one day to the next.
bool readsStoredRows(const Select& select) {
    return select.from.size() == 1 && !select.from[0].derived && !select.distinct && select.top < 0 &&
           select.groupBy.empty() && std::all_of(select.items.begin(), select.items.end(), [](const SelectItem& item) {
               return !item.value || item.value->form == Form::Column;
           });
}

}  // namespace

Translator::Rows Translator::query(const Query& query, const Scope* outer) {
    const Select& select = query.select;
    Scope scope;
    scope.outer = outer;
    const QString from = sources(select.from, scope);
    Rows rows = items(select, scope);
    rows.sql = (select.distinct ? u"SELECT DISTINCT "_s : u"SELECT "_s) + rows.sql + from;
    if (select.where) {
        rows.sql += u" WHERE "_s + condition(*select.where, scope);
    }
    QStringList groups;
    for (const auto& group : select.groupBy) {
        const Piece piece = value(*group, scope);
        groups += as(piece, piece.type.kind);
    }
    if (!groups.isEmpty()) {
        rows.sql += u" GROUP BY "_s + groups.join(u", "_s);
    }
    rows.sql +=
        !outer && query.order.empty() && readsStoredRows(select) ? u" ORDER BY rowid"_s : ordering(query.order, scope);
    if (select.top >= 0) {
        rows.sql += u" LIMIT "_s + QString::number(select.top);
    }
    return rows;
}

Translator::Rows Translator::items(const Select& select, const Scope& scope) {
    Rows rows;
    QStringList sql;
    for (const SelectItem& item : select.items) {
        if (!item.value) {
            star(item, scope, rows, sql);
            continue;
        }
        const Piece piece = value(*item.value, scope);
        QString name = item.alias;
        if (name.isEmpty()) {
            name = item.value->form == Form::Column ? item.value->name : unnamed(rows.columns.size());
        }
        sql += as(piece, piece.type.kind) + u" AS "_s + quoted(name);
        rows.columns.push_back({name, piece.type});
    }
    rows.sql = sql.join(u", "_s);
    return rows;
}

void Translator::star(const SelectItem& item, const Scope& scope, Rows& rows, QStringList& sql) const {
    bool found = false;
    for (const Range& range : scope.ranges) {
        if (!item.starOf.isEmpty() && range.name.compare(item.starOf, Qt::CaseInsensitive) != 0) {
            continue;
        }
        found = true;
        for (const Column& column : range.columns) {
            sql += range.sqlName() + u'.' + quoted(column.name) + u" AS "_s + quoted(column.name);
            rows.columns.push_back(column);
        }
    }
    if (!found) {
        throw item.starOf.isEmpty() ? serverError(server_error::NoTableToSelectFrom)
                                    : serverError(server_error::UnknownPrefix, {item.starOf});
    }
}

QString Translator::ordering(const std::vector<OrderItem>& order, const Scope& scope) {
    QStringList parts;
    for (const OrderItem& item : order) {
        const Piece piece = value(*item.value, scope);
        parts += as(piece, piece.type.kind) + (item.descending ? u" DESC"_s : QString());
    }
    return parts.isEmpty() ? QString() : u" ORDER BY "_s + parts.join(u", "_s);
}

QString Translator::sources(const std::vector<Source>& sources, Scope& scope) {
    QStringList parts;
    for (const Source& one : sources) {
        parts += source(one, scope);
    }
    return parts.isEmpty() ? QString() : u" FROM "_s + parts.join(u", "_s);
}

QString Translator::source(const Source& source, Scope& scope) {
    Range range;
    QString sql;
    if (source.derived) {
        Rows rows = query(*source.derived, scope.outer);
        range.name = source.alias;
        range.columns = std::move(rows.columns);
        for (std::size_t i = 0; i < range.columns.size(); ++i) {
            if (range.columns[i].name.startsWith(u'?')) {
                throw serverError(server_error::NamelessDerivedColumn, {source.alias, QString::number(i + 1)});
            }
        }
        sql = u'(' + rows.sql + u')';
    } else {
        const CatalogTable& table = catalog_.table(source.table);
        range = rangeOf(table, source.alias.isEmpty() ? source.table : source.alias);
        sql = quoted(table.name);
    }
    sql += u" AS "_s + quoted(range.name);
    scope.ranges.push_back(std::move(range));
    return sql;
}

void Translator::selectInto(const Query& query) {
    const QString& name = query.select.into;
    if (catalog_.find(name)) {
        throw serverError(server_error::ObjectExists, {name});
    }
    const Rows rows = this->query(query, nullptr);
    QStringList columns;
    for (const Column& column : rows.columns) {
        if (column.name.startsWith(u'?')) {
            throw serverError(server_error::NamelessColumn);
        }
        columns += columnSql(column.name, column.type);
    }
    const QString create = name.startsWith(u'#') ? u"CREATE TEMP TABLE "_s : u"CREATE TABLE "_s;
    out_.definitions.push_back((create + quoted(name) + u" ("_s + columns.join(u", "_s) + u')').toUtf8());
    out_.statement = (u"INSERT INTO "_s + quoted(name) + u' ' + rows.sql).toUtf8();
}

}  // namespace talvora::embedded
