#pragma once

#include "core/collection.h"
#include "core/status.h"

#include <QString>

namespace talvora {

class cTestings;
class cTestingDetails;

/// A row of `TestingResult`: a single-paper test, or one row of a competency model's family (the header, a dimension,
/// an element). The rows of one test share `TestingNumber`.
struct cTesting {
    /// `TestingID` and `TestingNumber` keep the columns' full width, so that a list of more than 32767 tests loads.
    qint32 TestingID = 0;
    qint32 TestingNumber = 0;
    QString Name;
    QString Sex;
    qint16 Age = 0;  ///< 0 when not given
    QString IDNumber;
    QString Education;
    QString PostName;
    QString Salary;
    QString TypeName;
    QString TypeCode;  ///< 6 digits a paper, 3 a dimension, empty a model's header
    QString Version;
    QString TestingDate;    ///< yyyy-mm-dd hh:mm:ss
    QString ExaminationID;  ///< the paper, as text
    qint16 Score = 0;       ///< half to even where the stored score is a fraction; 0 when there is none
    qint16 ExamQuestions = 0;
    qint16 FactQuestions = 0;
    QString TestingResult;  ///< the verdict
    QString TestingDesc;

    // AddNew and Delete are defined with the scoring in assessment/ctestingstore.cpp: this folder reads results, that
    // one makes them.

    /// Stores a finished test and lets the database score it. This record holds the candidate's particulars, the
    /// moment and the test's name; its `TypeCode` is not used. `testings` has one item for each row to store below a
    /// model's header (for a single paper its one row), in the order of the run, each with `TypeCode`, `TypeName`,
    /// `ExaminationID` and `ExamQuestions`; `details` one item for each question of all papers.
    ///
    /// Failed at the first statement that fails, and at a testing number or row id above 32767. The transaction then
    /// stays open with what was done so far: this connection goes on seeing it, others do not.
    Status AddNew(bool isModel, const cTestings& testings, const cTestingDetails& details) const;

    /// Deletes the whole family of the row `testingId`, with all its answers. A failing statement is passed over and
    /// told by Failed.
    static Status Delete(qint32 testingId);
};

/// Testing records in the order in which they were read.
class cTestings : public Collection<cTesting, NumberKey<&cTesting::TestingID>> {
 public:
    /// Reads records in place of the present items: those of the statement `sql` if it is not empty; else the family
    /// of `testingNumber`, a model's header first; else, with 0, one record for each test. Throws DatabaseError, and
    /// RuntimeError 3265 when `sql` leaves a column out.
    cTestings& Find(qint32 testingNumber, const QString& sql);

    /// Adds one item for each name of a test, with `TestingID` the running number from 1 and `TypeName`. What is in
    /// the collection stays, so that a second call meets its own keys: RuntimeError 457.
    cTestings& GetTestingType();

    /// The same for the verdicts of the tests named `typeName`, in `TestingResult`; one item is empty when some have
    /// no verdict.
    cTestings& GetTestingResult(const QString& typeName);

 private:
    /// Adds an item for each row of the statement, with its first column in `member`.
    void appendNames(const QString& statement, QString cTesting::*member);
};

}  // namespace talvora
