#pragma once

#include "platform/database/connection.h"

#include <QStringList>

#include <vector>

namespace talvora {

struct TableColumns {
    QString table;
    QStringList columns;
    QString identity{};   ///< the column whose values the database generates; empty when there is none
    QString numberKey{};  ///< the column of whole numbers that is the primary key; empty when there is none
};

/// The tables that schema.sql makes, with their columns.
std::vector<TableColumns> schemaTables();

/// Whether the database has a table, readable by this login.
bool hasTable(Connection& connection, const QString& table);

/// The columns of the table that the database lacks.
QStringList missingColumns(Connection& connection, const TableColumns& table);

/// Those of our tables that the database has.
QStringList presentTables(Connection& connection);

/// Whether the database holds no table at all, ours or another's.
bool isEmptyDatabase(Connection& connection);

/// Whether the session is with an embedded database.
bool isEmbedded(const Connection& connection);

}  // namespace talvora
