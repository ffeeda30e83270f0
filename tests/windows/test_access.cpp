#include "access/cuser.h"
#include "access/frmpassword.h"
#include "access/frmrole.h"
#include "access/frmuser.h"
#include "toolkit/controls/checktree.h"
#include "toolkit/controls/toolbar.h"
#include "windows/journey_bank.h"
#include "workbench/frmmain.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

/// Ticks or unticks nodes one after the other by the keyboard, and gives the keys of those that are ticked then.
QString tick(CheckTree* tree, const QString& keys) {
    for (const QString& key : keys.split(u' ', Qt::SkipEmptyParts)) {
        tree->setFocus();
        tree->setCurrentItem(tree->Node(key));
        press(Qt::Key_Space);
    }
    QString ticked;
    for (const CheckNode* node : tree->Nodes()) {
        ticked += node->Checked() ? node->Key + u' ' : QString();
    }
    return ticked.trimmed();
}

/// Presses OK and closes a dialog that stays open: the words that it must say, their style and where the focus is then.
void expectOutcome(Form& dialog, QPushButton* ok, const QString& outcome) {
    PromptScript script;
    if (outcome != u"closed"_s) {
        script.expect();
    }
    click(ok);
    const QString said = script.last().text + (script.shown().empty() ? u""_s : u" %1 "_s.arg(script.last().style));
    EXPECT_EQ(said + (dialog.isLoaded() ? focused()->objectName() : u"closed"_s), outcome);
    dialog.Unload();
}

class AccessWindows : public WindowTest {
 protected:
    AccessWindows() {
        emptyTables({u"Modules"_s, u"ModuleFunction"_s, u"Roles"_s, u"RoleRight"_s, u"Users"_s, u"UserRole"_s});
        cnnPublic.Execute(
            u"insert into Modules (RecordID,ModuleCode,ModuleName,TableName) values (1,'001','G1',null), "
            "(2,'001001','M1','testing'), (3,'001002','M2','users'), (4,'002','G2',null)"_s);
        cnnPublic.Execute(
            u"insert into ModuleFunction (RecordID,ModuleCode,FunctionKey,FunctionDesc) values "
            "(1,'001001','del','D'), (2,'001001','browse','B'), (3,'001002','add','A')"_s);
        // Two share a code since the codes ran out, and the parent of the last is gone.
        cnnPublic.Execute(
            u"insert into Roles (RoleName,RoleCode) values "
            "('top','001'), ('old','001001'), ('a','0010'), ('b','0010'), ('c','002'), ('d','009001')"_s);
        cnnPublic.Execute(u"insert into Users (UserName,UserDesc,Password) values ('u','d','p')"_s);
    }

    static frmUser& user(bool add) {
        frmUser::Default().AddMode = add;
        frmUser::Default().UserIDOf = cUsers::GetUserID(u"u"_s);
        frmUser::Default().Show();
        return frmUser::Default();
    }

    static frmRole& role(bool add) {
        frmRole::Default().AddMode = add;
        frmRole::Default().RoleIDOf = numberOf(u"select RoleID from Roles where RoleName='old'"_s);
        frmRole::Default().Show();
        return frmRole::Default();
    }

    EmbeddedDatabase database_;
};

TEST_F(JourneyTest, EveryToolBarButtonHasItsRightInTheCatalogue) {
    strCurrentUser = u"admin"_s;
    frmMain::Default().Load();
    const auto bars = frmMain::Default().window()->findChildren<ToolBar*>();
    EXPECT_EQ(bars.size(), 6);
    for (const ToolBar* bar : bars) {
        QStringList keys = bar->keys().replaceInStrings(u"exit"_s, u"browse"_s);
        keys.sort();
        EXPECT_EQ(rowsOf(u"select FunctionKey from Modules, ModuleFunction where Modules.ModuleCode="
                         "ModuleFunction.ModuleCode and TableName='%1' order by FunctionKey"_s.arg(
                             bar->objectName().sliced(3))),  // tbr…
                  keys.join(u'\n'));
    }
    strCurrentUser.clear();
}

