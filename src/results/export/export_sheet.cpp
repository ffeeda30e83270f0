#include "results/export/export_sheet.h"

#include "spreadsheet/frmworkbook.h"

#include <QProgressBar>

namespace talvora {

using namespace Qt::StringLiterals;

ExportSheet::ExportSheet(const QString& title, int titleColumn, QProgressBar& progressBar, int steps)
    : progressBar_(progressBar), title_(title) {
    constexpr int titlePoints = 16;
    sheet_->SelectRange(u"C1"_s);
    sheet_->SetFont(true, titlePoints);
    write(1, titleColumn, title);
    progressBar_.setRange(0, steps);
    progressBar_.setValue(0);
    progressBar_.show();
}

ExportSheet::~ExportSheet() {
    progressBar_.hide();
}

void ExportSheet::write(int row, int column, const QString& text) {
    write(row, column, [&]() -> const QString& { return text; });
}

void ExportSheet::format(const CellRange& cells, void (Workbook::*look)()) {
    attempt([&] {
        sheet_->SelectRange(cells);
        (*sheet_.*look)();
    });
}

void ExportSheet::setProgress(int value) {
    progressBar_.setValue(value);
}

void ExportSheet::show(bool isPrint) {
    sheet_->SelectRange(u"A2"_s);
    progressBar_.hide();
    // The user takes over.
    pump_.reset();
    busy_.reset();
    frmWorkbook& shown = frmWorkbook::Open(std::move(*sheet_), title_);
    if (isPrint) {
        shown.PrintPreview();
    }
}

}  // namespace talvora
