#pragma once

#include "core/status.h"
#include "platform/runtime_error.h"

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

}  // namespace talvora
