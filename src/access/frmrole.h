#pragma once

#include "access/croleright.h"
#include "toolkit/forms/form.h"
#include "ui_frmrole.h"

namespace talvora {

/// The dialog that makes and edits a role: its place, its name, and what it grants.
class frmRole : public DesignedForm<frmRole, Ui::frmRole> {
 public:
    /// Both to be written before the dialog is shown: whether it makes a role, and if not, which it edits.
    bool AddMode = false;
    qint16 RoleIDOf = 0;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void InitializeRole();
    void buildTree();
    void fillParents();
    void showRole();
    cRoleRights rightsInTree() const;
    bool isAnyNodeChecked() const;
    void addRole(const cRoleRights& rights);
    void updateRole(const cRoleRights& rights);
    void Command1_Click();
};

}  // namespace talvora
