#include "organisation/frmposition.h"

#include "organisation/cposition.h"
#include "platform/numbers.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/forms/whole_text.h"

namespace talvora {

using namespace Qt::StringLiterals;

void frmPosition::wire() {
    on(ui->cmdOK, &QPushButton::clicked, &frmPosition::cmdOK_Click);
    on(ui->cmdCancel, &QPushButton::clicked, &frmPosition::Unload);
}

void frmPosition::Form_Load() {
    cPositions positions;
    positions.Find(PostCodeOf);
    if (!AddMode) {
        const auto position = positions.Item(1);
        ui->txtName->setText(position->PostName);
        // A count typed as 2E4 has more digits than the field takes.
        showWhole(ui->txtPeoples, QString::number(position->Peoples));
    }
    // Beside another position the new one may still land under a different parent, which the code scheme decides.
    ui->lblParent->setText(AddMode && ChildMode ? positions.Item(1)->PostName.text()
                                                : cPosition::GetParent(PostCodeOf));
}

void frmPosition::cmdOK_Click() {
    const QString name = ui->txtName->text();
    if (name.isEmpty()) {
        warn(u"［职位名称］不能为空！"_s, ui->txtName);
        return;
    }
    const QString count = ui->txtPeoples->text();
    if (!count.isEmpty() && !isNumeric(count)) {
        warn(u"［编制人数］只能输入数字类型！"_s, ui->txtPeoples);
        ui->txtPeoples->clear();
        return;
    }
    // A number that no head count can hold (1E9) overflows here, with no handler around it, which is meant.
    const qint16 peoples = count.isEmpty() ? qint16{0} : toInt16(count);
    // Why it did not work is not told, a taken name least of all, and the dialog closes all the same: both are meant.
    if (AddMode) {
        if (cPosition::AddNew(ChildMode ? u"child"_s : u"parent"_s, PostCodeOf, name, peoples) != Status::Done) {
            MsgBox(u"发生异常错误，增加不成功！"_s, vbExclamation);
        }
    } else if (cPosition::Update(PostCodeOf, name, peoples) != Status::Done) {
        MsgBox(u"发生异常错误，修改不成功！"_s, vbExclamation);
    }
    Unload();
}

}  // namespace talvora
