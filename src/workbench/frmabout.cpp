#include "workbench/frmabout.h"

#include "platform/title.h"
#include "toolkit/look/icons.h"
#include "workbench/frmsysinfo.h"
#include "workbench/outside_programs.h"

namespace talvora {

using namespace Qt::StringLiterals;

void frmAbout::wire() {
    on(ui->cmdSysInfo, &QPushButton::clicked, &frmAbout::cmdSysInfo_Click);
    on(ui->cmdOK, &QPushButton::clicked, [this]() { Unload(); });
}

void frmAbout::Form_Load() {
    constexpr int iconSize = 48;
    ui->lblIcon->setPixmap(picture(u"talvora"_s, iconSize, window()->devicePixelRatioF()));
    ui->lblTitle->setText(titleText());
    ui->cmdOK->setFocus();
}

void frmAbout::cmdSysInfo_Click() {
    if (!startSystemInformation()) {
        frmSysInfo::Default().ShowModal();
    }
}

}  // namespace talvora
