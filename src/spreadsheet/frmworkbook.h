#pragma once

#include "spreadsheet/sheet_printer.h"
#include "spreadsheet/workbook.h"
#include "toolkit/forms/form.h"
#include "ui_frmworkbook.h"

#include <memory>

namespace talvora {

/// A workbook that the program has made, open for the user: to look at, keep as a file, hand to the desktop's
/// spreadsheet program, or print. Several may be open at once, beside the window that made them. Closing one asks
/// nothing: what it shows can be made again at any time.
class frmWorkbook : public DesignedForm<frmWorkbook, Ui::frmWorkbook> {
 public:
    /// What the window shows, to be written before it is shown.
    std::shared_ptr<const SheetPrinter> Sheet;
    /// The workbook's title, which also proposes a file's name.
    QString Title;

    /// Opens a window of its own for the workbook. It lives until the user or the program closes it.
    static frmWorkbook& Open(Workbook workbook, const QString& title);

    /// Opens the print preview over the window; returns when it has been closed.
    void PrintPreview();

 protected:
    void wire() override;
    void Form_Load() override;
    void Form_Unload() override;
    bool standsAlone() const override { return true; }

 private:
    void cmdSave_Click();
    void cmdOpen_Click();
    void cmdPreview_Click();
    void cmdPrint_Click();
};

}  // namespace talvora
