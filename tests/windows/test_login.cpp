#include "core/connection_file.h"
#include "core/identity_number.h"
#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"
#include "setup/install.h"
#include "support/error_of.h"
#include "windows/journey_bank.h"
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

TEST(IdentityNumber, CheckDigitFollowsFromTheRemainder) {
    QString checks;
    for (const QChar last : u"0123456789"_s) {
        checks += ChecksumChar(u"0"_s.repeated(16) + last);
    }
    EXPECT_EQ(checks, u"1X86420975"_s);
    // The 17th digit weighs 2: its ten values reach every remainder but 9, which the first of these gives.
    EXPECT_EQ(ChecksumChar(u"00000000000100000"_s), u"3"_s);
    EXPECT_EQ(ChecksumChar(u"44052418800101001"_s) + ChecksumChar(u"11010519491231002"_s), u"4X"_s);
}

TEST(IdentityNumber, IsValidByLengthNumbersAndCheckDigit) {
    EXPECT_TRUE(IsValidIDNumber(u"440524188001010014"_s));
    EXPECT_TRUE(IsValidIDNumber(u"000000000000000001"_s)) << "neither area nor birth date is looked at";
    // A wrong check digit, a right one that is not numeric, the older form, a full-width digit, a blank.
    for (const auto& text : {u"440524188001010015"_s, u"11010519491231002X"_s, u""_s, u"130503670401001"_s,
                             u"44052418800101001４"_s, u"44052418800101001 "_s}) {
        EXPECT_FALSE(IsValidIDNumber(text)) << text.toStdString();
    }
    for (const auto& text : {u"-40524188001010014"_s, u"4405241880010.0014"_s, u"44052,188001010014"_s}) {
        EXPECT_EQ(errorOf([&] { IsValidIDNumber(text); }), errors::TypeMismatch) << text.toStdString();
    }
}

class Login : public JourneyTest {
 protected:
    Login() { login.Show(); }

    frmLogin login;
};

TEST_F(Login, PanelsClearTheirFieldsWhenChosen) {
    EXPECT_EQ(focused(), login.ui->txtUserName);
    EXPECT_EQ(login.ui->txtUserName->text(), u"admin"_s);
    type(login.ui->txtPassword, u"secret"_s);
    EXPECT_EQ(login.ui->txtPassword->displayText(), u"******"_s);
    click(login.ui->optType1);
    EXPECT_EQ(focused(), login.ui->txtID);
    EXPECT_TRUE(login.ui->cmdOK->isVisible() && !login.ui->FraLogin->isVisible() && !login.ui->cmdLogin->isVisible());
    type(login.ui->txtID, u"1"_s);
    type(login.ui->txtName, u"a"_s);

    click(login.ui->optType0);
    EXPECT_EQ(focused(), login.ui->txtUserName);
    EXPECT_TRUE(login.ui->txtUserName->text().isEmpty()) << "the preset name is gone";
    EXPECT_EQ(login.ui->txtPassword->text(), u"secret"_s);
    click(login.ui->optType1);
    EXPECT_TRUE(login.ui->txtID->text().isEmpty() && login.ui->txtName->text().isEmpty());

    setOption(u"blnLockTerminal"_s, u"Y"_s);
    frmLogin locked;
    locked.Load();
    EXPECT_FALSE(locked.ui->optType1->isEnabled());
}

TEST_F(Login, TabReachesTheChosenEntryAndArrowsChooseTheOther) {
    QString way;
    for (const Qt::Key key : {Qt::Key_Backtab, Qt::Key_Right, Qt::Key_Backtab, Qt::Key_Right}) {
        press(key);
        way += focused()->objectName() + u' ';
    }
    EXPECT_EQ(way, u"optType0 txtID optType1 txtUserName "_s);
    EXPECT_TRUE(login.ui->optType0->isChecked());
}

TEST_F(Login, RefusesWhoIsNotLetIn) {
    cnnPublic.Execute(u"insert into Users (UserName, Password, Locked) values ('locked', 'pw', 1)"_s);
    const QString wrong = u"［用户名］或［密码］错误，或当前用户已被锁定，请重新输入！"_s;
    const QString quote = u"文本框中不可输入字符［'］！"_s;
    const QString table[][3] = {
        {u"admin"_s, u"wrong"_s, wrong}, {u"admin"_s, u""_s, wrong},    {u"nobody"_s, u"admin"_s, wrong},
        {u"locked"_s, u"pw"_s, wrong},   {u"a'b"_s, u"admin"_s, quote}, {u"admin"_s, u"' or '1'='1"_s, quote},
        {u"admin"_s, u"admin"_s, wrong},  // whose statement fails
    };
    QStringList sent;
    for (const auto& [name, password, words] : table) {
        PromptScript script;
        retype(login.ui->txtUserName, name);
        retype(login.ui->txtPassword, password);
        script.expect(vbOK, words);
        sent = statementsOf([&] { click(login.ui->cmdLogin); }, password == name ? 1 : 0);
        EXPECT_EQ(script.last().style, vbExclamation);
        EXPECT_EQ(focused(), login.ui->txtUserName);
        EXPECT_TRUE(words == quote || login.ui->txtPassword->selectedText().size() == password.size());
        EXPECT_TRUE(login.window()->isVisible() && !login.LoginPassed && strCurrentUser.isEmpty());
    }
    EXPECT_EQ(sent.join(u'\n'), u"Select * from Users where UserName='admin' and Password='admin' and locked='0'"_s);
}

TEST_F(Login, SelfServiceChecksInTheirOrder) {
    click(login.ui->optType1);
    const struct {
        QString id, words;
        QWidget* field;
        QString idAfter, check = u"Y"_s;
    } table[] = {
        {{}, u"请输入［身份证号］！"_s, login.ui->txtID, {}},
        {u"123"_s, u"［身份证号］不合法，请重新输入！"_s, login.ui->txtID, {}},
        {rightNumber, u"请输入［姓名］！"_s, login.ui->txtName, rightNumber},
        {u"123"_s, u"请输入［姓名］！"_s, login.ui->txtName, u"123"_s, u"N"_s},
    };
    for (const auto& row : table) {
        setOption(u"blnCheckId"_s, row.check);
        PromptScript script;
        retype(login.ui->txtID, row.id);
        script.expect(vbOK, row.words);
        click(login.ui->cmdOK);
        EXPECT_EQ(script.last().style, vbExclamation);
        EXPECT_EQ(focused(), row.field);
        EXPECT_EQ(login.ui->txtID->text(), row.idAfter);
    }
}

class MainRoutine : public WindowTest {
 protected:
    ~MainRoutine() override {
        QFile::remove(file);
        cnnPublic.Close();
        strCurrentUser.clear();
    }

    const QString file = QCoreApplication::applicationDirPath() + u"/cfgserver.bin"_s;  // in the tests' own folder
};

TEST_F(MainRoutine, FromTheConnectionToTheEnd) {
    QFile::remove(file);
    PromptScript script;
    script.expect(vbOK, u"［SQL SERVER］连接不成功，请先运行安装项下的［连接到SQL SERVER］进行配置！"_s);
    Main();
    EXPECT_EQ(script.last().style, vbInformation);
    EXPECT_EQ(script.last().title, u"Talvora 1.3 Build 201000905"_s);
    EXPECT_FALSE(frmLogin::Default().isLoaded());
    const QTemporaryDir folder;
    const QString database = folder.filePath(u"测评.db"_s);
    ConnectionParts parts;
    parts.initialCatalog = database;
    createEmbedded(parts);
    writeConnectionFile(file, {u"embedded"_s, database, QString(), QString()});
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
