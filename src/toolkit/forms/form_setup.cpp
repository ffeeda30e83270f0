#include "toolkit/forms/form_setup.h"

#include "toolkit/look/theme.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QTextEdit>

#include <algorithm>

namespace talvora {

namespace {

// What a window's frame and title bar take, where the platform has not told yet.
constexpr QSize FrameAllowance(16, 40);

// Whether the look of plain windows covers it.
bool isPlain(const QWidget* control) {
    static const QSet<QByteArray> plain{"QWidget",     "QFrame",       "QLabel",   "QLineEdit",
                                        "QPushButton", "QRadioButton", "QCheckBox"};
    return plain.contains(control->metaObject()->className());
}

}  // namespace

void prepareControls(QWidget& window) {
    const auto controls = window.findChildren<QWidget*>();
    if (!std::all_of(controls.begin(), controls.end(), isPlain)) {
        completeTheme();
    }
    for (QWidget* control : controls) {
        if (control->property("required").toBool()) {
            setRequired(control);
        }
        if (auto* text = qobject_cast<QPlainTextEdit*>(control)) {
            text->setTabChangesFocus(true);
        } else if (auto* richText = qobject_cast<QTextEdit*>(control)) {
            richText->setTabChangesFocus(true);
        } else if (auto* list = qobject_cast<QAbstractItemView*>(control)) {
            list->setTabKeyNavigation(false);
        } else if (auto* button = qobject_cast<QPushButton*>(control)) {
            button->setAutoDefault(false);
        }
    }
}

void placeWindow(QWidget& window, const QWidget* owner) {
    const QRect room = (owner ? owner->screen() : QGuiApplication::primaryScreen())->availableGeometry();
    window.ensurePolished();
    const bool hasPlace = window.testAttribute(Qt::WA_Moved);
    // Before anyone has sized it, a window has a size that fits no layout.
    const QSize designed = window.testAttribute(Qt::WA_Resized) ? window.size() : QSize(0, 0);
    const QSize wanted = hasPlace ? window.size() : designed.expandedTo(window.sizeHint());
    window.resize(wanted.boundedTo(room.size() - FrameAllowance));
    if (hasPlace) {
        return;
    }
    QRect frame(QPoint(), window.size() + FrameAllowance);
    frame.moveCenter(owner ? owner->frameGeometry().center() : room.center());
    frame.moveRight(qMin(frame.right(), room.right()));
    frame.moveBottom(qMin(frame.bottom(), room.bottom()));
    frame.moveLeft(qMax(frame.left(), room.left()));
    frame.moveTop(qMax(frame.top(), room.top()));
    window.move(frame.topLeft());
}

void focusFirst(QWidget& window) {
    if (window.focusWidget()) {
        return;
    }
    for (QWidget* control = window.nextInFocusChain(); control != &window; control = control->nextInFocusChain()) {
        if ((control->focusPolicy() & Qt::TabFocus) && control->isEnabled() && control->isVisibleTo(&window)) {
            control->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

}  // namespace talvora
