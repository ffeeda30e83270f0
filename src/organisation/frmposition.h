#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmposition.h"

namespace talvora {

/// The dialog for one position: adds one beside or under another, or changes name and head count of one.
class frmPosition : public DesignedForm<frmPosition, Ui::frmPosition> {
 public:
    /// What the dialog does, to be written before it is shown: add or change, and, when adding, below or beside.
    bool AddMode = false;
    bool ChildMode = false;
    /// The code of the position that the dialog acts on; empty when there is none to add beside.
    QString PostCodeOf;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void cmdOK_Click();
};

}  // namespace talvora
