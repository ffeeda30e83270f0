// The embedded engine as a database: definitions, refusals, transactions, files and several sessions.

#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"
#include "platform/embedded_bank.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

struct Refusal {
    QString statement;
    int error;
};

TEST(Embedded, RefusesWhatTheServerRefuses) {
    test::EmbeddedBank bank;
    bank.session.Execute(
        u"create table t (name nvarchar(3) not null primary key, n smallint, d datetime, r float, b bit)"_s);
    bank.session.Execute(u"create table g (id int identity(1,1) primary key, name nvarchar(3))"_s);
    bank.session.Execute(u"insert into t (name) values ('abc')"_s);
    const std::vector<Refusal> refusals = {
        {u"select * from nothing"_s, 208},
        {u"select nothing from t"_s, 207},
        {u"select x.name from t"_s, 4104},
        {u"select n from t a, t b"_s, 209},
        {u"insert into g (id,name) values (7,'x')"_s, 544},
        {u"insert into t (name) values ('abcd')"_s, 8152},
        {u"update t set name=name+'d'"_s, 8152},
        {u"insert into t (name) values (null)"_s, 515},
        {u"insert into t (n) values (1)"_s, 515},
        {u"insert into t (name) values ('ABC ')"_s, 2627},
        {u"insert into t (name,n) values ('x','abc')"_s, 245},
        {u"insert into t (name,n) values ('x',70000)"_s, 8115},
        {u"insert into t (name,d) values ('x','no date')"_s, 241},
        {u"insert into t (name,r) values ('x','one')"_s, 8114},
        {u"insert into t (name) values ('x','y')"_s, 110},
        {u"insert into t (name,n) values ('x')"_s, 109},
        {u"insert into t (name,name) values ('x','y')"_s, 264},
        {u"update g set id=5"_s, 8102},
        {u"create table T (x int)"_s, 2714},
        {u"select 1 as q into t"_s, 2714},
        {u"drop table nothing"_s, 3701},
        {u"select * from t where name"_s, 4145},
        {u"select * from t where"_s, 102},
        {u"select * from from"_s, 156},
        {u"selekt 1"_s, 102},
        {u""_s, 102},
        {u"select 'abc"_s, 105},
        {u"select 1 /* open"_s, 113},
        {u"select 1 ?"_s, 102},
        {u"exec sp_who"_s, 156},
        {u"select n into #t from t select 1"_s, 156},
        {u"select len(name) into #u from t"_s, 1038},
        {u"select * from (select len(name) from t) x"_s, 8155},
        {u"select n from t union select n from t"_s, 156},
        {u"select * from t where n in (select n,name from t)"_s, 116},
        {u"select "_s + u"("_s.repeated(5000) + u"1"_s + u")"_s.repeated(5000), 191},
        {u"select 1"_s + u"+1"_s.repeated(5000), 191},
        {u"insert into t (name) values ('x')"_s + u",('x')"_s.repeated(1000), 10738},
    };
    for (const Refusal& one : refusals) {
        EXPECT_EQ(bank.errorOf(one.statement), one.error) << qPrintable(one.statement.left(100));
    }
    EXPECT_EQ(bank.run(u"select * from t"_s), u"abc|null|null|null|null"_s);
}

TEST(Embedded, StoresWhatTheServerStores) {
    test::EmbeddedBank bank;
    bank.session.Execute(
        u"create table [a table] (id int identity(1,1), [Key] nvarchar(3) null, n int, "
        "d datetime, r float, b bit, c char(5), long nvarchar(max))"_s);
    bank.session.Execute(u"insert into [a table] ([Key],d,r,b,c) values ('ab   ','2026/3/4 5:6:7','.25',5,'x')"_s);
    bank.session.Execute(u"insert [a table] (n,long) values ('', 12)"_s);
    EXPECT_EQ(bank.run(u"select * from dbo.[A Table] where d='2026-3-4 05:06:07'"_s),
              u"1|ab|null|2026-03-04 05:06:07|0.25|1|x|null"_s);
    EXPECT_EQ(bank.run(u"select n,long from [a table] where id=2"_s), u"0|12"_s);
    // A key that was given once is not given again.
    bank.session.Execute(u"delete from [a table] where id=2"_s);
    bank.session.Execute(u"insert into [a table] ([Key]) values (null)"_s);
    EXPECT_EQ(bank.run(u"select max(id) from [a table]"_s), u"3"_s);
    bank.session.Execute(u"create index IX on [a table] (n, id)"_s);
    bank.session.Execute(u"create index IX on Users (UserDesc)"_s);
    EXPECT_EQ(bank.errorOf(u"create index IX on [a table] (n)"_s), 1913);
    bank.session.Execute(u"drop index IX on [a table]"_s);
    bank.session.Execute(u"drop table [a table]"_s);
    EXPECT_EQ(bank.errorOf(u"select * from [a table]"_s), 208);
}

