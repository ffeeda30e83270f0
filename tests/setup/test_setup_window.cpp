#include "access/cuser.h"
#include "core/mdlpublic.h"
#include "setup/frmsetup.h"
#include "setup/session.h"
#include "setup/sheet.h"
#include "support/windows.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace talvora::test {

using namespace Qt::StringLiterals;

// The whole road in the window. It writes beside the test program, which therefore has a folder of its own.
class SetupWindow : public WindowTest {
 protected:
    SetupWindow() { removeFiles(); }
    ~SetupWindow() override {
        cnnPublic.Close();
        removeFiles();
    }

    static QString path(const QString& name) { return QDir(QCoreApplication::applicationDirPath()).filePath(name); }

    static void removeFiles() {
        for (const auto& name : {u"cfgserver.bin"_s, u"窗口.db"_s, u"窗口.db-wal"_s, u"窗口.db-shm"_s, u"试卷.csv"_s}) {
            QFile::remove(path(name));
        }
    }
};

TEST_F(SetupWindow, LeadsFromNothingToACompleteDatabaseWithAPaper) {
    auto& window = frmSetup::Default();
    window.Show();
    PromptScript script;

    script.expect(vbOK, u"请先输入［服务器］！"_s);
    click(window.ui->cmdConnect);
    EXPECT_EQ(focused(), window.ui->txtServer);
    script.expect(vbOK, u"尚未配置数据库连接，请先进行［连接到SQL SERVER］！"_s);
    click(window.ui->cmdCheck);

    // A connection that fails is saved when the user says so.
    retype(window.ui->txtServer, u"127.0.0.1,1"_s);
    retype(window.ui->txtDatabase, u"测评库"_s);
    retype(window.ui->txtLogin, u"管理员"_s);
    retype(window.ui->txtPassword, u"密码"_s);
    script.expect(vbNo);
    click(window.ui->cmdConnect);
    EXPECT_EQ(script.last().style, ConfirmStyle);
    EXPECT_FALSE(QFile::exists(connectionFilePath()));
    script.expect(vbYes);
    click(window.ui->cmdConnect);
    EXPECT_EQ(savedConnection().password, u"密码"_s);

    click(window.ui->optEmbedded);
    retype(window.ui->txtFile, u"窗口.db"_s);
    click(window.ui->cmdConnect);
    EXPECT_EQ(savedConnection().database, u"窗口.db"_s);

    script.expect(vbOK, u"请先输入系统用户［admin］的密码！"_s);
    click(window.ui->cmdInstall);
    EXPECT_EQ(focused(), window.ui->txtAdmin);
    retype(window.ui->txtAdmin, u"secret"_s);
    script.expect(vbOK, u"两次输入的密码不一致，请重新输入！"_s);
    click(window.ui->cmdInstall);
    EXPECT_EQ(focused(), window.ui->txtConfirm);
    EXPECT_FALSE(QFile::exists(path(u"窗口.db"_s)));

    retype(window.ui->txtConfirm, u"secret"_s);
    script.expect(vbOK, u"安装完成，请用系统用户［admin］登录。"_s);
    click(window.ui->cmdInstall);
    EXPECT_TRUE(window.ui->txtAdmin->text().isEmpty());

    QFile file(path(u"试卷.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(Sheet().utf8());
    file.close();
    script.expectOpenFile(file.fileName()).expect(vbOK, u"导入完成。"_s);
    click(window.ui->cmdImport);
    script.expectOpenFile(file.fileName())
        .expect(vbOK, u"文件有错误，没有导入任何内容，请按列出的行号修改后重新导入！"_s);
    click(window.ui->cmdImport);
    EXPECT_TRUE(window.ui->txtReport->toPlainText().contains(u"第 2 行：题库中已有［试卷编号］为［P-1］的试卷！"_s));

    click(window.ui->cmdCheck);
    EXPECT_TRUE(window.ui->txtReport->toPlainText().endsWith(u"数据库完整。"_s));
    click(window.ui->cmdClose);
    EXPECT_FALSE(window.isLoaded());

    openSession(savedConnection());
    EXPECT_TRUE(cUsers::IsExistUser(u"admin"_s, u"secret"_s));
    window.Show();
    EXPECT_EQ(window.ui->txtFile->text(), u"窗口.db"_s);
}

}  // namespace talvora::test
