#include "settings/frmoption.h"
#include "toolkit/application/last_resort.h"
#include "toolkit/forms/prompts.h"
#include "workbench/frmabout.h"
#include "workbench/frmmain.h"
#include "workbench/outside_programs.h"

// The commands of the menu.
namespace talvora {

using namespace Qt::StringLiterals;

void frmMain::wireMenu() {
    const std::pair<QAction*, void (frmMain::*)()> commands[] = {
        {ui->mnuTesting, &frmMain::mnuTesting_Click},
        {ui->mnuTestingType, &frmMain::mnuTestingType_Click},
        {ui->mnuSolution, &frmMain::mnuSolution_Click},
        {ui->mnuExit, &frmMain::mnuExit_Click},
        {ui->mnuPosition, &frmMain::mnuPosition_Click},
        {ui->mnuUsers, &frmMain::mnuUsers_Click},
        {ui->mnuRoles, &frmMain::mnuRoles_Click},
        {ui->mnuOption, &frmMain::mnuOption_Click},
        {ui->mnuHelpSearchForHelpOn, &frmMain::mnuHelpSearchForHelpOn_Click},
        {ui->mnuViewWebBrowser, &frmMain::mnuViewWebBrowser_Click},
        {ui->mnuHelpAbout, &frmMain::mnuHelpAbout_Click},
    };
    for (const auto& [entry, command] : commands) {
        on(entry, &QAction::triggered, command);
    }
}

void frmMain::mnuTesting_Click() {
    openModule(u"Testing"_s);
}

void frmMain::mnuTestingType_Click() {
    openModule(u"testingtype"_s);
}

void frmMain::mnuSolution_Click() {
    openModule(u"Solution"_s);
}

void frmMain::mnuPosition_Click() {
    openModule(u"position"_s);
}

void frmMain::mnuUsers_Click() {
    openModule(u"Users"_s);
}

void frmMain::mnuRoles_Click() {
    openModule(u"Roles"_s);
}

// At once: the window's place is not saved on this way, which is meant. Only open sheets stay.
void frmMain::mnuExit_Click() {
    endProgram(ProgramEnd::Orderly);
}

void frmMain::mnuOption_Click() {
    frmOption::Default().ShowModal();
}

void frmMain::mnuHelpSearchForHelpOn_Click() {
    if (helpFile().isEmpty()) {
        MsgBox(u"无法显示帮助目录，该工程没有相关联的帮助。"_s, vbInformation, window()->windowTitle());
        return;
    }
    startHelpViewer();
}

void frmMain::mnuViewWebBrowser_Click() {
    openWebPage();
}

void frmMain::mnuHelpAbout_Click() {
    frmAbout::Default().ShowModal();
}

}  // namespace talvora
