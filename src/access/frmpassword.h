#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmpassword.h"

#include <QString>

namespace talvora {

/// The dialog by which a user changes a password. The three fields take 20, 25 and 100 characters, and so a password
/// of more than 20 can be set but not typed as the old one, which is meant.
class frmPassword : public DesignedForm<frmPassword, Ui::frmPassword> {
 public:
    /// The login whose password is changed, to be written before the dialog is shown.
    QString UserNameOf;

 protected:
    void wire() override;

 private:
    void cmdOK_Click();
};

}  // namespace talvora