TEST(Embedded, AnIndexDoesNotReorderRowsThatAskForNoOrder) {
    test::EmbeddedBank bank;
    for (const auto& question : {u"b"_s, u"c"_s, u"a"_s}) {
        bank.session.Execute(u"insert into ExaminationQuestion (ExaminationID,QuestionName) values (1,'"_s + question +
                             u"')"_s);
    }
    EXPECT_EQ(bank.run(u"Select QuestionName from ExaminationQuestion where ExaminationID=1"_s), u"b\nc\na"_s);
}

TEST(Embedded, AFailingStatementLeavesTheTransactionAsItWas) {
    test::EmbeddedBank bank;
    bank.session.Execute(u"create table t (n int not null)"_s);
    bank.session.BeginTrans();
    bank.session.Execute(u"insert into t values (1)"_s);
    EXPECT_EQ(bank.errorOf(u"insert into t values (2),(3),(null)"_s), 515);
    EXPECT_EQ(bank.errorOf(u"insert into t values ('x')"_s), 245);
    EXPECT_EQ(bank.errorOf(u"select cast('x' as int) as q into #t from t"_s), 245);
    bank.session.Execute(u"insert into t values (4)"_s);
    bank.session.CommitTrans();
    EXPECT_EQ(bank.run(u"select n from t order by n"_s), u"1\n4"_s);
    EXPECT_EQ(bank.errorOf(u"select * from #t"_s), 208);
}

TEST(Embedded, RollingBackUndoesTablesToo) {
    test::EmbeddedBank bank;
    bank.session.BeginTrans();
    bank.session.Execute(u"select 1 as n into #t"_s);
    EXPECT_EQ(bank.run(u"select n from #t"_s), u"1"_s);
    bank.session.RollbackTrans();
    EXPECT_EQ(bank.errorOf(u"select n from #t"_s), 208);
    bank.session.Execute(u"select 'x' as n into #t"_s);
    EXPECT_EQ(bank.run(u"select n from #t"_s), u"x"_s);
}

TEST(Embedded, OpensOnlyDatabases) {
    const QTemporaryDir folder;
    const auto openError = [](const QString& file) {
        Connection session;
        session.ConnectionString = test::embeddedString(file);
        try {
            session.Open();
            return 0;
        } catch (const DatabaseError& error) {
            return error.number();
        }
    };
    EXPECT_EQ(openError(folder.filePath(u"missing.db"_s)), 4060);
    EXPECT_EQ(openError(QString()), 4060);
    EXPECT_EQ(openError(folder.path()), 4060);
    QFile text(folder.filePath(u"text.db"_s));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write(QByteArray(5000, 'x'));
    text.close();
    EXPECT_EQ(openError(text.fileName()), 5172);
}

TEST(Embedded, AFileKeepsItsRowsAndTypes) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"题库 1.db"_s);
    {
        test::EmbeddedBank bank(file);
        bank.session.Execute(u"insert into Users (UserName,Locked) values ('甲','1')"_s);
    }
    createEmbedded(ConnectionParts::parse(test::embeddedString(file)));
    Connection again;
    again.ConnectionString = test::embeddedString(file);
    again.Open();
    EXPECT_EQ(again.Execute(u"select UserName from Users where Locked='1'"_s).first().text("username"), u"甲"_s);
    EXPECT_THROW(again.Execute(u"insert into Users (UserID) values (1)"_s), DatabaseError);
}

TEST(Embedded, WaitsForALockAsLongAsItsTimeLimit) {
    const QTemporaryDir folder;
    test::EmbeddedBank bank(folder.filePath(u"a.db"_s));
    Connection other;
    other.ConnectionString = bank.session.ConnectionString;
    other.CommandTimeout = 1;
    other.Open();
    // A table that another session makes is there at once.
    EXPECT_EQ(bank.errorOf(u"select * from later"_s), 208);
    other.Execute(u"create table later (n int)"_s);
    EXPECT_EQ(bank.errorOf(u"select * from later"_s), 0);
    bank.session.BeginTrans();
    bank.session.Execute(u"insert into UserRole values (1,1)"_s);
    QElapsedTimer waited;
    waited.start();
    try {
        other.Execute(u"delete from UserRole"_s);
        FAIL() << "the lock was not seen";
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.number(), 1222);
        EXPECT_EQ(error.sqlState(), u"HYT00"_s);
    }
    EXPECT_GE(waited.elapsed(), 950);
    bank.session.CommitTrans();
    other.Execute(u"delete from UserRole"_s);
    EXPECT_EQ(bank.run(u"select count(*) from UserRole"_s), u"0"_s);
}

