#include "models/frmsolution.h"

#include "models/solution_grid.h"
#include "organisation/cposition.h"
#include "organisation/post_prefix.h"
#include "platform/numbers.h"
#include "platform/text.h"
#include "toolkit/controls/date_field.h"

#include <QToolButton>

// The window as a whole: how it opens, the model's head, and saving.
namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// The version one hundredth on. Only a text without a point is filled up, so 1.09 is followed by 1.1.
QString steppedVersion(double version, int direction) {
    constexpr double step = 0.01;
    const QString text = numberText(version + direction * step);
    return text.contains(u'.') ? text : text + u".00"_s;
}

}  // namespace

void frmSolution::wire() {
    ui->UpDown1->setBuddy(ui->txtVersion);
    wireToolbar();
    on(ui->UpDown1, &UpDown::UpClick, &frmSolution::UpDown1_UpClick);
    on(ui->UpDown1, &UpDown::DownClick, &frmSolution::UpDown1_DownClick);
    on(ui->fg2, &FlexGrid::Click, &frmSolution::fg2_Click);
    on(ui->fg2, &FlexGrid::DblClick, &frmSolution::fg2_DblClick);
    on(ui->Command1, &QPushButton::clicked, &frmSolution::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmSolution::Unload);
}

void frmSolution::wireToolbar() {
    const auto command = ToolBar::Kind::Command;
    ToolBar* bar = ui->Toolbar1;
    bar->addButton(u"add1"_s, u"增加维度"_s, command, u"add"_s);
    bar->addButton(u"edit1"_s, u"修改维度"_s, command, u"edit"_s);
    bar->addButton(u"del1"_s, u"删除维度"_s, command, u"del"_s);
    bar->addBar();
    bar->addButton(u"add2"_s, u"增加要素"_s, command, u"add"_s);
    bar->addButton(u"edit2"_s, u"修改要素"_s, command, u"edit"_s);
    bar->addButton(u"del2"_s, u"删除要素"_s, command, u"del"_s);
    QWidget* before = ui->txtNote;
    for (const QString& key : bar->keys()) {
        QWidget::setTabOrder(before, bar->button(key));
        before = bar->button(key);
    }
    on(bar, &ToolBar::ButtonClick, &frmSolution::Toolbar1_ButtonClick);
}

void frmSolution::Form_Load() {
    InitializeForm(AddMode, SolutionIDOf);
}

void frmSolution::InitializeForm(bool addMode, qint16 solutionId) {
    solution::setUpGrid(*ui->fg2);
    fillPositions();
    if (addMode) {
        for (QDateEdit* field : {ui->dtpWriteDate, ui->dtpAuditingDate, ui->dtpApproverDate}) {
            showDate(field, QString());
        }
    } else {
        showModel(solutionId);
    }
    DisableLineButtons();
}

void frmSolution::fillPositions() {
    PostPrefixes prefixes;
    cPositions positions;
    for (const auto& position : positions.Find(QString())) {
        ui->cmbPostName->AddItem(prefixes.of(position->PostCode) + position->PostName);
    }
}

void frmSolution::showModel(qint16 solutionId) {
    cSolutions solutions;
    const auto model = solutions.Find(solutionId).Item(1);
    ui->txtSolution->setText(model->SolutionName);
    // Of several entries that end in the name the last one stays, as a longer name may end in it, too.
    for (int i = 0; i < ui->cmbPostName->ListCount(); ++i) {
        if (ui->cmbPostName->List(i).endsWith(model->PostName)) {
            ui->cmbPostName->setListIndex(i);
        }
    }
    ui->txtVersion->setText(model->Version);
    ui->txtAuthor->setText(model->Author);
    ui->txtAuditing->setText(model->Auditing);
    ui->txtApprover->setText(model->Approver);
    showDate(ui->dtpWriteDate, model->WriteDate);
    showDate(ui->dtpAuditingDate, model->AuditingDate);
    showDate(ui->dtpApproverDate, model->ApproverDate);
    ui->txtNote->setText(model->Note);
    cDimensions lines;
    solution::showLines(*ui->fg2, lines.Find(solutionId));
    if (ui->fg2->Rows() > solution::FirstRow) {
        goToFirstLine();
    }
}

void frmSolution::UpDown1_UpClick() {
    ui->txtVersion->setText(steppedVersion(leadingNumber(ui->txtVersion->text()), 1));
}

void frmSolution::UpDown1_DownClick() {
    const double version = leadingNumber(ui->txtVersion->text());
    if (version != 1) {
        ui->txtVersion->setText(steppedVersion(version, -1));
    }
}

bool frmSolution::passesChecks() {
    if (trimBlanks(ui->txtSolution->text()).isEmpty()) {
        warn(u"［素质模型］不能为空！"_s, ui->txtSolution);
        return false;
    }
    if (trimBlanks(ui->cmbPostName->text()).isEmpty()) {
        warn(u"［对应职位］不能为空！"_s, ui->cmbPostName);
        return false;
    }
    if (ui->fg2->Rows() == solution::FirstRow) {
        warn(u"请设置［测评维度］及相应的［测评要素］！"_s, ui->fg2);
        return false;
    }
    for (int row = solution::FirstRow; row < ui->fg2->Rows(); ++row) {
        if (ui->fg2->TextMatrix(row, solution::ElementCol).isEmpty()) {
            warn(u"有某些［测评要素］的分数及权重还没有设置！"_s, ui->fg2);
            ui->fg2->Select(row, solution::ElementCol);
            return false;
        }
    }
    // The position is not covered, which is meant.
    return !refusesQuotes(ui->txtSolution);
}

cSolution frmSolution::head() const {
    cSolution model;
    model.SolutionID = SolutionIDOf;
    model.SolutionName = ui->txtSolution->text();
    model.PostName = postNameOf(ui->cmbPostName->text());
    model.Version = ui->txtVersion->text();
    model.Author = ui->txtAuthor->text();
    model.Auditing = ui->txtAuditing->text();
    model.Approver = ui->txtApprover->text();
    model.WriteDate = dateText(ui->dtpWriteDate);
    model.AuditingDate = dateText(ui->dtpAuditingDate);
    model.ApproverDate = dateText(ui->dtpApproverDate);
    model.Note = ui->txtNote->text();
    return model;
}

void frmSolution::Command1_Click() {
    if (!passesChecks()) {
        return;
    }
    const cDimensions lines = solution::modelLines(*ui->fg2);
    const Status status = AddMode ? head().AddNew(lines) : head().Update(lines);
    if (status == Status::Taken) {
        warn(u"［素质模型］重复，请重新输入！"_s, ui->txtSolution);
        return;
    }
    // A failure of the database closes the window, too, without a word.
    Unload();
}

}  // namespace talvora
