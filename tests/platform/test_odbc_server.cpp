#include "platform/database/connection.h"
#include "platform/database/odbc/odbc_driver.h"
#include "platform/database/odbc/odbc_target.h"
#include "platform/runtime_error.h"
#include "platform/tds_server.h"

#include <gtest/gtest.h>

#include <functional>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

/// FreeTDS and this side of the link, on a server that behaves badly.
class OdbcServerTest : public testing::Test {
 protected:
    void SetUp() override {
        if (odbc::bestDriver(odbc::installedDrivers()) != "FreeTDS"_L1) {
            GTEST_SKIP() << "FreeTDS is not the best driver here";
        }
    }

    std::unique_ptr<Driver> open(const QString& password = u"pw"_s) {
        return openOdbc({u"127.0.0.1,%1"_s.arg(server_.port()), u"考核"_s, u"sa"_s, password}, 1);
    }

    static void expectFailure(const std::function<void()>& step, int number, const QString& state) {
        try {
            step();
            FAIL() << "no failure, but " << number << " was expected";
        } catch (const DatabaseError& error) {
            EXPECT_EQ(error.number(), number) << error.what();
            EXPECT_EQ(error.sqlState(), state) << error.what();
        }
    }

    TdsServer server_;
};

TEST_F(OdbcServerTest, ThePasswordArrivesAsItWasGiven) {
    for (const QString& password :
         {u"pw"_s, u""_s, u"a;b=c"_s, u"a}b"_s, u"a;}"_s, u"{a}"_s, u"}"_s, u" a "_s, u"a'b[c]?@"_s, u"密码"_s}) {
        open(password);
        EXPECT_EQ(server_.seen().last(), u"sa/"_s + password + u"/考核"_s);
    }
}

TEST_F(OdbcServerTest, EveryKindOfValueComesBack) {
    const Recordset rows = open()->execute(u"values"_s);
    ASSERT_EQ(rows.RecordCount(), 2);
    const Row first = rows.first();
    EXPECT_EQ(first.text("whole"), u"-5"_s);
    EXPECT_EQ(first.text("bit"), u"1"_s);
    EXPECT_EQ(first.text("real"), u"0.3333"_s);
    EXPECT_EQ(first.text("moment"), u"2009-07-08 12:34:56"_s);
    EXPECT_EQ(first.text("day"), u"2010-01-02"_s);
    EXPECT_EQ(first.text("text"), u"张三"_s);
    for (int column = 0; column < rows.FieldCount(); ++column) {
        EXPECT_TRUE(rows.row(1).isNull(column)) << column;
    }
}

TEST_F(OdbcServerTest, AFailureTellsItsNumberAndKind) {
    const auto driver = open();
    expectFailure([&] { driver->execute(u"truncate"_s); }, 8152, u"22001"_s);
    expectFailure([&] { driver->execute(u"half"_s); }, 245, u"22018"_s);
    expectFailure([&] { driver->execute(u"hang"_s); }, 0, u"HYT00"_s);
    driver->execute(u"after"_s);
    constexpr int unexpectedEnd = 20017;
    expectFailure([&] { driver->execute(u"hang up"_s); }, unexpectedEnd, u"08S01"_s);
    expectFailure([&] { driver->execute(u"after"_s); }, 0, u"08S01"_s);
}

// A transaction that the server rolled back left FreeTDS in the belief that it was still open: the next one was never
// begun, and its end failed.
TEST_F(OdbcServerTest, ATransactionThatTheServerEndedLeavesTheNextOneWhole) {
    const auto driver = open();
    driver->beginTransaction();
    expectFailure([&] { driver->execute(u"convert"_s); }, 245, u"22018"_s);
    driver->execute(u"alone"_s);
    expectFailure([&] { driver->commitTransaction(); }, 3902, u"25000"_s);
    driver->beginTransaction();
    driver->execute(u"inside"_s);
    driver->commitTransaction();
    driver->execute(u"outside"_s);
    const QStringList expected = {u"begin transaction"_s,
                                  u"convert*"_s,
                                  u"alone"_s,
                                  u"commit transaction"_s,
                                  u"begin transaction"_s,
                                  u"inside*"_s,
                                  u"commit transaction*"_s,
                                  u"outside"_s};
    EXPECT_EQ(server_.seen().sliced(1), expected);
}

TEST_F(OdbcServerTest, ASessionBeginsAfreshAfterATransactionThatTheServerEnded) {
    Connection session;
    session.ConnectionString =
        u"User ID=sa;Initial Catalog=考核;Data Source=127.0.0.1,%1;pwd=a;b"_s.arg(server_.port());
    session.Open();
    session.BeginTrans();
    EXPECT_THROW(session.Execute(u"convert"_s), DatabaseError);
    session.BeginTrans();
    session.Execute(u"inside"_s);
    session.CommitTrans();
    const QStringList expected = {u"sa/a;b/考核"_s,        u"begin transaction"_s, u"convert*"_s,
                                  u"commit transaction"_s, u"begin transaction"_s, u"inside*"_s,
                                  u"commit transaction*"_s};
    EXPECT_EQ(server_.seen(), expected);
}

}  // namespace
