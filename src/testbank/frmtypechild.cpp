#include "testbank/frmtypechild.h"

#include "core/data_routines.h"
#include "platform/numbers.h"
#include "toolkit/controls/date_field.h"

namespace talvora {

using namespace Qt::StringLiterals;

std::array<ComboBox*, testingTypeWords.size()> frmTypeChild::wordFields() const {
    return {ui->cmbResult1, ui->cmbResult2, ui->cmbResult3, ui->cmbResult4};
}

std::array<QLineEdit*, testingTypeNotes.size()> frmTypeChild::noteFields() const {
    return {ui->txtNote1, ui->txtNote2, ui->txtNote3, ui->txtNote4};
}

void frmTypeChild::wire() {
    on(ui->cmbType, &ComboBox::Click, &frmTypeChild::cmbType_Click);
    on(ui->Command1, &QPushButton::clicked, &frmTypeChild::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmTypeChild::Unload);
}

void frmTypeChild::Form_Load() {
    fillMainTypes();
    InitializeForm();
}

// The selection raises Click, which turns TypeCodeOf into the main type's code, in edit mode as well: a subtype that is
// opened for editing shows, and OK changes, the row of its main type. This order of events is meant.
void frmTypeChild::fillMainTypes() {
    cTestingTypes mainTypes;
    for (const auto& mainType : mainTypes.Find(TypeKind::Main)) {
        ui->cmbType->AddItem(mainType->Name, toInt32(mainType->NowCode));
    }
    for (int entry = 0; entry < ui->cmbType->ListCount(); ++entry) {
        if (ui->cmbType->ItemData(entry) == leadingNumber(TypeCodeOf.left(mainTypeCodeLength))) {
            ui->cmbType->setListIndex(entry);
        }
    }
}

void frmTypeChild::cmbType_Click() {
    const QString mainCode = u"00"_s + QString::number(ui->cmbType->ItemData());
    ui->txtTypeCode->setText(NewTypeCode(u"child"_s, mainCode));
    TypeCodeOf = ui->txtTypeCode->text().left(mainTypeCodeLength);
}

void frmTypeChild::InitializeForm() {
    cTestingType type;
    if (!AddMode) {
        cTestingTypes types;
        type = *types.Find(TypeKind::Detail, TypeCodeOf).Item(1);
    }
    ui->txtTypeName->setText(type.Name);
    ui->txtAuthor->setText(type.Author);
    ui->txtAuditing->setText(type.Auditing);
    ui->txtApprover->setText(type.Approver);
    showDate(ui->dtpWriteDate, type.WriteDate);
    showDate(ui->dtpAuditingDate, type.AuditingDate);
    showDate(ui->dtpApproverDate, type.ApproverDate);
    const auto words = wordFields();
    const auto notes = noteFields();
    for (std::size_t row = 0; row < words.size(); ++row) {
        words[row]->setText(type.*testingTypeWords[row]);
        notes[row]->setText(type.*testingTypeNotes[row]);
    }
    ui->txtNote->setText(type.Note);
}

bool frmTypeChild::passesChecks() {
    if (ui->txtTypeName->text().isEmpty()) {
        warn(u"请先输入［类型名称］！"_s, ui->txtTypeName);
        return false;
    }
    for (ComboBox* required : {ui->cmbResult1, ui->cmbResult2}) {
        if (required->text().isEmpty()) {
            warn(u"请输入［测评级别］及其［测评说明］！"_s, required);
            return false;
        }
    }
    return !refusesQuotes(ui->txtTypeName);
}

cTestingType frmTypeChild::record() const {
    cTestingType type;
    type.Author = ui->txtAuthor->text();
    type.Auditing = ui->txtAuditing->text();
    type.Approver = ui->txtApprover->text();
    type.WriteDate = dateText(ui->dtpWriteDate);
    type.AuditingDate = dateText(ui->dtpAuditingDate);
    type.ApproverDate = dateText(ui->dtpApproverDate);
    const auto words = wordFields();
    const auto notes = noteFields();
    for (std::size_t row = 0; row < words.size(); ++row) {
        type.*testingTypeWords[row] = words[row]->text();
        type.*testingTypeNotes[row] = notes[row]->text();
    }
    type.Note = ui->txtNote->text();
    return type;
}

void frmTypeChild::Command1_Click() {
    if (!passesChecks()) {
        return;
    }
    const QString name = ui->txtTypeName->text();
    const Status status = AddMode ? record().AddNew(u"child"_s, TypeCodeOf.left(mainTypeCodeLength), name)
                                  : record().Update(TypeCodeOf, name);
    if (status == Status::Taken) {
        warn(u"［测评子类］重复，请重新输入！"_s, ui->txtTypeName);
    } else if (status != Status::Done) {
        warn(AddMode ? u"增加失败，请稍后重试！"_s : u"修改失败，请稍后重试！"_s, ui->txtTypeName);
    } else {
        Unload();
    }
}

}  // namespace talvora
