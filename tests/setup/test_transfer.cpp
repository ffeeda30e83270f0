#include "core/mdlpublic.h"
#include "platform/database/server_errors.h"
#include "setup/session.h"
#include "setup/setup_tool.h"
#include "setup/tables.h"
#include "setup/transfer/bank_copy.h"
#include "setup/transfer/target.h"
#include "support/database_fixture.h"
#include "support/error_of.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

class BankCopying : public ::testing::Test {
 protected:
    BankCopying() {
        // Gaps between keys, blanks at both ends, nothing against nothing written, marks, and digits to the last.
        cnnPublic.Execute(
            u"insert into TestingSolutionDetail values (1,N'001',N' 甲''乙 ',1234567.1234567891,0.1),"
            "(1,N'001001','',0.30000000000000004,null),(-3,null,N'a\\\nb\\\r\nc',3,-2.5e-300)"_s);
        cnnPublic.Execute(u"set identity_insert Query on"_s);
        cnnPublic.Execute(
            u"insert into Query (QueryID,Query,Condition) values (7,N'甲',N'%1'),(40000,null,N''),"
            "(900000,N'𠮷',N'select ''%'' from T')"_s.arg(QString(5000, u'长')));
        cnnPublic.Execute(u"set identity_insert Query off"_s);
        target.ConnectionString = u"Data Source=embedded;Initial Catalog=:memory:"_s;
        target.Open();
    }

    static QStringList contentOf(Connection& bank) {
        QStringList lines;
        for (const auto& table : schemaTables()) {
            const auto rows = bank.Execute(u"select %1 from %2"_s.arg(table.columns.join(u','), table.table));
            for (const auto row : rows) {
                lines += table.table;
                for (int column = 0; column < rows.FieldCount(); ++column) {
                    lines.back() += u'|' + row.literal(column);
                }
            }
        }
        lines.sort();
        return lines;
    }

    const EmbeddedDatabase database;
    Connection target;
};

TEST_F(BankCopying, BringsEveryRowAsItIsAndGoesOnBehindTheKeys) {
    qint64 told = 0;
    EXPECT_EQ(copyBank(cnnPublic, target, [&](const QString&, qint64 done, qint64) { told = done; }),
              contentOf(cnnPublic).size());
    EXPECT_EQ(contentOf(target), contentOf(cnnPublic));
    EXPECT_EQ(told, contentOf(target).size());
    target.Execute(u"insert into Query (Query) values ('new')"_s);
    EXPECT_EQ(target.Execute(u"select QueryID from Query where Query='new'"_s).first().number32(0), 900001);
    EXPECT_EQ(errorOf([&] { target.Execute(u"create index IX_Query_Query on Query (Query)"_s); }),
              server_error::IndexExists);
    EXPECT_EQ(errorOf([&] { copyBank(cnnPublic, target); }), errors::FileAlreadyExists);
}

TEST_F(BankCopying, LeavesTheTargetEmptyWhateverStopsIt) {
    const auto stopAt = [&](const QString& beginning, const std::function<void()>& stop) {
        bool isOver = false;
        target.setObserver([&, isOver](const QString& statement) mutable {
            if (!isOver && statement.startsWith(beginning)) {
                isOver = true;
                stop();
            }
        });
        EXPECT_NE(errorOf([&] { copyBank(cnnPublic, target); }), 0) << qPrintable(beginning);
        target.setObserver({});
        EXPECT_TRUE(presentTables(target).isEmpty()) << qPrintable(beginning);
    };
    const auto refuse = [] { throw DatabaseError(server_error::DiskFull, u"refused by the test"_s, u"HY000"_s); };
    for (const auto& statement : {u"create index"_s, u"insert into Query"_s, u"select QueryID"_s, u"commit"_s}) {
        stopAt(statement, refuse);
    }
    // Somebody else's work in the source, seen by the comparison alone.
    stopAt(u"create index"_s, [] { cnnPublic.Execute(u"update Query set Query='x' where QueryID=7"_s); });
    stopAt(u"select QueryID"_s, [] { cnnPublic.Execute(u"insert into UserRole values (1,1)"_s); });
    cnnPublic.Execute(u"drop table TestingTypeCode"_s);
    EXPECT_EQ(errorOf([&] { copyBank(cnnPublic, target); }), errors::InvalidCall);
    EXPECT_TRUE(presentTables(target).isEmpty());
}

