#pragma once

#include "core/collection.h"
#include "core/status.h"
#include "core/trimmed_text.h"

#include <QString>

namespace talvora {

/// A position of the organisation. Its code is its parent's and three digits more, so that the length tells the level.
/// The job description comes into the table by other means; it is carried here and shown nowhere.
struct cPosition {
    QString PostType;  ///< no column; set by whoever likes, read by nobody
    TrimmedText PostName;
    QString PostCode;
    QString DeptCode;
    qint16 Peoples = 0;
    QString Author;
    QString Auditing;
    QString Approver;
    QString WriteDate;
    QString AuditingDate;
    QString ApproveDate;
    QString ReportTo;
    QString Guidance;
    QString CoWorker;
    QString Exterior;
    QString Educational;
    QString Training;
    QString Experience;
    QString Skill;
    QString WorkPeriodic;
    QString WorkDaily;
    QString WorkFortuitous;
    QString Authority;
    QString Obligation;

    /// Adds a position beside ("parent") or under ("child") the one of `PostCode`; the first of all with an empty code.
    /// Two positions may get one name here.
    static Status AddNew(const QString& kind, const QString& PostCode, const QString& PostName, qint16 Peoples);

    /// NoSuchRow for an unknown code, Taken when another position bears the name. Failed with nothing written when one
    /// of these tests fails.
    static Status Update(const QString& PostCode, const QString& PostName, qint16 Peoples);

    /// InUse when positions stand under it; an error of that test goes to the caller, with nothing deleted.
    static Status Delete(const QString& PostCode);

    /// The name of the position above, empty for a top one and for an empty code.
    static QString GetParent(const QString& PostCode);
};

class cPositions : public Collection<cPosition, TextKey<&cPosition::PostCode>> {
 public:
    /// Loads one position, or all in the order of the tree for an empty code.
    cPositions& Find(const QString& PostCode);

    /// Loads each distinct name once. PostCode is then a running number, which makes the keys unique.
    cPositions& GetDistPostName();
};

}  // namespace talvora
