#include "workbench/frmmain.h"

#include "access/cmodule.h"
#include "access/cuser.h"
#include "core/mdlpublic.h"
#include "platform/title.h"
#include "results/search/cquery.h"
#include "workbench/list_commands.h"
#include "workbench/module_views.h"
#include "workbench/toolbar_buttons.h"
#include "workbench/toolbar_rights.h"

// The frame: how the window opens, and how one module takes the place of another.
namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr auto keyPrefix = u'a';  // stands before the code of a node, and before the number of a saved search

}  // namespace

void frmMain::wire() {
    wireToolBars();
    wireMenu();
    wireLayout();
    on(ui->tvTreeView, &ModuleTree::NodeClick, &frmMain::tvTreeView_NodeClick);
    on(ui->fg, &FlexGrid::Click, &frmMain::fg_Click);
    on(ui->fg, &FlexGrid::DblClick, &frmMain::fg_DblClick);
    on(ui->fg, &FlexGrid::RowChange, &frmMain::fg_RowChange);
}

void frmMain::wireToolBars() {
    addTestingButtons(*ui->tbrTesting);
    addTestingTypeButtons(*ui->tbrTestingType);
    addPositionButtons(*ui->tbrPosition);
    for (ToolBar* toolbar : {ui->tbrSolution, ui->tbrRoles, ui->tbrUsers}) {
        addRecordButtons(*toolbar);
    }
    on(ui->tbrTesting, &ToolBar::ButtonClick, &frmMain::tbrTesting_ButtonClick);
    on(ui->tbrTesting, &ToolBar::ButtonMenuClick, &frmMain::tbrTesting_ButtonMenuClick);
    on(ui->tbrTestingType, &ToolBar::ButtonClick, &frmMain::tbrTestingType_ButtonClick);
    on(ui->tbrTestingType, &ToolBar::ButtonMenuClick, &frmMain::tbrTestingType_ButtonMenuClick);
    on(ui->tbrPosition, &ToolBar::ButtonClick, &frmMain::tbrPosition_ButtonClick);
    on(ui->tbrPosition, &ToolBar::ButtonMenuClick, &frmMain::tbrPosition_ButtonMenuClick);
    on(ui->tbrSolution, &ToolBar::ButtonClick, &frmMain::tbrSolution_ButtonClick);
    on(ui->tbrRoles, &ToolBar::ButtonClick, &frmMain::tbrRoles_ButtonClick);
    on(ui->tbrUsers, &ToolBar::ButtonClick, &frmMain::tbrUsers_ButtonClick);
}

void frmMain::Form_Load() {
    ui->pnlUser->setText(u"当前用户："_s + strCurrentUser);
    restorePlace();
    window()->setWindowTitle(titleText());
    const std::pair<QAction*, QString> granted[] = {
        {ui->mnuUsers, u"users"_s},
        {ui->mnuRoles, u"roles"_s},
        {ui->mnuTesting, u"testing"_s},
        {ui->mnuTestingType, u"testingtype"_s},
    };
    for (const auto& [entry, module] : granted) {
        entry->setEnabled(mayOpen(module));
    }
    FillModuleTree(*ui->tvTreeView);
    openFirstModule();
}

/// Every other window goes first, the latest before the earlier ones; but sheets are the user's and stay. The place of
/// a minimised window is none.
void frmMain::Form_Unload() {
    const std::vector<Form*> open = loaded();
    for (auto form = open.rbegin(); form != open.rend(); ++form) {
        if (*form != this && !(*form)->standsAlone()) {
            (*form)->Unload();
        }
    }
    if (!window()->isMinimized()) {
        savePlace();
    }
}

bool frmMain::mayOpen(const QString& module) const {
    return cUsers::IsAccessModule(strCurrentUser, module) || isAdmin(strCurrentUser);
}

