#include "platform/numbers.h"
#include "platform/text.h"
#include "results/export/export_list.h"
#include "results/export/export_reports.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"
#include "testbank/frmexamination.h"
#include "testbank/frmtypechild.h"
#include "testbank/frmtypeparent.h"
#include "workbench/frmmain.h"
#include "workbench/list_commands.h"
#include "workbench/toolbar_buttons.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

qint16 paperOf(const QString& code) {
    return toInt16(dropLeft(code, subtypeCodeLength));
}

template <class Dialog>
void openToAdd(frmMain& main) {
    Dialog& dialog = Dialog::Default();
    dialog.AddMode = true;
    dialog.ShowModal();
    refill(main);
}

// An added main type is told no code: one left from an edit would begin the first code of an emptied bank.
void addMainType(frmMain& main) {
    frmTypeParent::Default().TypeCodeOf.clear();
    openToAdd<frmTypeParent>(main);
}

void addSubtype(frmMain& main, int row) {
    frmTypeChild::Default().TypeCodeOf = codeOf(*main.ui->fg, row).left(mainTypeCodeLength);
    openToAdd<frmTypeChild>(main);
}

template <class Dialog>
void editType(const QString& code) {
    Dialog& dialog = Dialog::Default();
    dialog.AddMode = false;
    dialog.TypeCodeOf = code;
    dialog.ShowModal();
}

void editPaper(qint16 paper) {
    frmExamination& dialog = frmExamination::Default();
    dialog.AddMode = false;
    dialog.ExaminationIDOf = paper;
    dialog.ShowModal();
}

// Without a row there is nothing to edit, and nothing is said.
void edit(frmMain& main, int row) {
    if (row < 0) {
        return;
    }
    const QString code = codeOf(*main.ui->fg, row);
    if (code.size() == mainTypeCodeLength) {
        editType<frmTypeParent>(code);
    } else if (code.size() == subtypeCodeLength) {
        editType<frmTypeChild>(code);
    } else {
        editPaper(paperOf(code));
    }
    refill(main);
}

/// True when the type is gone.
bool deleteType(const QString& code) {
    const Status status = cTestingType::Delete(code);
    if (status == Status::Dependants) {
        refuse(u"该类型下还存在子类或试卷，不能删除！"_s);
    } else if (status == Status::Failed) {
        refuse(u"发生异常错误，删除不成功！"_s);
    }
    return status != Status::Dependants && status != Status::Failed;
}

void deleteTypeOrPaper(FlexGrid& list, int row) {
    if (row < 0) {
        refuse(u"已经没有记录可以删除！"_s);
        return;
    }
    if (!confirmed(u"您确定删除当前所选的［类型］或［试卷］吗？"_s)) {
        return;
    }
    const QString code = codeOf(list, row);
    if (code.size() == mainTypeCodeLength || code.size() == subtypeCodeLength) {
        if (!deleteType(code)) {
            return;
        }
    } else {
        cExamination::Delete(paperOf(code));
    }
    list.RemoveItem(row);
    const int left = std::min(row, list.Rows() - 1);
    if (left >= list.FixedRows()) {
        list.Select(left, 0);
    }
}

}  // namespace

void frmMain::tbrTestingType_ButtonClick(const QString& key) {
    const int row = ui->fg->Row();
    if (key == "type1"_L1) {
        addMainType(*this);
    } else if (key == "type2"_L1) {
        addSubtype(*this, row);
    } else if (key == "type3"_L1) {
        openToAdd<frmExamination>(*this);
    } else if (key == "edit"_L1) {
        edit(*this, row);
    } else if (key == "del"_L1) {
        deleteTypeOrPaper(*ui->fg, row);
    } else if (key == "detail"_L1) {
        toggleDetail(*this, *ui->tbrTestingType, questionCaptions);
    } else if (key == "exit"_L1) {
        endProgram(ProgramEnd::Orderly);
    }
}

void frmMain::tbrTestingType_ButtonMenuClick(const QString& key) {
    const bool prints = key.startsWith("print"_L1);
    if (key == "exportlist"_L1 || key == "printlist"_L1) {
        ExportList(*ui->fg, prints, u"试卷记录列表"_s, *ui->PrsBar);
    } else if (key.startsWith("export"_L1) || prints) {
        ExportPaperReport(*ui->fg, prints, u"详细测评试卷"_s, *ui->PrsBar, key.endsWith("select"_L1));
    } else if (key.startsWith("level"_L1)) {
        const int level = key.right(1).toInt();
        markTypeLevel(*ui->tbrTestingType, level);
        ui->fg->Outline(level);
    }
}

}  // namespace talvora
