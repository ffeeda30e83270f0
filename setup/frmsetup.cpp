#include "setup/frmsetup.h"

#include "core/mdlpublic.h"
#include "platform/runtime_error.h"
#include "setup/check.h"
#include "setup/import/import.h"
#include "setup/sample/sample.h"
#include "setup/session.h"
#include "toolkit/application/busy.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/look/icons.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace talvora {

using namespace Qt::StringLiterals;

void frmSetup::wire() {
    on(ui->optServer, &QRadioButton::toggled, &frmSetup::optKind_Click);
    on(ui->cmdBrowse, &QPushButton::clicked, &frmSetup::cmdBrowse_Click);
    on(ui->cmdConnect, &QPushButton::clicked, &frmSetup::cmdConnect_Click);
    on(ui->cmdInstall, &QPushButton::clicked, &frmSetup::cmdInstall_Click);
    on(ui->cmdSample, &QPushButton::clicked, &frmSetup::cmdSample_Click);
    on(ui->cmdImport, &QPushButton::clicked, &frmSetup::cmdImport_Click);
    on(ui->cmdCheck, &QPushButton::clicked, &frmSetup::cmdCheck_Click);
    on(ui->cmdClose, &QPushButton::clicked, [this] { Unload(); });
}

void frmSetup::Form_Load() {
    constexpr int iconSize = 40;
    ui->lblIcon->setPixmap(picture(u"talvora"_s, iconSize, window()->devicePixelRatioF()));
    ui->txtFile->setText(u"talvora.db"_s);
    ui->PrsBar->hide();
    if (QFileInfo::exists(connectionFilePath())) {
        work([this] { showConnection(savedConnection()); });
    }
    optKind_Click();
    (ui->optServer->isChecked() ? ui->optServer : ui->optEmbedded)->setFocus();
}

void frmSetup::optKind_Click() {
    ui->stkConnection->setCurrentIndex(ui->optServer->isChecked() ? 0 : 1);
}

void frmSetup::cmdBrowse_Click() {
    const auto path = saveFileName(u"数据库文件"_s, ui->txtFile->text(), u"数据库 (*.db);;所有文件 (*)"_s);
    if (!path.isEmpty()) {
        ui->txtFile->setText(QDir::toNativeSeparators(path));
    }
}

void frmSetup::cmdConnect_Click() {
    ConnectionFile connection;
    if (!readConnection(connection)) {
        return;
    }
    QString fault;
    const bool isTried = awaitsInstallation(connection) || work([&] {
                             try {
                                 testConnection(connection);
                             } catch (const RuntimeError& error) {
                                 fault = error.description();
                             }
                         });
    if (!isTried) {
        return;
    }
    if (!fault.isEmpty()) {
        report(u"连接不成功：%1"_s.arg(fault));
        if (MsgBox(u"连接不成功：%1\n仍要保存吗？"_s.arg(fault), ConfirmStyle) != vbYes) {
            return;
        }
    }
    work([&] { saveConnection(connection); });
}

void frmSetup::saveConnection(const ConnectionFile& connection) {
    writeConnectionFile(connectionFilePath(), connection);
    report(u"连接信息已保存到［%1］。"_s.arg(QDir::toNativeSeparators(connectionFilePath())));
    if (awaitsInstallation(connection)) {
        report(u"数据库文件尚不存在，请接着进行［安装］。"_s);
    }
}

void frmSetup::cmdInstall_Click() {
    if (const auto fault = adminPasswordFault(ui->txtAdmin->text()); !fault.isEmpty()) {
        warn(fault, ui->txtAdmin);
        return;
    }
    if (ui->txtAdmin->text() != ui->txtConfirm->text()) {
        warn(u"两次输入的密码不一致，请重新输入！"_s, ui->txtConfirm);
        return;
    }
    if (work([this] { installDatabase(savedConnection(), ui->txtAdmin->text(), progress()); })) {
        ui->txtAdmin->clear();
        ui->txtConfirm->clear();
        report(u"安装完成。"_s);
        MsgBox(u"安装完成，请用系统用户［admin］登录。"_s, vbInformation);
    }
}