TEST_F(AccessWindows, UserIsCheckedAndStored) {
    const QString taken = u"［用户名］重复，请重新输入！ 48 txtUserName"_s;
    const std::tuple<bool, QString, QString, QString> walks[] = {
        {true, {}, {}, u"请先输入［用户名］！ 48 txtUserName"_s},
        {true, u"x'"_s, {}, u"一个用户至少要选择一个［角色］！ 48 tvwRoles"_s},
        {true, u"u"_s, u"a002"_s, taken},
        {true, u"x'"_s, u"a002"_s, u"发生异常错误，请重试！ 48 txtUserName"_s},
        {true, u"x"_s, u"a001001"_s, u"closed"_s},
        {false, u"x"_s, u"a002"_s, taken},
        {false, u"u'"_s, u"a002"_s, u"closed"_s},  // fails unseen
        {false, u"u"_s, u"a0010"_s, u"closed"_s},
    };
    for (const auto& [add, name, nodes, outcome] : walks) {
        frmUser& w = user(add);
        retype(w.ui->txtUserName, name);
        retype(w.ui->txtUserDesc, u"D"_s);
        retype(w.ui->txtPassword, u"pw"_s);
        w.ui->chkLocked->setChecked(true);
        tick(w.ui->tvwRoles, nodes);
        expectOutcome(w, w.ui->Command1, outcome);
    }
    EXPECT_EQ(rowsOf(u"select UserName, UserDesc, Password, Locked from Users order by UserName"_s),
              u"u|D|pw|1\nx|D|pw|0"_s);  // a new user is open for all the tick
    EXPECT_EQ(rowsOf(u"select UserName, RoleName from Users, UserRole, Roles where Users.UserID=UserRole.UserID and "
                     "Roles.RoleID=UserRole.RoleID order by UserName"_s),
              u"u|a\nx|old"_s);
    EXPECT_EQ(tick(user(false).ui->tvwRoles, {}), u"a0010 a0010"_s) << "ticks go by the code, which two roles share";
    click(frmUser::Default().ui->Command1);
    EXPECT_EQ(rowsOf(u"select RoleName from UserRole, Roles where Roles.RoleID=UserRole.RoleID and UserID=%1 order by "
                     "RoleName"_s.arg(cUsers::GetUserID(u"u"_s))),
              u"a\nb"_s);
}

TEST_F(AccessWindows, RoleIsCheckedAndStored) {
    const QString taken = u"［角色名］重复，请重新输入！ 48 txtRoleName"_s;
    const std::tuple<bool, QString, QString, QString> walks[] = {
        {true, {}, {}, u"请先输入［角色名］！ 48 txtRoleName"_s},
        {true, u"x'"_s, {}, u"一个角色至少要选择一个［模块］或［功能］权！ 48 tvTreeView"_s},
        {true, u"x'"_s, u"a001"_s, u"文本框中不可输入字符［'］！ 48 txtRoleName"_s},
        {true, u"top"_s, u"a001"_s, taken},
        {true, u"new"_s, u"a002"_s, u"closed"_s},  // a group with nothing under it will do
        {false, u"top"_s, u"a001"_s, taken},
        {false, u"old"_s, u"a001 b001001"_s, u"修改成功！ 64 closed"_s},  // ticks go down only
    };
    for (const auto& [add, name, nodes, outcome] : walks) {
        frmRole& w = role(add);
        EXPECT_EQ(w.ui->cmbRole->isEnabled(), add);
        w.ui->cmbRole->setListIndex(add ? 1 : w.ui->cmbRole->ListIndex());
        EXPECT_EQ(w.ui->cmbRole->text(), u"001 top"_s);
        retype(w.ui->txtRoleName, name);
        retype(w.ui->txtRoleDesc, u"D"_s);
        tick(w.ui->tvTreeView, nodes);
        expectOutcome(w, w.ui->Command1, outcome);
    }
    EXPECT_EQ(rowsOf(u"select RoleCode, RoleDesc, ModuleCode, ModuleFunction, IsAccess from Roles, RoleRight where "
                     "RoleRight.RoleID=Roles.RoleID order by RoleCode, ModuleCode, ModuleFunction"_s),
              u"001001|D|001001|browse|0\n001001|D|001001|del|0\n001001|D|001002|add|1\n"
              "001002|D|001001|browse|0\n001002|D|001001|del|0\n001002|D|001002|add|0"_s);
    EXPECT_EQ(tick(role(false).ui->tvTreeView, {}), u"c0010021"_s) << "the boxes above stay empty";
}

TEST_F(AccessWindows, PasswordIsCheckedAndStored) {
    const QString wrong = u"输入的［旧密码］不对，请重新输入！ 48 txtOld"_s;
    const QString differs = u"［新密码］与［确认密码］不一致，请重新输入！ 48 txtConfirm"_s;
    const QString full(25, u'x');
    const struct {
        QString old, next, confirm, outcome, after;
    } table[] = {
        {u"P"_s, {}, {}, wrong, u"p"_s},
        {u"p"_s, {}, u"n"_s, u"请输入［新密码］！ 48 txtNew"_s, u"p"_s},
        {u"p"_s, u"n"_s, u"N"_s, differs, u"p"_s},
        {u"p"_s, u"'"_s, u"'"_s, u"closed"_s, u"p"_s},  // fails unseen
        {u"p"_s, full + u'y', full + u'y', differs, u"p"_s},
        {u"p"_s, full, full, u"closed"_s, full},
        {full, u"n"_s, u"n"_s, wrong, full},  // the old field takes 20 of the 25
    };
    frmPassword& w = frmPassword::Default();
    w.UserNameOf = u"u"_s;
    for (const auto& [old, next, confirm, outcome, after] : table) {
        w.Show();
        w.ui->txtOld->setFocus();
        for (const QString& text : {old, next, confirm}) {
            type(focused(), text);
            press(Qt::Key_Return);  // moves on
        }
        expectOutcome(w, qobject_cast<QPushButton*>(focused()), outcome);
        EXPECT_EQ(cUser::GetPassword(u"u"_s), after);
    }
}

}  // namespace
}  // namespace talvora::test
