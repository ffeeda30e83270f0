#include "access/croleright.h"

#include "core/mdlpublic.h"

namespace talvora {

using namespace Qt::StringLiterals;

QString cRoleRight::key() const {
    return u'a' + ModuleCode.text() + ModuleFunction.text();
}

cRoleRights& cRoleRights::Find(qint16 RoleID) {
    Clear();
    for (const Row row : cnnPublic.Execute(u"SELECT *  FROM RoleRight where RoleId ="_s + QString::number(RoleID))) {
        auto right = std::make_shared<cRoleRight>();
        right->RoleID = row.number16("RoleID");
        right->ModuleCode = row.text("ModuleCode");
        right->ModuleFunction = row.text("ModuleFunction");
        right->IsAccess = row.number16Or0("IsAccess") != 0;
        Add(right);
    }
    return *this;
}

}  // namespace talvora
