#include "access/cuser.h"
#include "core/mdlpublic.h"
#include "setup/check.h"
#include "setup/install.h"
#include "setup/tables.h"
#include "support/database_fixture.h"

#include <gtest/gtest.h>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

TEST(Script, IsCutAtLinesThatHoldGoAlone) {
    EXPECT_EQ(
        scriptBatches(u"-- note\nselect 1\n  go  \r\nselect 'GO'\nselect GOAL\nGO\n-- only a note\n\nGO\nselect 3"_s),
        (QStringList{u"-- note\nselect 1"_s, u"select 'GO'\nselect GOAL"_s, u"select 3"_s}));
    EXPECT_EQ(scriptBatches(u"\n-- nothing\n"_s), QStringList());
}

class Install : public ::testing::Test {
 protected:
    static QStringList problems() {
        QStringList texts;
        for (const auto& item : checkDatabase(cnnPublic)) {
            if (!item.isGood) {
                texts.append(item.text);
            }
        }
        return texts;
    }

 private:
    test::EmbeddedDatabase database_;
};

TEST_F(Install, LetsAdminInAndGrantsTheSystemRoleEverything) {
    EXPECT_TRUE(cUsers::IsExistUser(u"admin"_s, u"admin"_s));
    EXPECT_FALSE(cUsers::IsExistUser(u"admin"_s, {}));
    const auto functions = test::rowsOf(u"select f.ModuleCode,f.FunctionKey from ModuleFunction f order by RecordID"_s);
    for (const auto& line : functions.split(u'\n')) {
        const auto key = line.split(u'|');
        const auto module = test::rowsOf(u"select TableName from Modules where ModuleCode='"_s + key[0] + u'\'');
        EXPECT_TRUE(cUsers::IsAccessFunction(u"admin"_s, module, key[1])) << qPrintable(line);
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
    bool isThrough = false;
    for (qsizetype failing = 1; !isThrough; ++failing) {
        Connection connection;
        connection.ConnectionString = u"Data Source=embedded;Initial Catalog=:memory:"_s;
        connection.Open();
        qsizetype left = failing + static_cast<qsizetype>(schemaTables().size());
        connection.setObserver([&](const QString&) {
            if (--left == 0) {
                throw DatabaseError(50000, u"refused by the test"_s, u"HY000"_s);
            }
        });
        try {
            install(connection, u"admin"_s);
            isThrough = true;
        } catch (const DatabaseError& error) {
            connection.setObserver({});
            ASSERT_EQ(error.number(), 50000) << failing;
            ASSERT_EQ(presentTables(connection), QStringList()) << failing;
        }
        ASSERT_EQ(isThrough, left > 0) << failing;
    }
}

struct Breakage {
    QString statement;
    QString problem;
};

TEST_F(Install, LeftIncompleteIsToldByTheCheck) {
    const std::vector<Breakage> breakages{
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
    for (const auto& breakage : breakages) {
        const test::EmbeddedDatabase fresh;
        runScript(cnnPublic, breakage.statement);
        EXPECT_EQ(problems().value(0), breakage.problem) << qPrintable(breakage.statement);
    }
}

}  // namespace

}  // namespace talvora
