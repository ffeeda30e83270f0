#include "tests/support/modal_driver.h"

#include <QApplication>
#include <QEvent>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>

namespace talvora::test {

namespace {

constexpr int PollMilliseconds = 2;
constexpr int WatchMilliseconds = 200;
constexpr int Patience = 15000;

}  // namespace

ModalDriver& ModalDriver::instance() {
    static auto* driver = new ModalDriver;  // goes with the application
    return *driver;
}

ModalDriver::ModalDriver() : QObject(qApp) {
    qApp->installEventFilter(this);
    idle_.start();
    auto* watchdog = new QTimer(this);
    connect(watchdog, &QTimer::timeout, this, &ModalDriver::watch);
    watchdog->start(WatchMilliseconds);
}

void ModalDriver::add(std::function<Form*()> find, std::function<void(Form&)> script, std::string name) {
    touch();
    pending_.push_back({std::move(find), std::move(script), std::move(name)});
    QTimer::singleShot(PollMilliseconds, this, &ModalDriver::poll);
}

// A chain of single shots and not one timer: a timer is not raised again while its own handler is under way, and the
// scripts of nested windows run inside that of the outer one.
void ModalDriver::poll() {
    for (auto pending = pending_.begin(); pending != pending_.end(); ++pending) {
        Form* form = pending->find();
        if (!form || served_.contains(form->window())) {
            continue;
        }
        const Pending found = *pending;
        pending_.erase(pending);
        if (!pending_.empty()) {
            QTimer::singleShot(PollMilliseconds, this, &ModalDriver::poll);
        }
        run(found, *form);
        return;
    }
    if (!pending_.empty()) {
        QTimer::singleShot(PollMilliseconds, this, &ModalDriver::poll);
    }
}

void ModalDriver::run(const Pending& pending, Form& form) {
    touch();
    served_.insert(form.window());
    try {
        pending.script(form);
    } catch (const ProgramEnded&) {
        return;
    } catch (const std::exception& error) {
        ADD_FAILURE() << "The script for " << pending.name << " threw: " << error.what();
        Form::dropAll();
    }
    touch();
    if (::testing::Test::HasFatalFailure()) {
        Form::dropAll();
    }
}

// A test that waits in an event loop with nothing done for so long waits for ever, be the window there or gone.
void ModalDriver::watch() {
    if (QThread::currentThread()->loopLevel() == 0) {
        touch();
        return;
    }
    if (idle_.elapsed() < Patience) {
        return;
    }
    touch();
    QWidget* modal = QApplication::activeModalWidget();
    ADD_FAILURE() << "Nobody deals with the window \"" << (modal ? modal->windowTitle().toStdString() : "(none)")
                  << '"';
    if (modal) {
        modal->hide();
    }
    Form::dropAll();
}

void ModalDriver::finish() {
    for (const Pending& pending : pending_) {
        ADD_FAILURE() << "The window of the script for " << pending.name << " never came up";
    }
    pending_.clear();
    served_.clear();
}

bool ModalDriver::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        served_.remove(receiver);
    }
    return false;
}

}  // namespace talvora::test
