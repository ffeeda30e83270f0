#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmoption.h"

namespace talvora {

/// The dialog for the four settings of the installation.
class frmOption : public DesignedForm<frmOption, Ui::frmOption> {
 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void cmdOK_Click();
};

}  // namespace talvora
