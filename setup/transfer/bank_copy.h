#pragma once

#include "platform/database/connection.h"

#include <functional>

namespace talvora {

/// Told of a copy as it goes: what is being done, and so many rows of so many; 0 of 0 for work that is not told in
/// rows.
using CopyProgress = std::function<void(const QString& step, qint64 done, qint64 total)>;

/// Copies a whole bank into a database without tables: every row of every table with the key that it has. The target's
/// own keys go on behind them. Both are read again at the end and compared row by row; all this is one transaction of
/// the target, so that whatever cuts it off leaves the target empty. Gives the number of rows.
///
/// The source is only read. When somebody changes it meanwhile, the comparison finds that, and the copy is given up.
/// Throws DatabaseError, and RuntimeError with words for the user: 58 for a target that is not empty, 5 for a source
/// that lacks tables or columns, has others than ours in them, or changed.
qint64 copyBank(Connection& source, Connection& target, const CopyProgress& progress = {});

}  // namespace talvora
