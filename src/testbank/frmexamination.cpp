#include "testbank/frmexamination.h"

#include "platform/numbers.h"
#include "testbank/ctestingtype.h"
#include "toolkit/controls/date_field.h"
#include "toolkit/forms/prompts.h"

#include <QToolButton>

// The editor of a paper but for its questions: how it opens, and what OK does.
namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr auto subtypeMark = " |-"_L1;

}  // namespace

std::array<frmExamination::BandFields, scoreBandCount> frmExamination::bandFields() const {
    return {{
        {ui->txtScope10, ui->txtScope11, ui->cmbTestingResult0},
        {ui->txtScope20, ui->txtScope21, ui->cmbTestingResult1},
        {ui->txtScope30, ui->txtScope31, ui->cmbTestingResult2},
        {ui->txtScope40, ui->txtScope41, ui->cmbTestingResult3},
    }};
}

void frmExamination::wire() {
    ui->UpDown1->setBuddy(ui->txtAnswerAmount);
    ui->UpDown1->setRange(leastAnswerAmount, mostAnswerAmount);
    ui->Toolbar1->addButton(u"add"_s, u"增加题目"_s);
    ui->Toolbar1->addButton(u"edit"_s, u"修改题目"_s);
    ui->Toolbar1->addButton(u"del"_s, u"删除题目"_s);
    // The bar's buttons are not in the .ui file's order.
    QWidget* before = ui->txtAnswerAmount;
    for (const QString& key : ui->Toolbar1->keys()) {
        QWidget::setTabOrder(before, ui->Toolbar1->button(key));
        before = ui->Toolbar1->button(key);
    }
    on(ui->cmbTestingType, &ComboBox::Click, &frmExamination::cmbTestingType_Click);
    on(ui->Toolbar1, &ToolBar::ButtonClick, &frmExamination::Toolbar1_ButtonClick);
    on(ui->Command1, &QPushButton::clicked, &frmExamination::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmExamination::Unload);
}

void frmExamination::Form_Load() {
    setUpQuestions();
    fillTypes();
    InitializeForm();
}

void frmExamination::fillTypes() {
    cTestingTypes mainTypes;
    for (const auto& mainType : mainTypes.Find(TypeKind::Main)) {
        ui->cmbTestingType->AddItem(mainType->Name, toInt32(mainType->NowCode));
        cTestingTypes subtypes;
        for (const auto& subtype : subtypes.Find(TypeKind::Under, mainType->NowCode)) {
            ui->cmbTestingType->AddItem(subtypeMark + subtype->Name.text(), toInt32(subtype->NowCode));
        }
    }
}

QString frmExamination::typeCodeOf(int entry) const {
    return u"00"_s + QString::number(ui->cmbTestingType->ItemData(entry));
}

// Only the words of the subtype can be chosen, so that a paper has none of its own. A change of the subtype empties
// the choices made before.
void frmExamination::cmbTestingType_Click() {
    const auto fields = bandFields();
    for (const auto& band : fields) {
        band.word->Clear();
    }
    const QString code = typeCodeOf(ui->cmbTestingType->ListIndex());
    if (code.size() == mainTypeCodeLength) {
        return;
    }
    cTestingTypes types;
    if (types.Find(TypeKind::Detail, code).Count() == 0) {
        return;
    }
    const auto subtype = types.Item(1);
    for (const auto word : testingTypeWords) {
        if (const QString text = (*subtype).*word; !text.isEmpty()) {
            for (const auto& band : fields) {
                band.word->AddItem(text);
            }
        }
    }
}

void frmExamination::InitializeForm() {
    if (AddMode) {
        startPaper();
    } else {
        showPaper();
    }
}

void frmExamination::startPaper() {
    ui->txtExaminationNum->clear();
    ui->txtAuthor->clear();
    showDate(ui->dtpWriteDate, QString());
    ui->txtTestingTime->setText(QString::number(defaultTestingTime));
    ui->txtAnswerAmount->setText(QString::number(defaultAnswerAmount));
    if (ui->cmbTestingType->ListCount() > 0) {
        ui->cmbTestingType->setListIndex(0);
    }
}

