#include "toolkit/controls/toolbar.h"

#include "platform/runtime_error.h"
#include "toolkit/look/icons.h"

#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int ElementNotFound = 35601;
constexpr int IconSize = 24;
constexpr char KeyProperty[] = "key";
constexpr char CaptionProperty[] = "caption";
constexpr char PictureProperty[] = "picture";

// An ampersand in a caption is itself: the names of saved searches are their users' words.
template <class Labelled>
void label(Labelled& item, const QString& caption) {
    item.setProperty(CaptionProperty, caption);
    item.setText(QString(caption).replace(u'&', u"&&"_s));
}

// A menu without entries would open unseen and swallow the next click, so it says that it has none.
void giveMenu(QToolButton& button, QToolButton::ToolButtonPopupMode mode) {
    auto* menu = new QMenu(&button);
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] {
        if (menu->isEmpty()) {
            QAction* words = menu->addAction(u"（无）"_s);
            words->setEnabled(false);
            QObject::connect(menu, &QMenu::aboutToHide, words, &QObject::deleteLater);
        }
    });
    button.setMenu(menu);
    button.setPopupMode(mode);
}

[[noreturn]] void missing(const QString& key) {
    throw RuntimeError(ElementNotFound, u"找不到元素: %1"_s.arg(key));
}

}  // namespace

ToolBar::ToolBar(QWidget* parent) : QToolBar(parent) {
    setIconSize(QSize(IconSize, IconSize));
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void ToolBar::addButton(const QString& key, const QString& caption, Kind kind, const QString& picture) {
    auto* button = new QToolButton(this);
    const QString pictureName = picture.isEmpty() ? key : picture;
    button->setProperty(KeyProperty, key);
    button->setProperty(PictureProperty, pictureName);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoRaise(true);
    // The bar hands its style on to actions only.
    button->setToolButtonStyle(toolButtonStyle());
    button->setAccessibleName(caption.trimmed());
    label(*button, caption);
    button->setIcon(icon(pictureName));
    if (kind != Kind::Command) {
        giveMenu(*button, kind == Kind::Split ? QToolButton::MenuButtonPopup : QToolButton::InstantPopup);
    }
    button->installEventFilter(this);
    connect(button, &QToolButton::clicked, this, [this, button, key] {
        if (button->popupMode() != QToolButton::InstantPopup) {
            Q_EMIT ButtonClick(key);
        }
    });
    addWidget(button);
    keys_ += key;
}

void ToolBar::addMenuEntry(const QString& buttonKey, const QString& entryKey, const QString& caption) {
    QToolButton* owner = button(buttonKey);
    if (!owner->menu()) {
        giveMenu(*owner, QToolButton::InstantPopup);
    }
    QAction* action = owner->menu()->addAction(QString());
    action->setProperty(KeyProperty, entryKey);
    label(*action, caption);
    connect(action, &QAction::triggered, this, [this, entryKey] { Q_EMIT ButtonMenuClick(entryKey); });
}

void ToolBar::clearMenu(const QString& buttonKey) {
    if (QMenu* menu = button(buttonKey)->menu()) {
        menu->clear();
    }
}

void ToolBar::addBar() {
    addSeparator();
}

QString ToolBar::caption(const QString& key) const {
    const QToolButton* found = findButton(key);
    const QObject* item = found ? static_cast<const QObject*>(found) : entry(key);
    return item->property(CaptionProperty).toString();
}

void ToolBar::setCaption(const QString& key, const QString& text) {
    if (QToolButton* found = findButton(key)) {
        label(*found, text);
        found->setAccessibleName(text.trimmed());
    } else {
        label(*entry(key), text);
    }
}

void ToolBar::setUsable(const QString& key, bool usable) {
    QToolButton* found = button(key);
    found->setEnabled(usable);
    const QString pictureName = found->property(PictureProperty).toString();
    found->setIcon(icon(usable ? pictureName : pictureName + u'1'));
}

QToolButton* ToolBar::button(const QString& key) const {
    QToolButton* found = findButton(key);
    if (!found) {
        missing(key);
    }
    return found;
}

QAction* ToolBar::entry(const QString& key) const {
    QAction* found = findEntry(key);
    if (!found) {
        missing(key);
    }
    return found;
}

// A menu opens by the arrow key, too, which is the only way by keyboard to that of a split button.
bool ToolBar::eventFilter(QObject* watched, QEvent* event) {
    auto* source = qobject_cast<QToolButton*>(watched);
    if (source && event->type() == QEvent::WindowDeactivate) {
        // The mouse leaves unseen while the dialog of a command is open, and the button would stay lit.
        source->setAttribute(Qt::WA_UnderMouse, false);
    }
    if (source && source->menu() && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        source->showMenu();
        return true;
    }
    return QToolBar::eventFilter(watched, event);
}

QToolButton* ToolBar::findButton(const QString& key) const {
    const auto buttons = findChildren<QToolButton*>(Qt::FindDirectChildrenOnly);
    for (QToolButton* button : buttons) {
        if (button->property(KeyProperty) == key) {
            return button;
        }
    }
    return nullptr;
}

QAction* ToolBar::findEntry(const QString& key) const {
    const auto menus = findChildren<QMenu*>();
    for (const QMenu* menu : menus) {
        for (QAction* action : menu->actions()) {
            if (action->property(KeyProperty) == key) {
                return action;
            }
        }
    }
    return nullptr;
}

}  // namespace talvora
