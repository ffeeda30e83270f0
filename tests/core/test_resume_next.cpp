#include "core/resume_next.h"

#include <gtest/gtest.h>

namespace talvora::test {

namespace {

TEST(ResumeNextTest, RunsEveryStepAndRemembersAFailure) {
    int run = 0;
    ResumeNext steps;
    steps([&] { ++run; });
    EXPECT_EQ(steps.status(), Status::Done);
    steps([] { throw DatabaseError(0, QStringLiteral("an error without a number is still one"), QString()); });
    steps([&] { ++run; });
    EXPECT_EQ(run, 2);
    EXPECT_EQ(steps.status(), Status::Failed);
}

}  // namespace

}  // namespace talvora::test
