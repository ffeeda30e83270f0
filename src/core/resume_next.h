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
        } catch (const RuntimeError& error) {
            remember(error);
        }
    }

    /// The number of the last error, 0 when every step went through.
    int errorNumber() const { return number_; }
    Status status() const { return number_ == 0 ? Status::Done : Status::Failed; }

 private:
    void remember(const RuntimeError& error);

    int number_ = 0;
};

}  // namespace talvora
