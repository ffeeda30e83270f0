#include "models/frmdimension.h"
#include "models/frmelements.h"
#include "models/frmsolution.h"
#include "models/solution_grid.h"
#include "models/solution_weights.h"
#include "platform/runtime_error.h"
#include "testbank/ctestingtype.h"
#include "toolkit/forms/prompts.h"

#include <QHash>

#include <algorithm>

// The commands on the model's lines. Which of them works out which weights again is fixed, and a weight that none of
// them touches stays as it is, however the scores around it have changed: such a weight is meant to be saved.
namespace talvora {

using namespace Qt::StringLiterals;
using namespace solution;

namespace {

// Opens one of the two dialogs and gives the line that the user chose, none when it was closed.
template <class Dialog>
std::shared_ptr<cDimension> chosenLine(bool addMode, const cDimensions& lines) {
    auto& dialog = Dialog::Default();
    dialog.AddMode = addMode;
    dialog.InputLines = lines;
    dialog.ShowModal();
    return dialog.ResultLines.Count() > 0 ? dialog.ResultLines.Item(1) : nullptr;
}

template <class Dialog>
std::shared_ptr<cDimension> editedLine(const std::shared_ptr<cDimension>& line) {
    cDimensions lines;
    lines.Add(line);
    return chosenLine<Dialog>(false, lines);
}

// Whether the model has every main type there is, by name. With no types at all it has not.
bool hasAllTypes(const cDimensions& dimensions) {
    cTestingTypes types;
    types.Find(TypeKind::Main);
    const auto isTaken = [&](const auto& type) {
        return std::any_of(dimensions.begin(), dimensions.end(),
                           [&](const auto& line) { return line->TypeName == QString(type->Name); });
    };
    return types.Count() > 0 && std::all_of(types.begin(), types.end(), isTaken);
}

bool confirmed(const QString& line, QChar mark) {
    return MsgBox(u"您确定要删除［"_s + line + u"］吗"_s + mark, ConfirmStyle) == vbYes;
}

}  // namespace

void frmSolution::Toolbar1_ButtonClick(const QString& key) {
    static const QHash<QString, void (frmSolution::*)()> commands{
        {u"add1"_s, &frmSolution::add1}, {u"edit1"_s, &frmSolution::edit1}, {u"del1"_s, &frmSolution::del1},
        {u"add2"_s, &frmSolution::add2}, {u"edit2"_s, &frmSolution::edit2}, {u"del2"_s, &frmSolution::del2},
    };
    const auto command = commands.value(key);
    if (command == nullptr) {
        throw RuntimeError(errors::InvalidCall);
    }
    (this->*command)();
}

void frmSolution::add1() {
    const cDimensions dimensions = dimensionLines(*ui->fg2);
    if (hasAllTypes(dimensions)) {
        MsgBox(u"已经增加了所有的维度，不可再行增加！"_s, vbExclamation);
        return;
    }
    const auto line = chosenLine<frmDimension>(true, dimensions);
    if (!line) {
        return;
    }
    const int row = ui->fg2->Rows();
    appendDimension(*ui->fg2, *line);
    weighDimensions(*ui->fg2);
    setLineButton(u"edit1"_s, true);
    if (row == FirstRow) {
        goToFirstLine();
    } else {
        ui->fg2->ShowCell(row, DimensionCol);
    }
}

void frmSolution::edit1() {
    // Neither this nor del1 looks whether a line is current: while there are any, one is.
    FlexGrid& fg = *ui->fg2;
    const auto line = editedLine<frmDimension>(dimensionLine(fg, fg.Row()));
    if (!line) {
        return;
    }
    for (int row = FirstRow; row < fg.Rows(); ++row) {
        if (dimensionCode(fg, row) == line->TypeCode) {
            fg.setTextMatrix(row, DimensionScoreCol, line->Score);
        }
    }
    weighDimensions(fg);
    weighElementsCodedUnder(fg, line->TypeCode);
}

void frmSolution::del1() {
    FlexGrid& fg = *ui->fg2;
    if (!confirmed(fg.TextMatrix(fg.Row(), DimensionCol), u'！')) {
        return;
    }
    removeDimension(fg, dimensionCode(fg, fg.Row()));
    weighDimensions(fg);
    for (const auto& dimension : dimensionLines(fg)) {
        weighElementsOnRowsOf(fg, dimension->TypeCode);
    }
    DisableLineButtons();
}

void frmSolution::add2() {
    if (ui->fg2->Rows() == FirstRow) {
        MsgBox(u"请先增加［测评维度］！"_s, vbExclamation);
        return;
    }
    const auto line = chosenLine<frmElements>(true, modelLines(*ui->fg2));
    if (!line) {
        return;
    }
    const int row = placeElement(*ui->fg2, *line);
    weighElementsOnRowsOf(*ui->fg2, dimensionCodeOf(*line));
    setLineButton(u"edit2"_s, true);
    ui->fg2->ShowCell(row, ElementCol);
}

void frmSolution::edit2() {
    FlexGrid& fg = *ui->fg2;
    const int row = fg.Row();
    if (row < FirstRow) {
        // The words say dimension, which is meant.
        MsgBox(u"请选择要修改的维度！"_s, vbExclamation);
        return;
    }
    const auto line = editedLine<frmElements>(elementLine(fg, row));
    if (!line) {
        return;
    }
    writeElement(fg, row, *line);
    weighElementsOnRowsOf(fg, dimensionCodeOf(*line));
    setLineButton(u"edit2"_s, true);
}

void frmSolution::del2() {
    FlexGrid& fg = *ui->fg2;
    const int row = fg.Row();
    if (row < FirstRow) {
        MsgBox(u"请选择拟删除的测评要素！"_s, vbExclamation);
        return;
    }
    if (!confirmed(fg.TextMatrix(row, ElementCol), u'？')) {
        return;
    }
    // With its last element a dimension is gone, and the weights of the others stay.
    const QString code = dimensionCode(fg, row);
    fg.RemoveItem(row);
    weighElementsOnRowsOf(fg, code);
    DisableLineButtons();
}

void frmSolution::fg2_Click() {
    if (ui->fg2->Rows() == FirstRow) {
        return;
    }
    const bool onDimension = ui->fg2->Col() <= DimensionWeightCol;
    setLineButton(u"del1"_s, onDimension);
    setLineButton(u"del2"_s, !onDimension);
}

void frmSolution::fg2_DblClick() {
    if (ui->fg2->Rows() == FirstRow) {
        return;
    }
    // As the button does, whether or not that is enabled.
    Toolbar1_ButtonClick(ui->fg2->Col() <= DimensionWeightCol ? u"edit1"_s : u"edit2"_s);
}

// Makes the first line current as a click on its dimension does, so that the commands have one to act on. After that
// the choice is the user's.
void frmSolution::goToFirstLine() {
    ui->fg2->Select(FirstRow, DimensionCol);
    setLineButton(u"del1"_s, true);
    setLineButton(u"del2"_s, false);
}

void frmSolution::setLineButton(const QString& key, bool enabled) {
    ui->Toolbar1->setUsable(key, enabled);
}

void frmSolution::DisableLineButtons() {
    if (ui->fg2->Rows() == FirstRow) {
        for (const auto& key : {u"del1"_s, u"del2"_s, u"edit1"_s, u"edit2"_s}) {
            setLineButton(key, false);
        }
    }
}

}  // namespace talvora
