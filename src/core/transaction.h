#pragma once

#include "core/status_of.h"

#include <QStringList>

namespace talvora {

/// Runs one statement on cnnPublic. Failed when it fails.
Status executed(const QString& statement);

/// The guard of a routine that goes on after a failure: `refusal` when `found` says so, Done when the way is free.
/// A guard that fails itself is no free way: Failed, and the routine writes nothing.
template <class Found>
Status guarded(Status refusal, Found&& found) {
    return statusOf([&] { return found() ? refusal : Status::Done; });
}

/// Runs the statements on cnnPublic in one transaction. A failing one is passed over, the others are run and committed,
/// and the result is Failed.
Status executePassingErrors(const QStringList& statements);

}  // namespace talvora
