#include "spreadsheet/frmpreview.h"

namespace talvora {

using namespace Qt::StringLiterals;

void frmPreview::wire() {
    on(ui->cmdPrevious, &QPushButton::clicked, &frmPreview::cmdPrevious_Click);
    on(ui->cmdNext, &QPushButton::clicked, &frmPreview::cmdNext_Click);
    on(ui->cmbZoom, &ComboBox::Click, &frmPreview::cmbZoom_Click);
    on(ui->cmdPrint, &QPushButton::clicked, &frmPreview::cmdPrint_Click);
    on(ui->cmdClose, &QPushButton::clicked, &frmPreview::Unload);
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
    ui->lblPage->setText(pageWords(QString::number(page + 1), QString::number(ui->pages->pageCount())));
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

}  // namespace talvora
