#include "access/cuser.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class UserTest : public DatabaseTest {
 protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        forget();
    }

    static void forget() { emptyTables({u"Users"_s, u"UserRole"_s}); }
    static void store() {
        forget();
        EXPECT_EQ(add(u"old"_s, {3}), Status::Done);
    }

    static cRoles roles(const QList<qint16>& ids) {
        cRoles all;
        for (const qint16 id : ids) {
            auto role = std::make_shared<cRole>();
            role->RoleID = id;
            all.Add(role);
        }
        return all;
    }

    static Status add(const QString& name, const QList<qint16>& roleIds = {}, const QString& password = u"pw"_s) {
        return cUser::AddNew(name, u"说明"_s, password, roles(roleIds));
    }

    static QString users() { return rowsOf(u"select UserName,UserDesc,Password,Locked from Users order by UserID"_s); }
    static QString links() { return rowsOf(u"select RoleID from UserRole order by RoleID"_s).replace(u'\n', u' '); }
};
TALVORA_ON_EVERY_ENGINE(UserTest);

TEST_P(UserTest, AddNewSendsThisSeries) {
    const auto sent = statementsOf([] { EXPECT_EQ(add(u"张三"_s, {3, 5}), Status::Done); });
    EXPECT_EQ(sent.join(u'\n'),
              u"Select Count(*) from Users where UserName='张三'\n"
              "begin transaction\n"
              "insert into Users (UserName,UserDesc,Password,Locked) values ('张三','说明','pw',0)\n"
              "SELECT MAX(UserID) FROM Users\n"
              "insert into UserRole (UserID,RoleID) values (%1,3)\n"
              "insert into UserRole (UserID,RoleID) values (%1,5)\n"
              "commit transaction"_s.arg(cUsers::GetUserID(u"张三"_s)));
    EXPECT_EQ(add(u"张三"_s), Status::Taken);
}

