// Sessions: what opens, transactions, several sessions on one file, and time limits.

#include "platform/database/connection_string.h"
#include "platform/database/embedded/collation.h"
#include "platform/database/embedded/database_file.h"
#include "platform/embedded_bank.h"
#include "support/error_of.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>

using namespace talvora;
using test::errorOf;
using namespace Qt::StringLiterals;

namespace {

/// Two sessions on one file.
class ConnectionTest : public testing::Test {
 protected:
    void insert(int id) { session_.Execute(u"insert into UserRole (UserID) values (%1)"_s.arg(id)); }
    QString stored() { return other_.run(u"select UserID from UserRole order by UserID"_s).replace(u'\n', u' '); }

    QTemporaryDir folder_;
    test::EmbeddedBank bank_{folder_.filePath(u"题库 1.db"_s)};
    test::EmbeddedBank other_{folder_.filePath(u"题库 1.db"_s)};
    Connection& session_ = bank_.session;
};

TEST_F(ConnectionTest, OpensOnlyDatabasesAndIsElseClosed) {
    QFile text(folder_.filePath(u"text.db"_s));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write(QByteArray(5000, 'x'));
    text.close();
    for (const QString& file : {folder_.filePath(u"missing.db"_s), QString(), folder_.path(), text.fileName()}) {
        session_.ConnectionString = test::embeddedString(file);
        EXPECT_EQ(errorOf([&] { session_.Open(); }), file == text.fileName() ? 5172 : 4060) << qPrintable(file);
        EXPECT_FALSE(session_.IsOpen());
    }
    EXPECT_EQ(errorOf([&] { insert(1); }), errors::ConnectionClosed);
    EXPECT_EQ(errorOf([&] { session_.BeginTrans(); }), errors::ConnectionClosed);
    EXPECT_EQ(errorOf([&] { session_.CommitTrans(); }), errors::ConnectionClosed);
    EXPECT_EQ(errorOf([&] { session_.RollbackTrans(); }), errors::ConnectionClosed);
    session_.Close();
    session_.Abandon();
}

TEST_F(ConnectionTest, AnOpenTransactionIsCommittedByTheNextOneAndByAnOrderlyEnd) {
    session_.BeginTrans();
    insert(1);
    session_.BeginTrans();
    EXPECT_EQ(stored(), u"1"_s);
    insert(2);
    session_.RollbackTrans();
    EXPECT_EQ(stored(), u"1"_s);
    session_.BeginTrans();
    insert(3);
    session_.Open();
    EXPECT_EQ(stored(), u"1 3"_s);
    session_.BeginTrans();
    insert(4);
    session_.Close();
    EXPECT_EQ(stored(), u"1 3 4"_s);
    session_.Open();
    session_.BeginTrans();
    insert(5);
    session_.Abandon();
    EXPECT_EQ(stored(), u"1 3 4"_s) << "an abandoned session undoes what is open";
    {
        test::EmbeddedBank scoped(folder_.filePath(u"题库 1.db"_s));
        scoped.session.BeginTrans();
        scoped.walk(u"insert into UserRole (UserID) values (9)"_s);
    }
    EXPECT_EQ(stored(), u"1 3 4 9"_s);
}

TEST_F(ConnectionTest, TheObserverSeesEachStatementBeforeItRuns) {
    QStringList seen;
    session_.setObserver([&](const QString& statement) { seen << statement + u" | "_s + stored(); });
    session_.BeginTrans();
    insert(1);
    session_.CommitTrans();
    session_.BeginTrans();
    session_.RollbackTrans();
    EXPECT_EQ(seen.join(u", "_s),
              u"begin transaction | , insert into UserRole (UserID) values (1) | , commit transaction | , "
              "begin transaction | 1, rollback transaction | 1"_s);
}

TEST_F(ConnectionTest, AFailingStatementLeavesTheTransactionAsItWas) {
    bank_.run(u"create table t (n int not null)"_s);
    session_.BeginTrans();
    bank_.walk(
        u"insert into t values (1);insert into t values (2),(3),(null) -> error 515;insert into t values ('x') -> "
        u"error 245;"
        "select cast('x' as int) as q into #t from t -> error 245;insert into t values (4)"_s);
    session_.CommitTrans();
    bank_.walk(u"select n from t order by n -> 1 / 4; select * from #t -> error 208"_s);
    session_.BeginTrans();
    bank_.walk(u"select 1 as n into #t; select n from #t -> 1"_s);
    session_.RollbackTrans();
    bank_.walk(u"select n from #t -> error 208; select 'x' as n into #t; select n from #t -> x"_s);
}

TEST_F(ConnectionTest, AFileKeepsItsRowsAndTypes) {
    bank_.walk(u"insert into Users (UserName,Locked) values ('甲','1'); select * from later -> error 208"_s);
    other_.walk(u"select UserName from Users where Locked='1' -> 甲; create table later (n int)"_s);
    bank_.walk(u"select * from later"_s);
    session_.Open();
    bank_.walk(u"insert into Users (UserID) values (1) -> error 544; select UserName from Users -> 甲"_s);
}

// By an engine whose order of text is another one, as a system with other collation data has it.
void orderOtherwise(const QString& file) {
    const embedded::DatabaseFile database(file, embedded::DatabaseFile::Mode::OpenExisting, 1);
    const auto backwards = [](void*, int, const void* left, int, const void* right) {
        return std::strcmp(static_cast<const char*>(right), static_cast<const char*>(left));
    };
    sqlite3_create_collation(database.handle(), embedded::collationName, SQLITE_UTF8, nullptr, backwards);
    sqlite3_exec(database.handle(), "REINDEX; PRAGMA user_version = 1", nullptr, nullptr, nullptr);
}

TEST_F(ConnectionTest, IndexesOfAnotherOrderAreBuiltAnewAtTheOpening) {
    const QString file = folder_.filePath(u"moved.db"_s);
    {
        test::EmbeddedBank bank(file);
        bank.walk(u"insert into Position (PostCode,PostName) values ('001','a'),('002','b'),('_03','c'),('004','d')"_s);
    }
    orderOtherwise(file);
    test::EmbeddedBank bank(file);
    bank.walk(
        u"select PostName from Position where PostCode='001' -> a; select PostName from Position order by "
        "PostCode -> c / a / b / d"_s);
}

TEST_F(ConnectionTest, WaitsForALockAsLongAsItsTimeLimit) {
    other_.session.CommandTimeout = 1;
    other_.session.Open();
    session_.BeginTrans();
    insert(1);
    QElapsedTimer waited;
    waited.start();
    other_.walk(u"delete from UserRole -> error 1222"_s);
    EXPECT_GE(waited.elapsed(), 950);
    session_.CommitTrans();
    other_.walk(u"delete from UserRole; select count(*) from UserRole -> 0"_s);
}

TEST_F(ConnectionTest, AStatementThatTakesTooLongEnds) {
    session_.CommandTimeout = 1;
    session_.Open();
    bank_.walk(u"create table t (n int);insert into t values (1),(2),(3),(4),(5),(6),(7),(8),(9),(10),(11),(12)"_s);
    const QString join = u"t b,t c,t d,t e,t f,t g,t h,t i where b.n+i.n>999"_s;
    bank_.walk(u"select count(*) from t a,%1 -> error -2;select count(*) from t -> 12"_s.arg(join));
    bank_.walk(u"update t set n=a.n from (select count(*) as n from %1) a -> error -2"_s.arg(join));
    bank_.walk(u"create table doubling (n int);insert into doubling values (1),(2)"_s);
    // A change inside a transaction is not cut off, as the transaction would go with it. A query is.
    session_.BeginTrans();
    bank_.walk(
        u"insert into t values (13),(14); select count(*) from t a,%1 -> error -2; select max(n) from t -> 14"_s.arg(
            join));
    QElapsedTimer ran;
    int changes = 0;
    do {  // each takes twice as long as the one before
        ran.start();
        bank_.walk(u"insert into t select count(*) from t b,t c,t d,t e,doubling where b.n+c.n+d.n+e.n<49"_s);
        bank_.walk(u"insert into doubling select n from doubling"_s);
        ++changes;
    } while (ran.elapsed() <= 1000);
    session_.CommitTrans();
    bank_.walk(u"select count(*) from t where n>12 -> %1"_s.arg(2 + changes));
}

TEST(ConnectionParts, ReadsTheStringThatTheProgramBuilds) {
    const auto parts = ConnectionParts::parse(
        u"Provider=SQLOLEDB.1;User ID=sa;Initial Catalog=test bank;Data Source=a\\b;pwd=a;b=c"_s);
    const QStringList read = {parts.userId, parts.initialCatalog, parts.dataSource, parts.password};
    EXPECT_EQ(read.join(u'|'), u"sa|test bank|a\\b|a;b=c"_s);
    EXPECT_FALSE(parts.isEmbedded());
    EXPECT_TRUE(ConnectionParts::parse(u"data source=EMBEDDED"_s).isEmbedded());
    EXPECT_TRUE(ConnectionParts::parse(u"nonsense"_s).dataSource.isEmpty());
}

}  // namespace
