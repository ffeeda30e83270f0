#include "access/cuser.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class UserTest : public DatabaseTest {
 protected:
    static void forget() { emptyTables({u"Users"_s, u"UserRole"_s}); }

    static cRoles roles(const QList<qint16>& ids) {
        cRoles all;
        for (const qint16 id : ids) {
            all.Add(std::make_shared<cRole>(cRole{id, {}, {}, {}}));
        }
        return all;
    }

    static Status add(const QString& name, const QList<qint16>& roleIds = {}, const QString& password = u"pw"_s) {
        return cUser::AddNew(name, u"说明"_s, password, roles(roleIds));
    }

    static inline const QList<qint16> twoRoles{3, 5};
    static QString counts() { return rowCounts({u"Users"_s, u"UserRole"_s}); }
};
TALVORA_ON_EVERY_ENGINE(UserTest);

TEST_P(UserTest, AddNewAndUpdateSendTheseSeries) {
    const QString added = sentBy([] { return add(u"张三"_s, twoRoles); });
    const qint16 id = cUsers::GetUserID(u"张三"_s);
    EXPECT_EQ(added,
              u"Select Count(*) from Users where UserName='张三'\n"
              "begin transaction\n"
              "insert into Users (UserName,UserDesc,Password,Locked) values ('张三','说明','pw',0)\n"
              "SELECT MAX(UserID) FROM Users\n"
              "insert into UserRole (UserID,RoleID) values (%1,3)\n"
              "insert into UserRole (UserID,RoleID) values (%1,5)\n"
              "commit transaction"_s.arg(id));
    EXPECT_EQ(add(u"张三"_s), Status::Taken);
    const cRoles others = roles({4, 6});
    EXPECT_EQ(sentBy([&] { return cUser::Update(id, u"李四"_s, u"d"_s, u"p2"_s, true, others); }),
              u"Select Count(*) from Users where UserName='李四' and UserID<>%1\n"
              "begin transaction\n"
              "Update Users Set UserName='李四', UserDesc='d', Password='p2', Locked=1 where UserID=%1\n"
              "delete from UserRole where UserID=%1\n"
              "insert into UserRole (UserID,RoleID) values (%1,4)\n"
              "insert into UserRole (UserID,RoleID) values (%1,6)\n"
              "commit transaction"_s.arg(id));
    EXPECT_EQ(cUser::Update(30'000, u"李四"_s, {}, {}, false, {}), Status::Taken);
    EXPECT_EQ(cUser::GetUserRoles(id).Count(), 0) << "a link to a role that is gone gives nothing";
}

TEST_P(UserTest, EachStatementFailsInTurn) {
    failEachStatement(
        OnError::Stops, u"0 0, 0 0, 0 0, 1 0, 1 0, 1 1, 1 2"_s, forget, [] { return add(u"张三"_s, twoRoles); },
        counts);
    const cRoles others = roles({4, 6});
    qint16 id = 0;
    const auto store = [&] {
        forget();
        EXPECT_EQ(add(u"old"_s, {3}), Status::Done);
        id = cUsers::GetUserID(u"old"_s);
    };
    // Statements: guard, begin, user, links' deletion, two links, commit. An unanswered guard writes nothing.
    failEachStatement(
        OnError::GoesOn, u"old: 3, new: 4 6, old: 4 6, new: 3 4 6, new: 6, new: 4, new: 4 6"_s, store,
        [&] { return cUser::Update(id, u"new"_s, {}, {}, false, others); },
        [] {
            return rowsOf(u"select UserName from Users"_s) + u": "_s +
                   rowsOf(u"select RoleID from UserRole order by RoleID"_s).replace(u'\n', u' ');
        });
    failEachStatement(
        OnError::GoesOn, u"0 0, 0 1, 1 0, 0 0"_s, store, [&] { return cUser::Delete(id); }, counts);
}

TEST_P(UserTest, LoginAsksForNamePasswordAndAnOpenLock) {
    add(u"a"_s, {}, u"p w "_s);
    EXPECT_EQ(cUser::GetPassword(u"a"_s), u"p w "_s);
    EXPECT_EQ(cUser::UpdatePassword(u"a"_s, u" pw"_s), Status::Done);
    EXPECT_THROW(cUser::GetPassword(u"nobody"_s), RuntimeError);
    add(u"nopassword"_s, {}, QString());
    EXPECT_TRUE(cUsers::IsExistUser(u"A"_s, u" PW"_s));
    EXPECT_TRUE(cUsers::IsExistUser(u"nopassword"_s, QString()));
    EXPECT_FALSE(cUsers::IsExistUser(u"a"_s, u"pw"_s));
    cnnPublic.Execute(u"update Users set Locked=null"_s);
    EXPECT_FALSE(cUsers::IsExistUser(u"a"_s, u" pw"_s)) << "a lock that nobody set is not open";
}

TEST_P(UserTest, AnyGrantingRoleGivesTheRight) {
    cnnPublic.Execute(u"delete from RoleRight"_s);
    const QString testing = rowsOf(u"select ModuleCode from Modules where TableName='testing'"_s);
    cnnPublic.Execute(
        u"insert into RoleRight (RoleID,ModuleCode,ModuleFunction,IsAccess) values (71,'%1','browse',1), "
        "(71,'%1','del',0), (72,'%1','browse',0), (72,'%1','del',1)"_s.arg(testing));
    add(u"one"_s, {71});
    add(u"both"_s, {71, 72});
    // Whether the user may open the module and delete in it.
    const auto access = [](const QString& user, const QString& module) {
        return u"%1%2"_s.arg(cUsers::IsAccessModule(user, module))
            .arg(cUsers::IsAccessFunction(user, module, u"del"_s));
    };
    EXPECT_EQ(access(u"one"_s, u"testing"_s), u"10"_s);
    EXPECT_EQ(access(u"both"_s, u"Testing"_s), u"11"_s);
    EXPECT_EQ(access(u"admin"_s, u"testing"_s), u"00"_s);
    EXPECT_THROW(cUsers::IsAccessModule(u"one"_s, u"nomodule"_s), RuntimeError);
    EXPECT_EQ(
        statementsOf([] { cUsers::IsAccessFunction(u"张三"_s, u"testing"_s, u"find"_s); }).join(u'\n'),
        u"Select ModuleCode from Modules where TableName='testing'\n"
        "Select isAccess from RoleRight where modulefunction='find' and ModuleCode='%1' and isaccess=1 and RoleID "
        "in (Select RoleID from Users,UserRole where Users.UserID=UserRole.UserID and Users.UserName='张三')"_s.arg(
            testing));
}

}  // namespace

}  // namespace talvora::test
