#include "assessment/frmtesting.h"
#include "platform/numbers.h"
#include "platform/text.h"
#include "results/export/export_list.h"
#include "results/export/export_reports.h"
#include "results/search/cquery.h"
#include "results/search/frmfind.h"
#include "toolkit/application/busy.h"
#include "workbench/frmmain.h"
#include "workbench/list_commands.h"
#include "workbench/module_views.h"
#include "workbench/toolbar_buttons.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

void deleteTest(FlexGrid& list, int row) {
    if (row < 0) {
        refuse(u"已经没有记录可以删除！"_s);
        return;
    }
    if (!confirmed(u"您确定删除当前所选的［测评记录］吗？"_s)) {
        return;
    }
    if (list.IsSubtotal(row)) {
        refuse(u"不能删除测评类型！"_s);
        return;
    }
    cTesting::Delete(toInt32(list.TextMatrix(row, 0)));
    takeOff(list, row);
}

/// Replaces the list by the records that a statement gives, as `fill` shows them, and gives it the focus.
void listFound(FlexGrid& list, const QString& statement, void (*fill)(FlexGrid&, const cTestings&)) {
    const BusyPointer busy;
    cTestings testings;
    testings.Find(0, statement);
    fill(list, testings);
    list.setFocus();
}

// The menu is made anew in any case: searches may have been saved or deleted.
void find(frmMain& main) {
    frmFind& dialog = frmFind::Default();
    dialog.ShowModal();
    if (!dialog.strSQL.isEmpty()) {
        listFound(*main.ui->fg, dialog.strSQL, FillTestings);
    }
    main.AddQueryToMenu();
}

void runSavedQuery(FlexGrid& list, qint16 queryId) {
    cQuerys queries;
    if (queries.Find(queryId).Count() > 0) {
        listFound(list, queries.Item(1)->Condition, FillSavedQuery);
    }
}

}  // namespace

void frmMain::tbrTesting_ButtonClick(const QString& key) {
    const int row = ui->fg->Row();
    if (key == "add"_L1) {
        frmTesting::Default().ShowModal();
        mnuTesting_Click();
        selectRow(*ui->fg, ui->fg->Rows() - 1);
    } else if (key == "del"_L1) {
        deleteTest(*ui->fg, row);
    } else if (key == "detail"_L1) {
        toggleDetail(*this, *ui->tbrTesting, answerCaptions);
    } else if (key == "find"_L1) {
        find(*this);
    } else if (key == "exit"_L1) {
        endProgram(ProgramEnd::Orderly);
    }
}

void frmMain::tbrTesting_ButtonMenuClick(const QString& key) {
    const bool prints = key.startsWith("print"_L1);
    if (key == "exportlist"_L1 || key == "printlist"_L1) {
        ExportList(*ui->fg, prints, u"测评记录明细"_s, *ui->PrsBar);
    } else if (key.startsWith("export"_L1) || prints) {
        ExportTestingReport(*ui->fg, prints, u"详细测评报告"_s, *ui->PrsBar, key.endsWith("select"_L1));
    } else {
        runSavedQuery(*ui->fg, toInt16(dropLeft(key, 1)));
    }
}

}  // namespace talvora
