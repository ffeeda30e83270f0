#include "results/ctesting.h"
#include "results/search/cquery.h"
#include "results/search/query_builder.h"
#include "support/database_fixture.h"
#include "support/error_of.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class QueryTest : public DatabaseTest {};
TALVORA_ON_EVERY_ENGINE(QueryTest);

const QDate today(2026, 3, 5);
const QString rule =
    u"Select * From TestingResult WHERE ((TypeCode is null  and SolutionID>0)  or (len(TypeCode)=6 and SolutionID =0)) "
    "and "_s;

/// Of each letter in `ticks` one criterion: n a name, s and S a sex and two, e, p, t, r the lists.
QueryCriteria criteria(const QString& dateChoice, const QString& ticks) {
    const auto list = [&](char letter, const QStringList& values) {
        return ticks.contains(QLatin1Char(letter)) ? values : QStringList();
    };
    return {dateChoice,
            {2026, 1, 30},
            {2026, 2, 28},
            ticks.contains(u'n') ? u"李"_s : QString(),
            list('s', {u"男"_s}) + list('S', {u"男"_s, u"女"_s}),
            list('e', {u"本科"_s}),
            list('p', {u"经理"_s}),
            list('t', {u"诚信"_s, u"沟通"_s}),
            list('r', {u"优秀"_s, {}})};
}

TEST_P(QueryTest, PiecesAreThese) {
    const QString range = u"(testingdate>='2026-01-30' and testingdate<='2026-02-28')"_s;
    const QString lists =
        u" sex in ('男') %1 Education in ('本科') %1 PostName in ('经理') %1 TypeName in ('诚信','沟通') %1"_s;
    const QString result = u" TestingResult in ('优秀','')"_s;
    const struct {
        QString dateChoice, ticks, logic, where;
    } table[] = {
        {{}, {}, u" and "_s, range + u' '},
        {u" "_s, {}, u" or "_s, range},
        {u"0 - 最近一周"_s, {}, u" and "_s, u"testingdate>='2026-02-26' "_s},
        {u"1 - 最近一月"_s, {}, u" or "_s, u"testingdate>='2026-02-02'"_s},
        {u"1 - 最近一月"_s, {}, u"or"_s, u"testingdate>='2026-02-02'or"_s},
        // The name takes the date's place.
        {u"0 - 最近一周"_s, u"n"_s, u" and "_s, u"Name like '%李%'  "_s},
        {{}, u"n"_s, u"and"_s, u"Name like '%李%'"_s},
        {{}, u"n"_s, u"or"_s, u"Name like '%李%' or"_s},
        {{}, u"nr"_s, u"or"_s, u"Name like '%李%' or"_s + result},
        {{}, u"S"_s, u"and"_s, range + u"and sex in ('男','女')"_s},
        {{}, u"S"_s, u"or"_s, range + u"or sex in ('男','女') or"_s},
        // Behind the results nothing is cut.
        {{}, u"r"_s, u" and "_s, range + u" and "_s + result},
        {{}, u"septr"_s, u" or "_s, range + u" or "_s + lists.arg(u" or "_s) + result},
        {{}, u"septr"_s, u"and"_s, range + u"and"_s + lists.arg(u"and"_s) + result},
    };
    for (const auto& row : table) {
        EXPECT_EQ(BuildQuerySQL(criteria(row.dateChoice, row.ticks), row.logic, today),
                  rule + row.where + u" ORDER BY testingNumber"_s)
            << row.ticks.toStdString() << row.logic.toStdString();
    }
}

// Every combination: with blanks around the word all run; without them those that end in no dangling word.
TEST_P(QueryTest, StatementsRunUnlessAWordDangles) {
    for (const auto& logic : {u" and "_s, u" or "_s, u"and"_s, u"or"_s}) {
        for (int mask = 0; mask < 1 << 7; ++mask) {
            QString ticks;
            for (int i = 0; i < 6; ++i) {
                ticks += (mask & 1 << i) != 0 ? u"nSeptr"_s.mid(i, 1) : QString();
            }
            const bool runs = logic.size() > 3 || ticks.contains(u'r') || (logic == u"and"_s && !ticks.isEmpty());
            const QString statement = BuildQuerySQL(criteria(QString::number(mask >> 6), ticks), logic, today);
            EXPECT_EQ(errorOf([&] { cTestings().Find(0, statement); }) == 0, runs) << statement.toStdString();
        }
    }
}

TEST_P(QueryTest, StatementComesBackAsItWentIn) {
    const QString condition = u"Select * From TestingResult WHERE Sex in ('男','女') ORDER BY testingNumber"_s;
    EXPECT_EQ(sentBy([&] { return cQuery::AddNew(u"b"_s, condition); }),
              u"Select Count(*) from Query where Query='b'\n"
              "insert into Query (Query,Condition) values ('b','Select * From TestingResult WHERE Sex in "
              "(''男'',''女'') ORDER BY testingNumber')"_s);
    EXPECT_EQ(cQuery::AddNew(u"a"_s, u"x"_s), Status::Done);
    EXPECT_EQ(cQuery::AddNew(u"a"_s, u"y"_s), Status::Taken);
    cQuerys queries;
    const auto second = queries.Find(0).Item(2);
    EXPECT_EQ(queries.Item(1)->Query.text() + second->Query.text() + second->Condition.text(), u"ab"_s + condition);
    EXPECT_EQ(cQuery::Delete(second->QueryID), Status::Done);
    EXPECT_EQ(queries.Find(0).Count(), 1);
}

}  // namespace

}  // namespace talvora::test
