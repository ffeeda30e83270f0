#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QWindow>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace talvora::bench {

/// Nanoseconds by the clock that all processes of the machine share.
inline long long sharedClock() {
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// As an event filter of the application, prints the moment at which its first window stands painted on the display,
/// and ends the process.
class FirstPaint : public QObject {
 public:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        const auto* window = qobject_cast<QWindow*>(receiver);
        if (!painting_ && event->type() == QEvent::Expose && window && window->isExposed()) {
            painting_ = true;
            QCoreApplication::sendEvent(receiver, event);
            std::printf("%lld", sharedClock());
            std::fflush(stdout);
            std::_Exit(EXIT_SUCCESS);
        }
        return QObject::eventFilter(receiver, event);
    }

 private:
    bool painting_ = false;
};

}  // namespace talvora::bench