void frmSetup::cmdSample_Click() {
    const bool isDone = work([this] {
        openSession(savedConnection());
        installSample(progress());
    });
    if (isDone) {
        report(u"示例已装入。"_s);
        MsgBox(u"示例已装入。"_s, vbInformation);
    }
}

void frmSetup::cmdImport_Click() {
    const auto path = openFileName(u"导入试卷"_s, {}, u"CSV 文件 (*.csv);;所有文件 (*)"_s);
    if (path.isEmpty()) {
        return;
    }
    ImportOutcome outcome;
    const bool isDone = work([&] {
        openSession(savedConnection());
        outcome = importFile(path, progress());
    });
    if (!isDone) {
        return;
    }
    report(outcomeText(outcome, QFileInfo(path).fileName()));
    if (outcome.faults.empty()) {
        MsgBox(u"导入完成。"_s, vbInformation);
    } else {
        MsgBox(u"文件有错误，没有导入任何内容，请按列出的行号修改后重新导入！"_s, vbExclamation);
    }
}

void frmSetup::cmdCheck_Click() {
    work([this] {
        openSession(savedConnection());
        report(checkText(checkDatabase(cnnPublic)));
    });
}

bool frmSetup::work(const std::function<void()>& task) {
    QString fault;
    {
        const BusyPointer busy;
        QWidget* focus = window()->focusWidget();
        window()->setEnabled(false);
        try {
            task();
            cnnPublic.Close();
        } catch (const RuntimeError& error) {
            cnnPublic.Abandon();
            fault = error.description();
        }
        ui->PrsBar->hide();
        window()->setEnabled(true);
        if (focus != nullptr) {
            focus->setFocus();
        }
    }
    if (!fault.isEmpty()) {
        report(fault);
        MsgBox(fault, vbExclamation);
    }
    return fault.isEmpty();
}

Progress frmSetup::progress() {
    return [this](int done, int total) {
        ui->PrsBar->show();
        ui->PrsBar->setRange(0, total);
        ui->PrsBar->setValue(done);
        // So that the bar moves; the window takes no input meanwhile.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
}

void frmSetup::report(const QString& text) {
    ui->txtReport->appendPlainText(text);
}

void frmSetup::showConnection(const ConnectionFile& connection) {
    if (isEmbedded(connection)) {
        ui->optEmbedded->setChecked(true);
        ui->txtFile->setText(connection.database);
        return;
    }
    ui->txtServer->setText(connection.server);
    ui->txtDatabase->setText(connection.database);
    ui->txtLogin->setText(connection.login);
    ui->txtPassword->setText(connection.password);
}

bool frmSetup::readConnection(ConnectionFile& connection) {
    struct Field {
        QLineEdit* edit;
        QString name;
    };
    const bool isServer = ui->optServer->isChecked();
    const std::vector<Field> fields = isServer ? std::vector<Field>{{ui->txtServer, u"服务器"_s},
                                                                    {ui->txtDatabase, u"数据库"_s},
                                                                    {ui->txtLogin, u"登录名"_s}}
                                               : std::vector<Field>{{ui->txtFile, u"数据库文件"_s}};
    for (const auto& field : fields) {
        if (field.edit->text().trimmed().isEmpty()) {
            warn(u"请先输入［%1］！"_s.arg(field.name), field.edit);
            return false;
        }
    }
    connection = isServer ? ConnectionFile{ui->txtServer->text().trimmed(), ui->txtDatabase->text().trimmed(),
                                           ui->txtLogin->text().trimmed(), ui->txtPassword->text()}
                          : embeddedConnection(QDir::fromNativeSeparators(ui->txtFile->text().trimmed()));
    return true;
}

}  // namespace talvora
