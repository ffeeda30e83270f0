#include "support/database_fixture.h"

namespace talvora::test {

namespace {

// Says in every run whether the record tests ran on a server too.
TEST(OnServerTest, RecordTestsRunThere) {
    if (engines().size() == 1) {
        GTEST_SKIP() << "Set TALVORA_TEST_SERVER to an ADO connection string to run the record tests on a SQL Server.";
    }
}

}  // namespace

}  // namespace talvora::test
