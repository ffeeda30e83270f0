#include "setup/tables.h"

#include "platform/database/connection_string.h"
#include "platform/runtime_error.h"
#include "setup/install.h"

#include <QRegularExpression>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int missingTable = 208;

}  // namespace

std::vector<TableColumns> schemaTables() {
    static const QRegularExpression head(u"^\\s*create table (\\w+) \\($"_s);
    static const QRegularExpression column(u"^    (\\w+) "_s);
    std::vector<TableColumns> tables;
    bool inTable = false;
    for (const auto& line : setupText(u"schema.sql"_s).split(u'\n')) {
        if (const auto match = head.match(line); match.hasMatch()) {
            tables.push_back({match.captured(1), {}});
            inTable = true;
        } else if (line.startsWith(u')')) {
            inTable = false;
        } else if (const auto named = column.match(line); inTable && named.hasMatch()) {
            tables.back().columns.append(named.captured(1));
        }
    }
    return tables;
}

bool hasTable(Connection& connection, const QString& table) {
    try {
        connection.Execute(u"select top 1 * from "_s + table);
    } catch (const DatabaseError& error) {
        if (error.number() != missingTable) {
            throw;
        }
        return false;
    }
    return true;
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
    if (ConnectionParts::parse(connection.ConnectionString).isEmbedded()) {
        return presentTables(connection).isEmpty();
    }
    return countOf(connection, u"select count(*) from information_schema.tables where table_type='BASE TABLE'"_s) == 0;
}

qint32 countOf(Connection& connection, const QString& statement) {
    const auto rows = connection.Execute(statement);
    return rows.RecordCount() == 0 || rows.first().isNull(0) ? 0 : rows.first().number32(0);
}

}  // namespace talvora
