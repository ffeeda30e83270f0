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

    static QString listed() { return rowsOf(u"select PostName from Position order by PostCode"_s); }
};
TALVORA_ON_EVERY_ENGINE(PositionTest);

TEST_P(PositionTest, CodesGrowByTheirScheme) {
    const QString deep = QString(27, u'0');
    const QString cases[][3] = {
        // Beside a position of a lower level the new one goes under the parent of the level's greatest code.
        {u"001 001001 002 002007"_s, u"001001"_s, u"002008"_s},
        {u"099"_s, u"099"_s, u"100"_s},
        {u"998 999"_s, u"998"_s, u"000"_s},
        {{}, u"005"_s, u"005001"_s},
        {deep + u"001"_s, deep + u"001"_s, deep + u"002"_s}};
    for (const auto& [present, reference, added] : cases) {
        addRows(present);
        EXPECT_EQ(cPosition::AddNew(u"parent"_s, reference, u"新"_s, 3), Status::Done);
        EXPECT_EQ(rowsOf(u"select PostCode,Peoples from Position where PostName='新'"_s), added + u"|3"_s)
            << present.toStdString();
    }
}

TEST_P(PositionTest, StatementsAreThese) {
    addRows(u"001"_s);
    const auto sent = statementsOf([] {
        EXPECT_EQ(cPosition::AddNew(u"parent"_s, u"001"_s, u"甲"_s, 4), Status::Done);
        EXPECT_EQ(cPosition::AddNew(u"child"_s, u"001"_s, u"甲"_s, -1), Status::Done);
        EXPECT_EQ(cPosition::Update(u"001"_s, u"乙"_s, 5), Status::Done);
        EXPECT_EQ(cPosition::GetParent(u"001001"_s), u"乙"_s);
        EXPECT_EQ(cPosition::GetParent({}), QString());
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
    const auto update = [] { EXPECT_EQ(cPosition::Update(u"001"_s, u"x"_s, 9), Status::Failed); };
    statementsOf(update, 3);
    for (int failing = 1; failing <= 2; ++failing) {
        statementsOf(update, failing);
        statementsOf([] { EXPECT_EQ(cPosition::AddNew(u"parent"_s, u"001"_s, u"x"_s, 9), Status::Failed); }, failing);
    }
    statementsOf([] { EXPECT_THROW(cPosition::Delete(u"002"_s), DatabaseError); }, 1);
    statementsOf([] { EXPECT_EQ(cPosition::Delete(u"002"_s), Status::Failed); }, 2);
    EXPECT_EQ(listed(), u"名001\n名001001\n名002\n名001"_s);
    EXPECT_EQ(cPositions().GetDistPostName().Item(3)->PostName.text(), u"名002"_s) << "each name once";
    EXPECT_EQ(cPosition::Delete(u"001001"_s), Status::Done);
    EXPECT_EQ(cPosition::Delete(u"001"_s), Status::Done);
    EXPECT_EQ(listed(), u"名002\n名001"_s);
}

}  // namespace

}  // namespace talvora::test
