#pragma once

#include "platform/database/connection.h"

#include <QString>

#include <limits>
#include <vector>

namespace talvora {

/// The client holds keys in 16 bits: the greatest that it takes.
inline constexpr int greatestKey = std::numeric_limits<qint16>::max();

struct KeyColumn {
    QString table;
    QString column;
};

/// A run of numbers that is used up as rows are added and that nothing gives back.
struct KeyRange {
    QString caption;  ///< for the user
    KeyColumn home;
    /// Whether the database generates the numbers of the home column. Otherwise the client takes the maximum plus 1,
    /// and rows may share a number.
    bool isGenerated = true;
    std::vector<KeyColumn> mentions{};  ///< the other columns that hold these keys
};

const std::vector<KeyRange>& keyRanges();

/// The greatest key in the column, 0 when there is none.
qint32 greatestIn(Connection& connection, const KeyColumn& place);

/// How much of the range is behind: the next key is one more.
qint32 usedKeys(Connection& connection, const KeyRange& range);

/// How many keys are in use, which is how many a new numbering would need.
qint32 heldKeys(Connection& connection, const KeyRange& range);

}  // namespace talvora
