#include "tests/support/prompt_script.h"
#include "toolkit/application.h"
#include "toolkit/last_resort.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace talvora;

namespace {

// The program's own ender, in a process of its own: no test replaces it here.
TEST(LastResortDeathTest, ProcessEndsAtOnceAndTellsTheSession) {
    const auto end = [](ProgramEnd how) {
        onProgramEnd([](ProgramEnd way) { std::fputs(way == ProgramEnd::Orderly ? "kept" : "abandoned", stderr); });
        endProgram(how);
    };
    EXPECT_EXIT(end(ProgramEnd::Orderly), ::testing::ExitedWithCode(0), "^kept$");
    EXPECT_EXIT(end(ProgramEnd::Failed), ::testing::ExitedWithCode(1), "^abandoned$");
}

TEST(LastResortDeathTest, ErrorOfTheMainRoutineIsShown) {
    const auto run = [] {
        test::PromptScript script;
        script.expect();
        onProgramEnd([&](ProgramEnd) { std::fputs(qUtf8Printable(script.last().text), stderr); });
        static_cast<Application*>(qApp)->run([] { throw RuntimeError(errors::ConnectionClosed); });
    };
    EXPECT_EXIT(run(), ::testing::ExitedWithCode(1), "3704");
}

}  // namespace
