#include "access/cfunction.h"
#include "access/cmodule.h"
#include "access/crole.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class RoleTest : public DatabaseTest {
 protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        forget();
    }

    static void forget() { emptyTables({u"Roles"_s, u"RoleRight"_s}); }
    static QString counts() { return rowCounts({u"Roles"_s, u"RoleRight"_s}); }

    static void addRow(const QString& code, const QString& name) {
        cnnPublic.Execute(u"insert into Roles (RoleName,RoleCode) values ('"_s + name + u"','"_s + code + u"')"_s);
    }

    static cRoleRights twoRights() {
        cRoleRights rights;
        for (const bool granted : {true, false}) {
            auto right = std::make_shared<cRoleRight>();
            right->ModuleCode = u"001001"_s;
            right->ModuleFunction = granted ? u"browse"_s : u"del"_s;
            right->IsAccess = granted;
            rights.Add(right);
        }
        return rights;
    }

    static qint16 keyOf(const QString& name) {
        return static_cast<qint16>(rowsOf(u"select RoleID from Roles where RoleName='"_s + name + u'\'').toInt());
    }
};
TALVORA_ON_EVERY_ENGINE(RoleTest);

TEST_P(RoleTest, AddNewSendsThisSeries) {
    addRow(u"004"_s, u"上级"_s);
    const auto sent =
        statementsOf([] { EXPECT_EQ(cRole::AddNew(u"004"_s, u"文员"_s, u"说明"_s, twoRights()), Status::Done); });
    EXPECT_EQ(sent.join(u'\n'),
              u"Select Count(*) from Roles where RoleName='文员'\n"
              "begin transaction\n"
              "SELECT MAX(RoleCode)  FROM Roles where left(RoleCode,3) ='004' and Len(RoleCode)=6\n"
              "insert into Roles (RoleName,RoleCode,RoleDesc) values ('文员','004001','说明')\n"
              "SELECT MAX(RoleID) FROM Roles\n"
              "insert into Roleright (RoleID,moduleCode,moduleFunction,IsAccess) values (%1,'001001','browse',1)\n"
              "insert into Roleright (RoleID,moduleCode,moduleFunction,IsAccess) values (%1,'001001','del',0)\n"
              "commit transaction"_s.arg(keyOf(u"文员"_s)));
    EXPECT_EQ(cRole::AddNew({}, u"文员"_s, {}, {}), Status::Taken);
}

