#include "windows/journey_bank.h"
#include "workbench/frmlogin.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class Login : public JourneyTest {};

TEST_F(Login, PanelsClearTheirFieldsWhenChosen) {
    frmLogin login;
    login.Show();
    EXPECT_EQ(login.window()->windowTitle(), u"登录"_s);
    EXPECT_EQ(focused(), login.ui->txtUserName);
    EXPECT_EQ(login.ui->txtUserName->text(), u"admin"_s);
    EXPECT_FALSE(login.ui->FraDiy->isVisible() || login.ui->cmdOK->isVisible());
    type(login.ui->txtPassword, u"secret"_s);
    EXPECT_EQ(login.ui->txtPassword->displayText(), u"******"_s);
    click(login.ui->optType1);
    EXPECT_EQ(focused(), login.ui->txtID);
    EXPECT_TRUE(login.ui->FraDiy->isVisible() && login.ui->cmdOK->isVisible() && login.ui->cmdCancel->isVisible());
    EXPECT_FALSE(login.ui->FraLogin->isVisible() || login.ui->cmdLogin->isVisible());
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

TEST_F(Login, RefusesWhoIsNotLetIn) {
    cnnPublic.Execute(u"insert into Users (UserName, Password, Locked) values ('locked', 'pw', 1)"_s);
    cnnPublic.Execute(u"insert into Users (UserName, Password, Locked) values ('open', 'pw ', 0)"_s);
    const QString wrong = u"［用户名］或［密码］错误，或当前用户已被锁定，请重新输入！"_s;
    const QString quote = u"文本框中不可输入字符［'］！"_s;
    const struct {
        QString name;
        QString password;
        QString words;
    } table[] = {
        {u"admin"_s, u"wrong"_s, wrong},       {u"admin"_s, u""_s, wrong}, {u"nobody"_s, u"admin"_s, wrong},
        {u"locked"_s, u"pw"_s, wrong},         {u""_s, u""_s, wrong},      {u"a'b"_s, u"admin"_s, quote},
        {u"admin"_s, u"' or '1'='1"_s, quote},
    };
    frmLogin login;
    login.Show();
    for (const auto& row : table) {
        PromptScript script;
        retype(login.ui->txtUserName, row.name);
        retype(login.ui->txtPassword, row.password);
        script.expect(vbOK, row.words);
        click(login.ui->cmdLogin);
        EXPECT_EQ(script.last().style, vbExclamation);
        EXPECT_EQ(script.last().title, u"Talvora 1.3 Build 201000905"_s);
        EXPECT_EQ(focused(), login.ui->txtUserName);
        if (row.words == wrong) {
            EXPECT_EQ(login.ui->txtPassword->selectedText().size(), row.password.size());
        }
        EXPECT_TRUE(login.window()->isVisible());
        EXPECT_FALSE(login.LoginPassed);
    }
    EXPECT_TRUE(strCurrentUser.isEmpty());
}

TEST_F(Login, FailingStatementReadsAsAWrongPassword) {
    frmLogin login;
    login.Show();
    type(login.ui->txtPassword, u"admin"_s);
    PromptScript script;
    script.expect(vbOK, u"［用户名］或［密码］错误，或当前用户已被锁定，请重新输入！"_s);
    EXPECT_EQ(statementsOf([&] { click(login.ui->cmdLogin); }, 1),
              QStringList(u"Select * from Users where UserName='admin' and Password='admin' and locked='0'"_s));
}

TEST_F(Login, SelfServiceChecksInTheirOrder) {
    frmLogin login;
    login.Show();
    click(login.ui->optType1);
    const struct {
        QString id;
        QString name;
        QString words;
        QWidget* field;
        QString idAfter;
    } table[] = {
        {u""_s, u""_s, u"请输入［身份证号］！"_s, login.ui->txtID, u""_s},
        {u"123"_s, u""_s, u"［身份证号］不合法，请重新输入！"_s, login.ui->txtID, u""_s},
        {rightNumber, u""_s, u"请输入［姓名］！"_s, login.ui->txtName, rightNumber},
    };
    for (const auto& row : table) {
        PromptScript script;
        retype(login.ui->txtID, row.id);
        retype(login.ui->txtName, row.name);
        script.expect(vbOK, row.words);
        click(login.ui->cmdOK);
        EXPECT_EQ(script.last().style, vbExclamation);
        EXPECT_EQ(focused(), row.field);
        EXPECT_EQ(login.ui->txtID->text(), row.idAfter);
    }
    setOption(u"blnCheckId"_s, u"N"_s);
    PromptScript script;
    retype(login.ui->txtID, u"123"_s);
    script.expect(vbOK, u"请输入［姓名］！"_s);
    click(login.ui->cmdOK);
}

}  // namespace
}  // namespace talvora::test
