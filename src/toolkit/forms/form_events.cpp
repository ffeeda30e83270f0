#include "toolkit/forms/form_events.h"

#include "toolkit/forms/form.h"
#include "toolkit/forms/radio_group.h"
#include "toolkit/forms/scroll_body.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QToolButton>

namespace talvora {

namespace {

template <class... Classes>
bool isOneOf(const QWidget& widget) {
    return (qobject_cast<const Classes*>(&widget) || ...);
}

// An editor within a list belongs to the list, which ends the editing on Enter itself.
bool isWithinList(const QWidget& widget) {
    for (const QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractItemView*>(parent)) {
            return true;
        }
    }
    return false;
}

bool isField(const QWidget& widget) {
    return isOneOf<QLineEdit, QComboBox, QAbstractSpinBox, QCheckBox, QRadioButton, QAbstractItemView>(widget) &&
           !isWithinList(widget) && !widget.property("keepsEnter").toBool();
}

bool enterPressed(QWidget& receiver) {
    if (isOneOf<QPushButton, QToolButton>(receiver)) {
        static_cast<QAbstractButton&>(receiver).click();
        return true;
    }
    if (!isField(receiver)) {
        return false;
    }
    if (auto* date = qobject_cast<QDateTimeEdit*>(&receiver)) {
        // Tab goes from year to month to day; Enter leaves the field.
        date->setCurrentSectionIndex(date->sectionCount() - 1);
    }
    QWidget* focus = &receiver;
    do {
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QCoreApplication::sendEvent(focus, &tab);
        focus = receiver.window()->focusWidget();
        // A toolbar on the way is for Tab alone: the next Enter would press its button.
    } while (focus != &receiver && qobject_cast<QToolButton*>(focus));
    return true;
}

// A wheel turned in passing changes nothing, nor does it take the focus along: over a field without the focus it is for
// what scrolls around it.
void refuseWheelFocus(QWidget& control) {
    if (isOneOf<QComboBox, QAbstractSpinBox>(control) && control.focusPolicy() == Qt::WheelFocus) {
        control.setFocusPolicy(Qt::StrongFocus);
    }
}

bool isPassedBy(const QWidget& receiver) {
    return isOneOf<QComboBox, QAbstractSpinBox, QTabBar>(receiver) && !receiver.hasFocus();
}

// Escape has come up from the focus to the window itself: nothing on the way wanted it.
bool escapePressed(const QWidget& window) {
    const auto buttons = window.findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        if (button->property("cancel").toBool() && button->isVisible() && button->isEnabled()) {
            button->click();
            return true;
        }
    }
    return isOneOf<QDialog>(window);
}

}  // namespace

void FormEvents::install() {
    static QPointer<FormEvents> installed;
    if (!installed) {
        installed = new FormEvents(qApp);
        qApp->installEventFilter(installed);
    }
}

bool FormEvents::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWidgetType()) {
        return false;
    }
    auto& widget = *static_cast<QWidget*>(receiver);
    switch (event->type()) {
        case QEvent::KeyPress:
            return keyPressed(widget, *static_cast<QKeyEvent*>(event));
        case QEvent::Polish:
            refuseWheelFocus(widget);
            return false;
        case QEvent::Wheel:
            if (!isPassedBy(widget)) {
                return false;
            }
            event->ignore();
            return true;
        case QEvent::FocusIn:
            scrollIntoView(widget, static_cast<QFocusEvent*>(event)->reason());
            return false;
        case QEvent::Close:
            return closed(widget, *event);
        case QEvent::Hide:
            if (Form* form = event->spontaneous() ? nullptr : Form::of(&widget)) {
                Form::endWaits(form);
            }
            return false;
        default:
            return false;
    }
}

bool FormEvents::closed(const QWidget& window, QEvent& event) {
    Form* form = Form::of(&window);
    if (form) {
        event.ignore();
        guarded([&] { form->Unload(); });
    }
    return form != nullptr;
}

bool FormEvents::keyPressed(QWidget& receiver, const QKeyEvent& key) {
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!plain || key.isAutoRepeat() || !Form::of(receiver.window())) {
        return false;
    }
    if (enter) {
        return enterPressed(receiver);
    }
    if (auto* option = qobject_cast<QRadioButton*>(&receiver)) {
        if (const int step = optionStep(key.key())) {
            chooseNeighbour(*option, step);
            return true;
        }
    }
    return key.key() == Qt::Key_Escape && receiver.isWindow() && escapePressed(receiver);
}

}  // namespace talvora
