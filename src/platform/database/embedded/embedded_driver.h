#pragma once

#include "platform/database/driver.h"

#include <memory>

namespace talvora {

struct ConnectionParts;

/// Opens the SQLite file named by Initial Catalog: an absolute path, or one relative to the application's folder, or
/// ":memory:" for a database of its own that lives as long as the driver. It takes T-SQL. A statement may run, or wait
/// for another session's lock, for `timeoutSeconds`; 0 is no limit. A change inside a transaction has none: cutting it
/// off would undo the whole transaction.
/// Throws DatabaseError: 4060 for a file that is not there, 5172 for one that is no database.
std::unique_ptr<Driver> openEmbedded(const ConnectionParts& parts, int timeoutSeconds);

/// Makes the empty database file of Initial Catalog, for openEmbedded to open and a schema to be installed in. Only
/// the set-up tool does this: a client that made a file by itself would hide a mistyped path. An existing database is
/// left as it is. Throws DatabaseError.
void createEmbedded(const ConnectionParts& parts);

}  // namespace talvora
