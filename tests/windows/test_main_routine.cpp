#include "core/connection_file.h"
#include "core/mdlpublic.h"
#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"
#include "setup/install.h"
#include "support/windows.h"
#include "workbench/frmlogin.h"
#include "workbench/frmmain.h"
#include "workbench/main_routine.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

/// The connection file lies in the program's own folder, here that of the tests.
class MainRoutine : public WindowTest {
 protected:
    MainRoutine() { QFile::remove(file_); }
    ~MainRoutine() override {
        QFile::remove(file_);
        cnnPublic.Close();
        strCurrentUser.clear();
    }

    QString file_ = QCoreApplication::applicationDirPath() + u"/cfgserver.bin"_s;
};

// One test, since the file is one.
TEST_F(MainRoutine, FromTheConnectionToTheEnd) {
    {
        PromptScript script;
        script.expect(vbOK, u"［SQL SERVER］连接不成功，请先运行安装项下的［连接到SQL SERVER］进行配置！"_s);
        Main();
        EXPECT_EQ(script.last().style, vbInformation);
        EXPECT_EQ(script.last().title, u"Talvora 1.3 Build 201000905"_s);
        EXPECT_FALSE(frmLogin::Default().isLoaded());
    }
    const QTemporaryDir folder;
    const QString database = folder.filePath(u"测评.db"_s);
    ConnectionParts parts;
    parts.initialCatalog = database;
    createEmbedded(parts);
    writeConnectionFile(file_, {u"embedded"_s, database, QString(), QString()});
    ASSERT_TRUE(ConnectServer());
    install(cnnPublic, u"admin"_s);

    whenModal<frmLogin>([](frmLogin& login) { click(login.ui->cmdCancel); });
    Main();
    EXPECT_FALSE(fMainForm);

    whenModal<frmLogin>([](frmLogin& login) {
        type(login.ui->txtPassword, u"admin"_s);
        press(Qt::Key_Return);
        EXPECT_EQ(focused(), login.ui->cmdLogin);
        press(Qt::Key_Return);
    });
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [] {
        if (fMainForm && fMainForm->isLoaded() && fMainForm->window()->isVisible()) {
            EXPECT_EQ(fMainForm->ui->pnlUser->text(), u"当前用户：admin"_s);
            EXPECT_FALSE(frmLogin::Default().isLoaded());
            fMainForm->window()->close();
        }
    });
    watch.start(1);
    Main();
    EXPECT_EQ(strCurrentUser, u"admin"_s);
    EXPECT_FALSE(fMainForm->isLoaded());
    fMainForm.reset();
}

}  // namespace
}  // namespace talvora::test
