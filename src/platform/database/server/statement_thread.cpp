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

std::function<void()>& whileWaiting() {
    static std::function<void()> hook;
    return hook;
}

void callHook() {
    if (whileWaiting()) {
        whileWaiting()();
    }
}

}  // namespace

void setWhileWaiting(std::function<void()> hook) {
    whileWaiting() = std::move(hook);
}

void waitForServer(std::chrono::milliseconds time) {
    const auto end = Clock::now() + time;
    while (Clock::now() < end) {
        std::this_thread::sleep_for(std::min<Clock::duration>(slice, end - Clock::now()));
        callHook();
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
        while (!changed.wait_for(lock, slice, [this] { return !busy; })) {
            if (limit.count() > 0 && Clock::now() >= end) {
                return false;
            }
            lock.unlock();
            callHook();
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
