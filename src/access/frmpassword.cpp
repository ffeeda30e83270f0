#include "access/frmpassword.h"

#include "access/cuser.h"

namespace talvora {

using namespace Qt::StringLiterals;

void frmPassword::wire() {
    on(ui->cmdOK, &QPushButton::clicked, &frmPassword::cmdOK_Click);
    on(ui->cmdCancel, &QPushButton::clicked, &frmPassword::Unload);
}

void frmPassword::cmdOK_Click() {
    // Letter by letter, with case and blanks, unlike the login, which leaves the comparison to the database.
    if (cUser::GetPassword(UserNameOf) != ui->txtOld->text()) {
        warn(u"输入的［旧密码］不对，请重新输入！"_s, ui->txtOld);
        ui->txtOld->clear();
        return;
    }
    if (ui->txtNew->text().isEmpty()) {
        warn(u"请输入［新密码］！"_s, ui->txtNew);
        return;
    }
    if (ui->txtNew->text() != ui->txtConfirm->text()) {
        warn(u"［新密码］与［确认密码］不一致，请重新输入！"_s, ui->txtConfirm);
        return;
    }
    // The character ' makes this statement fail; the result is not looked at, which is meant.
    cUser::UpdatePassword(UserNameOf, ui->txtNew->text());
    Unload();
}

}  // namespace talvora
