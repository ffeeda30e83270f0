#include "platform/numbers.h"
#include "platform/text.h"
#include "testbank/frmexamination.h"
#include "testbank/frmquestion.h"
#include "toolkit/forms/prompts.h"

#include <algorithm>

// The paper editor's grid of questions and the three buttons over it. Each question is a block of one row and as many
// answer rows as the field says at the time: whoever changes the number afterwards has blocks of another size, and
// nothing guards against it.
namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int numberCol = 0;
constexpr int textCol = 1;
constexpr int scoreCol = 2;

}  // namespace

void frmExamination::setUpQuestions() {
    ui->fg2->setFormatString(u"序号|题目|分数"_s);
    ui->fg2->setRows(ui->fg2->FixedRows());
    ui->fg2->setColAlignment(numberCol, GridAlign::CenterTop);
    ui->fg2->setColAlignment(scoreCol, GridAlign::CenterTop);
    ui->fg2->setColWordWrap(textCol, true);
    ui->fg2->setStretchCol(textCol);
    updateEditButton();
}

// Without a question there is nothing to change, and the command would end the program.
void frmExamination::updateEditButton() {
    ui->Toolbar1->setUsable(u"edit"_s, ui->fg2->Rows() > ui->fg2->FixedRows());
}

qint16 frmExamination::answerAmount() const {
    return toInt16(ui->txtAnswerAmount->text());
}

void frmExamination::addQuestionRows(int number, const cQuestion& question, QChar dot) {
    const int row = ui->fg2->Rows();
    ui->fg2->setRows(row + 1 + answersInUse(answerAmount()));
    ui->fg2->setTextMatrix(row, numberCol, QString::number(number));
    writeQuestion(row, question, dot);
    updateEditButton();
    // The first one becomes current, so that the buttons have a question to act on. Later ones leave the choice alone.
    if (row == ui->fg2->FixedRows()) {
        ui->fg2->Select(row, textCol);
    }
}

void frmExamination::writeQuestion(int row, const cQuestion& question, QChar dot) {
    ui->fg2->setTextMatrix(row, textCol, question.QuestionName);
    for (int answer = 0; answer < answersInUse(answerAmount()); ++answer) {
        const auto index = static_cast<std::size_t>(answer);
        const QString label = QString(QChar(u'A' + answer)) + dot;
        ui->fg2->setTextMatrix(++row, textCol, label + question.*questionAnswers[index]);
        ui->fg2->setTextMatrix(row, scoreCol, QString::number(question.*questionScores[index]));
    }
}

std::shared_ptr<cQuestion> frmExamination::readQuestion(int row) const {
    auto question = std::make_shared<cQuestion>();
    question->QuestionName = ui->fg2->TextMatrix(row, textCol);
    for (int answer = 0; answer < answersInUse(answerAmount()); ++answer) {
        const auto index = static_cast<std::size_t>(answer);
        (*question).*questionAnswers[index] = ui->fg2->TextMatrix(++row, textCol);
        (*question).*questionScores[index] = toInt16(ui->fg2->TextMatrix(row, scoreCol));
    }
    return question;
}

// The current row's block, which begins where a number stands. Without a current row it is the header.
int frmExamination::currentBlock() const {
    int row = std::max(ui->fg2->Row(), 0);
    while (ui->fg2->TextMatrix(row, numberCol).isEmpty()) {
        --row;
    }
    return row;
}

void frmExamination::Toolbar1_ButtonClick(const QString& key) {
    if (key == "add"_L1) {
        addQuestion();
    } else if (key == "edit"_L1) {
        editQuestion();
    } else if (key == "del"_L1) {
        deleteQuestion();
    }
}

void frmExamination::addQuestion() {
    frmQuestion& dialog = frmQuestion::Default();
    dialog.AddMode = true;
    dialog.AnswerAmount = answerAmount();
    dialog.ShowModal();
    // The count is the only sign that the dialog was not cancelled: after an earlier question, that one is added again.
    if (dialog.Questions.Count() == 0) {
        return;
    }
    int number = 0;
    for (int row = 1; row < ui->fg2->Rows(); row += answerAmount() + 1) {
        ui->fg2->setTextMatrix(row, numberCol, QString::number(++number));
    }
    const int row = ui->fg2->Rows();
    addQuestionRows(++number, *dialog.Questions.Item(1), u'.');
    // In view from its first row on, however small the grid is.
    ui->fg2->ShowCell(ui->fg2->Rows() - 1, textCol);
    ui->fg2->ShowCell(row, textCol);
}

void frmExamination::editQuestion() {
    const int row = currentBlock();
    // On the header this is its title, which is no number: the program ends.
    const qint16 number = toInt16(ui->fg2->TextMatrix(row, numberCol));
    const auto question = readQuestion(row);
    question->QuestionID = number;
    for (const auto answer : questionAnswers) {
        (*question).*answer = dropLeft((*question).*answer, answerLabelLength);
    }
    frmQuestion& dialog = frmQuestion::Default();
    dialog.AddMode = false;
    dialog.Questions.Clear();
    dialog.Questions.Add(question);
    dialog.AnswerAmount = answerAmount();
    dialog.ShowModal();
    if (dialog.Questions.Count() > 0) {
        writeQuestion(row, *dialog.Questions.Item(1), u'.');
    }
}

void frmExamination::deleteQuestion() {
    if (ui->fg2->Row() < 1) {
        MsgBox(u"已经没有记录可以删除！"_s, vbExclamation);
        return;
    }
    const int row = currentBlock();
    // The other numbers stay as they are until the next question is added.
    for (int rows = answerAmount() + 1; rows > 0; --rows) {
        ui->fg2->RemoveItem(row);
    }
    updateEditButton();
}

// Nothing gives the questions their keys here. So the second meets the first one's: error 457, which ends the program.
// A paper of one question can be saved, a longer one cannot; that is meant.
cQuestions frmExamination::questions() const {
    cQuestions questions;
    for (int row = 1; row < ui->fg2->Rows(); row += answerAmount() + 1) {
        questions.Add(readQuestion(row));
    }
    return questions;
}

}  // namespace talvora
