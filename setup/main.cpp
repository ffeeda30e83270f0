#include "setup/commands.h"
#include "setup/frmsetup.h"
#include "toolkit/application/application.h"

#include <QCoreApplication>

// With a verb the tool needs no display; without one it opens its window.
int main(int argc, char** argv) {
    if (argc > 1) {
        const QCoreApplication application(argc, argv);
        return static_cast<int>(talvora::runCommand(QCoreApplication::arguments().sliced(1)));
    }
    talvora::Application application(argc, argv);
    return application.run([] { talvora::frmSetup::Default().ShowModal(); });
}
