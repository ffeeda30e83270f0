#pragma once

#include "core/collection.h"

#include <QString>

#include <array>

namespace talvora {

/// One question of a paper in a test: a row of `TestingResultDetail`, or, on its way to cTesting::AddNew, an answer
/// just given.
struct cTestingDetail {
    /// The row's key. During a submission any number that is unique in the list. `ID` and `TestingID` keep the
    /// columns' full width, so that the records of a long-lived database can be read.
    qint32 ID = 0;
    qint16 ExaminationID = 0;
    qint32 TestingID = 0;
    QString QuestionName;
    /// The answers without their letter; those that the paper does not offer are empty.
    QString Answer1;
    QString Answer2;
    QString Answer3;
    QString Answer4;
    QString Answer5;
    /// One letter, or empty for a question left unanswered.
    QString SelectAnswer;
    /// 0 also when the database has no score for the answer.
    qint16 Score = 0;
};

/// The answers of a question in their order, for loops over them.
inline constexpr std::array<QString cTestingDetail::*, 5> detailAnswers{
    &cTestingDetail::Answer1, &cTestingDetail::Answer2, &cTestingDetail::Answer3, &cTestingDetail::Answer4,
    &cTestingDetail::Answer5};

/// The answers of a paper, in the order in which they were stored, or those of a whole run to be stored.
class cTestingDetails : public Collection<cTestingDetail, NumberKey<&cTestingDetail::ID>> {
 public:
    /// Reads the answers under the paper row `testingId` in place of the present items. A model's header and
    /// dimension rows have none. Throws DatabaseError.
    cTestingDetails& Find(qint32 testingId);
};

}  // namespace talvora
