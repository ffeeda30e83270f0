#include "access/frmrole.h"

#include "access/cfunction.h"
#include "access/cmodule.h"
#include "access/crole.h"
#include "toolkit/forms/prompts.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype topDigits = 3;
constexpr qsizetype moduleDigits = 6;

// The first letter of a node's key tells its level.
bool isFunction(const CheckNode& node) {
    return node.Key.startsWith(u'c');
}

QString moduleOf(const CheckNode& function) {
    return function.Key.sliced(1, moduleDigits);
}

}  // namespace

void frmRole::wire() {
    on(ui->Command1, &QPushButton::clicked, &frmRole::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmRole::Unload);
}

void frmRole::Form_Load() {
    window()->setWindowTitle(AddMode ? u"增加角色"_s : u"修改角色"_s);
    InitializeRole();
}

void frmRole::InitializeRole() {
    buildTree();
    fillParents();
    if (AddMode) {
        ui->txtRoleName->clear();
        ui->txtRoleDesc->clear();
    } else {
        showRole();
    }
}

void frmRole::buildTree() {
    cModules groups;
    for (const auto& group : groups.Find({})) {
        CheckNode* groupNode = ui->tvTreeView->AddNode(nullptr, u'a' + group->ModuleCode, group->ModuleName);
        cModules modules;
        for (const auto& module : modules.Find(group->ModuleCode)) {
            CheckNode* moduleNode =
                ui->tvTreeView->AddNode(groupNode, u'b' + module->ModuleCode, module->ModuleName, module->TableName);
            cFunctions functions;
            int position = 0;
            for (const auto& function : functions.Find(module->ModuleCode)) {
                ui->tvTreeView->AddNode(moduleNode, u'c' + function->ModuleCode + QString::number(++position),
                                        function->FunctionDesc, function->FunctionKey);
            }
        }
        groupNode->setExpanded(true);
    }
}

void frmRole::fillParents() {
    ui->cmbRole->AddItem({});
    cRoles roles;
    for (const auto& role : roles.GetRoleLevel1()) {
        ui->cmbRole->AddItem(role->RoleCode + u' ' + role->RoleName);
    }
}

void frmRole::showRole() {
    cRoles roles;
    const auto role = roles.Find(RoleIDOf).Item(1);
    const QString code = role->RoleCode;
    ui->txtRoleName->setText(role->RoleName);
    ui->txtRoleDesc->setText(role->RoleDesc);
    if (code.size() == 2 * topDigits) {
        for (int i = 0; i < ui->cmbRole->ListCount(); ++i) {
            if (ui->cmbRole->List(i).left(topDigits) == code.left(topDigits)) {
                ui->cmbRole->setListIndex(i);
            }
        }
    } else {
        ui->cmbRole->setListIndex(0);
    }
    ui->cmbRole->setEnabled(false);
    // Only functions are stored: the boxes above them stay empty, whatever they hold.
    for (const auto& right : cRole::GetRoleFunction(RoleIDOf)) {
        for (CheckNode* node : ui->tvTreeView->Nodes()) {
            if (isFunction(*node) && moduleOf(*node) == right->ModuleCode.text() &&
                node->Tag == right->ModuleFunction.text()) {
                node->setChecked(right->IsAccess);
            }
        }
    }
}

cRoleRights frmRole::rightsInTree() const {
    cRoleRights rights;
    for (const CheckNode* node : ui->tvTreeView->Nodes()) {
        if (isFunction(*node)) {
            rights.Add(std::make_shared<cRoleRight>(cRoleRight{0, moduleOf(*node), node->Tag, node->Checked()}));
        }
    }
    return rights;
}

// Of any level: a group alone, with nothing under it, passes.
bool frmRole::isAnyNodeChecked() const {
    const auto& nodes = ui->tvTreeView->Nodes();
    return std::any_of(nodes.begin(), nodes.end(), [](const CheckNode* node) { return node->Checked(); });
}

void frmRole::Command1_Click() {
    if (ui->txtRoleName->text().isEmpty()) {
        warn(u"请先输入［角色名］！"_s, ui->txtRoleName);
        return;
    }
    const cRoleRights rights = rightsInTree();
    if (!isAnyNodeChecked()) {
        warn(u"一个角色至少要选择一个［模块］或［功能］权！"_s, ui->tvTreeView);
        return;
    }
    if (refusesQuotes(ui->txtRoleName)) {
        return;
    }
    if (AddMode) {
        addRole(rights);
    } else {
        updateRole(rights);
    }
}

void frmRole::addRole(const cRoleRights& rights) {
    const Status status =
        cRole::AddNew(ui->cmbRole->text().left(topDigits), ui->txtRoleName->text(), ui->txtRoleDesc->text(), rights);
    if (status == Status::Taken) {
        warn(u"［角色名］重复，请重新输入！"_s, ui->txtRoleName);
    } else if (status == Status::Failed) {
        warn(u"发生异常错误，请稍后重试！"_s, ui->txtRoleName);
    } else {
        Unload();
    }
}

void frmRole::updateRole(const cRoleRights& rights) {
    const Status status = cRole::Update(RoleIDOf, ui->txtRoleName->text(), ui->txtRoleDesc->text(), rights);
    if (status == Status::Taken) {
        warn(u"［角色名］重复，请重新输入！"_s, ui->txtRoleName);
        return;
    }
    if (status == Status::Failed) {
        MsgBox(u"发生异常错误，请稍后重试！"_s, vbExclamation);
    } else {
        MsgBox(u"修改成功！"_s, vbInformation);
    }
    Unload();
}

}  // namespace talvora
