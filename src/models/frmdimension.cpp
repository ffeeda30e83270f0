#include "models/frmdimension.h"

#include "models/importance.h"
#include "models/line_text.h"
#include "testbank/ctestingtype.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

void frmDimension::wire() {
    on(ui->cmbImportant, &ComboBox::Click, &frmDimension::cmbImportant_Click);
    on(ui->Command1, &QPushButton::clicked, &frmDimension::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmDimension::Command2_Click);
}

void frmDimension::Form_Load() {
    ResultLines.Clear();
    for (const QString& entry : importanceEntries()) {
        ui->cmbImportant->AddItem(entry);
    }
    if (AddMode) {
        fillTypes();
        ui->cmbImportant->setListIndex(0);
    } else {
        const auto line = InputLines.Item(1);
        ui->cmbType->AddItem(lineText(line->TypeCode, line->TypeName));
        // The word sets the middle of its band, so the line's own score goes in behind it.
        ui->cmbImportant->setListIndex(importanceOf(line->Score));
        ui->txtScore->setText(line->Score);
    }
    if (ui->cmbType->ListCount() > 0) {
        ui->cmbType->setListIndex(0);
    }
}

// A type that stands in the model is known by its name here, in contrast to the elements, which go by their code.
void frmDimension::fillTypes() {
    cTestingTypes types;
    for (const auto& type : types.Find(TypeKind::Main)) {
        const QString name = type->Name;
        const bool taken =
            std::any_of(InputLines.begin(), InputLines.end(), [&](const auto& line) { return line->TypeName == name; });
        if (!taken) {
            ui->cmbType->AddItem(lineText(type->NowCode, name));
        }
    }
}

void frmDimension::cmbImportant_Click() {
    ui->txtScore->setText(middleScoreOf(ui->cmbImportant->text()));
}

void frmDimension::Command1_Click() {
    const QString score = ui->txtScore->text();
    if (!isScore(score)) {
        warn(u"［分数］只能为数字型！"_s, ui->txtScore);
        return;
    }
    if (const QString refusal = scoreRefusal(ui->cmbImportant->text(), score); !refusal.isEmpty()) {
        warn(refusal, ui->txtScore);
        return;
    }
    ResultLines.Clear();
    ResultLines.Add(lineOf(ui->cmbType->text(), DimensionDigits, score));
    Unload();
}

void frmDimension::Command2_Click() {
    ResultLines.Clear();
    Unload();
}

}  // namespace talvora
