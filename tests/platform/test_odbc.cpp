#include "platform/database/odbc/odbc_driver.h"
#include "platform/database/odbc/odbc_handle.h"
#include "platform/database/odbc/odbc_target.h"
#include "platform/runtime_error.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <clocale>
#include <vector>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

/// What every ODBC driver must do for a session, tried on the one for SQLite files.
class OdbcDriverTest : public testing::Test {
 protected:
    void SetUp() override {
        if (!odbc::installedDrivers().contains(u"SQLite3"_s)) {
            GTEST_SKIP() << "the ODBC driver SQLite3 is not installed";
        }
        // The driver manager turns texts into the locale's encoding for a driver that has no wide functions.
        std::setlocale(LC_CTYPE, "C.UTF-8");
        driver_ = open();
        driver_->execute(
            u"create table t (id integer, name nvarchar(50), score double, noted timestamp, born date, "
            "agreed bit, essay text)"_s);
    }

    std::unique_ptr<Driver> open() const {
        return openOdbcWith(u"DRIVER=SQLite3;Database="_s + directory_.filePath(u"test.db"_s), 5);
    }

    void insert(int id) { driver_->execute(u"insert into t (id) values (%1)"_s.arg(id)); }

    /// By another session, which sees only what is committed.
    int countOfRows() const { return open()->execute(u"select id from t"_s).RecordCount(); }

    QTemporaryDir directory_;
    std::unique_ptr<Driver> driver_;
};

TEST_F(OdbcDriverTest, EveryKindOfValueComesBack) {
    driver_->execute(
        u"insert into t values (-2147483648, '张三 ''A'' {x} ?', 0.3333, '2026-03-04 05:06:07', "
        "'2026-03-04', 1, '')"_s);
    driver_->execute(u"insert into t (id) values (2)"_s);
    const Recordset rows = driver_->execute(u"select * from t order by id"_s);
    ASSERT_EQ(rows.RecordCount(), 2);
    ASSERT_EQ(rows.FieldCount(), 7);
    const QString texts[] = {
        u"-2147483648"_s, u"张三 'A' {x} ?"_s, u"0.3333"_s, u"2026-03-04 05:06:07"_s, u"2026-03-04"_s, u"1"_s, u""_s};
    for (int column = 0; column < rows.FieldCount(); ++column) {
        EXPECT_EQ(rows.row(0).text(column), texts[column]);
        EXPECT_FALSE(rows.row(0).isNull(column)) << column;
        EXPECT_EQ(rows.row(1).isNull(column), column > 0) << column;
    }
    EXPECT_EQ(rows.row(0).number32("ID"), -2147483647 - 1);
}

