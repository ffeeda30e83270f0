#pragma once

#include "platform/runtime_error.h"

namespace talvora {

/// Whether the link to the server is gone or could not be made (SQLSTATE class 08).
bool isLinkLost(const DatabaseError& error);

/// The link is gone.
DatabaseError linkLost();
/// A statement or an attempt to connect has run into its time limit.
DatabaseError timeLimitReached();

/// What a driver says about a failing statement, with Chinese words where it is the link or the time that failed.
/// A server's own error comes out as it is.
DatabaseError statementFailure(const DatabaseError& error);

/// The same for an attempt to connect to `server`: the words say what to look at.
DatabaseError connectFailure(const DatabaseError& error, const QString& server);

}  // namespace talvora
