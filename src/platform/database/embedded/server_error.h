#pragma once

#include "platform/database/server_errors.h"
#include "platform/runtime_error.h"

#include <QStringList>
#include <QStringView>

namespace talvora::embedded {

/// The error `number` in the words that a Chinese SQL Server has for it, with `inserts` in their places, and with the
/// SQLSTATE that goes with it.
DatabaseError serverError(int number, const QStringList& inserts = {});

/// 102, or 156 for a keyword, at the token `near`; what the translator does not know ends here too.
DatabaseError incorrectSyntax(QStringView near);

}  // namespace talvora::embedded
