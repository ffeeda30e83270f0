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

QString joinWord(JoinKind kind) {
    switch (kind) {
        case JoinKind::Left:
            return u" LEFT JOIN "_s;
        case JoinKind::Right:
            return u" RIGHT JOIN "_s;
        case JoinKind::Full:
            return u" FULL JOIN "_s;
        default:
            return u" JOIN "_s;
    }
}

/// Whether `select` just reads rows of one table. Without an order of its own it then gives them as they were stored,
/// which the questions of a paper rely on: an index must not lead it elsewhere.
bool readsStoredRows(const Select& select) {
    return select.from.size() == 1 && !select.from[0].source.derived && !select.distinct && select.top < 0 &&
           select.groupBy.empty() && std::all_of(select.items.begin(), select.items.end(), [](const SelectItem& item) {
               return !item.value || item.value->form == Form::Column;
           });
}

}  // namespace

Translator::Rows Translator::query(const Query& query, const Scope* outer) {
    if (query.parts.size() == 1) {
        Rows rows = select(query.parts[0], outer, query.order);
        if (!outer && query.order.empty() && readsStoredRows(query.parts[0])) {
            rows.sql += u" ORDER BY rowid"_s;
        }
        return rows;
    }
    Rows rows = select(query.parts[0], outer, {});
    for (std::size_t i = 1; i < query.parts.size(); ++i) {
        const Rows next = select(query.parts[i], outer, {});
        if (next.columns.size() != rows.columns.size()) {
            throw serverError(205,
                              u"All queries combined using a UNION operator must have an equal number of "
                              "expressions in their target lists."_s);
        }
        rows.sql += (query.unionAll[i - 1] ? u" UNION ALL "_s : u" UNION "_s) + next.sql;
        for (std::size_t c = 0; c < rows.columns.size(); ++c) {
            SqlType& type = rows.columns[c].type;
            type = {std::max(type.kind, next.columns[c].type.kind), SqlType::Unlimited};
        }
    }
    rows.sql += compoundOrdering(rows, query.order);
    return rows;
}

QString Translator::compoundOrdering(const Rows& rows, const std::vector<OrderItem>& order) const {
    QStringList parts;
    for (const OrderItem& item : order) {
        int position = item.position;
        for (std::size_t c = 0; position == 0 && c < rows.columns.size(); ++c) {
            const bool named = item.value->form == Form::Column &&
                               rows.columns[c].name.compare(item.value->name, Qt::CaseInsensitive) == 0;
            position = named ? static_cast<int>(c) + 1 : 0;
        }
        if (position < 1 || position > static_cast<int>(rows.columns.size())) {
            throw serverError(104,
                              u"ORDER BY items must appear in the select list if the statement contains a UNION "
                              "operator."_s);
        }
        parts += QString::number(position) + (item.descending ? u" DESC"_s : QString());
    }
    return parts.isEmpty() ? QString() : u" ORDER BY "_s + parts.join(u", "_s);
}

Translator::Rows Translator::select(const Select& select, const Scope* outer, const std::vector<OrderItem>& order) {
    Scope scope;
    scope.outer = outer;
    const QString from = sources(select.from, scope);
    Rows rows = items(select, scope);
    checkGrouping(select, scope);
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
    if (select.having) {
        rows.sql += u" HAVING "_s + condition(*select.having, scope);
    }
    rows.sql += ordering(select, scope, order);
    if (select.top >= 0) {
        rows.sql += u" LIMIT "_s + QString::number(select.top);
        if (order.empty()) {
            // In brackets, the limit belongs to this part of a union alone.
            rows.sql = u"SELECT * FROM ("_s + rows.sql + u')';
        }
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
        throw item.starOf.isEmpty()
            ? serverError(263, u"Must specify table to select from."_s)
            : serverError(107,
                          u"The column prefix '%1' does not match with a table name or alias name used in the "
                          "query."_s.arg(item.starOf));
    }
}

QString Translator::ordering(const Select& select, const Scope& scope, const std::vector<OrderItem>& order) {
    QStringList parts;
    for (const OrderItem& item : order) {
        QString sql = QString::number(item.position);
        if (item.position == 0) {
            // A name given in the select list goes before a column of that name.
            const auto alias = std::find_if(select.items.begin(), select.items.end(), [&](const SelectItem& selected) {
                return item.value->form == Form::Column && item.value->qualifier.isEmpty() &&
                       !selected.alias.isEmpty() && selected.alias.compare(item.value->name, Qt::CaseInsensitive) == 0;
            });
            const Piece piece = value(alias == select.items.end() ? *item.value : *alias->value, scope);
            sql = as(piece, piece.type.kind);
        }
        parts += sql + (item.descending ? u" DESC"_s : QString());
    }
    return parts.isEmpty() ? QString() : u" ORDER BY "_s + parts.join(u", "_s);
}

QString Translator::sources(const std::vector<Join>& joins, Scope& scope) {
    QString sql;
    for (const Join& join : joins) {
        const QString text = source(join.source, scope);
        if (sql.isEmpty()) {
            sql = u" FROM "_s + text;
        } else {
            sql += (join.kind == JoinKind::Comma ? u", "_s : joinWord(join.kind)) + text;
        }
        if (join.on) {
            sql += u" ON "_s + condition(*join.on, scope);
        }
    }
    return sql;
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
                throw serverError(8155, u"No column name was specified for column %1 of '%2'."_s.arg(
                                            QString::number(i + 1), source.alias));
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
    const QString& name = query.parts[0].into;
    if (catalog_.find(name)) {
        throw serverError(server_error::ObjectExists,
                          u"There is already an object named '%1' in the database."_s.arg(name));
    }
    const Rows rows = this->query(query, nullptr);
    QStringList columns;
    for (const Column& column : rows.columns) {
        if (column.name.startsWith(u'?')) {
            throw serverError(1038,
                              u"An object or column name is missing or empty. For SELECT INTO statements, verify "
                              "each column has a name."_s);
        }
        columns += columnSql(column.name, column.type);
    }
    const QString create = name.startsWith(u'#') ? u"CREATE TEMP TABLE "_s : u"CREATE TABLE "_s;
    out_.definitions.push_back((create + quoted(name) + u" ("_s + columns.join(u", "_s) + u')').toUtf8());
    out_.statement = (u"INSERT INTO "_s + quoted(name) + u' ' + rows.sql).toUtf8();
}

}  // namespace talvora::embedded