TEST(CopyTarget, IsAServerOrAFile) {
    const std::pair<QString, QString> readings[] = {
        {u"server:h\\i,1433/人事 库/登录"_s, u"h\\i,1433|人事 库|登录"_s},
        {u"embedded:a/b"_s, u"embedded|a/b|"_s},
        {u"folder/Bank.DB"_s, u"embedded|folder/Bank.DB|"_s},
        {u"server:h/d"_s, {}},
        {u"server:h//l"_s, {}},
        {u"server:h/d;x/l"_s, {}},
        {u"embedded:"_s, {}},
        {u"bank"_s, {}},
    };
    for (const auto& [text, expected] : readings) {
        QString fault;
        const auto target = readTarget(text, fault);
        EXPECT_EQ(fault.isEmpty() ? QStringList({target.server, target.database, target.login}).join(u'|') : QString(),
                  expected)
            << qPrintable(text);
    }
}

class Transfer : public SetupTool {
 protected:
    Transfer() {
        expectSuccess({u"connect"_s, u"--embedded"_s, u"bank.db"_s});
        expectSuccess({u"install"_s}, u"admin"_s);
    }

    void open(const QString& name) {
        cnnPublic.ConnectionString = connectionString(embeddedConnection(path(name)));
        cnnPublic.Open();
    }
    /// What the bank's own row of the tests says.
    QString markOf(const QString& name) {
        open(name);
        const auto mark = rowsOf(u"select Query from Query"_s);
        cnnPublic.Close();
        return mark;
    }
    void mark(const QString& text) {
        open(u"bank.db"_s);
        cnnPublic.Execute(u"delete from Query"_s);
        cnnPublic.Execute(u"insert into Query (Query) values (N'%1')"_s.arg(text));
        cnnPublic.Close();
    }
};

