#include "toolkit/application.h"
#include "toolkit/last_resort.h"
#include "toolkit/prompts.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace talvora;

namespace {

// The program's own ender, in a process of its own: no test replaces it here.
void endWithCallback(ProgramEnd end) {
    onProgramEnd([](ProgramEnd how) { std::fputs(how == ProgramEnd::Orderly ? "kept" : "abandoned", stderr); });
    endProgram(end);
}

struct Confirming : Prompter {
    MsgBoxResult message(const QString& text, int, const QString&) override {
        std::fputs(qUtf8Printable(text), stderr);
        return vbOK;
    }
    QString input(const QString&, const QString&, const QString&, int) override { return {}; }
    QString openFile(const QString&, const QString&, const QString&) override { return {}; }
    QString saveFile(const QString&, const QString&, const QString&) override { return {}; }
};

TEST(LastResortDeathTest, ProcessEndsAtOnceAndTellsTheSession) {
    EXPECT_EXIT(endWithCallback(ProgramEnd::Orderly), ::testing::ExitedWithCode(0), "^kept$");
    EXPECT_EXIT(endWithCallback(ProgramEnd::Failed), ::testing::ExitedWithCode(1), "^abandoned$");
}

TEST(LastResortDeathTest, ErrorOfTheMainRoutineIsShown) {
    const auto run = [] {
        Confirming confirming;
        setPrompter(&confirming);
        static_cast<Application*>(qApp)->run([] { throw RuntimeError(errors::ConnectionClosed); });
    };
    EXPECT_EXIT(run(), ::testing::ExitedWithCode(1), "3704");
}

}  // namespace
