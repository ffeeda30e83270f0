#include "testbank/frmtypeparent.h"

#include "core/data_routines.h"
#include "testbank/ctestingtype.h"

namespace talvora {

using namespace Qt::StringLiterals;

void frmTypeParent::wire() {
    on(ui->Command1, &QPushButton::clicked, &frmTypeParent::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmTypeParent::Unload);
}

void frmTypeParent::Form_Load() {
    InitializeForm();
}

void frmTypeParent::InitializeForm() {
    if (AddMode) {
        ui->txtCode->setText(NewTypeCode(u"parent"_s, QString()));
        ui->txtName->clear();
        ui->txtDesc->clear();
        return;
    }
    cTestingTypes types;
    const auto type = types.Find(TypeKind::Detail, TypeCodeOf).Item(1);
    ui->txtCode->setText(type->NowCode);
    ui->txtName->setText(type->Name);
    ui->txtDesc->setText(type->Note);
}

bool frmTypeParent::passesChecks() {
    if (ui->txtName->text().isEmpty()) {
        warn(u"请先输入［类型名称］！"_s, ui->txtName);
        return false;
    }
    return !refusesQuotes(ui->txtName);
}

void frmTypeParent::Command1_Click() {
    if (!passesChecks()) {
        return;
    }
    // The description is only shown: an added row gets none, and an edit empties every other column of the row.
    const cTestingType nothingElse;
    const QString name = ui->txtName->text();
    const Status status =
        AddMode ? nothingElse.AddNew(u"parent"_s, TypeCodeOf, name) : nothingElse.Update(TypeCodeOf, name);
    if (status == Status::Taken) {
        warn(u"［测评主类］重复，请重新输入！"_s, ui->txtName);
        return;
    }
    // Any other result counts as done; nothing is said of a failure.
    if (!AddMode) {
        Unload();
        return;
    }
    // On to the next main type. The code stays the one that was shown, which is meant.
    ui->txtName->clear();
    ui->txtDesc->clear();
    ui->txtName->setFocus();
}

}  // namespace talvora
