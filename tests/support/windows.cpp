#include "tests/support/windows.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <list>

namespace talvora::test {

namespace {

constexpr int PollMilliseconds = 2;
constexpr int WatchMilliseconds = 200;
constexpr int Patience = 15000;

/// Runs the scripts of whenModal, each from the event loop of the modal window it is for, and watches that no modal
/// window stays open with nobody to deal with it.
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
        served_.clear();
    }

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Hide) {
            served_.remove(receiver);
        } else if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
            idle_.restart();
        }
        return false;
    }

 private:
    ModalDriver() : QObject(qApp) {
        qApp->installEventFilter(this);
        idle_.start();
        auto* watchdog = new QTimer(this);
        connect(watchdog, &QTimer::timeout, this, &ModalDriver::watch);
        watchdog->start(WatchMilliseconds);
    }

    // A chain of single shots and not one timer: a timer is not raised again while its own handler is under way, and
    // the scripts of nested windows run inside that of the outer one.
    void pollSoon() {
        if (!pending_.empty()) {
            QTimer::singleShot(PollMilliseconds, this, &ModalDriver::poll);
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
        idle_.restart();
        served_.insert(form.window());
        try {
            pending.script(form);
        } catch (const ProgramEnded&) {
            return;
        } catch (const std::exception& error) {
            ADD_FAILURE() << "The script for " << pending.name << " threw: " << error.what();
            Form::dropAll();
        }
        if (::testing::Test::HasFatalFailure()) {
            Form::dropAll();
        }
    }

    // A test that waits in an event loop with nothing done for so long waits for ever, be the window there or gone.
    void watch() {
        if (QThread::currentThread()->loopLevel() == 0) {
            idle_.restart();
        }
        if (idle_.elapsed() < Patience) {
            return;
        }
        idle_.restart();
        QWidget* modal = QApplication::activeModalWidget();
        ADD_FAILURE() << "Nobody deals with the window \"" << (modal ? modal->windowTitle().toStdString() : "(none)")
                      << '"';
        if (modal) {
            modal->hide();
        }
        Form::dropAll();
    }

    std::list<Pending> pending_;
    QSet<const QObject*> served_;  ///< windows whose script has begun, as long as they are up
    QElapsedTimer idle_;           ///< since the test last did something
};

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
    ModalDriver::instance().add({std::move(find), std::move(script), name});
}

Form* detail::activeModal() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal && modal->isVisible() ? Form::of(modal) : nullptr;
}

void click(QAbstractButton* button) {
    ASSERT_TRUE(reachable(button)) << button->objectName().toStdString() << " cannot be pressed";
    const bool marked = qobject_cast<QCheckBox*>(button) || qobject_cast<QRadioButton*>(button);
    const QPoint place = marked ? QPoint(MarkOffset, button->height() / 2) : button->rect().center();
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, place);
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
    QWidget* window = topWindow();
    return window && window->focusWidget() ? window->focusWidget() : window;
}

void waitFor(const std::function<bool()>& condition, int milliseconds) {
    ASSERT_TRUE(QTest::qWaitFor(condition, milliseconds)) << "waited in vain";
}

}  // namespace talvora::test
