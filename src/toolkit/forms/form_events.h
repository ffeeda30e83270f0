#pragma once

#include <QObject>

class QEvent;
class QKeyEvent;
class QWidget;

namespace talvora {

class Form;

/// What the windows of all forms have in common as to events: Enter, Escape, the arrows between options, the wheel over
/// fields, the close box and the end of a modal wait.
class FormEvents : public QObject {
 public:
    /// Makes sure that the application's events pass through here.
    static void install();

    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    using QObject::QObject;

    static bool closed(const QWidget& window, QEvent& event);
    static bool keyPressed(QWidget& receiver, const QKeyEvent& key);
};

}  // namespace talvora
