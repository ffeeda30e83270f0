#include "access/cuser.h"
#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "platform/database/connection_string.h"
#include "results/ctesting.h"
#include "results/ctestingdetail.h"
#include "setup/care/archive.h"
#include "setup/care/renumber.h"
#include "setup/care/rights.h"
#include "setup/care_bank.h"
#include "setup/check.h"
#include "setup/install.h"
#include "setup/tables.h"
#include "support/database_fixture.h"
#include "support/error_of.h"

#include <QDate>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>

namespace talvora::test {

using namespace Qt::StringLiterals;

class Care : public DatabaseTest {
 protected:
    QString path(const QString& name) const { return folder_.filePath(name); }

    /// Refuses each statement of `work` in turn until it does without, and hands `judge` the statement, with whether
    /// the transaction had been committed before it. The level of isolation is a wish, which a server may refuse.
    template <class Work, class Judge>
    static void refuseEachStatement(Work&& work, Judge&& judge) {
        // A server takes its time.
        const int step = GetParam() == Engine::Embedded ? 1 : 9;
        for (int failing = 1;; failing += step) {
            SCOPED_TRACE(failing);
            int left = failing;
            QString refused;
            bool isCommitted = false;
            QString fault;
            cnnPublic.setObserver([&](const QString& statement) {
                if (!statement.startsWith("set transaction"_L1) && --left == 0) {
                    refused = statement;
                    throw DatabaseError(50000, u"refused by the test"_s, u"HY000"_s);
                }
                isCommitted = isCommitted || (left > 0 && statement == "commit transaction"_L1);
            });
            try {
                work();
            } catch (const RuntimeError& error) {
                fault = error.description();
            }
            cnnPublic.setObserver({});
            if (refused.isEmpty()) {
                EXPECT_EQ(fault.toStdString(), "");
                return;
            }
            if (!fault.isEmpty()) {
                judge(refused, isCommitted);
            }
        }
    }

