#pragma once

#include "results/ctesting.h"
#include "toolkit/controls/combobox.h"
#include "toolkit/forms/form.h"
#include "ui_frmmodel.h"

#include <memory>

namespace talvora {

/// The dialog between choosing a competency model and sitting it: it shows the model's lines and draws one paper for
/// each element.
class frmModel : public DesignedForm<frmModel, Ui::frmModel> {
 public:
    /// The model, to be written before the dialog is shown.
    qint16 SolutionID = 0;
    /// True after cmdClose, false after a completed cmdOK. The window's own close box leaves it as it was.
    bool IsCancel = false;
    /// One item for each line of the model: its position, code, name and, in TestingDesc, the paper's number (empty
    /// for a dimension). The caller may go on using the list, which the next cmdOK clears and fills again.
    std::shared_ptr<cTestings> Testings = std::make_shared<cTestings>();

    /// The papers to draw from, over the paper's cell while that is current.
    ComboBox* Combo1 = nullptr;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void setUpGrid();
    void FillPaperList(int row);
    void fg1_Click();
    void cmdOK_Click();
    void cmdClose_Click();
};

}  // namespace talvora
