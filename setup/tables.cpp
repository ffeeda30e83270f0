#include "setup/tables.h"

#include "core/data_routines.h"
#include "platform/database/connection_string.h"
#include "platform/database/server_errors.h"
#include "platform/runtime_error.h"
#include "setup/install.h"

#include <QRegularExpression>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// Whether the statement runs, as far as the error `absence` is concerned.
bool runs(Connection& connection, const QString& statement, int absence) {
    try {
        connection.Execute(statement);
    } catch (const DatabaseError& error) {
        if (error.number() != absence) {
            throw;
        }
        return false;
    }
    return true;
}

}  // namespace

std::vector<TableColumns> schemaTables() {
    static const QRegularExpression head(u"^\\s*create table (\\w+) \\($"_s);
    static const QRegularExpression column(u"^    (\\w+) "_s);
    std::vector<TableColumns> tables;
    bool inTable = false;
    for (const auto& line : setupText(u"schema.sql"_s).split(u'\n')) {
        if (const auto match = head.match(line); match.hasMatch()) {
            tables.push_back({match.captured(1), {}, {}, {}});
            inTable = true;
        } else if (line.startsWith(u')')) {
            inTable = false;
        } else if (const auto named = column.match(line); inTable && named.hasMatch()) {
            tables.back().columns.append(named.captured(1));
            if (line.contains(" identity("_L1)) {
                tables.back().identity = named.captured(1);
            }
            if (line.contains(" int "_L1) && line.contains(" primary key"_L1)) {
                tables.back().numberKey = named.captured(1);
            }
        }
    }
    return tables;
}

bool hasTable(Connection& connection, const QString& table) {
    return runs(connection, u"select top 1 * from "_s + table, server_error::InvalidObject);
}

QStringList missingColumns(Connection& connection, const TableColumns& table) {
    const auto read = u"select top 1 %1 from "_s + table.table;
    if (runs(connection, read.arg(table.columns.join(u',')), server_error::InvalidColumn)) {
        return {};
    }
    QStringList missing;
    for (const auto& column : table.columns) {
        if (!runs(connection, read.arg(column), server_error::InvalidColumn)) {
            missing.append(column);
        }
    }
    return missing;
}

QStringList presentTables(Connection& connection) {
    QStringList present;
    for (const auto& table : schemaTables()) {
        if (hasTable(connection, table.table)) {
            present.append(table.table);
        }
    }
    return present;
}

bool isEmptyDatabase(Connection& connection) {
    if (isEmbedded(connection)) {
        return presentTables(connection).isEmpty();
    }
    return countOf(connection, u"select count(*) from information_schema.tables where table_type='BASE TABLE'"_s) == 0;
}

bool isEmbedded(const Connection& connection) {
    return ConnectionParts::parse(connection.ConnectionString).isEmbedded();
}

}  // namespace talvora
