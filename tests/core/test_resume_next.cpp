#include "core/resume_next.h"

#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

TEST(ResumeNextTest, RunsEveryStepAndRemembersTheLastError) {
    int run = 0;
    ResumeNext steps;
    EXPECT_EQ(steps.status(), Status::Done);
    steps([&] { ++run; });
    steps([&] { throw RuntimeError(errors::Overflow); });
    steps([&] { throw DatabaseError(208, u"missing table"_s, u"42S02"_s); });
    steps([&] { ++run; });
    EXPECT_EQ(run, 2);
    EXPECT_EQ(steps.errorNumber(), 208);
    steps([] { throw DatabaseError(0, u"link lost"_s, u"08S01"_s); });
    EXPECT_EQ(steps.status(), Status::Failed) << "an error without a number is still one";
}

}  // namespace

}  // namespace talvora::test
