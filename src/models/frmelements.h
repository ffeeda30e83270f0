#pragma once

#include "models/cdimension.h"
#include "toolkit/forms/form.h"
#include "ui_frmelements.h"

namespace talvora {

/// The dialog that picks an element of a model, which is a subtype of one of its dimensions, and scores it. It touches
/// no table.
class frmElements : public DesignedForm<frmElements, Ui::frmElements> {
 public:
    /// Add an element, or replace the one in `InputLines`. To be written before the dialog is shown.
    bool AddMode = false;
    /// The model's lines when adding, dimensions first; the one line when editing. No element of theirs is offered,
    /// so the line under edit can only be replaced by another one of its dimension.
    cDimensions InputLines;
    /// The line chosen, with its code, name and score; empty when the user closed the dialog. Readable until the next
    /// opening.
    cDimensions ResultLines;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void fillTypes();
    void showLine(const cDimension& line);
    void cmbType_Click();
    void cmbImportant_Click();
    bool passesChecks();
    void Command1_Click();
    void Command2_Click();
};

}  // namespace talvora
