#pragma once

#include "core/collection.h"
#include "core/status.h"
#include "models/cdimension.h"

#include <QString>

namespace talvora {

/// The head of a competency model.
struct cSolution {
    qint16 SolutionID = 0;
    QString SolutionName;
    QString PostName;  ///< the position, by name
    QString Version;
    QString Author;
    QString Auditing;
    QString Approver;
    QString WriteDate;
    QString AuditingDate;
    QString ApproverDate;
    QString Note;

    /// Adds this record, but for its key, with its lines. Taken when just one model bears the name. The first error
    /// rolls everything back.
    Status AddNew(const cDimensions& lines) const;

    /// Writes this record into the row of its key and replaces all lines. Taken when just one other model bears the
    /// name; Failed with nothing written when that test fails. Unlike AddNew it goes on after a later error and commits
    /// what went through.
    Status Update(const cDimensions& lines) const;

    /// Deletes head and lines. Testing records that refer to the model are not looked at.
    static Status Delete(qint16 SolutionID);
};

class cSolutions : public Collection<cSolution, NumberKey<&cSolution::SolutionID>> {
 public:
    /// Loads one model, or all by name for 0.
    cSolutions& Find(qint16 SolutionID);
};

}  // namespace talvora
