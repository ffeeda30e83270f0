#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmsysinfo.h"

namespace talvora {

/// The facts about the machine, on a desktop that has no viewer of its own for them.
class frmSysInfo : public DesignedForm<frmSysInfo, Ui::frmSysInfo> {
 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void cmdCopy_Click();
};

}  // namespace talvora
