#pragma once

#include "platform/database/connection_string.h"

#include <QString>
#include <QStringList>

namespace talvora::odbc {

/// The names of the ODBC drivers of this machine. Throws DatabaseError when ODBC itself is not available.
QStringList installedDrivers();

/// The best of the `installed` drivers for SQL Server: "ODBC Driver NN for SQL Server" with the highest NN, then
/// FreeTDS, then the old "SQL Server". Empty when there is none.
QString bestDriver(const QStringList& installed);

/// `driver`'s connection string for `parts`. The server goes in as its administrators write it: host, host,port or
/// host\instance. Throws DatabaseError when a part holds what the driver cannot be told, such as a NUL character.
QString driverConnectionString(const QString& driver, const ConnectionParts& parts);

}  // namespace talvora::odbc
