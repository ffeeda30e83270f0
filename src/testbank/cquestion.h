#pragma once

#include "core/collection.h"

#include <QString>

#include <algorithm>
#include <array>

namespace talvora {

/// A single-choice question with two to five answers and what each scores. How many answers are in use is the
/// paper's to tell.
struct cQuestion {
    qint16 ExaminationID = 0;
    qint16 QuestionID = 0;
    QString QuestionName;
    QString Answer1;
    QString Answer2;
    QString Answer3;
    QString Answer4;
    QString Answer5;
    qint16 Score1 = 0;
    qint16 Score2 = 0;
    qint16 Score3 = 0;
    qint16 Score4 = 0;
    qint16 Score5 = 0;
};

/// The answers and scores of a question in their order, for loops over them.
inline constexpr std::array<QString cQuestion::*, 5> questionAnswers{
    &cQuestion::Answer1, &cQuestion::Answer2, &cQuestion::Answer3, &cQuestion::Answer4, &cQuestion::Answer5};
inline constexpr std::array<qint16 cQuestion::*, 5> questionScores{
    &cQuestion::Score1, &cQuestion::Score2, &cQuestion::Score3, &cQuestion::Score4, &cQuestion::Score5};

/// The number of answers that the questions of a paper may have.
inline constexpr qint16 leastAnswerAmount = 2;
inline constexpr qint16 mostAnswerAmount = questionAnswers.size();

/// How many answers of a question are in use where its paper has `amount` of them. An amount that is out of range
/// counts as the nearest in it.
constexpr int answersInUse(int amount) {
    return std::clamp<int>(amount, leastAnswerAmount, mostAnswerAmount);
}

/// The label in front of an answer in the paper's editor, a letter and a dot: the editor hands it over with the answer,
/// and the paper's record cuts it off.
inline constexpr qsizetype answerLabelLength = 2;

class cQuestions : public Collection<cQuestion, NumberKey<&cQuestion::QuestionID>> {
 public:
    /// Loads the questions of a paper by their key.
    cQuestions& Find(qint16 ExaminationID);

    /// Loads what a statement on ExaminationQuestion gives, in its order.
    cQuestions& FindBy(const QString& statement);
};

}  // namespace talvora
