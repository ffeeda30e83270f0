#include "assessment/frmmodel.h"
#include "assessment/frmtesting.h"
#include "assessment/testing_report.h"
#include "core/data_routines.h"
#include "organisation/post_prefix.h"
#include "platform/moment.h"
#include "platform/numbers.h"
#include "platform/text.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"
#include "toolkit/application/busy.h"
#include "toolkit/forms/prompts.h"

#include <QFontMetricsF>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextOption>

#include <algorithm>

// The window from the start of a run to its report.
namespace talvora {

using namespace Qt::StringLiterals;

namespace {

/// Makes the first column of a report as wide as its longest name, the second as wide as its head.
void alignColumns(QPlainTextEdit& report) {
    constexpr int gap = 2;   // characters
    constexpr int head = 4;  // characters
    const QFontMetricsF metrics(report.font());
    const qreal character = metrics.horizontalAdvance(u'字');
    qreal longest = 0;
    const auto lines = report.toPlainText().split(u'\n');
    for (const auto& line : lines) {
        if (const auto end = line.indexOf(u'\t'); end >= 0) {
            longest = std::max(longest, metrics.horizontalAdvance(line.left(end)));
        }
    }
    const qreal scores = longest + gap * character;
    QTextOption option = report.document()->defaultTextOption();
    option.setTabArray({scores, scores + (head + gap) * character});
    report.document()->setDefaultTextOption(option);
}

}  // namespace

/// The number of the chosen test: a digit for its kind, then its code. Empty when none is chosen.
QString frmTesting::itemCode() const {
    const bool chosen = ui->cmbTypeName->ListIndex() >= 0;
    return chosen ? QString::number(ui->cmbTypeName->ItemData()) : QString();
}

/// The chosen test's name without the sign that stands before it in the list.
QString frmTesting::typeNameChosen() const {
    constexpr qsizetype signLength = 2;
    return dropLeft(ui->cmbTypeName->text(), signLength);
}

void frmTesting::cmdStart_Click() {
    if (!passesChecks()) {
        return;
    }
    objTestings_->Clear();
    const QString item = itemCode();
    if (item.startsWith(u'2')) {
        startPaper(item.right(subtypeCodeLength));
    } else {
        startModel(toInt16(dropLeft(item, 1)));
    }
    if (ui->fg1->Rows() > 1) {
        SetRunState(true);
        sheet_->goToFirstAnswer();
        ui->fg1->setFocus();
    }
}

void frmTesting::startPaper(const QString& typeCode) {
    const QString number = ui->cmbExamNum->List(ui->cmbExamNum->ListIndex());
    const qint16 id = cExamination::GetExamIDByNum(typeCode, number);
    cExaminations papers;
    const auto paper = papers.FindByExamID(id).Item(1);
    ui->lblTime->setText(QString::number(paper->TestingTime));
    blnIsModel_ = false;
    auto section = std::make_shared<cTesting>();
    section->TypeCode = typeCode;
    section->TypeName = typeNameChosen();
    objTestings_->Add(section);
    sheet_->clear();
    loadSection(*section, id, paper->AnswerAmount);
}

void frmTesting::startModel(qint16 solutionId) {
    constexpr int lastPlainDimension = 3;
    blnIsModel_ = true;
    frmModel& dialog = frmModel::Default();
    dialog.SolutionID = solutionId;
    dialog.ShowModal();
    if (dialog.IsCancel) {
        return;
    }
    sheet_->clear();
    objTestings_ = dialog.Testings;
    for (const auto& section : *objTestings_) {
        // By the code's number and not its length, which is meant: the dimensions 001 to 003 are passed over, a later
        // one is taken for an element.
        if (leadingNumber(section->TypeCode) <= lastPlainDimension) {
            continue;
        }
        const qint16 id = cExamination::GetExamIDByNum(section->TypeCode, section->TestingDesc);
        cExaminations papers;
        const auto paper = papers.FindByExamID(id).Item(1);
        // Minutes left over from an earlier run in this window stay in the sum, which is meant.
        ui->lblTime->setText(numberText(leadingNumber(ui->lblTime->text()) + paper->TestingTime));
        loadSection(*section, id, paper->AnswerAmount);
    }
}

void frmTesting::loadSection(cTesting& section, qint16 examinationId, qint16 answerAmount) {
    section.ExaminationID = QString::number(examinationId);
    section.TestingDesc = QString::number(answerAmount);
    section.ExamQuestions =
        sheet_->addSection(section.TypeName, answerAmount, cExamination::GetQuestions(examinationId));
}

void frmTesting::SetRunState(bool running) {
    ui->cmdSubmit->setEnabled(running);
    ui->cmdStart->setEnabled(!running);
    ui->lblTime->show();
    if (!running) {
        Timer1->stop();
    } else if (leadingNumber(ui->lblTime->text()) > 0) {
        Timer1->start();
    }
    // cmbPostName is not among them: it stays enabled during a run, which is meant.
    for (QWidget* field :
         std::initializer_list<QWidget*>{ui->txtID, ui->txtName, ui->cmbSex, ui->txtAge, ui->cmbEducation,
                                         ui->cmbPosition, ui->cmbTypeName, ui->cmbExamNum, ui->cmbSalary}) {
        field->setEnabled(!running);
    }
}

void frmTesting::fg1_Click() {
    const bool submitted = !ui->cmdNew->isHidden();
    if (!submitted) {
        sheet_->toggle(ui->fg1->ClickedRow());
    }
}

void frmTesting::Timer1_Timer() {
    const double left = leadingNumber(ui->lblTime->text()) - 1;
    ui->lblTime->setText(numberText(left));
    if (left == 0) {
        MsgBox(u"系统正在提交试卷......"_s, vbInformation);
        ui->cmdStart->setEnabled(true);
        cmdSubmit_Click();
    }
}

cTesting frmTesting::particulars() const {
    cTesting testing;
    testing.IDNumber = ui->txtID->text();
    testing.Name = ui->txtName->text();
    testing.Sex = ui->cmbSex->text();
    testing.Age = toInt16(leadingNumber(ui->txtAge->text()));
    testing.Education = ui->cmbEducation->text();
    testing.PostName = postNameOf((ui->cmbPostName->isHidden() ? ui->cmbPosition : ui->cmbPostName)->text());
    testing.Salary = ui->cmbSalary->text();
    testing.TestingDate = momentText(presentMoment());
    testing.TypeName = typeNameChosen();
    testing.TypeCode = itemCode().right(subtypeCodeLength);
    return testing;
}

void frmTesting::cmdSubmit_Click() {
    const BusyPointer busy;
    const cTestingDetails details = sheet_->answers(*objTestings_);
    // Whatever comes of it, the report shows what this connection sees afterwards.
    particulars().AddNew(blnIsModel_, *objTestings_, details);
    ui->txtTestingResult->clear();
    const qint32 number = GetNewID(u"TestingResult"_s, u"testingNumber"_s) - 1;
    cTestings family;
    family.Find(number, QString());
    ui->txtTestingResult->setPlainText(
        testingReport(ui->txtName->text(), momentText(presentMoment()), typeNameChosen(), family));
    ui->SSTab1->setCurrentIndex(1);
    alignColumns(*ui->txtTestingResult);
    // Not on to cmdNew: a second press of the key that submitted would take the report away.
    ui->txtTestingResult->setFocus();
    ui->cmdNew->show();
    ui->cmdSubmit->setEnabled(false);
    Timer1->stop();
}

}  // namespace talvora
