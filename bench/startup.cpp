// The time from the start of a process to its first painted window: the program as an organisation starts it, up to the
// login window on the sample bank, against a process that shows an empty window: this program's own, with and without a
// line of text, and that of a program of Qt alone. A process is started for each, by turns, so that a machine whose
// speed drifts bears on all alike.
#include "bench/first_paint.h"
#include "bench/median.h"
#include "core/mdlpublic.h"
#include "setup/sample/sample.h"
#include "setup/session.h"
#include "toolkit/application/application.h"
#include "workbench/main_routine.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <vector>

namespace talvora {
namespace {

using namespace Qt::StringLiterals;
using bench::FirstPaint;
using bench::median;
using bench::sharedClock;

/// A sample bank in a folder of its own, and the connection file beside this program that leads to it. Both go at the
/// end.
class SampleInstallation {
 public:
    SampleInstallation() {
        const auto connection = embeddedConnection(folder_.filePath(u"sample.db"_s));
        installDatabase(connection, u"admin"_s);
        installSample();
        cnnPublic.Close();
        writeConnectionFile(connectionFilePath(), connection);
    }
    SampleInstallation(const SampleInstallation&) = delete;
    SampleInstallation& operator=(const SampleInstallation&) = delete;
    ~SampleInstallation() { QFile::remove(connectionFilePath()); }

 private:
    QTemporaryDir folder_;
};

int startProgram(int& argc, char** argv) {
    Application application(argc, argv);
    FirstPaint painted;
    application.installEventFilter(&painted);
    return application.run(Main);
}

/// An empty window is its frame alone, or its frame with one Chinese label, for which Qt has to load the fonts.
int startEmptyWindow(int& argc, char** argv, bool withLabel) {
    QApplication application(argc, argv);
    FirstPaint painted;
    application.installEventFilter(&painted);
    QWidget window;
    if (withLabel) {
        new QLabel(u"登录"_s, &window);
    }
    window.show();
    return QApplication::exec();
}

/// Seconds until the window of a program in the given part stands painted.
double secondsOf(const QString& part, const QString& program) {
    const auto start = sharedClock();
    QProcess process;
    process.start(program, {part});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qFatal("the window did not come up");
    }
    constexpr double nanoseconds = 1E9;
    return static_cast<double>(process.readAllStandardOutput().toLongLong() - start) / nanoseconds;
}

/// A kind of process, with what each of its runs took.
struct Side {
    QString part;
    QString program = QCoreApplication::applicationFilePath();
    std::vector<double> seconds{};
};

void loginWindow(benchmark::State& state) {
    const SampleInstallation sample;
    Side program{u"program"_s};
    Side label{u"label"_s};
    Side empty{u"empty"_s};
    Side bare{{}, QCoreApplication::applicationDirPath() + u"/talvora_bench_bare_window"_s};
    std::array order{&program, &label, &empty, &bare};
    for (auto _ : state) {
        for (Side* side : order) {
            side->seconds.push_back(secondsOf(side->part, side->program));
        }
        state.SetIterationTime(program.seconds.back());
        // What a process finds in the processor's caches depends on the one before it.
        std::reverse(order.begin(), order.end());
    }
    state.counters["ratio_to_label"] = median(program.seconds) / median(label.seconds);
    state.counters["ratio_to_textless"] = median(program.seconds) / median(empty.seconds);
    state.counters["ratio_to_qt_alone"] = median(program.seconds) / median(bare.seconds);
}
BENCHMARK(loginWindow)->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace talvora

int main(int argc, char** argv) {
    using namespace Qt::StringLiterals;
    const QLatin1StringView part(argc == 2 ? argv[1] : "");
    if (part == "program"_L1) {
        return talvora::startProgram(argc, argv);
    }
    if (part == "label"_L1 || part == "empty"_L1) {
        return talvora::startEmptyWindow(argc, argv, part == "label"_L1);
    }
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
