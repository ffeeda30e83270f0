#include "assessment/frmtesting.h"

#include "models/csolution.h"
#include "organisation/cposition.h"
#include "organisation/post_prefix.h"
#include "platform/numbers.h"
#include "platform/random.h"
#include "platform/text.h"
#include "settings/coption.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"

#include <QLineEdit>
#include <QTabBar>

#include <algorithm>

// The window up to the start of a run: how it opens, what it asks, and how a test is chosen.
namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int minute = 60000;
constexpr int storedLength = 50;     // TestingResult.PostName and Salary in setup/schema.sql
constexpr auto choosable = "|-"_L1;  // stands before the name of a subtype or a model
constexpr qint32 modelsHeading = 3000;

/// The number of a test in the list: a digit for its kind in front of its code, so that the code's zeros survive.
qint32 testData(QChar kind, const QString& code) {
    return toInt32(kind + code);
}

bool isSalaryRange(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'~'; });
}

}  // namespace

void frmTesting::wire() {
    Timer1 = new QTimer(window());
    Timer1->setInterval(minute);
    // The common kind of timer may be off by seconds in a minute.
    Timer1->setTimerType(Qt::PreciseTimer);
    // A longer text would fail to be stored, and the whole test with it.
    ui->cmbPosition->lineEdit()->setMaxLength(storedLength);
    ui->cmbSalary->lineEdit()->setMaxLength(storedLength);
    // By hand, since the .ui file's order takes the tab control together with what is in it.
    QWidget::setTabOrder(ui->cmdStart, ui->SSTab1->tabBar());
    QWidget::setTabOrder(ui->SSTab1->tabBar(), ui->fg1);
    sheet_ = std::make_unique<QuestionSheet>(ui->fg1);
    on(Timer1, &QTimer::timeout, [this]() { Timer1_Timer(); });
    on(ui->cmbPostName, &ComboBox::Click, &frmTesting::cmbPostName_Click);
    on(ui->cmbTypeName, &ComboBox::Click, &frmTesting::cmbTypeName_Click);
    on(ui->fg1, &FlexGrid::Click, &frmTesting::fg1_Click);
    on(ui->cmdStart, &QPushButton::clicked, &frmTesting::cmdStart_Click);
    on(ui->cmdSubmit, &QPushButton::clicked, &frmTesting::cmdSubmit_Click);
    on(ui->cmdNew, &QPushButton::clicked, &frmTesting::cmdNew_Click);
    on(ui->cmdClose, &QPushButton::clicked, &frmTesting::Unload);
}

void frmTesting::Form_Load() {
    if (!IDNumber.isEmpty()) {
        ui->txtID->setText(IDNumber);
        ui->txtName->setText(Name);
        ui->txtID->setEnabled(false);
        ui->txtName->setEnabled(false);
    }
    fillChoices();
    fillTestTree();
    fillPositions();
    cOptions options;
    blnPostRelational_ = options.Find(u"blnPostRelational"_s).Item(1)->VarValue == "Y"_L1;
    ui->cmbPosition->setVisible(!blnPostRelational_);
    ui->cmbPostName->setVisible(blnPostRelational_);
    ui->lblPosition->setBuddy(blnPostRelational_ ? ui->cmbPostName : ui->cmbPosition);
    if (!blnPostRelational_) {
        fillModels(std::nullopt);
    }
    ui->cmbSalary->setListIndex(0);
}

void frmTesting::fillChoices() {
    for (const auto& sex : {u"男"_s, u"女"_s}) {
        ui->cmbSex->AddItem(sex);
    }
    ui->cmbSex->setListIndex(0);
    for (const auto& education : {u"博士"_s, u"硕士"_s, u"本科"_s, u"专科"_s, u"高中"_s, u"初中"_s}) {
        ui->cmbEducation->AddItem(education);
    }
    ui->cmbEducation->setListIndex(0);
    for (const auto& salary : {u"2000~4000"_s, u"4000~6000"_s, u"6000~8000"_s, u"8000~10000"_s, u"10000~12000"_s,
                               u"12000~14000"_s, u"14000~16000"_s}) {
        ui->cmbSalary->AddItem(salary);
    }
}

