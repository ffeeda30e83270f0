#pragma once

#include "platform/database/connection.h"

#include <QString>

namespace talvora {

/// Why the name or the password will not do for a login that workstations use; empty when both will.
QString loginFault(const QString& login, const QString& password);

/// Makes the login on the server, with the right to read and write the rows of our tables and nothing else, by
/// roles.sql, all or nothing. Throws RuntimeError 5, with words for the user, for what loginFault objects to, for an
/// embedded database, for one without our tables and for a name that the server knows already.
void grantWorkstationLogin(Connection& connection, const QString& login, const QString& password);

}  // namespace talvora
