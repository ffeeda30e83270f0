#pragma once

#include "core/collection.h"
#include "core/status.h"

#include <QString>

namespace talvora {

/// A line of a competency model: a dimension when its code has three digits, an element when it has six.
struct cDimension {
    qint16 ID = 0;  ///< no column: unique inside one collection, by the rule of whoever fills it
    qint16 SolutionID = 0;
    QString TypeCode;
    QString TypeName;
    QString Score;     ///< a decimal number as text
    QString Weighing;  ///< percentage text on the way in ("33.33%"), the stored fraction as text when read back

    /// Writes one line with score and weight as they stand. No window needs it; models write their lines whole.
    static Status AddNew(qint16 SolutionID, const QString& TypeCode, const QString& TypeName, const QString& Score,
                         const QString& Weighing);
    /// Deletes all lines of a model.
    static Status Delete(qint16 SolutionID);
};

class cDimensions : public Collection<cDimension, NumberKey<&cDimension::ID>> {
 public:
    /// Loads a model's lines by code; ID is the line's position, SolutionID stays 0.
    cDimensions& Find(qint16 SolutionID);
};

}  // namespace talvora
