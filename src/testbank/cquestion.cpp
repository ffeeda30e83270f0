#include "testbank/cquestion.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

void fill(cQuestion& question, const Row& row) {
    question.ExaminationID = row.number16("ExaminationID");
    question.QuestionID = row.number16("QuestionID");
    question.QuestionName = row.rawText("QuestionName");
    question.Answer1 = row.text("Answer1");
    question.Score1 = row.number16Or0("Score1");
    question.Answer2 = row.text("Answer2");
    question.Score2 = row.number16Or0("Score2");
    question.Answer3 = row.text("Answer3");
    question.Score3 = row.number16Or0("Score3");
    question.Answer4 = row.text("Answer4");
    question.Score4 = row.number16Or0("Score4");
    question.Answer5 = row.text("Answer5");
    question.Score5 = row.number16Or0("Score5");
}

}  // namespace

cQuestions& cQuestions::Find(qint16 ExaminationID) {
    return FindBy(u"Select * from ExaminationQuestion where ExaminationID="_s + QString::number(ExaminationID) +
                  u" Order by QuestionID"_s);
}

cQuestions& cQuestions::FindBy(const QString& statement) {
    Collection::load(statement, fill);
    return *this;
}

}  // namespace talvora
