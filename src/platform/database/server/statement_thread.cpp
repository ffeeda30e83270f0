#include "platform/database/server/statement_thread.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace talvora {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds slice{50};

std::function<void(Wait)>& whileWaiting() {
    static std::function<void(Wait)> hook;
    return hook;
}

/// One wait: tells the hook of it once it is long, and of its end.
class ToldWait {
 public:
    ToldWait() = default;
    ToldWait(const ToldWait&) = delete;
    ToldWait& operator=(const ToldWait&) = delete;
    ~ToldWait() {
        if (told_) {
            whileWaiting()(Wait::Ended);
        }
    }

    void goesOn() {
        constexpr std::chrono::milliseconds unnoticed{200};
        if (whileWaiting() && Clock::now() - since_ > unnoticed) {
            told_ = true;
            whileWaiting()(Wait::GoesOn);
        }
    }

 private:
    Clock::time_point since_ = Clock::now();
    bool told_ = false;
};

}  // namespace

void setWhileWaiting(std::function<void(Wait)> hook) {
    whileWaiting() = std::move(hook);
}

void waitForServer(std::chrono::milliseconds time) {
    const auto end = Clock::now() + time;
    ToldWait wait;
    while (Clock::now() < end) {
        std::this_thread::sleep_for(std::min<Clock::duration>(slice, end - Clock::now()));
        wait.goesOn();
    }
}

/// What the session and the thread have in common. It outlives the session where a call was given up.
struct StatementThread::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> call;
    std::exception_ptr failure;
    bool busy = false;
    bool ended = false;

    void serve() {
        std::unique_lock lock(mutex);
        while (true) {
            changed.wait(lock, [this] { return busy || ended; });
            if (!busy) {
                return;
            }
            const auto current = std::move(call);
            lock.unlock();
            try {
                current();
            } catch (...) {
                failure = std::current_exception();
            }
            lock.lock();
            busy = false;
            changed.notify_all();
        }
    }

    /// Whether the call came to its end before `limit`. The lock is open while the hook runs.
    bool waitForEnd(std::unique_lock<std::mutex>& lock, std::chrono::milliseconds limit) {
        const auto end = Clock::now() + limit;
        ToldWait wait;
        while (!changed.wait_for(lock, slice, [this] { return !busy; })) {
            if (limit.count() > 0 && Clock::now() >= end) {
                return false;
            }
            lock.unlock();
            wait.goesOn();
            lock.lock();
        }
        return true;
    }
};

StatementThread::StatementThread() : shared_(std::make_shared<Shared>()) {
    std::thread([shared = shared_] { shared->serve(); }).detach();
}

StatementThread::~StatementThread() {
    const std::lock_guard lock(shared_->mutex);
    shared_->ended = true;
    shared_->changed.notify_all();
}

bool StatementThread::run(std::function<void()> call, std::chrono::milliseconds limit) {
    std::unique_lock lock(shared_->mutex);
    shared_->call = std::move(call);
    shared_->failure = nullptr;
    shared_->busy = true;
    shared_->changed.notify_all();
    if (!shared_->waitForEnd(lock, limit)) {
        return false;
    }
    if (shared_->failure) {
        std::rethrow_exception(std::exchange(shared_->failure, nullptr));
    }
    return true;
}

}  // namespace talvora
