#include "models/frmelements.h"

#include "platform/text.h"
#include "testbank/ctestingtype.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

void frmElements::wire() {
    LineDialog::wire();
    on(ui->cmbType, &ComboBox::Click, &frmElements::cmbType_Click);
}

void frmElements::Form_Load() {
    LineDialog::Form_Load();
    fillTypes();
    ui->cmbImportant->setListIndex(0);
    if (!AddMode) {
        showLine(*InputLines.Item(1));
    }
}

// The dimensions of the model. A line under edit stands here with its own code, whose first digits are its dimension's.
void frmElements::fillTypes() {
    QString last;
    for (const auto& line : InputLines) {
        const QString entry = lineText(line->TypeCode, line->TypeName);
        const bool first = ui->cmbType->ListCount() == 0;
        if (first || (line->TypeCode.size() == DimensionDigits && entry != last)) {
            ui->cmbType->AddItem(entry);
            last = entry;
        }
    }
    if (ui->cmbType->ListCount() > 0) {
        ui->cmbType->setListIndex(0);
    }
}

void frmElements::showLine(const cDimension& line) {
    if (const int importance = importanceOf(line.Score); importance >= 0) {
        ui->cmbImportant->setListIndex(importance);
    }
    ui->txtScore->setText(line.Score);
    // The line's own element is not in the list, so the list opens with nothing chosen: editing replaces the element.
    ui->cmbElements->setListIndex(-1);
    for (int i = 1; i < ui->cmbElements->ListCount(); ++i) {
        if (ui->cmbElements->List(i).left(ElementDigits) == line.TypeCode) {
            ui->cmbElements->setListIndex(i);
            ui->cmbElements->setEnabled(false);
        }
    }
}

void frmElements::cmbType_Click() {
    ui->cmbElements->Clear();
    cTestingTypes types;
    for (const auto& type : types.Find(TypeKind::Under, ui->cmbType->text().left(DimensionDigits))) {
        const bool taken = std::any_of(InputLines.begin(), InputLines.end(),
                                       [&](const auto& line) { return line->TypeCode == type->NowCode; });
        if (!taken) {
            ui->cmbElements->AddItem(lineText(type->NowCode, type->Name));
        }
    }
    if (ui->cmbElements->ListCount() > 0) {
        ui->cmbElements->setListIndex(0);
    }
}

bool frmElements::passesChecks() {
    if (ui->cmbElements->text().isEmpty()) {
        warn(u"［测评要素］不能为空！"_s, ui->cmbElements);
        return false;
    }
    if (trimBlanks(ui->txtScore->text()).isEmpty()) {
        warn(u"请输入［分数］的值！"_s, ui->txtScore);
        return false;
    }
    return passesScore();
}

void frmElements::Command1_Click() {
    if (passesChecks()) {
        handBack(ui->cmbElements->text(), ElementDigits);
    }
}

}  // namespace talvora
