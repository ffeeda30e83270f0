#include "workbench/detail_views.h"
#include "workbench/frmmain.h"

namespace talvora {

using namespace Qt::StringLiterals;

// Whether or not the pane is to be seen.
void frmMain::fg_Click() {
    if (ui->fg->Row() >= 0) {
        FillDetailGrid(strCurrentModule, *ui->fg, *ui->fgDetail);
    }
}

// As a click does, but nothing is read while there is no pane to be seen: keys are held down over long lists.
void frmMain::fg_RowChange() {
    if (ui->fgDetail->isVisible()) {
        FillDetailGrid(strCurrentModule, *ui->fg, *ui->fgDetail);
    }
}

// The command is run even when its button is grey, so that a double click passes round the rights; this is meant.
void frmMain::fg_DblClick() {
    const int row = ui->fg->Row();
    const QString module = strCurrentModule.toLower();
    const QString edit = u"edit"_s;
    if (module == "users"_L1) {
        tbrUsers_ButtonClick(edit);
    } else if (module == "roles"_L1) {
        tbrRoles_ButtonClick(edit);
    } else if (module == "solution"_L1) {
        tbrSolution_ButtonClick(edit);
    } else if (module == "testingtype"_L1) {
        tbrTestingType_ButtonClick(edit);
    } else if (module == "position"_L1) {
        tbrPosition_ButtonClick(edit);
    }
    if (row >= 0 && row < ui->fg->Rows()) {
        ui->fg->Select(row, 0, row, ui->fg->Cols() - 1);
    }
}

}  // namespace talvora
