#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace talvora {

/// Has `hook` called some twenty times a second while a session waits for its server, on the session's own thread; an
/// empty function ends that. The hook must not use the session.
void setWhileWaiting(std::function<void()> hook);

/// Passes `time` as a wait for a server does, with the hook called.
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
