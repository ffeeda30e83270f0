#include "access/croleright.h"

namespace talvora {

using namespace Qt::StringLiterals;

QString cRoleRight::key() const {
    return u'a' + ModuleCode.text() + ModuleFunction.text();
}

cRoleRights& cRoleRights::Find(qint16 RoleID) {
    load(u"SELECT *  FROM RoleRight where RoleId ="_s + QString::number(RoleID), [](cRoleRight& right, const Row& row) {
        right.RoleID = row.number16("RoleID");
        right.ModuleCode = row.text("ModuleCode");
        right.ModuleFunction = row.text("ModuleFunction");
        right.IsAccess = row.number16Or0("IsAccess") != 0;
    });
    return *this;
}

}  // namespace talvora
