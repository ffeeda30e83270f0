#include "organisation/cposition.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class PositionTest : public DatabaseTest {
 protected:
    static void addRows(const QString& codes) {
        cnnPublic.Execute(u"delete from Position"_s);
        for (const QString& code : codes.split(u' ', Qt::SkipEmptyParts)) {
            cnnPublic.Execute(
                u"insert into Position (PostCode,PostName) values ('%1','名%2')"_s.arg(code, code.right(20)));
        }
    }

    /// Code and name of what a loader found.
    static QString listed(const cPositions& positions) {
        QStringList found;
        for (const auto& position : positions) {
            found += position->PostCode + position->PostName.text();
        }
        return found.join(u' ');
    }
    static QString listed() { return listed(cPositions().Find({})); }
};
TALVORA_ON_EVERY_ENGINE(PositionTest);

TEST_P(PositionTest, CodesGrowByTheirScheme) {
    const QString deep = QString(27, u'0');
    const QString cases[][4] = {
        {{}, u"parent"_s, {}, u"001"_s},
        {u"001 002 002001"_s, u"parent"_s, u"001"_s, u"003"_s},
        {u"001"_s, u"child"_s, u"001"_s, u"001001"_s},
        {u"001 001009 001009001"_s, u"child"_s, u"001"_s, u"001010"_s},
        // Beside a position of a lower level the new one goes under the parent of the level's greatest code.
        {u"001 001001 002 002007"_s, u"parent"_s, u"001001"_s, u"002008"_s},
        {u"099"_s, u"parent"_s, u"099"_s, u"100"_s},
        {u"998 999"_s, u"parent"_s, u"998"_s, u"000"_s},
        {{}, u"child"_s, u"005"_s, u"005001"_s},
        {{}, u"parent"_s, u"005"_s, u"005001"_s},
        {deep + u"001"_s, u"parent"_s, deep + u"001"_s, deep + u"002"_s},
    };
    for (const auto& [present, kind, reference, added] : cases) {
        addRows(present);
        EXPECT_EQ(cPosition::AddNew(kind, reference, u"新"_s, 3), Status::Done);
        EXPECT_EQ(rowsOf(u"select PostCode,Peoples from Position where PostName='新'"_s), added + u"|3"_s)
            << (present + u" / "_s + reference).toStdString();
    }
}

TEST_P(PositionTest, StatementsAreThese) {
    addRows(u"001"_s);
    const auto sent = statementsOf([] {
        EXPECT_EQ(cPosition::AddNew(u"parent"_s, u"001"_s, u"甲"_s, 4), Status::Done);
        EXPECT_EQ(cPosition::AddNew(u"child"_s, u"001"_s, u"甲"_s, -1), Status::Done);
        EXPECT_EQ(cPosition::Update(u"001"_s, u"乙"_s, 5), Status::Done);
        EXPECT_EQ(cPosition::GetParent(u"001001"_s), u"乙"_s);
        EXPECT_EQ(cPosition::Delete(u"002"_s), Status::Done);
    });
    EXPECT_EQ(sent.join(u'\n'),
              u"SELECT MAX(PostCode)  FROM Position where len(PostCode)=3\n"
              "insert into Position (PostName,PostCode,Peoples) values ('甲','002',4)\n"
              "SELECT MAX(PostCode)  FROM Position where left(PostCode,3) ='001' and Len(PostCode)=6\n"
              "insert into Position (PostName,PostCode,Peoples) values ('甲','001001',-1)\n"
              "select * from Position where PostCode='001'\n"
              "select * from Position where PostName='乙' and PostCode<>'001'\n"
              "Update Position Set PostName='乙',Peoples=5 where PostCode='001'\n"
              "SELECT PostName  FROM Position where len(PostCode)=3 and postcode='001'\n"
              "select * from Position where left(PostCode,3)='002' and len(PostCode)>3\n"
              "Delete from Position where PostCode='002'"_s);
}

TEST_P(PositionTest, GuardsRefuseAndFailuresChangeNothing) {
    addRows(u"001 001001 002"_s);
    EXPECT_EQ(cPosition::AddNew(u"parent"_s, u"001"_s, u"名001"_s, 0), Status::Done) << "adding tests no name";
    EXPECT_EQ(cPosition::Update(u"002"_s, u"名001001"_s, 1), Status::Taken);
    EXPECT_EQ(cPosition::Update(u"002"_s, u"名001"_s, 1), Status::Taken) << "even when two hold it";
    EXPECT_EQ(cPosition::Update(u"002"_s, u"名002"_s, 7), Status::Done) << "its own name";
    EXPECT_EQ(cPosition::Update(u"009"_s, u"x"_s, 1), Status::NoSuchRow);
    EXPECT_EQ(cPosition::Delete(u"001"_s), Status::InUse);
    for (int failing = 1; failing <= 3; ++failing) {
        statementsOf([] { EXPECT_EQ(cPosition::Update(u"001"_s, u"x"_s, 9), Status::Failed); }, failing);
    }
    for (int failing = 1; failing <= 2; ++failing) {
        statementsOf([] { EXPECT_EQ(cPosition::AddNew(u"parent"_s, u"001"_s, u"x"_s, 9), Status::Failed); }, failing);
        statementsOf([] { EXPECT_EQ(cPosition::Delete(u"003"_s), Status::Failed); }, failing);
    }
    EXPECT_EQ(listed(), u"001名001 001001名001001 002名002 003名001"_s);
    EXPECT_EQ(listed(cPositions().GetDistPostName()), u"1名001 2名001001 3名002"_s);
    EXPECT_EQ(cPosition::Delete(u"001001"_s), Status::Done);
    EXPECT_EQ(cPosition::Delete(u"001"_s), Status::Done);
    EXPECT_EQ(listed(), u"002名002 003名001"_s);
}

TEST_P(PositionTest, ParentIsOneLevelUp) {
    addRows(u"001 001002"_s);
    const QString cases[][2] = {{u"001002007"_s, u"名001002"_s},
                                {u"001009"_s, u"名001"_s},
                                {u"001"_s, {}},
                                {u"009001"_s, {}},
                                {{}, {}},
                                {u"01"_s, {}}};
    for (const auto& [code, parent] : cases) {
        EXPECT_EQ(cPosition::GetParent(code), parent) << code.toStdString();
    }
}

}  // namespace

}  // namespace talvora::test
