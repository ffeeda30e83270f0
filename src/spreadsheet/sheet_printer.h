#pragma once

#include "spreadsheet/sheet_layout.h"
#include "spreadsheet/workbook.h"

#include <QPageLayout>

#include <functional>
#include <vector>

class QPainter;
class QPrinter;
class QProgressBar;
class QRectF;
class QWidget;

namespace talvora {

/// A workbook with its measures and its pages.
class SheetPrinter {
 public:
    explicit SheetPrinter(Workbook workbook);

    const Workbook& workbook() const { return workbook_; }
    const SheetLayout& layout() const { return layout_; }
    const std::vector<SheetPage>& pages() const { return pages_; }
    /// A4, upright or across, without margins: the pages have their own.
    QPageLayout pageLayout() const;

    /// Paints a page, counted from 0, with its margins and its number into `paper`, in the painter's units.
    void paint(QPainter& painter, int page, const QRectF& paper) const;

    /// Prints the pages from..to, counted from 0, and calls `progress` after each. False when the printer fails.
    bool print(QPrinter& printer, int from, int to, const std::function<void(int)>& progress) const;

 private:
    Workbook workbook_;
    SheetLayout layout_;
    SheetPaper paper_;
    std::vector<SheetPage> pages_;
};

/// Asks for a printer and prints, with the progress on the bar. Tells the user when the printer fails.
void printSheet(const SheetPrinter& sheet, const QString& title, QProgressBar& progressBar);

/// Lets the user choose a printer, and what to print of `pages` pages. False when the user cancelled.
bool choosePrinter(QPrinter& printer, int pages, QWidget* owner);

/// The one seam behind choosePrinter. An empty function brings the printer dialog back.
using PrinterChoice = std::function<bool(QPrinter& printer, int pages, QWidget* owner)>;
void setPrinterChoice(PrinterChoice choice);

}  // namespace talvora