// Note, Auditing, Approver and their dates are not shown, so that each saved edit overwrites them with what stands in
// their fields: with nothing and the dates of the screen, unless they are entered again. That is meant.
void frmExamination::showPaper() {
    cExaminations papers;
    const auto paper = papers.FindByExamID(ExaminationIDOf).Item(1);
    for (int entry = 1; entry < ui->cmbTestingType->ListCount(); ++entry) {
        if (paper->TypeCode == typeCodeOf(entry)) {
            ui->cmbTestingType->setListIndex(entry);
        }
    }
    ui->txtExaminationNum->setText(paper->ExaminationNum);
    ui->txtAuthor->setText(paper->Author);
    showDate(ui->dtpWriteDate, paper->WriteDate);
    ui->txtTestingTime->setText(QString::number(paper->TestingTime));
    ui->txtAnswerAmount->setText(QString::number(paper->AnswerAmount));
    // A saved paper keeps its number of answers.
    ui->UpDown1->setEnabled(false);
    showBands(*paper);
    int number = 0;
    for (const auto& question : cExamination::GetQuestions(ExaminationIDOf)) {
        addQuestionRows(++number, *question, u'．');
    }
}

// A word that is no longer one of the subtype's is refused by its list, with an error that ends the program.
void frmExamination::showBands(const cExamination& paper) {
    const auto fields = bandFields();
    for (std::size_t number = 0; number < fields.size(); ++number) {
        ScoreBand band;
        band.setScope(paper.*examinationScopes[number]);
        fields[number].lower->setText(band.lower);
        fields[number].upper->setText(band.upper);
    }
    for (std::size_t number = 0; number < fields.size(); ++number) {
        if (const QString word = paper.*examinationWords[number]; !word.isEmpty()) {
            fields[number].word->setText(word);
        }
    }
}

ScoreBands frmExamination::bands() const {
    const auto fields = bandFields();
    ScoreBands bands;
    for (std::size_t number = 0; number < fields.size(); ++number) {
        bands[number] = {fields[number].lower->text(), fields[number].upper->text(), fields[number].word->text()};
    }
    return bands;
}

bool frmExamination::passesChecks() {
    if (!ui->cmbTestingType->text().startsWith(subtypeMark.first(2))) {
        warn(u"［测评类型］只能选择二级类型！"_s, ui->cmbTestingType);
        return false;
    }
    if (ui->txtExaminationNum->text().isEmpty()) {
        warn(u"［试卷编号］不能为空！"_s, ui->txtExaminationNum);
        return false;
    }
    if (const auto fault = scoreBandFault(bands())) {
        const BandFields fields = bandFields()[static_cast<std::size_t>(fault->band)];
        warn(fault->words, fault->inWord ? static_cast<QWidget*>(fields.word) : fields.lower);
        return false;
    }
    return !refusesQuotes(ui->cmbTestingType);
}

cExamination frmExamination::paper(const QString& status) const {
    cExamination paper;
    paper.ExaminationID = ExaminationIDOf;
    paper.TypeCode = typeCodeOf(ui->cmbTestingType->ListIndex());
    paper.ExaminationNum = ui->txtExaminationNum->text();
    paper.Author = ui->txtAuthor->text();
    paper.Auditing = ui->txtAuditing->text();
    paper.Approver = ui->txtApprover->text();
    paper.WriteDate = dateText(ui->dtpWriteDate);
    paper.AuditingDate = dateText(ui->dtpAuditing);
    paper.ApproverDate = dateText(ui->dtpApprover);
    paper.AnswerAmount = answerAmount();
    // No check looks at this field: a text that is no number ends the program here.
    paper.TestingTime = toInt16(ui->txtTestingTime->text());
    paper.Note = ui->txtNote->text();
    const ScoreBands entered = bands();
    for (std::size_t number = 0; number < scoreBandCount; ++number) {
        paper.*examinationScopes[number] = entered[number].scope();
        paper.*examinationWords[number] = entered[number].word;
    }
    paper.Status = status;
    return paper;
}

void frmExamination::Command1_Click() {
    if (!passesChecks()) {
        return;
    }
    const cQuestions entered = questions();
    if (ui->fg2->Rows() == ui->fg2->FixedRows()) {
        MsgBox(u"请设置本试卷的［测评题目］！"_s, vbExclamation);
        return;
    }
    const auto answer =
        MsgBox(u"如果暂时保存本试卷，请选择［是］；如果确信本试卷已设置完整，请选择［否］！"_s, vbYesNo + vbQuestion);
    const cExamination entry = paper(answer == vbYes ? u"0 - 建立中"_s : u"1 - 已完成"_s);
    const Status status = AddMode ? entry.AddNew(entered) : entry.Update(entered);
    if (status == Status::Taken) {
        warn(u"［试卷编号］重复，请重新输入！"_s, ui->txtExaminationNum);
    } else if (status != Status::Done) {
        warn(AddMode ? u"增加失败，请稍后重试！"_s : u"修改失败，请稍后重试！"_s, ui->txtExaminationNum);
    } else {
        MsgBox(AddMode ? u"增加成功！"_s : u"修改成功！"_s, vbInformation);
        Unload();
    }
}

}  // namespace talvora
