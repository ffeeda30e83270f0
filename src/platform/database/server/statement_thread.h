#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace talvora {

/// A wait for a server that has lasted so long that a user notices: it goes on, or has ended.
enum class Wait { GoesOn, Ended };

/// Has `hook` called some twenty times a second while such a wait goes on, and once at its end, on the session's own
/// thread. The hook must not use the session. An empty function: nobody is told.
void setWhileWaiting(std::function<void(Wait)> hook);

/// Passes `time` as a wait for a server, which the hook is told of.
void waitForServer(std::chrono::milliseconds time);

/// A thread for the calls that a server may hold up for longer than anybody wants to wait.
class StatementThread {
 public:
    StatementThread();
    StatementThread(const StatementThread&) = delete;
    StatementThread& operator=(const StatementThread&) = delete;
    ~StatementThread();

    /// Runs `call` there and waits for its end; what it throws comes out here. Past `limit` (0 is none) the call is
    /// given up: false, and the thread is left to itself with what `call` holds. It takes no further call then.
    [[nodiscard]] bool run(std::function<void()> call, std::chrono::milliseconds limit);

 private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

}  // namespace talvora
