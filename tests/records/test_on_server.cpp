#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

// Says in every run whether the record tests ran on a server too, and that the server was one.
class OnServerTest : public DatabaseTest {};
TALVORA_ON_EVERY_ENGINE(OnServerTest);

TEST_P(OnServerTest, ServerAnswers) {
    if (engines().size() == 1) {
        GTEST_SKIP() << "Set TALVORA_TEST_SERVER to an ADO connection string to run the record tests on a SQL Server.";
    }
    if (GetParam() == Engine::Server) {
        EXPECT_TRUE(rowsOf(u"select @@version"_s).contains(u"SQL Server"_s));
    }
}

}  // namespace

}  // namespace talvora::test
