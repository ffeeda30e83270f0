#pragma once

#include "spreadsheet/sheet_printer.h"

#include <QTableView>

#include <memory>

namespace talvora {

/// A workbook on the screen as spreadsheet programs show it: columns headed A, B, C, rows 1, 2, 3, with the looks that
/// the file will have. Ctrl+C copies the selected cells.
class SheetView : public QTableView {
    Q_OBJECT

 public:
    explicit SheetView(QWidget* parent = nullptr);

    /// Shows the sheet, with its selection current.
    void setSheet(std::shared_ptr<const SheetPrinter> sheet);

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void copySelection() const;

    std::shared_ptr<const SheetPrinter> sheet_;
};

}  // namespace talvora
