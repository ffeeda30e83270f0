#include "access/crole.h"
#include "access/frmrole.h"
#include "workbench/frmmain.h"
#include "workbench/list_commands.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

bool isSystemRole(const FlexGrid& list, int row) {
    return list.TextMatrix(row, 1) == u"系统管理员"_s;
}

void add(frmMain& main) {
    frmRole& dialog = frmRole::Default();
    dialog.AddMode = true;
    dialog.ShowModal();
    refill(main);
}

void edit(frmMain& main, int row) {
    FlexGrid& list = *main.ui->fg;
    if (row < 0) {
        refuse(u"已经没有记录可以修改！"_s);
        return;
    }
    if (isSystemRole(list, row)) {
        refuse(u"［系统管理员］为系统角色，不能修改！"_s);
        return;
    }
    frmRole& dialog = frmRole::Default();
    dialog.AddMode = false;
    dialog.RoleIDOf = keyOf(list, row);
    dialog.ShowModal();
    refill(main);
    selectRow(list, row);
}

void deleteRole(FlexGrid& list, int row) {
    if (row < 0) {
        refuse(u"已经没有记录可以删除！"_s);
        return;
    }
    if (isSystemRole(list, row)) {
        refuse(u"［系统管理员］为系统角色，不能删除！"_s);
        return;
    }
    if (!confirmed(u"您确定删除当前所选的［角色］吗？"_s)) {
        return;
    }
    // A role in use is told by -2, not by 2, so that it stays without a word; this is meant.
    constexpr auto referred = static_cast<Status>(2);
    const Status status = cRole::Delete(keyOf(list, row));
    if (status == Status::Done) {
        list.RemoveItem(row);
    } else if (status == referred) {
        refuse(u"所选角色已被其它用户引用，不能删除！"_s);
    }
    selectRow(list, row);
}

}  // namespace

void frmMain::tbrRoles_ButtonClick(const QString& key) {
    runRecordCommand(*this, key, u"角色一览表"_s, {add, edit, deleteRole});
}

}  // namespace talvora
