#pragma once

#include "access/croleright.h"
#include "core/collection.h"
#include "core/status.h"
#include "core/trimmed_text.h"

#include <QString>

namespace talvora {

/// A role. Its code, of three or six characters, arranges it in two levels and means nothing for its rights.
struct cRole {
    qint16 RoleID = 0;
    TrimmedText RoleName;
    TrimmedText RoleCode;
    QString RoleDesc;

    /// Adds a role with its rights, under `parentCode` or at the top when that is empty. Taken when just one role bears
    /// the name. A failing statement's error goes to the caller and leaves the transaction open; so with Update.
    static Status AddNew(const QString& parentCode, const QString& RoleName, const QString& RoleDesc,
                         const cRoleRights& rights);

    /// Writes name and description and replaces the rights; the code stays.
    static Status Update(qint16 RoleID, const QString& RoleName, const QString& RoleDesc, const cRoleRights& rights);

    /// InUse when a user has the role; Failed with nothing deleted when that test fails. Goes on after a later error.
    static Status Delete(qint16 RoleID);

    static cRoleRights GetRoleFunction(qint16 RoleID);

    /// The next free code: at the top for the kind "parent", else under `parentCode` ("001" when that is empty).
    static QString GetRoleCode(const QString& kind, const QString& parentCode);
};

class cRoles : public Collection<cRole, NumberKey<&cRole::RoleID>> {
 public:
    /// Loads one role, or all by code for 0.
    cRoles& Find(qint16 RoleID);

    /// Loads the roles at the top by code.
    cRoles& GetRoleLevel1();

    /// Loads what a statement on Roles gives, in its order.
    cRoles& FindBy(const QString& statement);
};

}  // namespace talvora
