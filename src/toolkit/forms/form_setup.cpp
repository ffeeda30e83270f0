#include "toolkit/forms/form_setup.h"

#include "toolkit/forms/radio_group.h"
#include "toolkit/forms/scroll_body.h"
#include "toolkit/look/theme.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSet>
#include <QStyle>
#include <QTextEdit>

#include <algorithm>

namespace talvora {

namespace {

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
        } else if (auto* option = qobject_cast<QRadioButton*>(control)) {
            shareTabStop(*option);
        }
    }
}

void placeWindow(QWidget& window, const QWidget* owner) {
    const QRect room = (owner ? owner->screen() : QGuiApplication::primaryScreen())->availableGeometry();
    const QSize largest = room.size() - FrameAllowance;
    window.ensurePolished();
    const bool hasPlace = window.testAttribute(Qt::WA_Moved);
    // Before anyone has sized it, a window has a size that fits no layout.
    const QSize designed = window.testAttribute(Qt::WA_Resized) ? window.size() : QSize(0, 0);
    QSize wanted = hasPlace ? window.size() : designed.expandedTo(window.sizeHint());
    if (window.minimumSizeHint().boundedTo(largest) != window.minimumSizeHint()) {
        makeScrollable(window);
        const int scrollBar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        wanted += QSize(scrollBar, scrollBar);
    }
    window.resize(wanted.boundedTo(largest));
    if (hasPlace) {
        return;
    }
    QRect frame(QPoint(), window.size() + FrameAllowance);
    frame.moveCenter(owner ? owner->frameGeometry().center() : room.center());
    if (!room.contains(frame)) {
        frame.moveCenter(room.center());
    }
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
