#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmlogin.h"

namespace talvora {

/// The first window of every run, with two ways in: the login of a user of the workbench, and a candidate's
/// self-service entry, which runs the whole assessment from inside this window.
class frmLogin : public DesignedForm<frmLogin, Ui::frmLogin> {
 public:
    /// Whether a user has logged in. Stays false in a self-service entry, even after its assessment.
    bool LoginPassed = false;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void optType_Click();
    void cmdLogin_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    bool testedWithin(qint16 minutes);
};

}  // namespace talvora
