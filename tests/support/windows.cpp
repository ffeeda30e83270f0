#include "tests/support/windows.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QSet>
#include <QTest>

#include <list>

namespace talvora::test {

namespace {

/// Runs the scripts of whenModal, each from the event loop of the modal window it is for.
class ModalDriver : public QObject {
 public:
    struct Pending {
        std::function<Form*()> find;
        std::function<void(Form&)> script;
        std::string name;
    };

    static ModalDriver& instance() {
        static auto* driver = new ModalDriver;  // goes with the application
        return *driver;
    }

    void add(Pending pending) {
        pending_.push_back(std::move(pending));
        pollSoon();
    }

    /// Fails the test for each script that did not run, and forgets them.
    void finish() {
        for (const Pending& pending : pending_) {
            ADD_FAILURE() << "The window of the script for " << pending.name << " never came up";
        }
        pending_.clear();
    }

 private:
    ModalDriver() : QObject(qApp) {}

    // A chain of single shots and not one timer: a timer is not raised again while its own handler is under way, and
    // the scripts of nested windows run inside that of the outer one.
    void pollSoon() {
        constexpr int milliseconds = 2;
        if (!pending_.empty()) {
            QTimer::singleShot(milliseconds, this, &ModalDriver::poll);
        }
    }

    void poll() {
        for (auto pending = pending_.begin(); pending != pending_.end(); ++pending) {
            Form* form = pending->find();
            if (form && !served_.contains(form->window())) {
                const Pending found = *pending;
                pending_.erase(pending);
                pollSoon();
                run(found, *form);
                return;
            }
        }
        pollSoon();
    }

    void run(const Pending& pending, Form& form) {
        const QWidget* window = form.window();
        served_.insert(window);
        try {
            pending.script(form);
        } catch (const ProgramEnded&) {
            // The end of the program has dropped every window.
        } catch (const std::exception& error) {
            ADD_FAILURE() << "The script for " << pending.name << " threw: " << error.what();
            Form::dropAll();
        }
        served_.remove(window);
        if (::testing::Test::HasFatalFailure()) {
            Form::dropAll();
        }
    }

    std::list<Pending> pending_;
    QSet<const QWidget*> served_;  ///< windows whose script is under way
};

bool reachable(const QWidget* widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    return widget->isVisible() && widget->isEnabled() && (!modal || modal == widget->window());
}

}  // namespace

WindowTest::WindowTest() {
    constexpr int milliseconds = 60'000;
    ModalDriver::instance();
    setProgramEnder([this](ProgramEnd end) { programEnds_.push_back(end); });
    patience_.callOnTimeout([] {
        QWidget* modal = QApplication::activeModalWidget();
        ADD_FAILURE() << "Nobody deals with the window \"" << (modal ? qPrintable(modal->windowTitle()) : "") << '"';
        if (modal) {
            modal->hide();
        }
        Form::dropAll();
    });
    patience_.start(milliseconds);
}

WindowTest::~WindowTest() {
    ModalDriver::instance().finish();
    Form::dropAll();
    Form::releaseDefaults();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    setProgramEnder({});
}

void detail::whenModal(std::function<Form*()> find, std::function<void(Form&)> script, const char* name) {
    ModalDriver::instance().add({std::move(find), std::move(script), name});
}

Form* detail::activeModal() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal && modal->isVisible() ? Form::of(modal) : nullptr;
}

void click(QAbstractButton* button) {
    ASSERT_TRUE(reachable(button)) << button->objectName().toStdString() << " cannot be pressed";
    // A user hits a check box on its mark, since the text may be shorter than the control.
    const bool marked = qobject_cast<QCheckBox*>(button) || qobject_cast<QRadioButton*>(button);
    const QPoint centre = button->rect().center();
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, marked ? QPoint(10, centre.y()) : centre);
}

void type(QWidget* field, const QString& text) {
    ASSERT_TRUE(reachable(field)) << field->objectName().toStdString() << " cannot be typed in";
    field->setFocus(Qt::MouseFocusReason);
    for (const QChar character : text) {
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
}

void retype(QWidget* field, const QString& text) {
    type(field, {});
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    type(field, text);
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = focused();
    ASSERT_NE(target, nullptr) << "no window has the focus";
    QTest::keyClick(target, key, modifiers);
}

QWidget* focused() {
    if (QWidget* widget = QApplication::focusWidget()) {
        return widget;
    }
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* window = modal ? modal : QApplication::activeWindow();
    if (!window && !Form::loaded().empty()) {
        window = Form::loaded().back()->window();
    }
    return window && window->focusWidget() ? window->focusWidget() : window;
}

void waitFor(const std::function<bool()>& condition, int milliseconds) {
    ASSERT_TRUE(QTest::qWaitFor(condition, milliseconds)) << "waited in vain";
}

}  // namespace talvora::test
