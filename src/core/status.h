#pragma once

#include <QtGlobal>

namespace talvora {

/// What a row operation of a record class reports. The window that called turns it into words; each class tells which
/// of the guards it has.
enum class Status : qint16 {
    Done = 0,
    Failed = -1,      ///< a statement failed
    Taken = -2,       ///< the guard found the name in use by another row
    InUse = -2,       ///< the guard found rows that refer to this one
    Dependants = -3,  ///< rows stand under this one
    NoSuchRow = -3,   ///< the row to change is not there
};

}  // namespace talvora
