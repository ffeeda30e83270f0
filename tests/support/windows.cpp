#include "tests/support/windows.h"

#include "tests/support/modal_driver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QTest>

namespace talvora::test {

namespace {

// Where a user would hit a check box: on its mark, since the text may be shorter than the control.
constexpr int MarkOffset = 10;

bool reachable(const QWidget* widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    return widget->isVisible() && widget->isEnabled() && (!modal || modal == widget->window());
}

QWidget* topWindow() {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    if (QWidget* active = QApplication::activeWindow()) {
        return active;
    }
    return Form::loaded().empty() ? nullptr : Form::loaded().back()->window();
}

}  // namespace

WindowTest::WindowTest() {
    ModalDriver::instance();
    setProgramEnder([this](ProgramEnd end) { programEnds_.push_back(end); });
}

WindowTest::~WindowTest() {
    ModalDriver::instance().finish();
    Form::dropAll();
    Form::releaseDefaults();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    setProgramEnder({});
}

void detail::whenModal(std::function<Form*()> find, std::function<void(Form&)> script, const char* name) {
    ModalDriver::instance().add(std::move(find), std::move(script), name);
}

Form* detail::activeModal() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal && modal->isVisible() ? Form::of(modal) : nullptr;
}

void click(QAbstractButton* button) {
    ModalDriver::instance().touch();
    ASSERT_TRUE(reachable(button)) << button->objectName().toStdString() << " cannot be pressed";
    const bool marked = qobject_cast<QCheckBox*>(button) || qobject_cast<QRadioButton*>(button);
    const QPoint place = marked ? QPoint(MarkOffset, button->height() / 2) : button->rect().center();
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, place);
}

void type(QWidget* field, const QString& text) {
    ModalDriver::instance().touch();
    ASSERT_TRUE(reachable(field)) << field->objectName().toStdString() << " cannot be typed in";
    field->setFocus(Qt::MouseFocusReason);
    for (const QChar character : text) {
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
}

void retype(QWidget* field, const QString& text) {
    ModalDriver::instance().touch();
    ASSERT_TRUE(reachable(field)) << field->objectName().toStdString() << " cannot be typed in";
    field->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    type(field, text);
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    ModalDriver::instance().touch();
    QWidget* target = focused();
    ASSERT_NE(target, nullptr) << "no window has the focus";
    QTest::keyClick(target, key, modifiers);
}

QWidget* focused() {
    if (QWidget* widget = QApplication::focusWidget()) {
        return widget;
    }
    QWidget* window = topWindow();
    return window && window->focusWidget() ? window->focusWidget() : window;
}

void waitFor(const std::function<bool()>& condition, int milliseconds) {
    ModalDriver::instance().touch();
    ASSERT_TRUE(QTest::qWaitFor(condition, milliseconds)) << "waited in vain";
}

}  // namespace talvora::test
