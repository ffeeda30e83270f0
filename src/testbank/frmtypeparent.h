#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmtypeparent.h"

namespace talvora {

/// The dialog for a main type. Adding goes on from one type to the next; an edit closes it.
class frmTypeParent : public DesignedForm<frmTypeParent, Ui::frmTypeParent> {
 public:
    bool AddMode = false;
    QString TypeCodeOf;  ///< the main type to edit

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void InitializeForm();
    bool passesChecks();
    void Command1_Click();
};

}  // namespace talvora
