#include "platform/user_settings.h"
#include "tests/support/prompt_script.h"
#include "toolkit/application/application.h"
#include "toolkit/look/theme.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <cstdio>

namespace {

// What the screenless platform cannot do is no news in a test's output.
void report(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (!text.startsWith(QStringLiteral("This plugin does not support"))) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
    }
}

}  // namespace

// The main of every test program with windows: the program's own application object, on no screen.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qInstallMessageHandler(report);
    ::testing::InitGoogleMock(&argc, argv);
    talvora::Application application(argc, argv);
    talvora::completeTheme();
    const QTemporaryDir settings;
    talvora::setUserSettingsFile(settings.filePath(QStringLiteral("settings.ini")));
    // In charge where no other script is: every prompt fails the test.
    talvora::test::PromptScript noAnswers;
    return RUN_ALL_TESTS();
}
