#include "models/csolution.h"
#include "models/frmsolution.h"
#include "workbench/frmmain.h"
#include "workbench/list_commands.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

void add(frmMain& main) {
    frmSolution& dialog = frmSolution::Default();
    dialog.AddMode = true;
    dialog.ShowModal();
    refill(main);
    selectRow(*main.ui->fg, main.ui->fg->Rows() - 1);
}

void edit(frmMain& main, int row) {
    if (row < 0) {
        refuse(u"已经没有记录或没选择拟修改的记录！"_s);
        return;
    }
    frmSolution& dialog = frmSolution::Default();
    dialog.AddMode = false;
    dialog.SolutionIDOf = keyOf(*main.ui->fg, row);
    dialog.ShowModal();
    refill(main);
}

void deleteModel(FlexGrid& list, int row) {
    if (row < 0) {
        refuse(u"已经没有记录可以删除！"_s);
        return;
    }
    if (!confirmed(u"您确定删除当前所选的［素质模型］吗？"_s)) {
        return;
    }
    cSolution::Delete(keyOf(list, row));
    takeOff(list, row);
}

}  // namespace

void frmMain::tbrSolution_ButtonClick(const QString& key) {
    runRecordCommand(*this, key, u"素质模型一览表"_s, {add, edit, deleteModel});
}

}  // namespace talvora
