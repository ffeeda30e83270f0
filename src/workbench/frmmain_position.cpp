#include "organisation/cposition.h"
#include "organisation/frmposition.h"
#include "workbench/frmmain.h"
#include "workbench/list_commands.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestCode = 30;  // ten levels
constexpr int levels = 10;

QString codeOf(const FlexGrid& list, int row) {
    return row > 0 ? list.TextMatrix(row, 0) : QString();
}

void openDialog(const frmMain& main, bool add, int row) {
    frmPosition& dialog = frmPosition::Default();
    dialog.AddMode = add;
    dialog.PostCodeOf = codeOf(*main.ui->fg, row);
    dialog.ShowModal();
    refill(main);
    selectRow(*main.ui->fg, row);
}

void addBeside(const frmMain& main, int row) {
    frmPosition::Default().ChildMode = false;
    openDialog(main, true, row);
}

void addUnder(const frmMain& main, int row) {
    if ((row == 0 && refuse(u"请选择或增加一个［一级职位］！"_s)) ||
        (codeOf(*main.ui->fg, row).size() == longestCode &&
         refuse(u"最多允许10个层级，您不能再行增加［子职位］！"_s))) {
        return;
    }
    frmPosition::Default().ChildMode = true;
    openDialog(main, true, row);
}

void edit(const frmMain& main, int row) {
    if (row == 0 && refuse(u"请选择或增加一个［职位］！"_s)) {
        return;
    }
    openDialog(main, false, row);
}

// Nothing is asked before, which is meant.
void deletePosition(const frmMain& main, int row) {
    if (row == 0 && refuse(u"已经没有或没选择拟删除的［职位］！"_s)) {
        return;
    }
    const Status status = cPosition::Delete(codeOf(*main.ui->fg, row));
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
    const int row = chosenRow(*ui->fg);
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
    for (int level = 1; level <= levels; ++level) {
        const QString entry = u"L%1"_s.arg(level);
        const QString mark = entry == key ? u"  √"_s : QString();
        ui->tbrPosition->setCaption(entry, u"显示层级 %1"_s.arg(level) + mark);
        if (entry == key) {
            ui->fg->Outline(level);
        }
    }
}

}  // namespace talvora
