#pragma once

#include "models/line_dialog.h"
#include "ui_frmelements.h"

namespace talvora {

/// The dialog that picks an element of a model, which is a subtype of one of its dimensions, and scores it. No element
/// of the lines is offered, so the line under edit can only be replaced by another one of its dimension.
class frmElements : public LineDialog<frmElements, Ui::frmElements> {
 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void fillTypes();
    void showLine(const cDimension& line);
    void cmbType_Click();
    bool passesChecks();
    void Command1_Click() override;
};

}  // namespace talvora