 private:
    QTemporaryDir folder_;
};

TALVORA_ON_EVERY_ENGINE(Care);

TEST_P(Care, RenumbersEveryRangeFromOneAndKeepsWhatBelongsTogether) {
    addScatteredBank();
    const auto before = whatBelongsTogether();
    const auto people = allKeys().section(u'|', 5, 6);
    renumberKeys(cnnPublic);
    EXPECT_EQ(whatBelongsTogether(), before);
    EXPECT_EQ(allKeys().section(u'|', 0, 4), u"1 2 3 4|1 2|1 2 3 4 5|1 2 3|1"_s);
    EXPECT_EQ(allKeys().section(u'|', 7), u"1"_s);
    if (GetParam() == Engine::Embedded) {
        EXPECT_EQ(allKeys().section(u'|', 5, 6), people) << "they began at 1 already";
    }
    // A new row takes the next key, but never one that an old test gives to what is gone.
    cnnPublic.Execute(u"insert into ExaminationQuestion (QuestionName) values (N'新')"_s);
    cnnPublic.Execute(u"insert into Examination (ExaminationNum) values (N'P-3')"_s);
    cnnPublic.Execute(u"insert into TestingResult (Name) values (N'四')"_s);
    EXPECT_EQ(allKeys().section(u'|', 0, 2), u"1 2 3 4 5|1 2 4|1 2 3 4 5 7"_s);
    EXPECT_EQ(rowsOf(u"select ExaminationID from TestingResult where TestingNumber=3"_s), u"3"_s);
    EXPECT_EQ(rowsOf(u"select TestingID from TestingResultDetail where QuestionName=N'戊'"_s), u"6"_s);

    EXPECT_EQ(renumberKeys(cnnPublic).first(), u"编号［试题］：改动 0 个，已用 5 / 32767"_s);
}

TEST_P(Care, RenumbersAllOrNothing) {
    addScatteredBank();
    const auto before = everything();
    refuseEachStatement([] { renumberKeys(cnnPublic); },
                        [&](const QString& refused, bool isCommitted) {
                            if (!isCommitted) {
                                EXPECT_EQ(everything(), before) << qPrintable(refused);
                            }
                        });
    EXPECT_NE(everything(), before);
    // A table with a column of somebody else's would lose it.
    if (GetParam() == Engine::Embedded) {
        runScript(cnnPublic,
                  u"drop table Query\nGO\ncreate table Query (QueryID int identity(1,1) not null primary key, "
                  "Query nvarchar(9) null, Condition nvarchar(9) null, Mine int null)"_s);
        const auto sent = statementsOf([] { EXPECT_THROW(renumberKeys(cnnPublic), RuntimeError); });
        EXPECT_FALSE(sent.contains(u"begin transaction"_s));
    }
}

TEST_P(Care, ArchivesWholeFamiliesIntoABankThatTheClientOpens) {
    addScatteredBank();
    const auto before = everything();
    const auto tests = u"select * from TestingResult where TestingNumber=30"_s;
    const auto answers = u"select * from TestingResultDetail where TestingID=300 order by ID"_s;
    const auto questions = u"select * from ExaminationQuestion order by QuestionID"_s;
    const auto moved = rowsOf(tests) + rowsOf(answers) + rowsOf(questions);

    Archive archive(u"2024-01-01"_s, path(u"档案.db"_s));
    const auto size = archive.choose(cnnPublic);
    EXPECT_EQ(QString(u"%1 %2 %3"_s).arg(size.tests).arg(size.rows).arg(size.answers), u"1 1 2"_s);
    EXPECT_EQ(everything(), before);
    archive.run(cnnPublic);
    EXPECT_EQ(rowsOf(u"select TestingID from TestingResult order by TestingID"_s), u"301\n302\n30000\n30001"_s);
    EXPECT_EQ(rowsOf(u"select ID from TestingResultDetail order by ID"_s), u"9\n12\n13"_s);
    EXPECT_EQ(QFile::permissions(archive.path()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());

    cnnPublic.Close();
    cnnPublic.ConnectionString = u"Data Source=embedded;Initial Catalog="_s + archive.path();
    cnnPublic.Open();
    EXPECT_TRUE(isComplete(checkDatabase(cnnPublic)));
    EXPECT_TRUE(cUsers::IsExistUser(u"admin"_s, u"admin"_s));
    EXPECT_EQ(rowsOf(tests) + rowsOf(answers) + rowsOf(questions), moved);
    EXPECT_EQ(countOf(u"select count(*) from TestingResult where Score=31.499999999999996"_s), 1);
    cTestings list;
    EXPECT_EQ(list.Find(0, {}).Count(), 1);
    cTestingDetails details;
    EXPECT_EQ(details.Find(300).Count(), 2);
}

TEST_P(Care, ArchivesAllOrNothing) {
    addScatteredBank();
    const auto before = everything();
    const auto file = path(u"a.db"_s);
    const auto archive = [&] {
        Archive work(u"2024-01-01"_s, file);
        work.choose(cnnPublic);
        work.run(cnnPublic);
    };
    refuseEachStatement(archive, [&](const QString& refused, bool) {
        EXPECT_EQ(everything(), before) << qPrintable(refused);
        // Nobody knows what has become of a commit that failed.
        EXPECT_EQ(QFile::exists(file), refused == "commit transaction"_L1) << qPrintable(refused);
        QFile::remove(file);
        // What the session chose stays with it; the tool ends it.
        errorOf([] { cnnPublic.Execute(u"drop table #ArchivedTests"_s); });
    });
    EXPECT_TRUE(QFile::exists(file));
}

TEST_P(Care, ArchivesNothingThatChangedMeanwhile) {
    addScatteredBank();
    Archive archive(u"2024-01-01"_s, path(u"a.db"_s));
    archive.choose(cnnPublic);
    cnnPublic.setObserver([](const QString& statement) {
        if (statement == "begin transaction"_L1) {
            cnnPublic.setObserver({});
            cnnPublic.Execute(u"update TestingResultDetail set Score=7 where ID=4"_s);
        }
    });
    EXPECT_THROW(archive.run(cnnPublic), RuntimeError);
    EXPECT_FALSE(QFile::exists(archive.path()));
    EXPECT_EQ(rowsOf(u"select Score from TestingResultDetail where TestingID=300 order by ID"_s), u"1\n7"_s);
}

TEST_P(Care, TellsHowMuchOfEachRangeIsUsed) {
    const auto itemOf = [](const QString& caption) {
        const auto items = checkDatabase(cnnPublic);
        const auto item = std::find_if(items.begin(), items.end(), [&](const CheckItem& one) {
            return one.text.startsWith(u"编号［%1］"_s.arg(caption));
        });
        return (item->isWarning ? u"warning "_s
                : item->isGood  ? u"good "_s
                                : u"bad "_s) +
               item->text.section(u'：', 1).section(u'，', 0, 0);
    };
    runScript(cnnPublic,
              u"set identity_insert ExaminationQuestion on\nGO\n"
              "insert into ExaminationQuestion (QuestionID,QuestionName) values (1,N'题')\nGO\n"
              "set identity_insert ExaminationQuestion off"_s);
    for (const auto& [last, expected] :
         std::initializer_list<std::pair<int, QString>>{{26213, u"good 已用 26213 / 32767（79%）"_s},
                                                        {26214, u"warning 已用 26214 / 32767（80%）"_s},
                                                        {32766, u"warning 已用 32766 / 32767（99%）"_s},
                                                        {32767, u"bad 已用 32767 / 32767（100%）"_s}}) {
        cnnPublic.Execute(u"dbcc checkident (ExaminationQuestion, reseed, %1)"_s.arg(last));
        EXPECT_EQ(itemOf(u"试题"_s), expected);
        EXPECT_EQ(isComplete(checkDatabase(cnnPublic)), !expected.startsWith("bad"_L1));
    }
    EXPECT_TRUE(checkText(checkDatabase(cnnPublic)).contains(u"问题  编号［试题］：已用 32767"_s));
    EXPECT_EQ(itemOf(u"测评"_s), u"good 已用 0 / 32767（0%）"_s);
    cnnPublic.Execute(u"insert into TestingResult (TestingNumber) values (30000)"_s);
    EXPECT_EQ(itemOf(u"测评"_s), u"warning 已用 30000 / 32767（91%）"_s);
    renumberKeys(cnnPublic);
    EXPECT_EQ(itemOf(u"测评"_s) + itemOf(u"试题"_s), u"good 已用 1 / 32767（0%）good 已用 1 / 32767（0%）"_s);
}

TEST(ArchiveArguments, AreCheckedStrictly) {
    const QTemporaryDir folder;
    QFile taken(folder.filePath(u"taken.db"_s));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    const auto free = folder.filePath(u"free.db"_s);
    Archive(QDate::currentDate().toString(u"yyyy-MM-dd"_s), free);
    for (const auto& date : {u""_s, u"2024-1-1"_s, u"2024-02-30"_s, u"24-01-01"_s, u"2024/01/01"_s, u"2024-01-01 "_s,
                             u"2024-01-01'"_s, u"9999-01-01"_s}) {
        EXPECT_THROW(Archive(date, free), RuntimeError) << qPrintable(date);
    }
    for (const auto& file : {taken.fileName(), folder.path(), free + u"/a.db"_s, free + u";a"_s}) {
        EXPECT_THROW(Archive(u"2024-01-01"_s, file), RuntimeError) << qPrintable(file);
    }
}

TEST_P(Care, GrantsALoginTheRowsAndNothingElse) {
    const auto login = u"talvora_trial"_s;
    const auto password = u"Tr1al 'pass'"_s;
    const auto grant = [&](const QString& name, const QString& secret) {
        grantWorkstationLogin(cnnPublic, name, secret);
    };
    if (GetParam() == Engine::Embedded) {
        EXPECT_THROW(grant(login, password), RuntimeError);
        return;
    }
    const auto owner = cnnPublic.ConnectionString;
    for (const auto& name : {u""_s, u"a b"_s, u"a]b"_s, u"1a"_s, u"a'b"_s, QString(64, u'a'), u"dbo"_s}) {
        EXPECT_THROW(grant(name, password), RuntimeError) << qPrintable(name);
    }
    EXPECT_THROW(grant(login, {}), RuntimeError);
    grant(login, password);
    EXPECT_THROW(grant(login, u"another"_s), RuntimeError);

    auto parts = ConnectionParts::parse(owner);
    cnnPublic.ConnectionString = u"Provider=SQLOLEDB.1;User ID=%1;Initial Catalog=%2;Data Source=%3;pwd=%4"_s.arg(
        login, parts.initialCatalog, parts.dataSource, password);
    cnnPublic.Open();
    cnnPublic.Execute(u"insert into TestingResult (TestingNumber,Name) values (1,N'一'),(2,N'二')"_s);
    cnnPublic.Execute(u"update TestingResult set Sex=N'女' where TestingNumber=2"_s);
    cTesting::Delete(numberOf(u"select TestingID from TestingResult where TestingNumber=1"_s));
    cnnPublic.Execute(u"select Name into #names from TestingResult where Sex=N'女'"_s);
    EXPECT_EQ(countOf(u"select count(*) from #names"_s), 1);
    cnnPublic.Execute(
        u"declare @r int exec @r=sp_getapplock @Resource='Talvora',@LockMode='Exclusive',"
        "@LockOwner='Session',@LockTimeout=100 select @r"_s);
    for (const auto& statement : {u"create table Mine (ID int null)"_s, u"alter table Query add Mine int null"_s,
                                  u"drop table Query"_s, u"create index IX_Mine on Query (Query)"_s,
                                  u"truncate table Query"_s, u"drop index IX_Query_Query on Query"_s}) {
        EXPECT_THROW(cnnPublic.Execute(statement), DatabaseError) << qPrintable(statement);
    }
    cnnPublic.ConnectionString = owner;
    cnnPublic.Open();
    for (const auto& table : schemaTables()) {
        emptyTables({table.table});
    }
    for (const auto& statement : {u"drop user "_s + login, u"drop login "_s + login}) {
        cnnPublic.Execute(statement);
    }
}

TEST(Rights, ReachEveryTable) {
    const auto script = setupText(u"roles.sql"_s);
    for (const auto& table : schemaTables()) {
        EXPECT_TRUE(script.contains(
            u"\ngrant select, insert, update, delete on %1 to talvora_workstation\n"_s.arg(table.table)))
            << qPrintable(table.table);
    }
}

}  // namespace talvora::test
