#pragma once

#include "setup/care/change.h"

#include <QStringList>

namespace talvora {

/// Gives the keys of every range afresh from 1, in their old order, together with all that names them, in one
/// transaction; then sets the database's own counters back. A key that is only mentioned, that of a deleted paper for
/// instance, gets one behind the others, so that no new row is ever taken for it. Says what it did, a line a range.
/// No workstation may be at work meanwhile: its lists hold old keys.
QStringList renumberKeys(Connection& connection, const Tidings& tidings = {});

}  // namespace talvora
