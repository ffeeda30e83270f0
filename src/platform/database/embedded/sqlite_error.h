#pragma once

#include "platform/runtime_error.h"

struct sqlite3;

namespace talvora::embedded {

/// The last error of `database` under the number and in the words that SQL Server has for it.
DatabaseError sqliteError(sqlite3* database);

}  // namespace talvora::embedded
