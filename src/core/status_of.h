#pragma once

#include "core/status.h"
#include "platform/runtime_error.h"

#include <QString>

namespace talvora {

/// Runs a row operation under one handler: any RuntimeError ends it with Status::Failed, as far as it got.
template <class Operation>
Status statusOf(Operation&& operation) {
    try {
        return operation();
    } catch (const RuntimeError&) {
        return Status::Failed;
    }
}

/// What the guard of a routine that goes on after a failure says: `refusal` when `found` is true, Done when the way is
/// free. A guard that fails itself is no free way: Failed, and the routine writes nothing.
template <class Found>
Status statusOfGuard(Status refusal, Found&& found) {
    return statusOf([&] { return found() ? refusal : Status::Done; });
}

/// Runs one statement on cnnPublic. Failed when it fails.
Status executed(const QString& statement);

}  // namespace talvora
