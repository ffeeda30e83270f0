#include "access/crole.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class RoleTest : public DatabaseTest {
 protected:
    static void forget() { emptyTables({u"Roles"_s, u"RoleRight"_s}); }
    static QString counts() { return rowCounts({u"Roles"_s, u"RoleRight"_s}); }

    static void addRow(const QString& code, const QString& name) {
        cnnPublic.Execute(u"insert into Roles (RoleName,RoleCode) values ('%1','%2')"_s.arg(name, code));
    }

    static cRoleRights twoRights() {
        cRoleRights rights;
        rights.Add(std::make_shared<cRoleRight>(cRoleRight{0, u"001001"_s, u"browse"_s, true}));
        rights.Add(std::make_shared<cRoleRight>(cRoleRight{0, u"001001"_s, u"del"_s, false}));
        return rights;
    }

    static qint16 keyOf(const QString& name) {
        return numberOf(u"select RoleID from Roles where RoleName='%1'"_s.arg(name));
    }
};
TALVORA_ON_EVERY_ENGINE(RoleTest);

TEST_P(RoleTest, AddNewAndUpdateSendTheseSeries) {
    addRow(u"004"_s, u"上级"_s);
    const QString added = sentBy([] { return cRole::AddNew(u"004"_s, u"文员"_s, u"说明"_s, twoRights()); });
    const qint16 id = keyOf(u"文员"_s);
    EXPECT_EQ(added,
              u"Select Count(*) from Roles where RoleName='文员'\n"
              "begin transaction\n"
              "SELECT MAX(RoleCode)  FROM Roles where left(RoleCode,3) ='004' and Len(RoleCode)=6\n"
              "insert into Roles (RoleName,RoleCode,RoleDesc) values ('文员','004001','说明')\n"
              "SELECT MAX(RoleID) FROM Roles\n"
              "insert into Roleright (RoleID,moduleCode,moduleFunction,IsAccess) values (%1,'001001','browse',1)\n"
              "insert into Roleright (RoleID,moduleCode,moduleFunction,IsAccess) values (%1,'001001','del',0)\n"
              "commit transaction"_s.arg(id));
    EXPECT_EQ(cRole::AddNew({}, u"文员"_s, {}, {}), Status::Taken);

    EXPECT_EQ(sentBy([&] { return cRole::Update(id, u"主管"_s, u"d"_s, twoRights()); }),
              u"Select Count(*) from Roles where RoleName='主管' and RoleID<>%1\n"
              "begin transaction\n"
              "Update Roles Set RoleName='主管',RoleDesc='d' where RoleID=%1\n"
              "delete from RoleRight where RoleID=%1\n"
              "insert into RoleRight (RoleID,moduleCode,ModuleFunction,IsAccess) values (%1,'001001','browse',1)\n"
              "insert into RoleRight (RoleID,moduleCode,ModuleFunction,IsAccess) values (%1,'001001','del',0)\n"
              "commit transaction"_s.arg(id));
    EXPECT_EQ(cRole::Update(30'000, u"主管"_s, {}, {}), Status::Taken);
}

TEST_P(RoleTest, EachStatementFailsInTurn) {
    qint16 id = 0;
    const auto store = [&] {
        forget();
        EXPECT_EQ(cRole::AddNew({}, u"old"_s, {}, twoRights()), Status::Done);
        id = keyOf(u"old"_s);
    };
    const auto left = [] { return rowsOf(u"select RoleName from Roles"_s) + u' ' + counts(); };
    // Statements: guard, begin, greatest code, role, its key, two rights, commit. The transaction stays open.
    failEachStatement(
        OnError::Throws, u" 0 0,  0 0,  0 0,  0 0, new 1 0, new 1 0, new 1 1, new 1 2"_s, forget,
        [] { return cRole::AddNew({}, u"new"_s, {}, twoRights()); }, left);
    failEachStatement(
        OnError::Throws, u"old 1 2, old 1 2, old 1 2, new 1 2, new 1 0, new 1 1, new 1 2"_s, store,
        [&] { return cRole::Update(id, u"new"_s, {}, twoRights()); }, left);
    // An unanswered guard deletes nothing.
    failEachStatement(
        OnError::GoesOn, u"1 2, 0 0, 0 2, 1 0, 0 0"_s, store, [&] { return cRole::Delete(id); }, counts);
    store();
    cnnPublic.Execute(u"insert into UserRole (UserID,RoleID) values (1,%1)"_s.arg(id));
    EXPECT_EQ(cRole::Delete(id), Status::InUse);
    EXPECT_EQ(counts(), u"1 2"_s);
}

TEST_P(RoleTest, CodesRunOnFromTheGreatestOfTheirLevel) {
    forget();
    EXPECT_EQ(cRole::GetRoleCode(u"parent"_s, {}), u"001"_s);
    for (const QString& code : {u"009"_s, u"009004"_s, u"001003"_s, u"0010"_s, u"001"_s}) {
        addRow(code, u"r"_s + code);
    }
    EXPECT_EQ(cRole::GetRoleCode(u"parent"_s, {}), u"0010"_s);
    EXPECT_EQ(cRole::GetRoleCode(u"child"_s, u"009"_s), u"009005"_s);
    EXPECT_EQ(cRole::GetRoleCode(u"child"_s, {}), u"001004"_s);
}

}  // namespace

}  // namespace talvora::test
