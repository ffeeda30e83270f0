#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmabout.h"

namespace talvora {

/// The about box: title and version, and the way to the facts about the machine.
class frmAbout : public DesignedForm<frmAbout, Ui::frmAbout> {
 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void cmdSysInfo_Click();
};

}  // namespace talvora
