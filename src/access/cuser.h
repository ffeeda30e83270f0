#pragma once

#include "access/crole.h"
#include "core/collection.h"
#include "core/status.h"

#include <QString>

namespace talvora {

/// A login. Passwords are kept and compared as typed.
struct cUser {
    qint16 UserID = 0;
    QString UserName;
    QString UserDesc;
    QString Password;
    bool Locked = false;  ///< a locked user cannot log in

    /// Adds an unlocked user with links to the roles. Taken when just one user bears the name. Failed leaves the
    /// transaction open.
    static Status AddNew(const QString& UserName, const QString& UserDesc, const QString& Password,
                         const cRoles& roles);

    /// Writes the user and replaces the links. Taken when just one other user bears the name; Failed with nothing
    /// written when that test fails. Goes on after a later error and commits what went through.
    static Status Update(qint16 UserID, const QString& UserName, const QString& UserDesc, const QString& Password,
                         bool Locked, const cRoles& roles);

    static Status Delete(qint16 UserID);

    static cRoles GetUserRoles(qint16 UserID);
    /// The password with its blanks. RuntimeError 3021 for an unknown name.
    static QString GetPassword(const QString& UserName);
    static Status UpdatePassword(const QString& UserName, const QString& newPassword);
};

/// Whether this is the system's own user, who may do all by name: each caller of the rights below lets it through.
inline bool isAdmin(const QString& UserName) {
    return UserName == QLatin1StringView("admin");
}

class cUsers : public Collection<cUser, NumberKey<&cUser::UserID>> {
 public:
    /// Loads one user, or all by name for 0.
    cUsers& Find(qint16 UserID);

    /// Whether an unlocked user of this name and password exists.
    static bool IsExistUser(const QString& UserName, const QString& Password);
    /// The key of the user, 0 for an unknown name.
    static qint16 GetUserID(const QString& UserName);

    /// Whether a role of the user may open the module of the key `TableName`. isAdmin() counts for nothing
    /// here. RuntimeError 3021 for an unknown module.
    static bool IsAccessModule(const QString& UserName, const QString& TableName);
    /// The same for one function of the module.
    static bool IsAccessFunction(const QString& UserName, const QString& TableName, const QString& FunctionKey);
};

}  // namespace talvora
