#pragma once

#include "models/line_dialog.h"
#include "ui_frmdimension.h"

namespace talvora {

/// The dialog that picks a dimension of a model, which is a main test type, and scores it. A type whose name one of the
/// lines bears is not offered.
class frmDimension : public LineDialog<frmDimension, Ui::frmDimension> {
 protected:
    void Form_Load() override;

 private:
    void fillTypes();
    void Command1_Click() override;
};

}  // namespace talvora
