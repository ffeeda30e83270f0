#pragma once

#include "core/connection_file.h"
#include "setup/install.h"

namespace talvora {

/// Where the client beside this tool looks for its connection.
QString connectionFilePath();

/// The connection file's content. Throws RuntimeError 53 when it has not been written yet, and what
/// readConnectionFile throws.
ConnectionFile savedConnection();

/// The description of an embedded database; a relative `file` counts from the application's folder.
ConnectionFile embeddedConnection(const QString& file);

bool isEmbedded(const ConnectionFile& connection);

/// The file of an embedded database.
QString embeddedPath(const ConnectionFile& connection);

/// Whether the connection is to an embedded database whose file has not been made yet. The installation makes it.
bool awaitsInstallation(const ConnectionFile& connection);

/// Tries the connection and closes it. Throws DatabaseError.
void testConnection(const ConnectionFile& connection);

/// Seconds for a statement that may touch every stored answer of a big bank.
inline constexpr int longWorkSeconds = 3600;

/// Opens cnnPublic for set-up work, whose statements may take longer than those of a window. Throws DatabaseError.
void openSession(const ConnectionFile& connection, int seconds = 120);

/// Makes an empty embedded database file that its owner alone can read; its companions take its rights.
void createOwnFile(const ConnectionFile& connection);

/// Takes an embedded database file away, with its companions.
void removeOwnFile(const ConnectionFile& connection);

/// Makes the database that the connection describes: the embedded file where there is none, readable by its owner
/// only, then `install` in it.
/// After a failure an embedded file that was made is gone again. Leaves cnnPublic open on the database.
void installDatabase(const ConnectionFile& connection, const QString& adminPassword, const Progress& progress = {});

}  // namespace talvora
