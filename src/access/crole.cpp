#include "access/crole.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/status_of.h"
#include "core/transaction.h"
#include "platform/numbers.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// `head` names table and columns, which AddNew and Update spell in different cases.
void insertRights(const cRoleRights& rights, const QString& head, qint16 roleId) {
    for (const auto& right : rights) {
        cnnPublic.Execute(head + u" values ("_s + QString::number(roleId) + u",'"_s + right->ModuleCode.text() +
                          u"','"_s + right->ModuleFunction.text() + u"',"_s + (right->IsAccess ? u'1' : u'0') + u')');
    }
}

}  // namespace

Status cRole::AddNew(const QString& parentCode, const QString& RoleName, const QString& RoleDesc,
                     const cRoleRights& rights) {
    if (IsExistName(u"Roles"_s, u"RoleName"_s, RoleName, QString(), u"0"_s)) {
        return Status::Taken;
    }
    cnnPublic.BeginTrans();
    const QString code = GetRoleCode(parentCode.isEmpty() ? u"parent"_s : u"child"_s, parentCode);
    cnnPublic.Execute(u"insert into Roles (RoleName,RoleCode,RoleDesc) values ('"_s + RoleName + u"','"_s + code +
                      u"','"_s + RoleDesc + u"')"_s);
    const qint16 roleId = toInt16(GetNewID(u"Roles"_s, u"RoleID"_s) - 1);
    insertRights(rights, u"insert into Roleright (RoleID,moduleCode,moduleFunction,IsAccess)"_s, roleId);
    cnnPublic.CommitTrans();
    return Status::Done;
}

Status cRole::Update(qint16 RoleID, const QString& RoleName, const QString& RoleDesc, const cRoleRights& rights) {
    const QString id = QString::number(RoleID);
    if (IsExistName(u"Roles"_s, u"RoleName"_s, RoleName, u"RoleID"_s, id)) {
        return Status::Taken;
    }
    cnnPublic.BeginTrans();
    cnnPublic.Execute(u"Update Roles Set RoleName='"_s + RoleName + u"',RoleDesc='"_s + RoleDesc +
                      u"' where RoleID="_s + id);
    cnnPublic.Execute(u"delete from RoleRight where RoleID="_s + id);
    insertRights(rights, u"insert into RoleRight (RoleID,moduleCode,ModuleFunction,IsAccess)"_s, RoleID);
    cnnPublic.CommitTrans();
    return Status::Done;
}

Status cRole::Delete(qint16 RoleID) {
    const Status guard = statusOfGuard(Status::InUse, [&] { return IsExistID(u"UserRole"_s, u"RoleID"_s, RoleID); });
    if (guard != Status::Done) {
        return guard;
    }
    const QString id = QString::number(RoleID);
    return executePassingErrors(
        {u"Delete from RoleRight where RoleId="_s + id, u"Delete from Roles where RoleId="_s + id});
}

cRoleRights cRole::GetRoleFunction(qint16 RoleID) {
    cRoleRights rights;
    rights.Find(RoleID);
    return rights;
}

QString cRole::GetRoleCode(const QString& kind, const QString& parentCode) {
    if (kind == "parent"_L1) {
        return codeAfterMaximum(u"SELECT MAX(RoleCode)  FROM Roles where len(RoleCode)=3"_s, parentCode);
    }
    const QString parent = parentCode.isEmpty() ? u"001"_s : parentCode;
    return codeAfterMaximum(
        u"SELECT MAX(RoleCode)  FROM Roles where left(RoleCode,3) ='"_s + parent + u"' and Len(RoleCode)=6"_s, parent);
}

cRoles& cRoles::Find(qint16 RoleID) {
    return FindBy(RoleID == 0
                      ? u"Select * from Roles order by RoleCode"_s
                      : u"Select * from Roles where RoleID="_s + QString::number(RoleID) + u" order by RoleCode"_s);
}

cRoles& cRoles::GetRoleLevel1() {
    return FindBy(u"Select * from Roles where len(RoleCode)=3 order by RoleCode"_s);
}

cRoles& cRoles::FindBy(const QString& statement) {
    load(statement, [](cRole& role, const Row& row) {
        role.RoleID = row.number16("RoleID");
        role.RoleName = row.text("RoleName");
        role.RoleCode = row.text("RoleCode");
        role.RoleDesc = row.text("RoleDesc");
    });
    return *this;
}

}  // namespace talvora
