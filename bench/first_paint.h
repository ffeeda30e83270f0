#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <cstdlib>

namespace talvora::bench {

/// As an event filter of the application, ends the process when its first window has been painted.
class FirstPaint : public QObject {
 public:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (!painting_ && event->type() == QEvent::UpdateRequest && receiver->isWidgetType()) {
            painting_ = true;
            QCoreApplication::sendEvent(receiver, event);
            std::_Exit(EXIT_SUCCESS);
        }
        return QObject::eventFilter(receiver, event);
    }

 private:
    bool painting_ = false;
};

}  // namespace talvora::bench