void frmTesting::fillTestTree() {
    cTestingTypes mainTypes;
    for (const auto& mainType : mainTypes.Find(TypeKind::Main)) {
        ui->cmbTypeName->AddItem(mainType->Name, testData(u'1', mainType->NowCode));
        cTestingTypes subtypes;
        for (const auto& subtype : subtypes.Find(TypeKind::Under, mainType->NowCode)) {
            ui->cmbTypeName->AddItem(choosable + subtype->Name.text(), testData(u'2', subtype->NowCode));
        }
    }
}

void frmTesting::fillPositions() {
    cPositions positions;
    PostPrefixes prefixes;
    for (const auto& position : positions.Find(QString())) {
        const QString item = prefixes.of(position->PostCode) + position->PostName;
        ui->cmbPosition->AddItem(item);
        ui->cmbPostName->AddItem(item);
    }
}

/// Adds the heading and the models, all of them or those of one position, and selects the item behind the first.
void frmTesting::fillModels(const std::optional<QString>& postName) {
    ui->cmbTypeName->AddItem(u"素质模型"_s, modelsHeading);
    cSolutions solutions;
    for (const auto& solution : solutions.Find(0)) {
        if (!postName || solution->PostName == *postName) {
            ui->cmbTypeName->AddItem(choosable + solution->SolutionName,
                                     testData(u'4', QString::number(solution->SolutionID)));
        }
    }
    if (ui->cmbTypeName->ListCount() > 1) {
        ui->cmbTypeName->setListIndex(1);
    }
}

void frmTesting::cmbPostName_Click() {
    ui->cmbTypeName->Clear();
    fillModels(textBehindPrefix(ui->cmbPostName->text()));
}

void frmTesting::cmbTypeName_Click() {
    ui->cmbExamNum->Clear();
    ui->txtTestingResult->clear();
    sheet_->clear();
    const QString item = QString::number(ui->cmbTypeName->ItemData());
    ui->cmbExamNum->setEnabled(item.startsWith(u'2'));
    if (!item.startsWith(u'2')) {
        return;
    }
    cExaminations papers;
    for (const auto& paper : papers.FindByTypeCode(item.right(subtypeCodeLength), false)) {
        ui->cmbExamNum->AddItem(paper->ExaminationNum);
    }
    if (ui->cmbExamNum->ListCount() > 0) {
        ui->cmbExamNum->setListIndex(randomIndex(ui->cmbExamNum->ListCount()));
    }
}

bool frmTesting::passesChecks() {
    const auto refuse = [this](const QString& words, QWidget* field) {
        warn(words, field);
        return false;
    };
    if (trimBlanks(ui->txtID->text()).isEmpty()) {
        return refuse(u"［身份证号］不能为空！"_s, ui->txtID);
    }
    if (trimBlanks(ui->txtName->text()).isEmpty()) {
        return refuse(u"［姓名］不能为空！"_s, ui->txtName);
    }
    if (!ui->txtAge->text().isEmpty() && !isNumeric(ui->txtAge->text())) {
        return refuse(u"［年龄］中只能输入数字！"_s, ui->txtAge);
    }
    if (!isSalaryRange(ui->cmbSalary->text())) {
        return refuse(u"［薪资范围］输入不合法，请重新输入！"_s, ui->cmbSalary);
    }
    if (!ui->cmbTypeName->text().startsWith(choosable)) {
        return refuse(u"请选择一种具体的［测评类型］进行测评！"_s, ui->cmbTypeName);
    }
    if (ui->cmbExamNum->isEnabled() && ui->cmbExamNum->text().isEmpty()) {
        return refuse(u"所选测评类型尚未设置测评试卷，请换一种测评类型！"_s, ui->cmbExamNum);
    }
    return !refusesQuotes(ui->txtName);
}

void frmTesting::cmdNew_Click() {
    SetRunState(false);
    ui->txtID->clear();
    ui->txtName->clear();
    sheet_->clear();
    ui->txtTestingResult->clear();
    ui->SSTab1->setCurrentIndex(0);
    ui->cmdNew->hide();
    ui->cmdStart->setEnabled(true);
    ui->txtID->setFocus();
}

}  // namespace talvora
