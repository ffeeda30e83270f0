#include "workbench/frmsysinfo.h"

#include "workbench/system_facts.h"

#include <QClipboard>
#include <QGuiApplication>

namespace talvora {

using namespace Qt::StringLiterals;

void frmSysInfo::wire() {
    on(ui->cmdCopy, &QPushButton::clicked, &frmSysInfo::cmdCopy_Click);
    on(ui->cmdClose, &QPushButton::clicked, [this]() { Unload(); });
}

void frmSysInfo::Form_Load() {
    ui->fg->setFormatString(u"项目            |内容"_s);
    for (const auto& [name, value] : systemFacts()) {
        ui->fg->AddItem(name + u'\t' + value);
    }
}

void frmSysInfo::cmdCopy_Click() {
    QString text;
    for (const auto& [name, value] : systemFacts()) {
        text += name + u": "_s + value + u'\n';
    }
    QGuiApplication::clipboard()->setText(text);
}

}  // namespace talvora
