#include "models/frmdimension.h"

#include "testbank/ctestingtype.h"

#include <algorithm>

namespace talvora {

void frmDimension::Form_Load() {
    LineDialog::Form_Load();
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

void frmDimension::Command1_Click() {
    if (passesScore()) {
        handBack(ui->cmbType->text(), DimensionDigits);
    }
}

}  // namespace talvora
