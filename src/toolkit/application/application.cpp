#include "toolkit/application/application.h"

#include "toolkit/application/font_configuration.h"
#include "toolkit/application/last_resort.h"
#include "toolkit/application/server_wait.h"
#include "toolkit/application/translation.h"
#include "toolkit/forms/form.h"
#include "toolkit/look/icons.h"
#include "toolkit/look/theme.h"

#include <QLocale>
#include <QTimer>

#include <chrono>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

constexpr auto iconDelay = 100ms;

}  // namespace

Application::Application(int& argc, char** argv) : Application(argc, argv, FontConfiguration()) {}

Application::Application(int& argc, char** argv, FontConfiguration&& fonts) : QApplication(argc, argv) {
    setApplicationName(u"Talvora"_s);
    // A hidden login window with a modal one after it must not end the program; its main routine does.
    setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    installTranslations(*this);
    fonts.finish();
    applyTheme(*this);
    ServerWait::install(this);
    // Drawn at every size that a window manager may want, it would hold up the first window.
    QTimer::singleShot(iconDelay, this, [] { setWindowIcon(icon(u"talvora"_s)); });
}

Application::~Application() {
    Form::dropAll();
    Form::releaseDefaults();
    sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int Application::run(const std::function<void()>& main) {
    guarded(main);
    return EXIT_SUCCESS;
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
        // Not guarded(): the error box itself lives on events.
        guarded([&] { lastResort(error); });
    } catch (const ProgramEnded&) {
        return false;
    }
    return false;
}

}  // namespace talvora
