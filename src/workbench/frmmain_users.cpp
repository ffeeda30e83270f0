#include "access/cuser.h"
#include "access/frmpassword.h"
#include "access/frmuser.h"
#include "core/mdlpublic.h"
#include "workbench/frmmain.h"
#include "workbench/list_commands.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

void add(frmMain& main) {
    frmUser& dialog = frmUser::Default();
    dialog.AddMode = true;
    dialog.ShowModal();
    refill(main);
}

void changePassword(const QString& userName) {
    frmPassword& dialog = frmPassword::Default();
    dialog.UserNameOf = userName;
    dialog.ShowModal();
}

// Others than "admin" change their own password here, whether or not a row is selected.
void edit(frmMain& main, int row) {
    FlexGrid& list = *main.ui->fg;
    const bool ownOnly = !isAdmin(strCurrentUser);
    if (ownOnly ? list.Rows() == list.FixedRows() : row < 0) {
        refuse(u"已经没有记录可以修改！"_s);
        return;
    }
    if (ownOnly || isAdmin(list.TextMatrix(row, 1))) {
        changePassword(strCurrentUser);
        return;
    }
    frmUser& dialog = frmUser::Default();
    dialog.AddMode = false;
    dialog.UserIDOf = keyOf(list, row);
    dialog.ShowModal();
    refill(main);
    selectRow(list, row);
}

void deleteUser(FlexGrid& list, int row) {
    if (row < 0) {
        refuse(u"已经没有记录可以删除！"_s);
        return;
    }
    if (isAdmin(list.TextMatrix(row, 1))) {
        refuse(u"［admin］为系统用户，不能删除！"_s);
        return;
    }
    if (!isAdmin(strCurrentUser)) {
        refuse(u"［"_s + strCurrentUser + u"］由系统用户创建，您无权删除！"_s);
        return;
    }
    if (!confirmed(u"您确定删除当前所选的［用户］吗？"_s)) {
        return;
    }
    // The status is not looked at, which is meant; so with the other lists that take the row off at once.
    cUser::Delete(keyOf(list, row));
    takeOff(list, row);
}

}  // namespace

void frmMain::tbrUsers_ButtonClick(const QString& key) {
    runRecordCommand(*this, key, u"用户一览表"_s, {add, edit, deleteUser});
}

}  // namespace talvora
