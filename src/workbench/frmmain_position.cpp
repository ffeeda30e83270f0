#include "organisation/cposition.h"
#include "organisation/frmposition.h"
#include "platform/text.h"
#include "workbench/frmmain.h"
#include "workbench/list_commands.h"
#include "workbench/toolbar_buttons.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestCode = 30;  // ten levels

void openDialog(frmMain& main, bool add, int row) {
    frmPosition& dialog = frmPosition::Default();
    dialog.AddMode = add;
    dialog.PostCodeOf = codeOf(*main.ui->fg, row);
    dialog.ShowModal();
    refill(main);
    selectRow(*main.ui->fg, row);
}

void addBeside(frmMain& main, int row) {
    frmPosition::Default().ChildMode = false;
    openDialog(main, true, row);
}

void addUnder(frmMain& main, int row) {
    if (row < 0) {
        refuse(u"请选择或增加一个［一级职位］！"_s);
        return;
    }
    if (codeOf(*main.ui->fg, row).size() == longestCode) {
        refuse(u"最多允许10个层级，您不能再行增加［子职位］！"_s);
        return;
    }
    frmPosition::Default().ChildMode = true;
    openDialog(main, true, row);
}

void edit(frmMain& main, int row) {
    if (row < 0) {
        refuse(u"请选择或增加一个［职位］！"_s);
        return;
    }
    openDialog(main, false, row);
}

// Nothing is asked before, which is meant.
void deletePosition(frmMain& main, int row) {
    if (row < 0) {
        refuse(u"已经没有或没选择拟删除的［职位］！"_s);
        return;
    }
    const Status status = cPosition::Delete(codeOf(*main.ui->fg, row));
    // The records have no test for employees and never tell this one; its words stay, which is meant.
    if (status == Status::Dependants) {
        refuse(u"存在该［职位］的员工,不能删除！"_s);
    } else if (status == Status::InUse) {
        refuse(u"该［职位］下还有［子职位］,不能删除！"_s);
    } else if (status == Status::Done) {
        refill(main);
        selectRow(*main.ui->fg, row);
    }
}

}  // namespace

void frmMain::tbrPosition_ButtonClick(const QString& key) {
    const int row = ui->fg->Row();
    if (key == "type1"_L1) {
        addBeside(*this, row);
    } else if (key == "type2"_L1) {
        addUnder(*this, row);
    } else if (key == "edit"_L1) {
        edit(*this, row);
    } else if (key == "del"_L1) {
        deletePosition(*this, row);
    } else {
        runListCommand(*this, key, u"职位一览表"_s);
    }
}

void frmMain::tbrPosition_ButtonMenuClick(const QString& key) {
    const int level = dropLeft(key, 1).toInt();
    markPositionLevel(*ui->tbrPosition, level);
    ui->fg->Outline(level);
}

}  // namespace talvora