TEST_F(OdbcDriverTest, LongTextComesWhole) {
    // Lengths around the size in which texts are fetched, and one of many such pieces.
    for (const int length : {1, 4094, 4095, 4096, 4097, 8190, 8191, 100'000}) {
        const QString essay = u"一丁七"_s.repeated(length).left(length);
        driver_->execute(u"delete from t"_s);
        driver_->execute(u"insert into t (essay) values ('%1')"_s.arg(essay));
        EXPECT_EQ(driver_->execute(u"select essay from t"_s).first().text("essay"), essay) << length;
    }
}

TEST_F(OdbcDriverTest, ManyRowsAndNoRows) {
    constexpr int many = 50'000;
    driver_->execute(
        u"insert into t (id, name) with n(i) as (select 1 union all select i + 1 from n where i < %1) "
        "select i, '名' || i from n"_s.arg(many));
    const Recordset rows = driver_->execute(u"select id, name from t order by id"_s);
    ASSERT_EQ(rows.RecordCount(), many);
    for (const int index : {0, 1, many / 2, many - 1}) {
        EXPECT_EQ(rows.row(index).number32("id"), index + 1);
        EXPECT_EQ(rows.row(index).text("name"), u"名%1"_s.arg(index + 1));
    }
    const Recordset none = driver_->execute(u"select id, name from t where id < 0"_s);
    EXPECT_EQ(none.RecordCount(), 0);
    EXPECT_EQ(none.FieldCount(), 2);
    EXPECT_EQ(driver_->execute(u"update t set id = 1 where id < 0"_s).FieldCount(), 0);
}

TEST_F(OdbcDriverTest, ATransactionIsKeptOrUndoneWhole) {
    driver_->beginTransaction();
    insert(1);
    try {
        driver_->execute(u"select * from nothere"_s);
        FAIL() << "a missing table was read";
    } catch (const DatabaseError& error) {
        EXPECT_TRUE(error.description().contains(u"nothere"_s)) << error.what();
        EXPECT_FALSE(error.description().startsWith(u'[')) << error.what();
        EXPECT_EQ(error.sqlState().size(), 5);
    }
    insert(2);
    EXPECT_EQ(countOfRows(), 0) << "a failing statement leaves the transaction open";
    driver_->commitTransaction();
    EXPECT_EQ(countOfRows(), 2);
    driver_->beginTransaction();
    insert(3);
    driver_->rollbackTransaction();
    EXPECT_EQ(countOfRows(), 2);
    EXPECT_THROW(driver_->commitTransaction(), DatabaseError);
    EXPECT_THROW(driver_->rollbackTransaction(), DatabaseError);
    insert(4);
    EXPECT_EQ(countOfRows(), 3) << "statements stand alone again";
    driver_->beginTransaction();
    insert(5);
    driver_.reset();
    EXPECT_EQ(countOfRows(), 3) << "the end of the session undoes what is open";
}

TEST(OdbcOpen, WhatIsNotThereFailsSoon) {
    EXPECT_THROW(openOdbcWith(u"DRIVER=No such driver;SERVER=x"_s, 1), DatabaseError);
    for (const QString& server : {u""_s, u"127.0.0.1,1"_s, u"no.such.host.invalid"_s, u"127.0.0.1,port"_s}) {
        QElapsedTimer clock;
        clock.start();
        EXPECT_THROW(openOdbc({server, u"db"_s, u"sa"_s, u"x"_s}, 1), DatabaseError) << qPrintable(server);
        EXPECT_LT(clock.elapsed(), 40'000) << qPrintable(server);
    }
}

struct Target {
    QString driver;
    QString dataSource;
    QString password;
    QString expected;

    QString text() const { return odbc::driverConnectionString(driver, {dataSource, u"考核"_s, u"sa"_s, password}); }
};

const QString freeTds = u"FreeTDS"_s;
const QString odbc18 = u"ODBC Driver 18 for SQL Server"_s;
const QString odbc17 = u"ODBC Driver 17 for SQL Server"_s;

TEST(OdbcTarget, IsSpelledAsTheDriverReadsIt) {
    // For FreeTDS, what stands between its name and the options that every string ends with.
    const QString user = u"UID=sa;PWD=p;DATABASE=考核;"_s;
    const std::vector<Target> targets = {
        {freeTds, u"db1"_s, u"p"_s, u"SERVER=db1;PORT=1433;"_s + user},
        {freeTds, u" tcp:db1 , 1500 "_s, u"p"_s, u"SERVER=db1;PORT=1500;"_s + user},
        {freeTds, u"db1\\express"_s, u"p"_s, u"SERVER=db1\\express;"_s + user},
        // A port makes the instance's name needless, and FreeTDS takes only one of them.
        {freeTds, u"db1\\express,1500"_s, u"p"_s, u"SERVER=db1;PORT=1500;"_s + user},
        {freeTds, u"(LOCAL)"_s, u"p"_s, u"SERVER=localhost;PORT=1433;"_s + user},
        {freeTds, u".\\express"_s, u"p"_s, u"SERVER=localhost\\express;"_s + user},
        {freeTds, u"db1"_s, u"a;b=c"_s, u"SERVER=db1;PORT=1433;UID=sa;PWD={a;b=c};DATABASE=考核;"_s},
        {freeTds, u"db1"_s, u"a}b"_s, u"SERVER=db1;PORT=1433;UID=sa;PWD=a}b;DATABASE=考核;"_s},
        {freeTds, u"db1"_s, u"{a}"_s, u"SERVER=db1;PORT=1433;UID=sa;PWD={{a}};DATABASE=考核;"_s},
        {freeTds, u"db1"_s, u" a"_s, u"SERVER=db1;PORT=1433;UID=sa;PWD={ a};DATABASE=考核;"_s},
        {odbc18, u"tcp:db1\\x,1500"_s, u"p"_s,
         u"DRIVER={ODBC Driver 18 for SQL Server};SERVER=tcp:db1\\x,1500;"_s + user +
             u"TrustServerCertificate=yes;Encrypt=optional;"_s},
        {odbc17, u"(local)"_s, u"a;b}c=d"_s,
         u"DRIVER={ODBC Driver 17 for SQL Server};SERVER=(local);UID=sa;PWD={a;b}}c=d};DATABASE=考核;"
         "TrustServerCertificate=yes;"_s},
        {u"SQL Server"_s, u"db1"_s, u" p"_s, u"DRIVER={SQL Server};SERVER=db1;UID=sa;PWD={ p};DATABASE=考核;"_s}};
    for (const Target& target : targets) {
        const QString frame =
            target.driver == freeTds ? u"DRIVER=FreeTDS;%1TDS_Version=7.4;ClientCharset=UTF-8;"_s : u"%1"_s;
        EXPECT_EQ(target.text(), frame.arg(target.expected));
    }
}

TEST(OdbcTarget, WhatADriverCannotBeToldIsRefused) {
    const std::vector<Target> refused = {{freeTds, u"db1"_s, u"a};b"_s, {}},   {freeTds, u"db1"_s, u"a\0b"_s, {}},
                                         {odbc18, u"db1"_s, u"a\0b"_s, {}},    {freeTds, u"db1,"_s, u"p"_s, {}},
                                         {freeTds, u"db1\\x,y"_s, u"p"_s, {}}, {freeTds, u"db1,70000"_s, u"p"_s, {}}};
    for (const Target& target : refused) {
        EXPECT_THROW(target.text(), DatabaseError) << qPrintable(target.dataSource);
    }
}

TEST(OdbcTarget, TheBestInstalledDriverIsTaken) {
    EXPECT_EQ(odbc::bestDriver({}), QString());
    EXPECT_EQ(odbc::bestDriver({u"SQLite3"_s, u"PostgreSQL Unicode"_s, u"ODBC Driver for SQL Server"_s}), QString());
    EXPECT_EQ(odbc::bestDriver({u"SQL Server"_s, u"SQLite3"_s}), u"SQL Server"_s);
    EXPECT_EQ(odbc::bestDriver({u"SQL Server"_s, freeTds}), freeTds);
    EXPECT_EQ(odbc::bestDriver({u"ODBC Driver 9 for SQL Server"_s, freeTds, odbc17, u"SQL Server"_s}), odbc17);
    EXPECT_EQ(odbc::bestDriver({odbc17, odbc18, u"ODBC Driver 9 for SQL Server"_s}), odbc18);
}

TEST(OdbcMessage, LosesTheNamesInFrontOfItsWords) {
    EXPECT_EQ(odbc::plainMessage(u"[unixODBC][FreeTDS][SQL Server]Invalid name '[x]'."_s), u"Invalid name '[x]'."_s);
    EXPECT_EQ(odbc::plainMessage(u"no such table: [x]"_s), u"no such table: [x]"_s);
    EXPECT_EQ(odbc::plainMessage(u"[open"_s), u"[open"_s);
    EXPECT_EQ(odbc::plainMessage(u"[SQLite]"_s), QString());
}

}  // namespace
