#pragma once

#include "platform/database/connection.h"

#include <QString>

namespace talvora {

/// The one open session: every statement of the program runs through it. ConnectServer opens it once; the program
/// closes it when it ends.
extern Connection cnnPublic;

/// The login name of the workbench's user; empty in a self-service entry.
extern QString strCurrentUser;

/// Reads `cfgserver.bin` in `folder` and opens cnnPublic by it. False on any failure, whatever its cause; shows
/// nothing. Without the file the session is tried with an empty server, database, login and password.
bool ConnectServer(const QString& folder);

/// The same with the application's own folder.
bool ConnectServer();

}  // namespace talvora
