#pragma once

#include "tests/support/prompt_script.h"
#include "toolkit/forms/form.h"

#include <QString>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

class QAbstractButton;
class QWidget;

/// Has a failed comparison show a text as text.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace talvora::test {

/// The base of window tests: fresh default forms for each test, none left behind. The end of the program does not leave
/// the process here: it is put on record and closes every window, and the ShowModal calls under way throw ProgramEnded.
class WindowTest : public ::testing::Test {
 protected:
    WindowTest();
    ~WindowTest() override;

    const std::vector<ProgramEnd>& programEnds() const { return programEnds_; }

 private:
    std::vector<ProgramEnd> programEnds_;
    QTimer patience_;  ///< closes what keeps the test in an event loop for too long, and fails it
};

namespace detail {
void whenModal(std::function<Form*()> find, std::function<void(Form&)> script, const char* name);
Form* activeModal();
}  // namespace detail

/// Runs `script` once a form of class F is up and is the innermost modal window. Give it before the call that shows the
/// window; scripts of nested windows may be given at once or one inside the other. A script that fails fatally or
/// throws closes every window; one whose window never came fails the test.
template <class F>
void whenModal(std::function<void(F&)> script) {
    detail::whenModal([]() -> Form* { return dynamic_cast<F*>(detail::activeModal()); },
                      [script = std::move(script)](Form& form) { script(static_cast<F&>(form)); }, typeid(F).name());
}

/// Presses a button, option or check box with the mouse. Fails when it is hidden, disabled or behind a modal window.
void click(QAbstractButton* button);

/// Sets the focus on a field and types `text` key by key, behind what is there. Fails when a user couldn't.
void type(QWidget* field, const QString& text);

/// The same after emptying the field.
void retype(QWidget* field, const QString& text);

/// Presses a key where the focus is.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// The field that has the focus in the window on top, or would have if the window were active.
QWidget* focused();

/// Runs the event loop until `condition` holds; fails the test after `milliseconds`.
void waitFor(const std::function<bool()>& condition, int milliseconds = 5000);

}  // namespace talvora::test
