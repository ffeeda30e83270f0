#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace talvora {

/// Keeps the windows painted during long work: call it at each small step, as often as you like, and it lets waiting
/// events through every few milliseconds. What the user presses in the meantime is dropped, so that no second command
/// starts within the first and none waits for its end.
///
///     EventPump pump;
///     for (…) { step(); pump(); }
class EventPump : public QObject {
 public:
    EventPump();

    void operator()() {
        if (since_.elapsed() >= SliceMilliseconds) {
            letThrough();
        }
    }

    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    static constexpr qint64 SliceMilliseconds = 15;

    void letThrough();

    QElapsedTimer since_;
};

}  // namespace talvora
