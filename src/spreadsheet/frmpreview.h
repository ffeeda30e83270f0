#pragma once

#include "spreadsheet/sheet_printer.h"
#include "toolkit/forms/form.h"
#include "ui_frmpreview.h"

#include <memory>

namespace talvora {

/// The print preview of a workbook: its pages as they will be printed, and the way to the printer.
class frmPreview : public DesignedForm<frmPreview, Ui::frmPreview> {
 public:
    /// What is to be printed, and its title, to be written before the window is shown.
    std::shared_ptr<const SheetPrinter> Sheet;
    QString Title;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void showPageNumber(int page);
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmbZoom_Click();
    void cmdPrint_Click();
};

}  // namespace talvora
