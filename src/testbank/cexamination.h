#pragma once

#include "core/collection.h"
#include "core/status.h"
#include "testbank/cquestion.h"

#include <QString>

#include <array>

namespace talvora {

/// What a new paper starts with, and what a row that does not say counts as having.
inline constexpr qint16 defaultAnswerAmount = 2;
inline constexpr qint16 defaultTestingTime = 10;  // minutes

/// A test paper of one subtype. A score band is "lower-upper", "-" when it is not in use; the word of the same number
/// is a copy of one of the subtype's words.
struct cExamination {
    qint16 ExaminationID = 0;
    QString ExaminationNum;
    QString TypeCode;
    QString Author;
    QString Auditing;
    QString Approver;
    QString WriteDate;
    QString AuditingDate;
    QString ApproverDate;
    qint16 AnswerAmount = 0;  ///< answers per question, 2 to 5
    qint16 TestingTime = 0;   ///< minutes
    QString Note;
    QString ScoreScope1;
    QString ScoreScope2;
    QString ScoreScope3;
    QString ScoreScope4;
    QString DescScope1;
    QString DescScope2;
    QString DescScope3;
    QString DescScope4;
    QString Status;  ///< "0 - 建立中" or "1 - 已完成"

    /// Adds this record, but for its key, and the questions, whose answers come with their labels. Taken when just one
    /// paper of the subtype bears the number. Failed leaves the transaction open.
    talvora::Status AddNew(const cQuestions& questions) const;

    /// Writes this record, but for its TypeCode, into the row of its key, and replaces all questions, labelled as
    /// for AddNew. Taken when just one other paper of any subtype bears the number. A failing statement's error goes to
    /// the caller and leaves the transaction open.
    talvora::Status Update(const cQuestions& questions) const;

    static talvora::Status Delete(qint16 ExaminationID);

    /// The questions of a paper in the order in which they were stored.
    static cQuestions GetQuestions(qint16 ExaminationID);
    /// RuntimeError 3021 when the subtype has no paper of that number; the same for GetExamAnswersByNum.
    static qint16 GetExamIDByNum(const QString& TypeCode, const QString& ExaminationNum);
    /// The paper's AnswerAmount, 2 for NULL.
    static qint16 GetExamAnswersByNum(const QString& TypeCode, const QString& ExaminationNum);
    /// How many questions the paper has.
    static qint16 GetExamQuestions(qint16 ExaminationID);
};

/// The bands and their words in their order, for loops over them.
inline constexpr std::array<QString cExamination::*, 4> examinationScopes{
    &cExamination::ScoreScope1, &cExamination::ScoreScope2, &cExamination::ScoreScope3, &cExamination::ScoreScope4};
inline constexpr std::array<QString cExamination::*, 4> examinationWords{
    &cExamination::DescScope1, &cExamination::DescScope2, &cExamination::DescScope3, &cExamination::DescScope4};

class cExaminations : public Collection<cExamination, NumberKey<&cExamination::ExaminationID>> {
 public:
    /// Loads the papers of a subtype by number: all of them, or without drafts.
    cExaminations& FindByTypeCode(const QString& TypeCode, bool all);

    /// Loads one paper. Note, Auditing, Approver and their dates stay empty in it, and its editor relies on that.
    cExaminations& FindByExamID(qint16 ExaminationID);
};

}  // namespace talvora
