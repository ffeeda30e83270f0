#pragma once

#include "platform/runtime_error.h"

namespace talvora::test {

/// The number of the run-time error that leaves `step`, 0 when none does.
template <class Step>
int errorOf(Step&& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace talvora::test
