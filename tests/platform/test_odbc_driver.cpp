#include "platform/database/odbc/odbc_driver.h"
#include "platform/database/odbc/odbc_target.h"
#include "platform/runtime_error.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <clocale>

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

    void insertIds(int from, int to) {
        for (int id = from; id <= to; ++id) {
            driver_->execute(u"insert into t (id) values (%1)"_s.arg(id));
        }
    }

    int countOfRows() {
        // By another session, which sees only what is committed.
        return open()->execute(u"select id from t"_s).RecordCount();
    }

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
    const Row first = rows.row(0);
    EXPECT_EQ(first.number32("ID"), -2147483647 - 1);
    EXPECT_EQ(first.text("Name"), u"张三 'A' {x} ?"_s);
    EXPECT_EQ(first.text("score"), u"0.3333"_s);
    EXPECT_EQ(first.text("noted"), u"2026-03-04 05:06:07"_s);
    EXPECT_EQ(first.text("born"), u"2026-03-04"_s);
    EXPECT_EQ(first.number32("agreed"), 1);
    EXPECT_FALSE(first.isNull("essay"));
    EXPECT_EQ(first.text("essay"), u""_s);
    EXPECT_EQ(rows.row(1).number32("id"), 2);
    for (int column = 1; column < rows.FieldCount(); ++column) {
        EXPECT_TRUE(rows.row(1).isNull(column)) << column;
    }
}

TEST_F(OdbcDriverTest, LongTextComesWhole) {
    // Lengths around the size in which texts are fetched, and one of many such pieces.
    driver_->execute(u"create table long (essay text)"_s);
    for (const int length : {1, 4094, 4095, 4096, 4097, 8190, 8191, 100'000}) {
        QString essay;
        while (essay.size() < length) {
            essay += QChar(0x4E00 + static_cast<int>(essay.size() % 1000));
        }
        driver_->execute(u"delete from long"_s);
        driver_->execute(u"insert into long values ('%1')"_s.arg(essay));
        const Recordset rows = driver_->execute(u"select essay from long"_s);
        ASSERT_EQ(rows.RecordCount(), 1);
        EXPECT_EQ(rows.first().text("essay"), essay) << length;
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

TEST_F(OdbcDriverTest, AFailingStatementTellsTheDriversWords) {
    try {
        driver_->execute(u"select * from nothere"_s);
        FAIL() << "a missing table was read";
    } catch (const DatabaseError& error) {
        EXPECT_TRUE(error.description().contains(u"nothere"_s)) << error.what();
        EXPECT_FALSE(error.description().startsWith(u'[')) << error.what();
        EXPECT_EQ(error.sqlState().size(), 5);
    }
    insertIds(1, 1);
    EXPECT_EQ(countOfRows(), 1) << "the session must go on";
}

TEST_F(OdbcDriverTest, ATransactionIsKeptOrUndoneWhole) {
    driver_->beginTransaction();
    insertIds(1, 2);
    EXPECT_EQ(countOfRows(), 0);
    driver_->commitTransaction();
    EXPECT_EQ(countOfRows(), 2);
    driver_->beginTransaction();
    insertIds(3, 4);
    driver_->rollbackTransaction();
    EXPECT_EQ(countOfRows(), 2);
    EXPECT_THROW(driver_->commitTransaction(), DatabaseError);
    EXPECT_THROW(driver_->rollbackTransaction(), DatabaseError);
    insertIds(5, 5);
    EXPECT_EQ(countOfRows(), 3) << "statements stand alone again";
}

TEST_F(OdbcDriverTest, AFailingStatementLeavesTheTransactionOpen) {
    driver_->beginTransaction();
    insertIds(1, 1);
    EXPECT_THROW(driver_->execute(u"insert into nothere values (1)"_s), DatabaseError);
    insertIds(2, 2);
    EXPECT_EQ(countOfRows(), 0);
    driver_->commitTransaction();
    EXPECT_EQ(countOfRows(), 2);
}

TEST_F(OdbcDriverTest, AnEndOfTheSessionUndoesTheOpenTransaction) {
    driver_->beginTransaction();
    insertIds(1, 1);
    driver_.reset();
    EXPECT_EQ(countOfRows(), 0);
}

TEST(OdbcOpen, WhatIsNotThereFailsSoon) {
    EXPECT_THROW(openOdbcWith(u"DRIVER=No such driver;SERVER=x"_s, 1), DatabaseError);
    for (const QString& server : {u""_s, u"127.0.0.1,1"_s, u"no.such.host.invalid"_s, u"127.0.0.1,port"_s}) {
        QElapsedTimer clock;
        clock.start();
        EXPECT_THROW(openOdbc({server, u"db"_s, u"sa"_s, u"x"_s}, 1), DatabaseError) << qPrintable(server);
        constexpr int boundMs = 40'000;
        EXPECT_LT(clock.elapsed(), boundMs) << qPrintable(server);
    }
}

}  // namespace
