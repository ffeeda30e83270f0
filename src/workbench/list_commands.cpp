#include "workbench/list_commands.h"

#include "platform/numbers.h"
#include "platform/text.h"
#include "results/export/export_list.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/forms/twips.h"
#include "workbench/detail_views.h"
#include "workbench/frmmain.h"
#include "workbench/module_views.h"
#include "workbench/toolbar_buttons.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

void selectRow(FlexGrid& list, int row) {
    const int existing = std::min(row, list.Rows() - 1);
    if (existing >= list.FixedRows()) {
        list.Select(existing, 1, existing, list.Cols() - 1);
    }
}

QString codeOf(const FlexGrid& list, int row) {
    return row >= 0 ? list.TextMatrix(row, 0) : QString();
}

qint16 keyOf(const FlexGrid& list, int row) {
    return toInt16(list.TextMatrix(row, 0));
}

void refuse(const QString& text) {
    MsgBox(text, vbExclamation);
}

bool confirmed(const QString& question) {
    return MsgBox(question, ConfirmStyle) == vbYes;
}

void refill(frmMain& main) {
    FillModuleGrid(*main.ui->fg, main.strCurrentModule);
}

void takeOff(FlexGrid& list, int row) {
    list.RemoveItem(row);
    selectRow(list, list.Row());
}

void runListCommand(frmMain& main, const QString& key, const QString& title) {
    if (key == "export"_L1 || key == "print"_L1) {
        ExportList(*main.ui->fg, key == "print"_L1, title, *main.ui->PrsBar);
    } else if (key == "exit"_L1) {
        endProgram(ProgramEnd::Orderly);
    }
}

void runRecordCommand(frmMain& main, const QString& key, const QString& title, const RecordCommands& commands) {
    FlexGrid& list = *main.ui->fg;
    const int row = list.Row();
    if (key == "add"_L1) {
        commands.add(main);
    } else if (key == "edit"_L1) {
        commands.edit(main, row);
    } else if (key == "del"_L1) {
        commands.remove(list, row);
    } else {
        runListCommand(main, key, title);
    }
}

void toggleDetail(frmMain& main, ToolBar& toolbar, const DetailCaptions& captions) {
    const QString key = u"detail"_s;
    if (trimBlanks(toolbar.caption(key)) != captions.show) {
        toolbar.setCaption(key, captions.showAgain.toString());
        main.CloseDetailGrid();
        return;
    }
    FlexGrid& detail = *main.ui->fgDetail;
    toolbar.setCaption(key, captions.hide.toString());
    main.PlaceDetailGrid(toTwips(detail.y()), detail);
    FlexGrid& list = *main.ui->fg;
    if (list.Row() >= 0) {
        FillDetailGrid(main.strCurrentModule, list, detail);
        // The list has become lower, and the row that the pane tells about may have left the view.
        list.scrollTo(list.currentIndex());
    }
}

}  // namespace talvora
