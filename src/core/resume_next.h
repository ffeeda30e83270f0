#pragma once

#include "core/status.h"
#include "platform/runtime_error.h"

namespace talvora {

/// Runs the steps of a routine that goes on after a failure, and remembers whether one failed:
///
///     ResumeNext steps;
///     steps([&] { cnnPublic.Execute(first); });
///     steps([&] { cnnPublic.Execute(second); });
///     return steps.status();
class ResumeNext {
 public:
    template <class Step>
    void operator()(Step&& step) {
        try {
            step();
        } catch (const RuntimeError&) {
            failed_ = true;
        }
    }

    Status status() const { return failed_ ? Status::Failed : Status::Done; }

 private:
    bool failed_ = false;
};

}  // namespace talvora
