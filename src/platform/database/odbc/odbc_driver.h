#pragma once

#include "platform/database/connection_string.h"
#include "platform/database/driver.h"

#include <QString>

#include <memory>

namespace talvora {

/// Opens a session with the SQL Server that `parts` names, through the best ODBC driver of the machine. A statement
/// may run for `timeoutSeconds` (0 is no limit); the attempt to connect gives up after 15 seconds.
/// Throws DatabaseError, also when no ODBC driver for SQL Server is installed.
std::unique_ptr<Driver> openOdbc(const ConnectionParts& parts, int timeoutSeconds);

/// The door for other drivers: opens a session with the ODBC driver's own connection string ("DRIVER=…;Database=…").
/// Throws DatabaseError.
std::unique_ptr<Driver> openOdbcWith(const QString& driverConnectionString, int timeoutSeconds);

}  // namespace talvora
