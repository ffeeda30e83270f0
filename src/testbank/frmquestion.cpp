#include "testbank/frmquestion.h"

#include "platform/numbers.h"
#include "platform/text.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int alwaysInUse = 2;

}  // namespace

void frmQuestion::wire() {
    on(ui->Command1, &QPushButton::clicked, &frmQuestion::Command1_Click);
    on(ui->Command2, &QPushButton::clicked, &frmQuestion::Command2_Click);
}

std::array<frmQuestion::AnswerFields, 5> frmQuestion::answerFields() const {
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
        const bool inUse = i < alwaysInUse || static_cast<int>(i) < AnswerAmount;
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
    const struct {
        bool fails;
        QString words;
    } checks[] = {
        {name.isEmpty(), u"请输入［题目名称］！"_s},
        // In a test a row is told to be an answer by these letters.
        {!name.isEmpty() && u"ABCDE"_s.contains(name.front()),
         u"［题目名称］中的第一个字符不能为［A、B、C、D、E］！"_s},
    };
    for (const auto& check : checks) {
        if (check.fails) {
            warn(check.words, ui->txtQuestionName);
            return false;
        }
    }
    return !refusesQuotes(ui->txtQuestionName) && passesAnswerChecks();
}

bool frmQuestion::passesAnswerChecks() {
    const auto fields = answerFields();
    const auto complete = [&](int i) {
        const bool filled =
            !trimBlanks(fields[i].text->text()).isEmpty() && !trimBlanks(fields[i].score->text()).isEmpty();
        if (!filled) {
            warn(u"请输入［答案%1］及其分数！"_s.arg(QChar(u'A' + i)), fields[i].text);
        }
        return filled;
    };
    const auto numeric = [&](int i) {
        const bool isNumber = isNumeric(fields[i].score->text());
        if (!isNumber) {
            warn(u"［分数］只能为数字型！"_s, fields[i].score);
        }
        return isNumber;
    };
    // A and B are asked for together, before the scores of either are looked at.
    if (!complete(0) || !complete(1) || !numeric(0) || !numeric(1)) {
        return false;
    }
    for (int i = alwaysInUse; i < static_cast<int>(fields.size()) && i < AnswerAmount; ++i) {
        if (!complete(i) || !numeric(i)) {
            return false;
        }
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

void frmQuestion::Command2_Click() {
    Unload();
}

}  // namespace talvora
