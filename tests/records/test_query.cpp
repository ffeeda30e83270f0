#include "results/cquery.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class QueryTest : public DatabaseTest {};
TALVORA_ON_EVERY_ENGINE(QueryTest);

TEST_P(QueryTest, StatementComesBackAsItWentIn) {
    const QString condition =
        u"Select * From TestingResult WHERE Name like '%张%' and Sex in ('男','女') ORDER BY testingNumber"_s;
    const auto sent = statementsOf([&] { EXPECT_EQ(cQuery::AddNew(u"张"_s, condition), Status::Done); });
    EXPECT_EQ(
        sent.join(u'\n'),
        u"Select Count(*) from Query where Query='张'\n"
        "insert into Query (Query,Condition) values ('张','Select * From TestingResult WHERE Name like ''%张%'' and "
        "Sex in (''男'',''女'') ORDER BY testingNumber')"_s);
    cQuerys queries;
    const auto found = queries.Find(0).Item(1);
    EXPECT_EQ(found->Query.text(), u"张"_s);
    EXPECT_EQ(found->Condition.text(), condition);
    EXPECT_EQ(queries.Find(found->QueryID).Item(u"a%1"_s.arg(found->QueryID))->Query.text(), u"张"_s);
}

TEST_P(QueryTest, DescriptionsAreListedInOrderAndHeldOnce) {
    EXPECT_EQ(cQuery::AddNew(u"b"_s, u"x"_s), Status::Done);
    EXPECT_EQ(cQuery::AddNew(u"a"_s, u"x"_s), Status::Done);
    EXPECT_EQ(cQuery::AddNew(u"a"_s, u"y"_s), Status::Taken);
    EXPECT_EQ(cQuery::AddNew(u"o'"_s, u"y"_s), Status::Failed);
    cQuerys queries;
    ASSERT_EQ(queries.Find(0).Count(), 2);
    EXPECT_EQ(queries.Item(1)->Query.text(), u"a"_s);
    const qint16 first = queries.Item(1)->QueryID;
    statementsOf([&] { EXPECT_EQ(cQuery::Delete(first), Status::Failed); }, 1);
    EXPECT_EQ(cQuery::Delete(first), Status::Done);
    EXPECT_EQ(queries.Find(first).Count(), 0);
    EXPECT_EQ(queries.Find(0).Count(), 1);
}

}  // namespace

}  // namespace talvora::test