TEST_P(UserTest, UpdateSendsThisSeries) {
    add(u"张三"_s, {3});
    const qint16 id = cUsers::GetUserID(u"张三"_s);
    const auto sent = statementsOf([&] {
        EXPECT_EQ(cUser::Update(id, u"李四"_s, u"d"_s, u"p2"_s, true, roles({4, 6})), Status::Done);
    });
    EXPECT_EQ(sent.join(u'\n'),
              u"Select Count(*) from Users where UserName='李四' and UserID<>%1\n"
              "begin transaction\n"
              "Update Users Set UserName='李四', UserDesc='d', Password='p2', Locked=1 where UserID=%1\n"
              "delete from UserRole where UserID=%1\n"
              "insert into UserRole (UserID,RoleID) values (%1,4)\n"
              "insert into UserRole (UserID,RoleID) values (%1,6)\n"
              "commit transaction"_s.arg(id));
    EXPECT_EQ(cUser::Update(id, u"李四"_s, u"d"_s, u"p2"_s, false, {}), Status::Done);
    EXPECT_EQ(cUser::Update(30'000, u"李四"_s, {}, {}, false, {}), Status::Taken);
    EXPECT_EQ(users(), u"李四|d|p2|0"_s);
    EXPECT_EQ(links(), QString());
}

TEST_P(UserTest, AddNewStopsAtEachFailingStatementAndLeavesTheTransactionOpen) {
    failEachStatement(
        {u"0 0"_s, u"0 0"_s, u"0 0"_s, u"1 0"_s, u"1 0"_s, u"1 1"_s, u"1 2"_s}, forget,
        [] {
            EXPECT_EQ(add(u"张三"_s, {3, 5}), Status::Failed);
        },
        [](const QStringList& sent) {
            EXPECT_EQ(sent.contains(u"commit transaction"_s), sent.size() == 7);
            EXPECT_FALSE(sent.contains(u"rollback transaction"_s));
            return rowCounts({u"Users"_s, u"UserRole"_s});
        });
}

TEST_P(UserTest, UpdateGoesOnPastEachFailingStatement) {
    qint16 id = 0;
    // Statements: guard, begin, user, links' deletion, two links, commit. An unanswered guard writes nothing.
    failEachStatement(
        {u"old: 3"_s, u"new: 4 6"_s, u"old: 4 6"_s, u"new: 3 4 6"_s, u"new: 6"_s, u"new: 4"_s, u"new: 4 6"_s},
        [&] {
            store();
            id = cUsers::GetUserID(u"old"_s);
        },
        [&] {
            EXPECT_EQ(cUser::Update(id, u"new"_s, {}, {}, false, roles({4, 6})), Status::Failed);
        },
        [](const QStringList&) { return rowsOf(u"select UserName from Users"_s) + u": "_s + links(); });
}

TEST_P(UserTest, DeleteGoesOnPastEachFailingStatement) {
    qint16 id = 0;
    failEachStatement(
        {u"0 0"_s, u"0 1"_s, u"1 0"_s, u"0 0"_s},
        [&] {
            store();
            id = cUsers::GetUserID(u"old"_s);
        },
        [&] { EXPECT_EQ(cUser::Delete(id), Status::Failed); },
        [](const QStringList&) {
            return rowCounts({u"Users"_s, u"UserRole"_s});
        });
}

TEST_P(UserTest, LoginAsksForNamePasswordAndAnOpenLock) {
    add(u"a"_s, {}, u" pw"_s);
    add(u"nopassword"_s, {}, QString());
    add(u"locked"_s);
    cUser::Update(cUsers::GetUserID(u"locked"_s), u"locked"_s, {}, u"pw"_s, true, {});
    const struct {
        QString name;
        QString password;
        bool passes;
    } cases[] = {
        {u"a"_s, u" pw"_s, true},      {u"a"_s, u"pw"_s, false},           {u"b"_s, u" pw"_s, false},
        {u"locked"_s, u"pw"_s, false}, {u"nopassword"_s, QString(), true}, {u"a"_s, QString(), false},
        {u"A"_s, u" PW"_s, true},
    };
    for (const auto& [name, password, passes] : cases) {
        EXPECT_EQ(cUsers::IsExistUser(name, password), passes) << (name + u'/' + password).toStdString();
    }
    cnnPublic.Execute(u"update Users set Locked=null"_s);
    EXPECT_FALSE(cUsers::IsExistUser(u"a"_s, u" pw"_s)) << "a lock that nobody set is not open";
}

TEST_P(UserTest, PasswordsAreKeptAsTyped) {
    add(u"a"_s, {}, u" p w "_s);
    EXPECT_EQ(cUser::GetPassword(u"a"_s), u" p w "_s);
    EXPECT_EQ(cUser::UpdatePassword(u"a"_s, u" x"_s), Status::Done);
    EXPECT_EQ(cUser::GetPassword(u"a"_s), u" x"_s);
    EXPECT_EQ(cUser::UpdatePassword(u"nobody"_s, u"x"_s), Status::Done);
    EXPECT_EQ(cUser::UpdatePassword(u"a"_s, u"'"_s), Status::Failed);
    EXPECT_THROW(cUser::GetPassword(u"nobody"_s), RuntimeError);
}

TEST_P(UserTest, UsersAreListedByName) {
    add(u"b"_s);
    add(u"a"_s);
    cnnPublic.Execute(u"insert into Users (UserName,UserDesc,Locked) values ('c','  x ',1)"_s);
    cUsers users;
    QString found;
    for (const auto& user : users.Find(0)) {
        found +=
            user->UserName + u'/' + user->UserDesc + u'/' + user->Password + (user->Locked ? u"/locked "_s : u" "_s);
    }
    EXPECT_EQ(found, u"a/说明/pw b/说明/pw c/x//locked "_s);
    const qint16 id = cUsers::GetUserID(u"b"_s);
    EXPECT_EQ(users.Find(id).Count(), 1);
    EXPECT_EQ(users.Item(u"a%1"_s.arg(id))->UserName, u"b"_s);
    EXPECT_EQ(cUsers::GetUserID(u"nobody"_s), 0);
}

TEST_P(UserTest, RolesOfAUserAreThoseLinked) {
    const qint16 role = static_cast<qint16>(rowsOf(u"select RoleID from Roles"_s).toInt());
    add(u"a"_s, {role, 30'000});
    add(u"b"_s, {30'000});
    const cRoles found = cUser::GetUserRoles(cUsers::GetUserID(u"a"_s));
    ASSERT_EQ(found.Count(), 1) << "a link to a role that is gone gives nothing";
    EXPECT_EQ(found.Item(1)->RoleName.text(), u"系统管理员"_s);
    EXPECT_EQ(found.Item(1)->RoleCode.text(), u"001"_s);
}

TEST_P(UserTest, AnyGrantingRoleGivesTheRight) {
    cnnPublic.Execute(u"delete from RoleRight"_s);
    const auto grant = [](int role, const QString& module, const QString& function, int access) {
        cnnPublic.Execute(
            u"insert into RoleRight (RoleID,ModuleCode,ModuleFunction,IsAccess) values (%1,'%2','%3',%4)"_s.arg(role)
                .arg(rowsOf(u"select ModuleCode from Modules where TableName='%1'"_s.arg(module)), function)
                .arg(access));
    };
    grant(71, u"testing"_s, u"browse"_s, 1);
    grant(71, u"testing"_s, u"del"_s, 0);
    grant(72, u"testing"_s, u"browse"_s, 0);
    grant(72, u"testing"_s, u"del"_s, 1);
    grant(72, u"roles"_s, u"browse"_s, 0);
    add(u"one"_s, {71});
    add(u"both"_s, {71, 72});
    add(u"none"_s);
    const struct {
        QString user;
        QString module;
        bool opens;
        bool deletes;
    } cases[] = {{u"one"_s, u"testing"_s, true, false},     {u"both"_s, u"Testing"_s, true, true},
                 {u"none"_s, u"testing"_s, false, false},   {u"both"_s, u"roles"_s, false, false},
                 {u"nobody"_s, u"testing"_s, false, false}, {u"admin"_s, u"testing"_s, false, false}};
    for (const auto& [user, module, opens, deletes] : cases) {
        EXPECT_EQ(cUsers::IsAccessModule(user, module), opens) << (user + u'/' + module).toStdString();
        EXPECT_EQ(cUsers::IsAccessFunction(user, module, u"del"_s), deletes) << (user + u'/' + module).toStdString();
    }
    EXPECT_THROW(cUsers::IsAccessModule(u"one"_s, u"nomodule"_s), RuntimeError);
}

TEST_P(UserTest, RightsAreAskedByTheseStatements) {
    const auto sent = statementsOf([] { cUsers::IsAccessFunction(u"张三"_s, u"testing"_s, u"find"_s); });
    EXPECT_EQ(
        sent.join(u'\n'),
        u"Select ModuleCode from Modules where TableName='testing'\n"
        "Select isAccess from RoleRight where modulefunction='find' and ModuleCode='%1' and isaccess=1 and RoleID "
        "in (Select RoleID from Users,UserRole where Users.UserID=UserRole.UserID and Users.UserName='张三')"_s.arg(
            rowsOf(u"select ModuleCode from Modules where TableName='testing'"_s)));
}

}  // namespace

}  // namespace talvora::test
