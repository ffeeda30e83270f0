#pragma once

#include "platform/runtime_error.h"

#include <optional>

struct sqlite3;

namespace talvora::embedded {

/// Where a function of T-SQL leaves its error: SQLite itself carries no error numbers of ours through a statement.
using PendingError = std::optional<DatabaseError>;

/// Gives `database` the functions that the translator writes, all named tsql_…. `pending` must outlive the database.
void registerFunctions(sqlite3* database, PendingError* pending);

}  // namespace talvora::embedded
