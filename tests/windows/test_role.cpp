#include "access/frmrole.h"
#include "support/database_fixture.h"
#include "windows/check_trees.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class RoleDialog : public WindowTest {
 protected:
    RoleDialog() {
        emptyTables({u"Modules"_s, u"ModuleFunction"_s, u"Roles"_s, u"RoleRight"_s});
        cnnPublic.Execute(
            u"insert into Modules (RecordID,ModuleCode,ModuleName,TableName) values (1,'001','G1',null), "
            "(2,'001001','M1','testing'), (3,'001002','M2','users'), (4,'002','G2',null)"_s);
        cnnPublic.Execute(
            u"insert into ModuleFunction (RecordID,ModuleCode,FunctionKey,FunctionDesc) values "
            "(1,'001001','del','D'), (2,'001001','browse','B'), (3,'001002','add','A')"_s);
        cnnPublic.Execute(u"insert into Roles (RoleName,RoleCode) values ('top','001'), ('old','001001')"_s);
    }

    static frmRole& open(bool add, const QString& name = u"old"_s) {
        frmRole& dialog = frmRole::Default();
        dialog.AddMode = add;
        dialog.RoleIDOf = numberOf(u"select RoleID from Roles where RoleName='%1'"_s.arg(name));
        dialog.Show();
        return dialog;
    }

    EmbeddedDatabase database_;
};

TEST_F(RoleDialog, TicksGoDownOnly) {
    CheckTree* tree = open(true).ui->tvTreeView;
    const QString table[][2] = {
        {u"a001"_s, u"a001 b001001 c0010011 c0010012 b001002 c0010021"_s},
        {u"b001001"_s, u"a001 b001002 c0010021"_s},
        {u"c0010012"_s, u"a001 c0010012 b001002 c0010021"_s},
        {u"a001"_s, u""_s},
        {u"b001002"_s, u"b001002 c0010021"_s},
    };
    for (const auto& [key, keys] : table) {
        tick(tree, key);
        EXPECT_EQ(ticked(tree), keys);
    }
}

TEST_F(RoleDialog, OkRefusesInItsOrderAndStores) {
    const QString taken = u"［角色名］重复，请重新输入！"_s;
    const struct {
        bool add;
        QString name;
        QString node;
        QString words;
        QString field;
        QString stored{};
    } table[] = {
        {true, u""_s, u""_s, u"请先输入［角色名］！"_s, u"txtRoleName"_s},
        {true, u"x'"_s, u""_s, u"一个角色至少要选择一个［模块］或［功能］权！"_s, u"tvTreeView"_s},
        {true, u"x'"_s, u"a001"_s, u"文本框中不可输入字符［'］！"_s, u"txtRoleName"_s},
        {true, u"top"_s, u"a001"_s, taken, u"txtRoleName"_s},
        {true, u"new"_s, u"a002"_s, {}, {}, u"001002|D|browse|0 001002|D|del|0 001002|D|add|0"_s},
        {true, u"n2"_s, u"b001001"_s, {}, {}, u"001003|D|browse|1 001003|D|del|1 001003|D|add|0"_s},
        {false, u"top"_s, u"a001"_s, taken, u"txtRoleName"_s},
        {false, u"old"_s, u"c0010012"_s, u"修改成功！"_s, {}, u"001001|D|browse|0 001001|D|del|1 001001|D|add|0"_s},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.name.toStdString() + row.words.toStdString());
        frmRole& dialog = open(row.add);
        EXPECT_EQ(dialog.ui->cmbRole->isEnabled(), row.add);
        if (row.add) {
            dialog.ui->cmbRole->setListIndex(1);
        }
        EXPECT_EQ(dialog.ui->cmbRole->text(), u"001 top"_s);
        retype(dialog.ui->txtRoleName, row.name);
        retype(dialog.ui->txtRoleDesc, u"D"_s);
        if (!row.node.isEmpty()) {
            tick(dialog.ui->tvTreeView, row.node);
        }
        PromptScript script;
        if (!row.words.isEmpty()) {
            script.expect(vbOK, row.words);
        }
        click(dialog.ui->Command1);
        EXPECT_EQ(dialog.isLoaded(), row.stored.isEmpty());
        EXPECT_EQ(script.last().style, row.words.isEmpty() ? 0 : row.field.isEmpty() ? vbInformation : vbExclamation);
        if (dialog.isLoaded()) {
            EXPECT_EQ(focused()->objectName(), row.field);
            click(dialog.ui->Command2);
            continue;
        }
        EXPECT_EQ(rowsOf(u"select RoleCode, RoleDesc, ModuleFunction, IsAccess from Roles, RoleRight where "
                         "RoleRight.RoleID=Roles.RoleID and RoleName='%1' order by ModuleCode, ModuleFunction"_s.arg(
                             row.name))
                      .replace(u'\n', u' '),
                  row.stored);
    }
    EXPECT_EQ(ticked(open(false).ui->tvTreeView), u"c0010012"_s) << "the boxes above stay empty";
    frmRole::Default().Unload();
    EXPECT_EQ(open(false, u"top"_s).ui->cmbRole->ListIndex(), 0) << "a role at the top has no parent";
}

}  // namespace
}  // namespace talvora::test