void frmMain::FillModuleTree(ModuleTree& tree) {
    tree.Clear();
    cModules headings;
    for (const auto& heading : headings.Find(QString())) {
        const QString key = keyPrefix + heading->ModuleCode.text();
        tree.AddNode(QString(), key, heading->ModuleName, QString());
        cModules modules;
        for (const auto& module : modules.Find(heading->ModuleCode)) {
            if (mayOpen(module->TableName)) {
                tree.AddNode(key, keyPrefix + module->ModuleCode.text(), module->ModuleName, module->TableName);
            }
        }
    }
    tree.expandAll();
}

/// The second node is a module when the first heading has one that the user may open; if not, it is the next heading,
/// and the third node is tried. A tree without it is an error. A position tree does not open by itself; this is meant.
void frmMain::openFirstModule() {
    constexpr qsizetype moduleKeyLength = 7;
    const ModuleTree& tree = *ui->tvTreeView;
    const int second = 2;
    const int opening = tree.Key(second).size() >= moduleKeyLength ? second : second + 1;
    const QString module = tree.Tag(opening).toLower();
    if (module != "position"_L1) {
        runModuleCommand(module);
    }
}

void frmMain::runModuleCommand(const QString& module) {
    if (module == "solution"_L1) {
        mnuSolution_Click();
    } else if (module == "testingtype"_L1) {
        mnuTestingType_Click();
    } else if (module == "testing"_L1) {
        mnuTesting_Click();
    } else if (module == "users"_L1) {
        mnuUsers_Click();
    } else if (module == "roles"_L1) {
        mnuRoles_Click();
    } else if (module == "position"_L1) {
        mnuPosition_Click();
    }
}

void frmMain::openModule(const QString& module) {
    strCurrentModule = module;
    ShowModuleBar(module);
    FillModuleGrid(*ui->fg, module);
    ui->lblLegend->setText(ColouredLegend(*ui->fg));
    SelectModuleNode(module);
}

void frmMain::tvTreeView_NodeClick(QTreeWidgetItem* node) {
    runModuleCommand(ModuleTree::Tag(*node).toLower());
    selectRow(*ui->fg, 1);
}

void frmMain::SelectModuleNode(const QString& module) {
    for (int number = 1; number <= ui->tvTreeView->NodeCount(); ++number) {
        if (ui->tvTreeView->Tag(number).toLower() == module.toLower()) {
            ui->tvTreeView->SelectNode(number);
        }
    }
}

ToolBar* frmMain::toolBarOf(const QString& module) const {
    const std::pair<QString, ToolBar*> toolbars[] = {
        {u"testing"_s, ui->tbrTesting},   {u"testingtype"_s, ui->tbrTestingType},
        {u"solution"_s, ui->tbrSolution}, {u"position"_s, ui->tbrPosition},
        {u"users"_s, ui->tbrUsers},       {u"roles"_s, ui->tbrRoles},
    };
    for (const auto& [key, toolbar] : toolbars) {
        if (key == module.toLower()) {
            return toolbar;
        }
    }
    return nullptr;
}

void frmMain::ShowModuleBar(const QString& module) {
    ToolBar* shown = toolBarOf(module);
    for (ToolBar* toolbar : window()->findChildren<ToolBar*>()) {
        toolbar->setVisible(toolbar == shown);
    }
    ui->fgDetail->setRows(1);
    CloseDetailGrid();
    if (!shown) {
        return;
    }
    InitToolBarRight(*shown, strCurrentUser, strCurrentModule);
    if (shown == ui->tbrTestingType) {
        offerDetail(*shown, questionCaptions);
    }
    if (shown == ui->tbrTesting) {
        offerDetail(*shown, answerCaptions);
        AddQueryToMenu();
    }
}

void frmMain::AddQueryToMenu() {
    ui->tbrTesting->clearMenu(u"find"_s);
    cQuerys queries;
    for (const auto& query : queries.Find(0)) {
        ui->tbrTesting->addMenuEntry(u"find"_s, keyPrefix + QString::number(query->QueryID), query->Query);
    }
}

}  // namespace talvora
