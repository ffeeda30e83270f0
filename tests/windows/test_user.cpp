#include "access/cuser.h"
#include "access/frmuser.h"
#include "support/database_fixture.h"
#include "windows/check_trees.h"

#include <QTest>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class UserDialog : public WindowTest {
 protected:
    UserDialog() {
        emptyTables({u"Roles"_s, u"UserRole"_s, u"Users"_s});
        // Two roles share the code 0010 since the codes ran out, and the parent of one is gone.
        for (const QString& code : {u"001"_s, u"001001"_s, u"0010"_s, u"0010"_s, u"002"_s, u"009001"_s}) {
            cnnPublic.Execute(u"insert into Roles (RoleName,RoleCode) values ('r','%1')"_s.arg(code));
        }
        cnnPublic.Execute(u"insert into Users (UserName,UserDesc,Password) values ('u','d','p')"_s);
    }

    static frmUser& open(bool add) {
        frmUser& dialog = frmUser::Default();
        dialog.AddMode = add;
        dialog.UserIDOf = cUsers::GetUserID(u"u"_s);
        dialog.Show();
        return dialog;
    }

    EmbeddedDatabase database_;
};

TEST_F(UserDialog, TicksGoDownOnly) {
    CheckTree* tree = open(true).ui->tvwRoles;
    const QString table[][2] = {
        {u"a001"_s, u"a001 a0010 a0010 a001001"_s},
        {u"a001001"_s, u"a001 a0010 a0010"_s},
        {u"a002"_s, u"a001 a0010 a0010 a002"_s},
        {u"a001"_s, u"a002"_s},
        {u"a001001"_s, u"a001001 a002"_s},
        {u"a0010"_s, u"a0010 a001001 a002"_s},
        {u"a009001"_s, u"a0010 a001001 a002 a009001"_s},
    };
    for (const auto& [key, keys] : table) {
        tick(tree, key);
        EXPECT_EQ(ticked(tree), keys);
    }
    const QRect row = tree->visualItemRect(tree->Node(u"a001"_s));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, QPoint(row.left() + 10, row.center().y()));
    EXPECT_EQ(ticked(tree), u"a001 a0010 a0010 a001001 a002 a009001"_s);
}

TEST_F(UserDialog, OkRefusesInItsOrderAndStores) {
    const QString taken = u"［用户名］重复，请重新输入！"_s;
    const struct {
        bool add;
        QString name;
        QString role;
        QString words;
        QString field;
        QString stored{};
    } table[] = {
        {true, u""_s, u""_s, u"请先输入［用户名］！"_s, u"txtUserName"_s},
        {true, u"x'"_s, u""_s, u"一个用户至少要选择一个［角色］！"_s, u"tvwRoles"_s},
        {true, u"u"_s, u"a002"_s, taken, u"txtUserName"_s},
        {true, u"x'"_s, u"a002"_s, u"发生异常错误，请重试！"_s, u"txtUserName"_s},
        {true, u"x"_s, u"a001001"_s, {}, {}, u"u|d|p|null\nx|D|pw|0\nx|001001"_s},  // open for all the tick
        {false, u"x"_s, u"a002"_s, taken, u"txtUserName"_s},
        {false, u"u'"_s, u"a002"_s, {}, {}, u"u|d|p|null\nx|D|pw|0\nx|001001"_s},  // fails unseen
        {false, u"u"_s, u"a0010"_s, {}, {}, u"u|D|pw|1\nx|D|pw|0\nu|0010\nx|001001"_s},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.name.toStdString() + row.words.toStdString());
        frmUser& dialog = open(row.add);
        retype(dialog.ui->txtUserName, row.name);
        retype(dialog.ui->txtUserDesc, u"D"_s);
        retype(dialog.ui->txtPassword, u"pw"_s);
        dialog.ui->chkLocked->setChecked(true);
        if (!row.role.isEmpty()) {
            tick(dialog.ui->tvwRoles, row.role);
        }
        PromptScript script;
        if (!row.words.isEmpty()) {
            script.expect(vbOK, row.words);
        }
        click(dialog.ui->Command1);
        EXPECT_EQ(dialog.isLoaded(), row.stored.isEmpty());
        if (dialog.isLoaded()) {
            EXPECT_EQ(script.last().style, vbExclamation);
            EXPECT_EQ(focused()->objectName(), row.field);
            press(Qt::Key_Escape);
            continue;
        }
        EXPECT_EQ(
            rowsOf(u"select UserName, UserDesc, Password, Locked from Users order by UserName"_s) + u'\n' +
                rowsOf(u"select UserName, RoleCode from Users, UserRole, Roles where Users.UserID=UserRole.UserID and "
                       "Roles.RoleID=UserRole.RoleID order by UserName"_s),
            row.stored);
    }
    EXPECT_EQ(ticked(open(false).ui->tvwRoles), u"a0010"_s) << "one of the two";
}

}  // namespace
}  // namespace talvora::test
