#include "access/cuser.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/status_of.h"
#include "core/transaction.h"
#include "platform/numbers.h"

#include <QStringList>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QStringList linkInserts(const cRoles& roles, qint16 userId) {
    QStringList statements;
    for (const auto& role : roles) {
        statements += u"insert into UserRole (UserID,RoleID) values ("_s + QString::number(userId) + u',' +
                      QString::number(role->RoleID) + u')';
    }
    return statements;
}

}  // namespace

Status cUser::AddNew(const QString& UserName, const QString& UserDesc, const QString& Password, const cRoles& roles) {
    return statusOf([&] {
        if (IsExistName(u"Users"_s, u"UserName"_s, UserName, QString(), u"0"_s)) {
            return Status::Taken;
        }
        cnnPublic.BeginTrans();
        cnnPublic.Execute(u"insert into Users (UserName,UserDesc,Password,Locked) values ('"_s + UserName + u"','"_s +
                          UserDesc + u"','"_s + Password + u"',0)"_s);
        const qint16 userId = toInt16(GetNewID(u"Users"_s, u"UserID"_s) - 1);
        for (const QString& statement : linkInserts(roles, userId)) {
            cnnPublic.Execute(statement);
        }
        cnnPublic.CommitTrans();
        return Status::Done;
    });
}

Status cUser::Update(qint16 UserID, const QString& UserName, const QString& UserDesc, const QString& Password,
                     bool Locked, const cRoles& roles) {
    const QString id = QString::number(UserID);
    const Status guard =
        statusOfGuard(Status::Taken, [&] { return IsExistName(u"Users"_s, u"UserName"_s, UserName, u"UserID"_s, id); });
    if (guard != Status::Done) {
        return guard;
    }
    const QString update = u"Update Users Set UserName='"_s + UserName + u"', UserDesc='"_s + UserDesc +
                           u"', Password='"_s + Password + u"', Locked="_s + (Locked ? u'1' : u'0') +
                           u" where UserID="_s + id;
    return executePassingErrors(QStringList{update, u"delete from UserRole where UserID="_s + id} +
                                linkInserts(roles, UserID));
}

Status cUser::Delete(qint16 UserID) {
    const QString id = QString::number(UserID);
    return executePassingErrors(
        {u"Delete from UserRole where UserID="_s + id, u"Delete from Users where UserID="_s + id});
}

cRoles cUser::GetUserRoles(qint16 UserID) {
    cRoles roles;
    roles.FindBy(u"Select Roles.* from UserRole,Roles where Roles.RoleID=UserRole.RoleID and UserRole.userID="_s +
                 QString::number(UserID));
    return roles;
}

QString cUser::GetPassword(const QString& UserName) {
    return cnnPublic.Execute(u"Select top 1 * from Users where Username='"_s + UserName + u'\'')
        .first()
        .rawText("password");
}

Status cUser::UpdatePassword(const QString& UserName, const QString& newPassword) {
    return executed(u"update Users set password='"_s + newPassword + u"' where Username='"_s + UserName + u'\'');
}

cUsers& cUsers::Find(qint16 UserID) {
    const QString statement = UserID != 0 ? u"Select * from Users where UserID="_s + QString::number(UserID)
                                          : u"Select * from Users order by UserName "_s;
    load(statement, [](cUser& user, const Row& row) {
        user.UserID = row.number16("UserID");
        user.UserName = row.text("UserName");
        user.Password = row.text("Password");
        user.UserDesc = row.text("UserDesc");
        user.Locked = row.number16Or0("Locked") != 0;
    });
    return *this;
}

bool cUsers::IsExistUser(const QString& UserName, const QString& Password) {
    return cnnPublic
               .Execute(u"Select * from Users where UserName='"_s + UserName + u"' and Password='"_s + Password +
                        u"' and locked='0'"_s)
               .RecordCount() >= 1;
}

qint16 cUsers::GetUserID(const QString& UserName) {
    const Recordset rows = cnnPublic.Execute(u"Select * from Users where UserName='"_s + UserName + u'\'');
    return rows.RecordCount() > 0 ? rows.first().number16("UserID") : qint16{0};
}

bool cUsers::IsAccessModule(const QString& UserName, const QString& TableName) {
    return IsAccessFunction(UserName, TableName, u"browse"_s);
}

bool cUsers::IsAccessFunction(const QString& UserName, const QString& TableName, const QString& FunctionKey) {
    const Recordset modules =
        cnnPublic.Execute(u"Select ModuleCode from Modules where TableName='"_s + TableName + u'\'');
    const QString code = modules.first().text("modulecode");
    return cnnPublic
               .Execute(u"Select isAccess from RoleRight where modulefunction='"_s + FunctionKey +
                        u"' and ModuleCode='"_s + code +
                        u"' and isaccess=1 and RoleID in (Select RoleID from Users,UserRole where "
                        "Users.UserID=UserRole.UserID and Users.UserName='"_s +
                        UserName + u"')"_s)
               .RecordCount() >= 1;
}

}  // namespace talvora
