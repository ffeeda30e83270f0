#include <QCoreApplication>
#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    // The embedded engine asks the application for its folder.
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
