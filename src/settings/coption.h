#pragma once

#include "core/collection.h"
#include "core/status.h"

#include <QString>

namespace talvora {

/// A setting of the whole installation.
struct cOption {
    qint16 VarID = 0;  ///< the running number of the row, no column
    QString VarName;
    QString VarDesc;
    QString VarType;
    QString VarValue;  ///< "Y" or "N", or a whole number as text

    /// A name with no row changes nothing and is Done.
    static Status Update(const QString& VarName, const QString& value);
};

class cOptions : public Collection<cOption, NumberKey<&cOption::VarID>> {
 public:
    /// Loads one setting, or all for an empty name.
    cOptions& Find(const QString& VarName);
};

}  // namespace talvora
