#pragma once

#include "toolkit/forms/form.h"
#include "ui_frmmain.h"

#include <QString>

class QTreeWidgetItem;

namespace talvora {

/// The workbench: the modules' tree, the list of the module shown with its toolbar, and the detail pane below the list.
/// It is one window in several files: the frame (frmmain.cpp), its measures (frmmain_layout.cpp), the menu
/// (frmmain_menu.cpp), the grids' events (frmmain_grid.cpp), and one file for each toolbar's commands.
///
/// Measures and positions are twips (toolkit/forms/twips.h), within the area that the menu, the toolbar and the status
/// bar leave.
class frmMain : public DesignedForm<frmMain, Ui::frmMain> {
 public:
    /// The module now shown, spelled as its command gives it ("testingtype", "Roles"); empty before the first.
    /// Compare it in lower case.
    QString strCurrentModule;

    /// Adds all headings, and under them the modules that the user may open.
    void FillModuleTree(ModuleTree& tree);
    /// Lays the panes out with the tree `x` wide, within limits.
    void SizeControls(int x);
    /// Makes the menu of the saved searches anew.
    void AddQueryToMenu();
    /// Shows the module's toolbar alone, under the user's rights, and closes the detail pane.
    void ShowModuleBar(const QString& module);
    /// Marks the nodes of the module in the tree; raises no event.
    void SelectModuleNode(const QString& module);
    /// Shows the detail pane with its top below `y`, or in the middle for a `y` beyond the tree.
    void PlaceDetailGrid(int y, FlexGrid& grid);
    /// Hides the detail pane and gives its room to the list.
    void CloseDetailGrid();

 protected:
    void wire() override;
    void Form_Load() override;
    void Form_Unload() override;

 private:
    // The frame.
    void wireToolBars();
    void wireMenu();
    void openFirstModule();
    bool mayOpen(const QString& module) const;
    void openModule(const QString& module);
    /// Runs the menu command of a module by its key in lower case, if it has one.
    void runModuleCommand(const QString& module);
    void tvTreeView_NodeClick(QTreeWidgetItem* node);
    ToolBar* toolBarOf(const QString& module) const;

    // The layout. The strips between the panes bear the names imgSplitter and ImgVertical, their ghosts picSplitter and
    // PicVertical, so spelled.
    void wireLayout();
    void restorePlace();
    void savePlace();
    void showTime();
    void Form_Resize();
    /// Where the tree ends, and the area of the panes with it.
    int treeBottom() const;
    void imgSplitter_MouseDown();
    void imgSplitter_MouseMove(QPoint position);
    void imgSplitter_MouseUp();
    void ImgVertical_MouseDown();
    void ImgVertical_MouseMove(QPoint position);
    void ImgVertical_MouseUp();
    void moveFocusOn();

    // The menu.
    void mnuTesting_Click();
    void mnuTestingType_Click();
    void mnuSolution_Click();
    void mnuExit_Click();
    void mnuPosition_Click();
    void mnuUsers_Click();
    void mnuRoles_Click();
    void mnuOption_Click();
    void mnuHelpSearchForHelpOn_Click();
    void mnuViewWebBrowser_Click();
    void mnuHelpAbout_Click();

    // The grids.
    void fg_Click();
    void fg_DblClick();
    void fg_RowChange();

    // The toolbars' commands.
    void tbrPosition_ButtonClick(const QString& key);
    void tbrPosition_ButtonMenuClick(const QString& key);
    void tbrTestingType_ButtonClick(const QString& key);
    void tbrTestingType_ButtonMenuClick(const QString& key);
    void tbrTesting_ButtonClick(const QString& key);
    void tbrTesting_ButtonMenuClick(const QString& key);
    void tbrSolution_ButtonClick(const QString& key);
    void tbrRoles_ButtonClick(const QString& key);
    void tbrUsers_ButtonClick(const QString& key);

    bool splitterMoving_ = false;
    bool verticalMoving_ = false;
};

}  // namespace talvora
