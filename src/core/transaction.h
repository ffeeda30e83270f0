#pragma once

#include "core/status.h"

#include <QStringList>

namespace talvora {

/// Runs the statements on cnnPublic in one transaction. A failing one is passed over, the others are run and committed,
/// and the result is Failed.
Status executePassingErrors(const QStringList& statements);

}  // namespace talvora