TEST_P(RoleTest, UpdateSendsThisSeries) {
    addRow(u"004"_s, u"文员"_s);
    const qint16 id = keyOf(u"文员"_s);
    const auto sent = statementsOf([&] { EXPECT_EQ(cRole::Update(id, u"主管"_s, u"d"_s, twoRights()), Status::Done); });
    EXPECT_EQ(sent.join(u'\n'),
              u"Select Count(*) from Roles where RoleName='主管' and RoleID<>%1\n"
              "begin transaction\n"
              "Update Roles Set RoleName='主管',RoleDesc='d' where RoleID=%1\n"
              "delete from RoleRight where RoleID=%1\n"
              "insert into RoleRight (RoleID,moduleCode,ModuleFunction,IsAccess) values (%1,'001001','browse',1)\n"
              "insert into RoleRight (RoleID,moduleCode,ModuleFunction,IsAccess) values (%1,'001001','del',0)\n"
              "commit transaction"_s.arg(id));
    EXPECT_EQ(rowsOf(u"select RoleCode from Roles"_s), u"004"_s);
    EXPECT_EQ(cRole::Update(30'000, u"主管"_s, {}, {}), Status::Taken);
}

TEST_P(RoleTest, CodesRunOnUntilTheirSchemeRunsOut) {
    EXPECT_EQ(cRole::GetRoleCode(u"parent"_s, {}), u"001"_s);
    for (const QString& code : {u"009"_s, u"009004"_s, u"001003"_s, u"010001"_s}) {
        addRow(code, code);
    }
    EXPECT_EQ(cRole::GetRoleCode(u"parent"_s, {}), u"0010"_s);
    EXPECT_EQ(cRole::GetRoleCode(u"child"_s, u"009"_s), u"009005"_s);
    EXPECT_EQ(cRole::GetRoleCode(u"child"_s, {}), u"001004"_s);
    EXPECT_EQ(cRole::GetRoleCode(u"child"_s, u"010"_s), u"0010002"_s);
}

TEST_P(RoleTest, EachErrorGoesToTheCallerWithTheTransactionOpen) {
    qint16 id = 0;
    const auto store = [&] {
        forget();
        addRow(u"001"_s, u"old"_s);
        id = keyOf(u"old"_s);
    };
    const auto left = [](const QStringList& sent) {
        return counts() + (sent.contains(u"commit transaction"_s) ? u" at the commit"_s : QString());
    };
    failEachStatement(
        {u"1 0"_s, u"1 0"_s, u"1 0"_s, u"1 0"_s, u"2 0"_s, u"2 0"_s, u"2 1"_s, u"2 2 at the commit"_s}, store,
        [] { EXPECT_THROW(cRole::AddNew({}, u"new"_s, {}, twoRights()), DatabaseError); }, left);
    failEachStatement(
        {u"1 0"_s, u"1 0"_s, u"1 0"_s, u"1 0"_s, u"1 0"_s, u"1 1"_s, u"1 2 at the commit"_s}, store,
        [&] { EXPECT_THROW(cRole::Update(id, u"new"_s, {}, twoRights()), DatabaseError); }, left);
}

TEST_P(RoleTest, RoleInUseIsNotDeleted) {
    cRole::AddNew({}, u"a"_s, {}, twoRights());
    cRole::AddNew({}, u"b"_s, {}, twoRights());
    cnnPublic.Execute(u"insert into UserRole (UserID,RoleID) values (1,%1)"_s.arg(keyOf(u"a"_s)));
    EXPECT_EQ(cRole::Delete(keyOf(u"a"_s)), Status::InUse);
    EXPECT_EQ(counts(), u"2 4"_s);
    EXPECT_EQ(cRole::Delete(keyOf(u"b"_s)), Status::Done);
    EXPECT_EQ(counts(), u"1 2"_s);
}

TEST_P(RoleTest, DeleteGoesOnPastEachFailingStatement) {
    qint16 id = 0;
    // An unanswered guard deletes nothing.
    failEachStatement(
        {u"1 2"_s, u"0 0"_s, u"0 2"_s, u"1 0"_s, u"0 0"_s},
        [&] {
            forget();
            cRole::AddNew({}, u"a"_s, {}, twoRights());
            id = keyOf(u"a"_s);
        },
        [&] { EXPECT_EQ(cRole::Delete(id), Status::Failed); }, [](const QStringList&) { return counts(); });
}

TEST_P(RoleTest, RightsAreFoundByModuleAndFunction) {
    cRole::AddNew({}, u"a"_s, {}, twoRights());
    cRole::AddNew({}, u"b"_s, {}, {});
    const cRoleRights rights = cRole::GetRoleFunction(keyOf(u"a"_s));
    EXPECT_EQ(rights.Count(), 2);
    EXPECT_TRUE(rights.Item(u"a001001browse"_s)->IsAccess);
    EXPECT_FALSE(rights.Item(u"a001001del"_s)->IsAccess);
    EXPECT_EQ(rights.Item(1)->RoleID, keyOf(u"a"_s));
    EXPECT_EQ(cRole::GetRoleFunction(keyOf(u"b"_s)).Count(), 0);
}

TEST_P(RoleTest, RolesAreListedByCode) {
    for (const QString& code : {u"002"_s, u"001001"_s, u"001"_s, u"0010"_s}) {
        addRow(code, u"r"_s + code);
    }
    const auto codes = [](const cRoles& roles) {
        QStringList found;
        for (const auto& role : roles) {
            found += role->RoleCode.text();
        }
        return found.join(u' ');
    };
    cRoles roles;
    EXPECT_EQ(codes(roles.Find(0)), u"001 0010 001001 002"_s);
    EXPECT_EQ(codes(roles.GetRoleLevel1()), u"001 002"_s);
    EXPECT_EQ(codes(roles.Find(keyOf(u"r002"_s))), u"002"_s);
    EXPECT_EQ(roles.Item(1)->RoleDesc, QString());
}

TEST_P(RoleTest, CatalogueIsReadByLevel) {
    cModules headings;
    cModules modules;
    cFunctions functions;
    QStringList keys;
    for (const auto& heading : headings.Find({})) {
        EXPECT_EQ(heading->ModuleCode.text().size(), 3);
        for (const auto& module : modules.Find(heading->ModuleCode)) {
            keys += module->TableName;
            ASSERT_GT(functions.Find(module->ModuleCode).Count(), 1);
            EXPECT_EQ(functions.Item(2)->ModuleCode.text(), module->ModuleCode.text());
            EXPECT_LT(functions.Item(1)->FunctionKey.text(), functions.Item(2)->FunctionKey.text());
        }
    }
    keys.sort();
    EXPECT_EQ(keys.join(u' '), u"position roles solution testing testingtype users"_s);
}

}  // namespace

}  // namespace talvora::test
