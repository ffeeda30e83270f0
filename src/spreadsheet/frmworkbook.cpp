#include "spreadsheet/frmworkbook.h"

#include "platform/runtime_error.h"
#include "spreadsheet/frmpreview.h"
#include "spreadsheet/workbook_file.h"
#include "toolkit/application/busy.h"
#include "toolkit/application/private_folder.h"
#include "toolkit/forms/prompts.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QShortcut>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include <vector>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

std::vector<std::unique_ptr<frmWorkbook>>& openWorkbooks() {
    static std::vector<std::unique_ptr<frmWorkbook>> windows;
    return windows;
}

void releaseClosed() {
    std::erase_if(openWorkbooks(), [](const auto& form) { return !form->isLoaded(); });
}

/// The title as a file's name that every system takes.
QString fileNameOf(const QString& title) {
    static const QRegularExpression forbidden(uR"([\\/:*?"<>|\x00-\x1f])"_s);
    QString name = title;
    return name.replace(forbidden, u"_"_s) + u".xlsx"_s;
}

/// Writes the workbook; a failure is told. True when it has been written.
bool save(const SheetPrinter& sheet, const QString& path) {
    QString fault;
    {
        const BusyPointer busy;
        try {
            saveWorkbook(sheet.workbook(), sheet.layout(), path);
        } catch (const RuntimeError& error) {
            fault = error.description();
        }
    }
    if (!fault.isEmpty()) {
        MsgBox(fault, vbExclamation);
    }
    return fault.isEmpty();
}

}  // namespace

frmWorkbook& frmWorkbook::Open(Workbook workbook, const QString& title) {
    releaseClosed();
    auto form = std::make_unique<frmWorkbook>();
    {
        const BusyPointer busy;
        form->Sheet = std::make_shared<const SheetPrinter>(std::move(workbook));
    }
    form->Title = title;
    frmWorkbook& opened = *form;
    openWorkbooks().push_back(std::move(form));
    opened.Show();
    return opened;
}

void frmWorkbook::wire() {
    on(ui->cmdSave, &QPushButton::clicked, &frmWorkbook::cmdSave_Click);
    on(ui->cmdOpen, &QPushButton::clicked, &frmWorkbook::cmdOpen_Click);
    on(ui->cmdPreview, &QPushButton::clicked, &frmWorkbook::cmdPreview_Click);
    on(ui->cmdPrint, &QPushButton::clicked, &frmWorkbook::cmdPrint_Click);
    on(ui->cmdClose, &QPushButton::clicked, &frmWorkbook::Unload);
    on(new QShortcut(QKeySequence::Save, window()), &QShortcut::activated, &frmWorkbook::cmdSave_Click);
    on(new QShortcut(QKeySequence::Print, window()), &QShortcut::activated, &frmWorkbook::cmdPrint_Click);
}

void frmWorkbook::Form_Load() {
    window()->setWindowTitle(Title);
    ui->progressBar->hide();
    ui->sheet->setSheet(Sheet);
    ui->sheet->setFocus();
}

void frmWorkbook::Form_Unload() {
    // Not at once: this routine is one of the window's own.
    QTimer::singleShot(0, qApp, releaseClosed);
}

void frmWorkbook::PrintPreview() {
    frmPreview preview;
    preview.Sheet = Sheet;
    preview.Title = Title;
    preview.ShowModal();
}

void frmWorkbook::cmdSave_Click() {
    // Not every desktop has made the folder for documents.
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QDir folder(QDir(documents).exists() ? documents : QDir::homePath());
    const QString path = saveFileName(u"保存工作簿"_s, folder.filePath(fileNameOf(Title)), u"Excel 工作簿 (*.xlsx)"_s);
    if (!path.isEmpty() && save(*Sheet, path)) {
        window()->setWindowTitle(u"%1 - %2"_s.arg(Title, QDir::toNativeSeparators(path)));
    }
}

void frmWorkbook::cmdOpen_Click() {
    const QString path = PrivateFolder::ofProgram().newPath(fileNameOf(Title));
    if (!save(*Sheet, path)) {
        return;
    }
    // Read-only, so that the other program asks for a place when its user wants to keep changes: this one goes.
    QFile::setPermissions(path, QFileDevice::ReadOwner);
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) {
        MsgBox(u"没有找到可以打开工作簿的程序，请先保存为文件！"_s, vbExclamation);
    }
}

void frmWorkbook::cmdPreview_Click() {
    PrintPreview();
}

void frmWorkbook::cmdPrint_Click() {
    printSheet(*Sheet, Title, *ui->progressBar);
}

}  // namespace talvora