TEST(Embedded, AStatementThatTakesTooLongEnds) {
    test::EmbeddedBank bank;
    bank.session.Close();
    bank.session.CommandTimeout = 1;
    bank.session.Open();
    bank.session.Execute(u"create table t (n int)"_s);
    bank.session.Execute(u"insert into t values (1),(2),(3),(4),(5),(6),(7),(8),(9),(10),(11),(12)"_s);
    EXPECT_EQ(bank.errorOf(u"select count(*) from t a,t b,t c,t d,t e,t f,t g,t h,t i where a.n+i.n>999"_s), -2);
    EXPECT_EQ(bank.run(u"select count(*) from t"_s), u"12"_s);
    // A writing statement that is cut off ends its transaction: what follows stands alone, and so the commit fails.
    bank.session.BeginTrans();
    EXPECT_EQ(bank.errorOf(u"update t set n=a.n from (select count(*) as n from t b,t c,t d,t e,t f,t g,t h,t i "
                           "where b.n+i.n>999) a"_s),
              -2);
    bank.session.Execute(u"insert into t values (13)"_s);
    EXPECT_THROW(bank.session.CommitTrans(), DatabaseError);
    EXPECT_EQ(bank.run(u"select count(*) from t"_s), u"13"_s);
}

TEST(Embedded, StatementsOfOneShapeKeepTheirOwnValues) {
    test::EmbeddedBank bank;
    bank.session.Execute(u"insert into UserRole values (1,10),(2,20),(3,30)"_s);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(bank.run(u"select RoleID from UserRole where UserID=%1"_s.arg(i)), QString::number(i * 10));
        EXPECT_EQ(bank.run(u"select RoleID from UserRole where UserID='%1'"_s.arg(i)), QString::number(i * 10));
        EXPECT_EQ(bank.run(u"select RoleID from UserRole where UserID=%1."_s.arg(i)), QString::number(i * 10));
        EXPECT_EQ(bank.run(u"select top %1 RoleID from UserRole order by RoleID"_s.arg(i)).count(u'0'), i);
        EXPECT_EQ(bank.run(u"select cast('abcdef' as nvarchar(%1))"_s.arg(i)).size(), i);
    }
    // More shapes than are remembered.
    for (int i = 0; i < 450; ++i) {
        const QString name = u"c%1"_s.arg(i % 300);
        EXPECT_EQ(bank.run(u"select RoleID as %1 from UserRole where UserID=2 and 1=%2"_s.arg(name).arg(i % 2)),
                  i % 2 == 1 ? u"20"_s : QString());
    }
}

/// Fills answers with random ones: scored, unscored, wrongly scored, of every letter and none.
void addRandomAnswers(test::EmbeddedBank& bank, QRandomGenerator& random) {
    const QStringList letters = {u"'A'"_s, u"'a'"_s, u"'Ｂ'"_s, u"'C'"_s, u"'D'"_s,
                                 u"'E'"_s, u"''"_s,  u"null"_s, u"'0'"_s, u"' '"_s};
    const QStringList scores = {u"null"_s, u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"-1"_s};
    for (int i = 0; i < 300; ++i) {
        bank.session.Execute(
            u"insert into TestingResultDetail (ExaminationID,QuestionName,SelectAnswer,Score) values (%1,'q%2',%3,%4)"_s
                .arg(random.bounded(1, 3))
                .arg(random.bounded(6))
                .arg(letters[random.bounded(static_cast<int>(letters.size()))],
                     scores[random.bounded(static_cast<int>(scores.size()))]));
    }
}

QString rescoring(const QString& branches) {
    return u"update TestingResultDetail set Score=case SelectAnswer %1 end   from ExaminationQuestion a where "
           "TestingResultDetail.ExaminationID=a.ExaminationID and TestingResultDetail.QuestionName=a.QuestionName and "
           "TestingResultDetail.ExaminationID=1"_s.arg(branches);
}

