#include "access/frmuser.h"

#include "access/cuser.h"

namespace talvora {

using namespace Qt::StringLiterals;

void frmUser::wire() {
    on(ui->Command1, &QPushButton::clicked, &frmUser::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmUser::Unload);
}

void frmUser::Form_Load() {
    window()->setWindowTitle(AddMode ? u"增加用户"_s : u"修改用户"_s);
    InitializeUser();
}

void frmUser::InitializeUser() {
    buildTree();
    if (AddMode) {
        ui->txtUserName->clear();
        ui->txtUserDesc->clear();
        ui->txtPassword->clear();
        return;
    }
    cUsers users;
    const auto user = users.Find(UserIDOf).Item(1);
    ui->txtUserName->setText(user->UserName);
    ui->txtUserDesc->setText(user->UserDesc);
    ui->txtPassword->setText(user->Password);
    ui->chkLocked->setChecked(user->Locked);
    for (const auto& role : cUser::GetUserRoles(UserIDOf)) {
        for (CheckNode* node : ui->tvwRoles->Nodes()) {
            // By code and not by number, which is meant: of two roles that share one both are ticked.
            if (node->Key.sliced(1) == role->RoleCode) {
                node->setChecked(true);
            }
        }
    }
}

void frmUser::buildTree() {
    constexpr qsizetype topDigits = 3;
    ui->tvwRoles->Clear();
    cRoles roles;
    for (const auto& role : roles.Find(0)) {
        const QString code = role->RoleCode;
        // A role whose parent has been deleted finds none, and so stands at the top.
        CheckNode* parent = code.size() == topDigits ? nullptr : ui->tvwRoles->Node(u'a' + code.left(topDigits));
        ui->tvwRoles->AddNode(parent, u'a' + code, role->RoleName, QString::number(role->RoleID));
    }
    if (!ui->tvwRoles->Nodes().isEmpty()) {
        ui->tvwRoles->Nodes().first()->setExpanded(true);
    }
}

cRoles frmUser::checkedRoles() const {
    cRoles roles;
    for (const CheckNode* node : ui->tvwRoles->Nodes()) {
        if (node->Checked()) {
            auto role = std::make_shared<cRole>();
            role->RoleID = node->Tag.toShort();
            role->RoleName = node->text(0);
            roles.Add(role);
        }
    }
    return roles;
}

void frmUser::Command1_Click() {
    if (ui->txtUserName->text().isEmpty()) {
        warn(u"请先输入［用户名］！"_s, ui->txtUserName);
        return;
    }
    const cRoles roles = checkedRoles();
    if (roles.Count() == 0) {
        warn(u"一个用户至少要选择一个［角色］！"_s, ui->tvwRoles);
        return;
    }
    // Nothing here looks for the character ': it makes the statement fail.
    if (AddMode) {
        addUser(roles);
    } else {
        updateUser(roles);
    }
}

// A new user is open whatever chkLocked says.
void frmUser::addUser(const cRoles& roles) {
    const Status status =
        cUser::AddNew(ui->txtUserName->text(), ui->txtUserDesc->text(), ui->txtPassword->text(), roles);
    if (status == Status::Taken) {
        warn(u"［用户名］重复，请重新输入！"_s, ui->txtUserName);
    } else if (status == Status::Failed) {
        warn(u"发生异常错误，请重试！"_s, ui->txtUserName);
    } else {
        Unload();
    }
}

void frmUser::updateUser(const cRoles& roles) {
    const Status status = cUser::Update(UserIDOf, ui->txtUserName->text(), ui->txtUserDesc->text(),
                                        ui->txtPassword->text(), ui->chkLocked->isChecked(), roles);
    if (status == Status::Taken) {
        warn(u"［用户名］重复，请重新输入！"_s, ui->txtUserName);
        return;
    }
    // A failure is not reported here, which is meant.
    Unload();
}

}  // namespace talvora
