#include "access/cuser.h"
#include "core/connection_file.h"
#include "core/mdlpublic.h"
#include "setup/setup_tool.h"
#include "setup/sheet.h"
#include "support/database_fixture.h"

#include <QFile>
#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

TEST_F(SetupTool, WritesAConnectionWithChineseTextThatTheClientReads) {
    // Nobody listens there: the connection is saved, and its failure told.
    const auto outcome =
        run({u"connect"_s, u"--server"_s, u"127.0.0.1,1"_s, u"--database=人事测评库"_s, u"--login"_s, u"测评管理员"_s},
            u"密码 ;}='Ａz1"_s);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"连接不成功："_s)) << qPrintable(outcome.err);
    const auto read = readConnectionFile(connectionFile());
    EXPECT_EQ(QStringList({read.server, read.database, read.login, read.password}).join(u'|'),
              u"127.0.0.1,1|人事测评库|测评管理员|密码 ;}='Ａz1"_s);
    expectOwnersOnly(connectionFile());
    EXPECT_FALSE((outcome.out + outcome.err).contains(u"}='"_s));
}

TEST_F(SetupTool, RefusesAWrongCommandLineAndTellsThatThereIsNoConnection) {
    for (const auto& line :
         {u"unknown"_s, u"connect"_s, u"connect --server a --database b"_s, u"connect --server a --server b"_s,
          u"connect --server a --database b --login c --password d"_s, u"connect --embedded a.db --login c"_s,
          u"connect --embedded="_s, u"install secret"_s, u"import"_s, u"import a.csv b.csv"_s, u"check --all x"_s,
          u"archive --before 2024-01-01"_s, u"archive --to a.db"_s, u"renumber --yes=1"_s, u"renumber now"_s,
          u"grant"_s, u"grant --login a --password b"_s}) {
        const auto outcome = run(line.split(u' '), u"secret"_s);
        EXPECT_EQ(outcome.code, 2) << qPrintable(line);
        EXPECT_FALSE(outcome.err.isEmpty());
    }
    EXPECT_FALSE(QFile::exists(connectionFile()));
    for (const auto& verb : {u"install"_s, u"check"_s, u"sample"_s}) {
        expectFailure({verb}, u"admin"_s, u"尚未配置数据库连接"_s);
    }
    write(connectionFileName(), "spoilt");
    expectFailure({u"check"_s}, {}, u"已损坏"_s);
}

TEST_F(SetupTool, InstallsAnEmbeddedDatabaseOnceChecksItAndImports) {
    EXPECT_TRUE(expectSuccess({u"connect"_s, u"--embedded"_s, u"试验.db"_s}).contains(u"install"_s));
    EXPECT_EQ(run({u"check"_s}).code, 1);
    EXPECT_EQ(run({u"install"_s}).code, 1);
    EXPECT_FALSE(QFile::exists(path(u"试验.db"_s)));
    EXPECT_FALSE(expectSuccess({u"install"_s}, u"初始密码"_s).contains(u"初始密码"_s));
    expectOwnersOnly(path(u"试验.db"_s));
    expectSuccess({u"check"_s});
    expectFailure({u"install"_s}, u"other"_s, u"数据库不是空的"_s);

    expectFailure({u"import"_s, write(u"坏.csv"_s, Sheet(u"2 题目=|3 分数A=10"_s).utf8())}, {},
                  u"有 2 处错误，没有导入任何内容：\n第 3 行：请输入［题目］！\n第 4 行：［分数A］"_s);
    EXPECT_TRUE(expectSuccess({u"import"_s, write(u"好.csv"_s, Sheet().utf8())}).contains(u"试卷 1 份、试题 3 道"_s));
    EXPECT_EQ(run({u"import"_s, path(u"none.csv"_s)}).code, 1);

    // Nobody sits at the input here.
    expectFailure({u"renumber"_s}, u"是"_s, u"没有做任何改动"_s);
    EXPECT_TRUE(expectSuccess({u"renumber"_s, u"--yes"_s}).contains(u"编号［试题］：改动 0 个，已用 3 / 32767"_s));
    expectFailure({u"archive"_s, u"--before=2024-13-01"_s, u"--to=旧.db"_s}, {}, u"日期［2024-13-01］不对"_s);
    EXPECT_TRUE(expectSuccess({u"archive"_s, u"--before=2024-01-01"_s, u"--to=旧.db"_s}).contains(u"不必归档"_s));
    expectFailure({u"grant"_s, u"--login=station"_s}, u"secret"_s, u"内置数据库文件没有登录"_s);

    auto connection = readConnectionFile(connectionFile());
    connection.database = path(connection.database);
    cnnPublic.ConnectionString = connectionString(connection);
    cnnPublic.Open();
    EXPECT_TRUE(cUsers::IsExistUser(u"admin"_s, u"初始密码"_s));
}

}  // namespace talvora::test
