#pragma once

#include "models/cdimension.h"
#include "toolkit/forms/form.h"
#include "ui_frmdimension.h"

namespace talvora {

/// The dialog that picks a dimension of a model, which is a main test type, and scores it. It touches no table.
class frmDimension : public DesignedForm<frmDimension, Ui::frmDimension> {
 public:
    /// Add a dimension, or edit the one in `InputLines`. To be written before the dialog is shown.
    bool AddMode = false;
    /// The model's lines when adding: a type whose name one of them bears is not offered. The one line when editing.
    cDimensions InputLines;
    /// The line chosen, with its code, name and score; empty when the user closed the dialog. Readable until the next
    /// opening.
    cDimensions ResultLines;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void fillTypes();
    void cmbImportant_Click();
    void Command1_Click();
    void Command2_Click();
};

}  // namespace talvora
