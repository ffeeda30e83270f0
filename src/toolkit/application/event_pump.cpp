#include "toolkit/application/event_pump.h"

#include <QCoreApplication>
#include <QEvent>

namespace talvora {

EventPump::EventPump() {
    since_.start();
    QCoreApplication::instance()->installEventFilter(this);
}

bool EventPump::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
            return true;
        case QEvent::Close:
            event->ignore();
            return true;
        default:
            return false;
    }
}

void EventPump::letThrough() {
    QCoreApplication::processEvents();
    since_.restart();
}

}  // namespace talvora
