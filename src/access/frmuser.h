#pragma once

#include "access/crole.h"
#include "toolkit/forms/form.h"
#include "ui_frmuser.h"

namespace talvora {

/// The dialog by which "admin" makes and edits users and gives them roles.
class frmUser : public DesignedForm<frmUser, Ui::frmUser> {
 public:
    /// Both to be written before the dialog is shown: whether it makes a user, and if not, which it edits.
    bool AddMode = false;
    qint16 UserIDOf = 0;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void InitializeUser();
    void buildTree();
    cRoles checkedRoles() const;
    void addUser(const cRoles& roles);
    void updateUser(const cRoles& roles);
    void Command1_Click();
};

}  // namespace talvora