TEST(Embedded, RescoringOnlyWhatChangesGivesTheSameScores) {
    // The index lets the engine look for the rows that change; without it the statement is run as it stands.
    for (const int rounds : {1, 8}) {
        QRandomGenerator random(static_cast<quint32>(rounds));
        test::EmbeddedBank searched;
        test::EmbeddedBank plain;
        plain.session.Execute(u"drop index IX_TestingResultDetail_Answer on TestingResultDetail"_s);
        // Some questions stand there twice, with other scores.
        for (int q = 0; q < 8; ++q) {
            const QString question =
                u"insert into ExaminationQuestion (ExaminationID,QuestionName,Score1,Score2,Score3,Score4) values "
                "(1,'q%1',%2,%3,null,%4)"_s.arg(q % 5)
                    .arg(random.bounded(4))
                    .arg(random.bounded(4))
                    .arg(random.bounded(4));
            searched.session.Execute(question);
            plain.session.Execute(question);
        }
        for (int round = 0; round < rounds; ++round) {
            QRandomGenerator same = random;
            addRandomAnswers(searched, random);
            addRandomAnswers(plain, same);
        }
        const QString all = u"select ID,Score from TestingResultDetail order by ID"_s;
        ASSERT_EQ(searched.run(all), plain.run(all));
        const QString statement = rescoring(
            u"when 'A' then a.Score1 when 'B' then a.Score2 when 'C' then a.Score3 when 'D' then a.Score4 "_s);
        searched.session.Execute(statement);
        plain.session.Execute(statement);
        EXPECT_EQ(searched.run(all), plain.run(all));
    }
}

TEST(Embedded, TheFirstOfTwoEqualQuestionsScoresForGood) {
    for (const bool indexed : {true, false}) {
        test::EmbeddedBank bank;
        if (!indexed) {
            bank.session.Execute(u"drop index IX_TestingResultDetail_Answer on TestingResultDetail"_s);
        }
        bank.session.Execute(
            u"insert into ExaminationQuestion (ExaminationID,QuestionName,Score1,Score2) values (1,'q',5,null),"
            "(1,'q',1,2),(1,'r',3,4)"_s);
        for (int test = 1; test <= 3; ++test) {
            bank.session.Execute(
                u"insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,SelectAnswer) "
                "values (%1,1,'q','A'),(%1,1,'q','B'),(%1,1,'r','B')"_s.arg(test));
            bank.session.Execute(rescoring(u"when 'A' then a.Score1 when 'B' then a.Score2"_s));
            for (int stored = 1; stored <= test; ++stored) {
                EXPECT_EQ(
                    bank.run(u"select Score from TestingResultDetail where TestingID=%1 order by ID"_s.arg(stored)),
                    u"5\nnull\n4"_s)
                    << indexed << ", test " << stored << " after " << test;
            }
        }
    }
}

TEST(Embedded, TheFirstOfTwoBranchesForOneAnswerCounts) {
    test::EmbeddedBank bank;
    bank.session.Execute(
        u"insert into ExaminationQuestion (ExaminationID,QuestionName,Score1,Score2) values (1,'q',5,6)"_s);
    bank.session.Execute(
        u"insert into TestingResultDetail (ExaminationID,QuestionName,SelectAnswer) values (1,'q','A')"_s);
    const QString branches = u"when 'B' then a.Score2 when '%1' then a.Score1 when '%2' then a.Score2"_s;
    for (const auto& [first, second] : {std::pair(u"A"_s, u"C"_s), std::pair(u"ａ"_s, u"A"_s)}) {
        bank.session.Execute(rescoring(branches.arg(first, second)));
        EXPECT_EQ(bank.run(u"select Score from TestingResultDetail"_s), u"5"_s);
    }
}

TEST(ConnectionParts, ReadsTheStringThatTheProgramBuilds) {
    const auto parts = ConnectionParts::parse(
        u"Provider=SQLOLEDB.1;Persist Security Info=True;User ID=sa;Initial Catalog=test bank;Data Source=host\\inst;pwd=a;b=c"_s);
    EXPECT_EQ(parts.userId, u"sa"_s);
    EXPECT_EQ(parts.initialCatalog, u"test bank"_s);
    EXPECT_EQ(parts.dataSource, u"host\\inst"_s);
    EXPECT_EQ(parts.password, u"a;b=c"_s);
    EXPECT_FALSE(parts.isEmbedded());
    EXPECT_TRUE(ConnectionParts::parse(u"data source=EMBEDDED"_s).isEmbedded());
    EXPECT_TRUE(ConnectionParts::parse(u"nonsense"_s).dataSource.isEmpty());
}

}  // namespace
