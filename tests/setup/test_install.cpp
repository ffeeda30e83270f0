#include "access/cuser.h"
#include "core/mdlpublic.h"
#include "setup/check.h"
#include "setup/install.h"
#include "setup/sample/sample.h"
#include "setup/sample/sample_tests.h"
#include "setup/tables.h"
#include "support/database_fixture.h"
#include "support/error_of.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

#include <algorithm>

namespace talvora::test {

using namespace Qt::StringLiterals;

class Install : public ::testing::Test {
 protected:
    static QString firstProblem() {
        const auto items = checkDatabase(cnnPublic);
        const auto problem = std::find_if(items.begin(), items.end(), [](const auto& item) { return !item.isGood; });
        return problem == items.end() ? QString() : problem->text;
    }

    const EmbeddedDatabase database;
};

TEST_F(Install, LetsAdminInAndGrantsTheSystemRoleEverything) {
    EXPECT_TRUE(cUsers::IsExistUser(u"admin"_s, u"admin"_s));
    EXPECT_FALSE(cUsers::IsExistUser(u"admin"_s, {}));
    const auto functions =
        rowsOf(u"select m.TableName,f.FunctionKey from Modules m, ModuleFunction f where m.ModuleCode=f.ModuleCode"_s);
    EXPECT_EQ(QString::number(functions.count(u'\n') + 1), rowCounts({u"ModuleFunction"_s}));
    for (const auto& line : functions.split(u'\n')) {
        EXPECT_TRUE(cUsers::IsAccessFunction(u"admin"_s, line.section(u'|', 0, 0), line.section(u'|', 1)))
            << qPrintable(line);
    }
}

TEST_F(Install, RefusesAFilledDatabaseAndPasswordsThatTheLoginWindowDoesNotTake) {
    EXPECT_THROW(install(cnnPublic, u"other"_s), RuntimeError);
    EXPECT_TRUE(cUsers::IsExistUser(u"admin"_s, u"admin"_s));
    EXPECT_EQ(adminPasswordFault(QString(20, u'密')), QString());
    for (const auto& password : {QString(), QString(21, u'x'), u"a'b"_s}) {
        EXPECT_NE(adminPasswordFault(password), QString()) << qPrintable(password);
    }
}

TEST(InstallFault, LeavesTheDatabaseEmptyWhicheverStatementFails) {
    int error = 50000;
    for (qsizetype failing = 1; error != 0; ++failing) {
        Connection connection;
        connection.ConnectionString = u"Data Source=embedded;Initial Catalog=:memory:"_s;
        connection.Open();
        // First it looks for each table.
        qsizetype left = failing + static_cast<qsizetype>(schemaTables().size());
        connection.setObserver([&](const QString&) {
            if (--left == 0) {
                throw DatabaseError(50000, u"refused by the test"_s, u"HY000"_s);
            }
        });
        error = errorOf([&] { install(connection, u"admin"_s); });
        connection.setObserver({});
        ASSERT_EQ(error, left > 0 ? 0 : 50000) << failing;
        ASSERT_EQ(presentTables(connection).isEmpty(), error != 0) << failing;
    }
}

TEST_F(Install, LeftIncompleteIsToldByTheCheck) {
    const std::pair<QString, QString> breakages[] = {
        {u"select 1"_s, {}},
        {u"delete from Options where VarName='blnCheckId'"_s, u"选项：缺少 blnCheckId"_s},
        {u"delete from ModuleFunction where FunctionKey='find'"_s, u"功能目录：缺少 testing.find"_s},
        {u"update Modules set ModuleCode='009001' where TableName='roles'"_s, u"模块目录：有模块不在任何分组之下"_s},
        {u"update Users set Locked=1 where UserName='admin'"_s, u"系统用户［admin］：已锁定"_s},
        {u"update Users set Password='' where UserName='admin'"_s, u"系统用户［admin］：没有密码"_s},
        {u"delete from Users"_s, u"系统用户［admin］：不存在或不唯一"_s},
        {u"delete from Roles"_s, u"系统角色［系统管理员］：不存在或不唯一"_s},
        {u"drop table Query"_s, u"表 Query：不存在"_s},
        {u"drop table TestingTypeCode\nGO\ncreate table TestingTypeCode (Other int null)"_s,
         u"表 TestingTypeCode：缺少列 TypeCode"_s},
    };
    for (const auto& [statement, problem] : breakages) {
        const EmbeddedDatabase fresh;
        runScript(cnnPublic, statement);
        EXPECT_EQ(firstProblem(), problem) << qPrintable(statement);
    }
}

static QString allCounts() {
    QStringList tables;
    for (const TableColumns& table : schemaTables()) {
        tables += table.table;
    }
    return rowCounts(tables);
}

TEST_F(Install, TheSampleIsAWholeBank) {
    installSample();
    EXPECT_EQ(rowsOf(u"select len(TypeCode),count(*) from TestingType group by len(TypeCode) order by len(TypeCode)"_s),
              u"3|3\n6|9"_s);
    EXPECT_EQ(rowsOf(u"select ExaminationNum from Examination where Status<>N'1 - 已完成'"_s), u"ZZ-02"_s);
    EXPECT_EQ(rowsOf(u"select count(*) from TestingSolution s, Position p where s.PostName=p.PostName"_s), u"2"_s);
    EXPECT_EQ(rowsOf(u"select count(*) from (select distinct TestingNumber from TestingResult) a"_s), u"200"_s);
    EXPECT_EQ(rowsOf(u"select u.UserName,u.Locked,count(r.RoleID) from Users u, UserRole l, Roles r where "
                     "u.UserID=l.UserID and l.RoleID=r.RoleID group by u.UserName,u.Locked order by u.UserName"_s),
              u"admin|0|1\nguming|0|1\nlintao|0|1\nqianbo|1|1\nxuwj|0|1\nzhouyq|0|2"_s);
    // The weights of the two models' dimensions, and those of their elements, come to 1.
    EXPECT_EQ(rowsOf(u"select count(*) from (select SolutionID,sum(Weighing) as Whole from TestingSolutionDetail "
                     "group by SolutionID,len(TypeCode)) a where Whole>0.9995 and Whole<1.0005"_s),
              u"4"_s);
    EXPECT_EQ(rowsOf(u"select TypeName,Name from TestingResult where Score is null or "
                     "(len(TypeCode)=6 and (TestingResult is null or TestingResult='' or FactQuestions is null))"_s),
              QString());
    // No verdict stays without an example: nine subtypes with four words each.
    EXPECT_EQ(rowsOf(u"select count(*) from (select distinct TypeCode,TestingResult from TestingResult "
                     "where len(TypeCode)=6) a"_s),
              u"36"_s);
}

TEST_F(Install, TheTestsOfTheSampleAreThoseThatSittingThemStores) {
    installSample();
    const auto stored = [] {
        return rowsOf(u"select * from TestingResult order by TestingID"_s) + u'\n' +
               rowsOf(u"select * from TestingResultDetail order by ID"_s);
    };
    const auto together = stored();
    // Made anew, so that their keys begin again.
    cnnPublic.Execute(u"drop table TestingResult"_s);
    cnnPublic.Execute(u"drop table TestingResultDetail"_s);
    for (const auto& batch :
         scriptBatches(setupText(u"schema.sql"_s)).filter(QRegularExpression(u" (table|on) TestingResult"_s))) {
        cnnPublic.Execute(batch);
    }
    for (const auto& test : drawSampleTests(200)) {
        ASSERT_EQ(test.head.AddNew(test.isModel, test.rows, test.answers), Status::Done);
        if (test.isModel) {
            cnnPublic.Execute(u"drop table #TypecodeScore"_s);
        }
    }
    EXPECT_EQ(together, stored());
}

TEST(SampleFailure, LeavesTheBankEmptyAndReadyForAnotherTry) {
    for (const auto& pattern :
         {u"insert into ExaminationQuestion "_s, u"insert into UserRole "_s, u"update TestingResult set Score"_s}) {
        SCOPED_TRACE(pattern.toStdString());
        const EmbeddedDatabase database;
        const auto before = allCounts();
        cnnPublic.setObserver([&](const QString& statement) {
            if (statement.startsWith(pattern)) {
                throw DatabaseError(50000, u"refused by the test"_s, u"HY000"_s);
            }
        });
        EXPECT_THROW(installSample(), RuntimeError);
        cnnPublic.setObserver({});
        EXPECT_EQ(allCounts(), before);
        EXPECT_THROW(cnnPublic.RollbackTrans(), RuntimeError) << "the clearing up must not be left open";
        installSample();
    }
    const EmbeddedDatabase database;
    cnnPublic.Execute(u"insert into Users (UserName) values (N'chenli')"_s);
    const auto sent = statementsOf([] { EXPECT_THROW(installSample(), RuntimeError); });
    EXPECT_EQ(sent.filter(QRegularExpression(u"^(?!select )"_s)), QStringList()) << "an own user is spared";
}

}  // namespace talvora::test
