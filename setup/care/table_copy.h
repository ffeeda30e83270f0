#pragma once

#include "setup/tables.h"

namespace talvora {

/// Rows of a table that stand in two banks: all of them, or those of a condition.
struct TableRows {
    TableColumns table;
    QString sourceCondition;  ///< empty for all
    QString targetCondition;
};

/// Inserts the rows of the source into the target as they are, keys included. How many they were.
qint64 copyRows(Connection& source, Connection& target, const TableRows& rows);

/// Whether the rows of both are the same, every column of every row, in whatever order.
bool hasSameRows(Connection& source, Connection& target, const TableRows& rows);

}  // namespace talvora
