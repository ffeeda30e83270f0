#include "testbank/frmquestion.h"

#include "platform/numbers.h"
#include "platform/text.h"

namespace talvora {

using namespace Qt::StringLiterals;

void frmQuestion::wire() {
    on(ui->Command1, &QPushButton::clicked, &frmQuestion::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmQuestion::Unload);
}

std::array<frmQuestion::AnswerFields, mostAnswerAmount> frmQuestion::answerFields() const {
    return {{{ui->txtAnswerA, ui->txtScoreA},
             {ui->txtAnswerB, ui->txtScoreB},
             {ui->txtAnswerC, ui->txtScoreC},
             {ui->txtAnswerD, ui->txtScoreD},
             {ui->txtAnswerE, ui->txtScoreE}}};
}

void frmQuestion::Form_Load() {
    if (!AddMode) {
        ui->txtQuestionName->setText(Questions.Item(1)->QuestionName);
    }
    const auto fields = answerFields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool inUse = static_cast<int>(i) < answersInUse(AnswerAmount);
        fields[i].text->setEnabled(inUse);
        fields[i].score->setEnabled(inUse);
        if (!AddMode && inUse) {
            const cQuestion& question = *Questions.Item(1);
            fields[i].text->setText(question.*questionAnswers[i]);
            fields[i].score->setText(QString::number(question.*questionScores[i]));
        }
    }
}

bool frmQuestion::passesChecks() {
    const QString name = ui->txtQuestionName->text();
    if (name.isEmpty()) {
        warn(u"请输入［题目名称］！"_s, ui->txtQuestionName);
        return false;
    }
    // In a test a row is told to be an answer by these letters.
    if (u"ABCDE"_s.contains(name.front())) {
        warn(u"［题目名称］中的第一个字符不能为［A、B、C、D、E］！"_s, ui->txtQuestionName);
        return false;
    }
    return !refusesQuotes(ui->txtQuestionName) && passesAnswerChecks();
}

bool frmQuestion::passesAnswerChecks() {
    // A and B are asked for together, before the scores of either are looked at.
    if (!passesEntry(0) || !passesEntry(1) || !passesNumber(0) || !passesNumber(1)) {
        return false;
    }
    for (int answer = leastAnswerAmount; answer < answersInUse(AnswerAmount); ++answer) {
        if (!passesEntry(answer) || !passesNumber(answer)) {
            return false;
        }
    }
    return true;
}

bool frmQuestion::passesEntry(int answer) {
    const AnswerFields fields = answerFields()[static_cast<std::size_t>(answer)];
    if (trimBlanks(fields.text->text()).isEmpty() || trimBlanks(fields.score->text()).isEmpty()) {
        warn(u"请输入［答案%1］及其分数！"_s.arg(QChar(u'A' + answer)), fields.text);
        return false;
    }
    return true;
}

bool frmQuestion::passesNumber(int answer) {
    QLineEdit* score = answerFields()[static_cast<std::size_t>(answer)].score;
    if (!isNumeric(score->text())) {
        warn(u"［分数］只能为数字型！"_s, score);
        return false;
    }
    return true;
}

void frmQuestion::Command1_Click() {
    if (!passesChecks()) {
        return;
    }
    if (AddMode) {
        Questions.Clear();
        Questions.Add(std::make_shared<cQuestion>());
    }
    cQuestion& question = *Questions.Item(1);
    question.QuestionName = ui->txtQuestionName->text();
    const auto fields = answerFields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const QString score = fields[i].score->text();
        question.*questionAnswers[i] = fields[i].text->text();
        question.*questionScores[i] = score.isEmpty() ? qint16{0} : toInt16(score);
    }
    Unload();
}

}  // namespace talvora
