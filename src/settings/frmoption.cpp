#include "settings/frmoption.h"

#include "platform/numbers.h"
#include "settings/coption.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/forms/whole_text.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString yesOrNo(const QCheckBox* box) {
    return box->isChecked() ? u"Y"_s : u"N"_s;
}

}  // namespace

void frmOption::wire() {
    on(ui->cmdOK, &QPushButton::clicked, &frmOption::cmdOK_Click);
    on(ui->cmdClose, &QPushButton::clicked, &frmOption::Unload);
}

void frmOption::Form_Load() {
    const std::pair<QString, QCheckBox*> boxes[] = {
        {u"blnCheckId"_s, ui->chkCheckID},
        {u"blnLockTerminal"_s, ui->chkLockTerminal},
        {u"blnPostRelational"_s, ui->chkPostRelational},
    };
    cOptions options;
    for (const auto& option : options.Find({})) {
        if (option->VarName == "intTimeInterval"_L1) {
            showWhole(ui->txtTimeInterval, option->VarValue);
        }
        for (const auto& [name, box] : boxes) {
            if (option->VarName == name) {
                // Any third value shows as checked here, while its readers, which ask for "Y", take it for off.
                box->setChecked(option->VarValue != "N"_L1);
            }
        }
    }
}

void frmOption::cmdOK_Click() {
    const QString interval = ui->txtTimeInterval->text();
    if (interval.isEmpty()) {
        warn(u"［间隔时间］不能为空！"_s, ui->txtTimeInterval);
        return;
    }
    if (!isNumeric(interval)) {
        warn(u"［间隔时间］只能输入数字类型！"_s, ui->txtTimeInterval);
        return;
    }
    if (toNumber(interval) < 0) {
        warn(u"［间隔时间］不能小于0！"_s, ui->txtTimeInterval);
        return;
    }
    // No transaction: what was written before a failure stays.
    const struct {
        QString name;
        QString value;
        QString refusal;
    } writes[] = {
        {u"intTimeInterval"_s, interval, u"［间隔时间］修改不成功，请稍后重试！"_s},
        {u"blnPostRelational"_s, yesOrNo(ui->chkPostRelational), u"［职位关联］修改不成功，请稍后重试！"_s},
        {u"blnLockTerminal"_s, yesOrNo(ui->chkLockTerminal), u"［锁定自助测评］修改不成功，请稍后重试！"_s},
        {u"blnCheckId"_s, yesOrNo(ui->chkCheckID), u"［验证身份证合法性］修改不成功，请稍后重试！"_s},
    };
    for (const auto& write : writes) {
        if (cOption::Update(write.name, write.value) != Status::Done) {
            MsgBox(write.refusal, vbExclamation);
            return;
        }
    }
    Unload();
}

}  // namespace talvora
