#include "toolkit/application/server_wait.h"

#include "platform/database/server/statement_thread.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QTimer>
#include <QTimerEvent>

#include <utility>

namespace talvora {

void ServerWait::install(QObject* parent) {
    auto* wait = new ServerWait(parent);
    setWhileWaiting([wait](Wait state) { state == Wait::GoesOn ? wait->goOn() : wait->end(); });
}

ServerWait::ServerWait(QObject* parent) : QObject(parent) {}

ServerWait::~ServerWait() {
    setWhileWaiting({});
}

bool ServerWait::eventFilter(QObject* receiver, QEvent* event) {
    // The windows' own timers, those of the caret or of a repaint, are no QTimer and run on.
    if (event->type() != QEvent::Timer || qobject_cast<QTimer*>(receiver) == nullptr) {
        return false;
    }
    ticks_.push_back({receiver, static_cast<QTimerEvent*>(event)->timerId()});
    return true;
}

void ServerWait::goOn() {
    if (!std::exchange(busy_, true)) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    QCoreApplication::instance()->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QCoreApplication::instance()->removeEventFilter(this);
}

void ServerWait::end() {
    if (std::exchange(busy_, false)) {
        QGuiApplication::restoreOverrideCursor();
    }
    for (const Tick& tick : std::exchange(ticks_, {})) {
        if (tick.receiver) {
            QCoreApplication::postEvent(tick.receiver, new QTimerEvent(tick.timer));
        }
    }
}

}  // namespace talvora
