#pragma once

#include "core/connection_file.h"
#include "platform/database/connection.h"

namespace talvora {

/// Reads a connection as the command line gives it: "server:HOST/DATABASE/LOGIN", "embedded:FILE", or the name of a
/// file that ends in ".db". In `fault`, for the user, why it is none. The password of a server is not part of it.
ConnectionFile readTarget(const QString& text, QString& fault);

/// Opens `session` on the database to copy into. The file of an embedded one is made unless it is there; `made` then
/// says so. Throws RuntimeError 5 with words for the user when it cannot be reached.
void openTarget(Connection& session, const ConnectionFile& target, bool& made);

}  // namespace talvora
