#include "spreadsheet/sheet_printer.h"

#include "spreadsheet/sheet_painter.h"
#include "toolkit/application/busy.h"
#include "toolkit/application/event_pump.h"
#include "toolkit/forms/prompts.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>

#include <algorithm>
#include <utility>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

bool askOnScreen(QPrinter& printer, int pages, QWidget* owner) {
    QPrintDialog dialog(&printer, owner);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, pages);
    return dialog.exec() == QDialog::Accepted;
}

PrinterChoice& currentChoice() {
    static PrinterChoice current;
    return current;
}

}  // namespace

SheetPrinter::SheetPrinter(Workbook workbook)
    : workbook_(std::move(workbook)),
      layout_(workbook_),
      paper_(sheetPaper(layout_)),
      pages_(sheetPages(workbook_, layout_, paper_.pageHeight)) {}

QPageLayout SheetPrinter::pageLayout() const {
    return {QPageSize(QPageSize::A4), paper_.landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()};
}

void SheetPrinter::paint(QPainter& painter, int page, const QRectF& paper) const {
    const SheetPainter cells(workbook_, layout_, SheetPainter::Lines::BoxesOnly);
    const SheetPage& rows = pages_[static_cast<std::size_t>(page)];
    const double millimetre = paper.width() / pageLayout().fullRect(QPageLayout::Millimeter).width();
    const double margin = SheetPaper::MarginMillimetres * millimetre;
    const double pixel = millimetre / PixelsForMillimetre;
    painter.save();
    painter.translate(paper.left() + margin, paper.top() + margin);
    painter.scale(pixel * paper_.scale, pixel * paper_.scale);
    double top = 0;
    const auto paintRow = [&](int row) {
        double left = 0;
        for (int column = 1; column <= workbook_.columns(); ++column) {
            const CellRange cell = workbook_.mergeAt(row, column);
            if (cell.row == row && cell.column == column) {
                cells.paintCell(painter, cell,
                                {left, top, double(layout_.widthOf(cell)), double(layout_.heightOf(cell))});
            }
            left += layout_.columnWidth(column);
        }
        top += layout_.rowHeight(row);
    };
    if (rows.headRow > 0) {
        paintRow(rows.headRow);
    }
    for (int row = rows.first; row <= rows.last; ++row) {
        paintRow(row);
    }
    painter.restore();
    painter.save();
    painter.translate(paper.left(), paper.bottom() - margin - SheetPaper::FooterMillimetres * millimetre);
    painter.scale(pixel, pixel);
    constexpr int footerPixels = 12;
    QFont font = painter.font();
    font.setPixelSize(footerPixels);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(0, 0, paper.width() / pixel, SheetPaper::FooterMillimetres * PixelsForMillimetre),
                     Qt::AlignHCenter | Qt::AlignBottom,
                     pageWords(QString::number(page + 1), QString::number(pages_.size())));
    painter.restore();
}

bool SheetPrinter::print(QPrinter& printer, int from, int to, const std::function<void(int)>& progress) const {
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    for (int page = from; page <= to; ++page) {
        if (page > from && !printer.newPage()) {
            return false;
        }
        paint(painter, page, QRectF(QPointF(), printer.paperRect(QPrinter::DevicePixel).size()));
        progress(page);
    }
    return painter.end();
}

void printSheet(const SheetPrinter& sheet, const QString& title, QProgressBar& progressBar) {
    const int pages = static_cast<int>(sheet.pages().size());
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    printer.setPageLayout(sheet.pageLayout());
    if (!choosePrinter(printer, pages, progressBar.window())) {
        return;
    }
    const int from = std::clamp(printer.fromPage(), 1, pages);
    const int to = printer.toPage() > 0 ? std::clamp(printer.toPage(), from, pages) : pages;
    progressBar.setRange(from - 1, to);
    progressBar.setValue(from - 1);
    progressBar.show();
    bool printed = false;
    {
        const BusyPointer busy;
        EventPump pump;
        printed = sheet.print(printer, from - 1, to - 1, [&](int page) {
            progressBar.setValue(page + 1);
            pump();
        });
    }
    progressBar.hide();
    if (!printed) {
        MsgBox(u"打印没有成功，请检查打印机后再试！"_s, vbExclamation);
    }
}

bool choosePrinter(QPrinter& printer, int pages, QWidget* owner) {
    const PrinterChoice& choice = currentChoice();
    return choice ? choice(printer, pages, owner) : askOnScreen(printer, pages, owner);
}

void setPrinterChoice(PrinterChoice choice) {
    currentChoice() = std::move(choice);
}

}  // namespace talvora
