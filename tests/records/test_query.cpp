#include "results/cquery.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class QueryTest : public DatabaseTest {};
TALVORA_ON_EVERY_ENGINE(QueryTest);

TEST_P(QueryTest, StatementComesBackAsItWentIn) {
    const QString condition = u"Select * From TestingResult WHERE Sex in ('男','女') ORDER BY testingNumber"_s;
    EXPECT_EQ(sentBy([&] { return cQuery::AddNew(u"b"_s, condition); }),
              u"Select Count(*) from Query where Query='b'\n"
              "insert into Query (Query,Condition) values ('b','Select * From TestingResult WHERE Sex in "
              "(''男'',''女'') ORDER BY testingNumber')"_s);
    EXPECT_EQ(cQuery::AddNew(u"a"_s, u"x"_s), Status::Done);
    EXPECT_EQ(cQuery::AddNew(u"a"_s, u"y"_s), Status::Taken);
    EXPECT_EQ(cQuery::AddNew(u"o'"_s, u"y"_s), Status::Failed);
    cQuerys queries;
    const auto second = queries.Find(0).Item(2);
    EXPECT_EQ(queries.Item(1)->Query.text() + second->Query.text() + second->Condition.text(), u"ab"_s + condition);
    statementsOf([&] { EXPECT_EQ(cQuery::Delete(second->QueryID), Status::Failed); }, 1);
    EXPECT_EQ(queries.Find(second->QueryID).Count(), 1);
    EXPECT_EQ(cQuery::Delete(second->QueryID), Status::Done);
    EXPECT_EQ(queries.Find(0).Count(), 1);
}

}  // namespace

}  // namespace talvora::test
