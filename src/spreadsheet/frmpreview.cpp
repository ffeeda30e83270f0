#include "spreadsheet/frmpreview.h"

#include "toolkit/application/busy.h"
#include "toolkit/application/event_pump.h"
#include "toolkit/forms/prompts.h"

#include <QPrinter>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

void frmPreview::wire() {
    on(ui->cmdPrevious, &QPushButton::clicked, &frmPreview::cmdPrevious_Click);
    on(ui->cmdNext, &QPushButton::clicked, &frmPreview::cmdNext_Click);
    on(ui->cmbZoom, &ComboBox::Click, &frmPreview::cmbZoom_Click);
    on(ui->cmdPrint, &QPushButton::clicked, &frmPreview::cmdPrint_Click);
    on(ui->cmdClose, &QPushButton::clicked, &frmPreview::cmdClose_Click);
    on(ui->pages, &PageView::currentPageChanged, &frmPreview::showPageNumber);
}

void frmPreview::Form_Load() {
    window()->setWindowTitle(u"打印预览 - %1"_s.arg(Title));
    ui->progressBar->hide();
    constexpr int percent = 100;
    for (const int zoom : {50, 75, 100, 150, 200}) {
        ui->cmbZoom->AddItem(u"%1%"_s.arg(zoom), zoom);
    }
    ui->cmbZoom->AddItem(u"页宽"_s, qRound(PageView::FitWidth * percent));
    ui->cmbZoom->AddItem(u"整页"_s, qRound(PageView::FitPage * percent));
    ui->pages->setSheet(Sheet);
    ui->cmbZoom->setListIndex(ui->cmbZoom->ListCount() - 2);
    showPageNumber(0);
    ui->pages->setFocus();
}

void frmPreview::showPageNumber(int page) {
    ui->lblPage->setText(u"第 %1 页，共 %2 页"_s.arg(page + 1).arg(ui->pages->pageCount()));
    ui->cmdPrevious->setEnabled(page > 0);
    ui->cmdNext->setEnabled(page + 1 < ui->pages->pageCount());
}

void frmPreview::cmdPrevious_Click() {
    ui->pages->showPage(ui->pages->currentPage() - 1);
}

void frmPreview::cmdNext_Click() {
    ui->pages->showPage(ui->pages->currentPage() + 1);
}

void frmPreview::cmbZoom_Click() {
    constexpr double percent = 100;
    ui->pages->setZoom(ui->cmbZoom->ItemData(ui->cmbZoom->ListIndex()) / percent);
}

void frmPreview::cmdPrint_Click() {
    printSheet(*Sheet, Title, *ui->progressBar);
}

void frmPreview::cmdClose_Click() {
    Unload();
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

}  // namespace talvora
