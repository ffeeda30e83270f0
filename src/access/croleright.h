#pragma once

#include "core/collection.h"
#include "core/trimmed_text.h"

#include <QString>

namespace talvora {

/// Whether a role is granted one function of one module.
struct cRoleRight {
    qint16 RoleID = 0;
    TrimmedText ModuleCode;
    TrimmedText ModuleFunction;
    bool IsAccess = false;

    /// "a", module and function: what the collection keys it by.
    QString key() const;
};

class cRoleRights : public Collection<cRoleRight, TextKey<&cRoleRight::key>> {
 public:
    cRoleRights& Find(qint16 RoleID);
};

}  // namespace talvora