TEST_F(Transfer, AKilledCopyLeavesAnEmptyTarget) {
    open(u"bank.db"_s);
    cnnPublic.BeginTrans();
    for (int i = 0; i < 60'000; ++i) {
        cnnPublic.Execute(u"insert into UserRole values (%1,%1)"_s.arg(i));
        cnnPublic.Execute(u"insert into Roles (RoleName) values (N'角色%1')"_s.arg(i));
    }
    cnnPublic.CommitTrans();
    cnnPublic.Close();
    QProcess tool;
    start(tool, {u"copy"_s, u"--to"_s, u"copy.db"_s});
    QByteArray told;
    while (!told.contains("（1") && tool.waitForReadyRead(60'000)) {
        told += tool.readAllStandardOutput();
    }
    tool.kill();
    EXPECT_TRUE(tool.waitForFinished());
    ASSERT_EQ(tool.exitStatus(), QProcess::CrashExit) << told.constData();
    EXPECT_TRUE(QFile::exists(path(u"copy.db-wal"_s)));
    EXPECT_TRUE(expectSuccess({u"copy"_s, u"--to"_s, u"copy.db"_s}).contains(u"已逐行核对无误"_s));
    expectOwnersOnly(path(u"copy.db"_s));
    expectFailure({u"copy"_s, u"--to"_s, u"embedded:copy.db"_s}, {}, u"目标数据库不是空的"_s);
    expectFailure({u"copy"_s, u"--to"_s, u"bank.db"_s}, {}, u"目标数据库不是空的"_s);
    expectFailure({u"copy"_s, u"--to"_s, u"none/copy.db"_s}, {}, u"目标数据库连接不成功"_s);
    expectFailure({u"copy"_s, u"--to"_s, u"server:127.0.0.1,1/d/l"_s}, u"pass"_s, u"目标数据库连接不成功"_s);
    expectFailure({u"copy"_s, u"--to"_s, write(u"text.db"_s, QByteArray(5000, 'x'))}, {}, u"目标数据库连接不成功"_s);
    EXPECT_EQ(run({u"copy"_s, u"--to"_s, u"bank"_s}).code, 2);
    EXPECT_EQ(run({u"copy"_s}).code, 2);
}

TEST_F(Transfer, ABackupIsOfOneMomentAndComesBack) {
    const auto backup = path(u"备份.bak"_s);
    mark(u"早"_s);
    open(u"bank.db"_s);
    cnnPublic.BeginTrans();
    cnnPublic.Execute(u"update Query set Query=N'没有提交'"_s);
    expectSuccess({u"backup"_s, backup});
    cnnPublic.Close();
    expectOwnersOnly(backup);
    EXPECT_FALSE(QFile::exists(backup + u"-wal"_s) || QFile::exists(backup + u".part"_s));
    expectFailure({u"backup"_s, backup}, {}, u"已经存在"_s);
    expectFailure({u"backup"_s, path(u"bank.db"_s), u"--yes"_s}, {}, u"就是现用数据库"_s);

    mark(u"晚"_s);
    expectFailure({u"restore"_s, backup}, {}, u"--yes"_s);
    open(u"bank.db"_s);
    expectFailure({u"restore"_s, backup, u"--yes"_s}, {}, u"正在使用"_s);
    EXPECT_EQ(rowsOf(u"select Query from Query"_s), u"晚"_s);
    cnnPublic.Close();
    QFile::setPermissions(path(u"bank.db"_s), QFile::permissions(path(u"bank.db"_s)) | QFile::ReadGroup);
    // What a killed restoration has left must not get into this one.
    write(u"bank.db.restoring-wal"_s, "left over");
    expectSuccess({u"restore"_s, backup, u"--yes"_s});
    EXPECT_EQ(markOf(u"bank.db"_s) + u'|' + markOf(u"bank.db.old"_s), u"早|晚"_s);
    EXPECT_TRUE(QFile::permissions(path(u"bank.db"_s)).testFlag(QFile::ReadGroup));
    expectSuccess({u"check"_s});
    expectSuccess({u"backup"_s, backup, u"--yes"_s});
}

TEST_F(Transfer, OnlyASoundBankIsRestoredAndOverADamagedOneToo) {
    const auto backup = path(u"good.bak"_s);
    mark(u"好"_s);
    expectSuccess({u"backup"_s, backup});
    QFile file(backup);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    auto damaged = file.readAll();
    const auto place = damaged.size() / 2;
    damaged.replace(place, 8192, QByteArray(8192, 'x'));
    expectSuccess({u"connect"_s, u"--embedded"_s, u"empty.db"_s});
    createOwnFile(embeddedConnection(path(u"empty.db"_s)));
    expectSuccess({u"connect"_s, u"--embedded"_s, u"bank.db"_s});
    for (const auto& bad : {write(u"text"_s, QByteArray(10'000, 't')), write(u"damaged"_s, damaged),
                            path(u"empty.db"_s), write(u"nothing"_s, {})}) {
        expectFailure({u"restore"_s, bad, u"--yes"_s}, {}, u"不是完好的 Talvora 数据库"_s);
    }
    expectFailure({u"restore"_s, path(u"none"_s), u"--yes"_s}, {}, u"没有做任何改动"_s);
    EXPECT_EQ(markOf(u"bank.db"_s), u"好"_s);

    write(u"bank.db"_s, damaged.first(100) + QByteArray(10'000, 'x'));
    expectFailure({u"backup"_s, path(u"b"_s)}, {}, u"不是完好的"_s);
    expectSuccess({u"restore"_s, backup, u"--yes"_s});
    EXPECT_EQ(markOf(u"bank.db"_s), u"好"_s);
    ASSERT_TRUE(QFile::remove(path(u"bank.db"_s)));
    expectSuccess({u"restore"_s, backup, u"--yes"_s});
    expectOwnersOnly(path(u"bank.db"_s));
    EXPECT_EQ(markOf(u"bank.db"_s), u"好"_s);
    expectSuccess({u"connect"_s, u"--embedded"_s, u"bank.db"_s});
    run({u"connect"_s, u"--server"_s, u"127.0.0.1,1"_s, u"--database"_s, u"d"_s, u"--login"_s, u"l"_s}, u"p"_s);
    for (const auto& verb : {u"backup"_s, u"restore"_s}) {
        expectFailure({verb, backup, u"--yes"_s}, {}, u"现用数据库在服务器上"_s);
    }
}

}  // namespace talvora::test
