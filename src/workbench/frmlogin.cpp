#include "workbench/frmlogin.h"

#include "access/cuser.h"
#include "assessment/frmtesting.h"
#include "core/identity_number.h"
#include "core/mdlpublic.h"
#include "core/resume_next.h"
#include "platform/moment.h"
#include "platform/numbers.h"
#include "results/ctesting.h"
#include "settings/coption.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/look/icons.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString optionValue(const QString& name) {
    cOptions options;
    return options.Find(name).Item(1)->VarValue;
}

}  // namespace

void frmLogin::wire() {
    for (QRadioButton* option : {ui->optType0, ui->optType1}) {
        on(option, &QRadioButton::toggled, [this](bool selected) {
            if (selected) {
                optType_Click();
            }
        });
    }
    on(ui->cmdLogin, &QPushButton::clicked, &frmLogin::cmdLogin_Click);
    on(ui->cmdOK, &QPushButton::clicked, &frmLogin::cmdOK_Click);
    on(ui->cmdCancel, &QPushButton::clicked, &frmLogin::cmdCancel_Click);
}

void frmLogin::Form_Load() {
    constexpr int iconSize = 40;
    ui->lblIcon->setPixmap(picture(u"talvora"_s, iconSize, window()->devicePixelRatioF()));
    ui->lblTitle->setText(titleText());
    ui->optType1->setEnabled(optionValue(u"blnLockTerminal"_s) != "Y"_L1);
    ui->txtUserName->setFocus();
}

void frmLogin::optType_Click() {
    const bool selfService = ui->optType1->isChecked();
    // What goes, goes first: with both there for a moment the window would grow, and stay so.
    (selfService ? ui->FraLogin : ui->FraDiy)->hide();
    (selfService ? ui->cmdLogin : ui->cmdOK)->hide();
    (selfService ? ui->FraDiy : ui->FraLogin)->show();
    (selfService ? ui->cmdOK : ui->cmdLogin)->show();
    ui->cmdCancel->show();
    QLineEdit* first = selfService ? ui->txtID : ui->txtUserName;
    first->setFocus();
    if (selfService) {
        ui->txtID->clear();
        ui->txtName->clear();
    } else {
        ui->txtUserName->clear();
    }
}

void frmLogin::cmdCancel_Click() {
    LoginPassed = false;
    Hide();
}

void frmLogin::cmdLogin_Click() {
    if (refusesQuotes(ui->txtUserName)) {
        return;
    }
    bool found = false;
    ResumeNext steps;
    steps([&] { found = cUsers::IsExistUser(ui->txtUserName->text(), ui->txtPassword->text()); });
    if (!found) {
        warn(u"［用户名］或［密码］错误，或当前用户已被锁定，请重新输入！"_s, ui->txtUserName);
        ui->txtPassword->selectAll();
        return;
    }
    strCurrentUser = ui->txtUserName->text();
    LoginPassed = true;
    Hide();
}

void frmLogin::cmdOK_Click() {
    const QString idNumber = ui->txtID->text();
    if (idNumber.isEmpty()) {
        warn(u"请输入［身份证号］！"_s, ui->txtID);
        return;
    }
    if (optionValue(u"blnCheckId"_s) == "Y"_L1 && !IsValidIDNumber(idNumber)) {
        MsgBox(u"［身份证号］不合法，请重新输入！"_s, vbExclamation);
        ui->txtID->clear();
        ui->txtID->setFocus();
        return;
    }
    if (ui->txtName->text().isEmpty()) {
        warn(u"请输入［姓名］！"_s, ui->txtName);
        return;
    }
    const qint16 minutes = toInt16(optionValue(u"intTimeInterval"_s));
    if (testedWithin(minutes)) {
        MsgBox(u"在［"_s + QString::number(minutes) + u"］分钟内不能连续进行两次测评！"_s, vbExclamation);
        return;
    }
    Hide();
    frmTesting& testing = frmTesting::Default();
    testing.IDNumber = idNumber;
    testing.Name = ui->txtName->text();
    testing.ShowModal();
}

/// Whether the candidate's last test is less than so many minutes ago.
bool frmLogin::testedWithin(qint16 minutes) {
    constexpr qint64 secondsPerMinute = 60;
    cTestings tests;
    tests.Find(
        0, u"select * from testingresult where  IdNumber='"_s + ui->txtID->text() + u"' order by TestingDate desc"_s);
    return tests.Count() > 0 &&
           presentMoment() < toMoment(tests.Item(1)->TestingDate).addSecs(minutes * secondsPerMinute);
}

}  // namespace talvora
