#include "access/cuser.h"
#include "core/connection_file.h"
#include "core/mdlpublic.h"
#include "setup/sheet.h"
#include "support/database_fixture.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// The real program in a folder of its own, where it writes its connection file.
class SetupTool : public ::testing::Test {
 protected:
    struct Outcome {
        int code = -1;
        QString out;
        QString err;
    };

    void SetUp() override {
        ASSERT_TRUE(QFile::copy(QStringLiteral(TALVORA_SETUP_TOOL), path(toolName())));
        ASSERT_TRUE(QFile::setPermissions(path(toolName()), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    void TearDown() override { cnnPublic.Close(); }

    static QString toolName() { return QFileInfo(QStringLiteral(TALVORA_SETUP_TOOL)).fileName(); }
    QString path(const QString& name) const { return QDir(folder_.path()).filePath(name); }
    QString connectionFile() const { return path(connectionFileName()); }

    Outcome run(const QStringList& arguments, const QString& input = {}) {
        QProcess tool;
        // A command line needs no display.
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"QT_QPA_PLATFORM"_s);
        tool.setProcessEnvironment(environment);
        tool.start(path(toolName()), arguments);
        tool.write(input.toUtf8() + '\n');
        tool.closeWriteChannel();
        EXPECT_TRUE(tool.waitForFinished(60'000));
        EXPECT_EQ(tool.exitStatus(), QProcess::NormalExit);
        return {tool.exitCode(), QString::fromUtf8(tool.readAllStandardOutput()),
                QString::fromUtf8(tool.readAllStandardError())};
    }

    static void expectOwnersOnly(const QString& file) {
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        EXPECT_EQ(QFile::permissions(file) & others, QFile::Permissions()) << qPrintable(file);
    }

    QString write(const QString& name, const QByteArray& content) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return file.fileName();
    }

 private:
    QTemporaryDir folder_;
};

TEST_F(SetupTool, WritesAConnectionWithChineseTextThatTheClientReads) {
    // Nobody listens there: the connection is saved, and its failure told.
    const auto outcome =
        run({u"connect"_s, u"--server"_s, u"127.0.0.1,1"_s, u"--database=人事测评库"_s, u"--login"_s, u"测评管理员"_s},
            u"密码 ;}='Ａz1"_s);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"连接不成功："_s)) << qPrintable(outcome.err);
    const auto read = readConnectionFile(connectionFile());
    EXPECT_EQ(read.server, u"127.0.0.1,1"_s);
    EXPECT_EQ(read.database, u"人事测评库"_s);
    EXPECT_EQ(read.login, u"测评管理员"_s);
    EXPECT_EQ(read.password, u"密码 ;}='Ａz1"_s);
    expectOwnersOnly(connectionFile());
    EXPECT_FALSE((outcome.out + outcome.err).contains(u"}='"_s));
}

TEST_F(SetupTool, RefusesAWrongCommandLineAndDoesNothing) {
    for (const auto& line :
         {u"unknown"_s, u"connect"_s, u"connect --server a --database b"_s,
          u"connect --server a --database b --login"_s, u"connect --server a --server b"_s,
          u"connect --server a --database b --login c --password d"_s, u"connect --embedded a.db --Password=d"_s,
          u"connect --embedded a.db --login c"_s, u"connect --embedded="_s, u"install --pwd d"_s, u"install secret"_s,
          u"import"_s, u"import a.csv b.csv"_s, u"check --all x"_s}) {
        const auto outcome = run(line.split(u' '), u"secret"_s);
        EXPECT_EQ(outcome.code, 2) << qPrintable(line);
        EXPECT_FALSE(outcome.err.isEmpty());
    }
    EXPECT_FALSE(QFile::exists(connectionFile()));
}

TEST_F(SetupTool, TellsThatThereIsNoConnectionYet) {
    for (const auto& verb : {u"install"_s, u"check"_s, u"sample"_s}) {
        const auto outcome = run({verb}, u"admin"_s);
        EXPECT_EQ(outcome.code, 1);
        EXPECT_TRUE(outcome.err.contains(u"尚未配置数据库连接"_s)) << qPrintable(outcome.err);
    }
    write(connectionFileName(), "spoilt");
    const auto outcome = run({u"check"_s});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"已损坏"_s)) << qPrintable(outcome.err);
}

TEST_F(SetupTool, InstallsAnEmbeddedDatabaseOnceChecksItAndImports) {
    const auto connected = run({u"connect"_s, u"--embedded"_s, u"试验.db"_s});
    EXPECT_EQ(connected.code, 0) << qPrintable(connected.err);
    EXPECT_TRUE(connected.out.contains(u"install"_s));
    EXPECT_EQ(run({u"check"_s}).code, 1);
    EXPECT_EQ(run({u"install"_s}).code, 1);
    EXPECT_FALSE(QFile::exists(path(u"试验.db"_s)));
    const auto installed = run({u"install"_s}, u"初始密码"_s);
    EXPECT_EQ(installed.code, 0) << qPrintable(installed.err);
    EXPECT_FALSE((installed.out + installed.err).contains(u"初始密码"_s));
    expectOwnersOnly(path(u"试验.db"_s));
    const auto checked = run({u"check"_s});
    EXPECT_EQ(checked.code, 0) << qPrintable(checked.out + checked.err);
    const auto again = run({u"install"_s}, u"other"_s);
    EXPECT_EQ(again.code, 1);
    EXPECT_TRUE(again.err.contains(u"数据库不是空的"_s)) << qPrintable(again.err);

    const auto refused = run({u"import"_s, write(u"坏.csv"_s, test::Sheet(u"2 题目=|3 分数A=10"_s).utf8())});
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(
        refused.err.contains(u"有 2 处错误，没有导入任何内容：\n第 3 行：请输入［题目］！\n第 4 行：［分数A］"_s))
        << qPrintable(refused.err);
    const auto imported = run({u"import"_s, write(u"好.csv"_s, test::Sheet().utf8())});
    EXPECT_EQ(imported.code, 0) << qPrintable(imported.err);
    EXPECT_TRUE(imported.out.contains(u"试卷 1 份、试题 3 道"_s)) << qPrintable(imported.out);
    EXPECT_EQ(run({u"import"_s, path(u"none.csv"_s)}).code, 1);

    auto connection = readConnectionFile(connectionFile());
    connection.database = path(connection.database);
    cnnPublic.ConnectionString = connectionString(connection);
    cnnPublic.Open();
    EXPECT_TRUE(cUsers::IsExistUser(u"admin"_s, u"初始密码"_s));
}

}  // namespace

}  // namespace talvora
