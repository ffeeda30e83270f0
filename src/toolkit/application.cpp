#include "toolkit/application.h"

#include "toolkit/form.h"
#include "toolkit/icons.h"
#include "toolkit/last_resort.h"
#include "toolkit/theme.h"
#include "toolkit/translation.h"

#include <QLocale>

#ifdef TALVORA_FONTCONFIG
#include <fontconfig/fontconfig.h>
#endif

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

/// Reads the configuration of the system's fonts while Qt connects to the display, where they are found by Fontconfig.
/// Qt itself would do it at the first text, which took a tenth of the time to the first window.
std::future<void> fontConfiguration() {
    return std::async(std::launch::async, [] {
#ifdef TALVORA_FONTCONFIG
        FcInit();
#endif
    });
}

}  // namespace

Application::Application(int& argc, char** argv) : Application(argc, argv, fontConfiguration()) {}

Application::Application(int& argc, char** argv, const std::future<void>& fonts) : QApplication(argc, argv) {
    setApplicationName(u"Talvora"_s);
    // A hidden login window with a modal one after it must not end the program; its main routine does.
    setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    installTranslations(*this);
    fonts.wait();
    applyTheme(*this);
    setWindowIcon(icon(u"talvora"_s));
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
