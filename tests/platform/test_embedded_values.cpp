// What T-SQL's expressions give on the embedded engine: collation, functions, conversions and their errors.

#include "platform/database/embedded/collation.h"
#include "platform/embedded_bank.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

#include <vector>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

TEST(EmbeddedValues, FunctionsAndOperators) {
    const QString cases =
        uR"(
len('ab  ') -> 2; len(null) -> null; len(12345) -> 5; nosuch(1) -> error 195
left('甲乙丙',2) -> 甲乙; left('ab',9) -> ab; left('ab',-1) -> error 537; left('a') -> error 174
right('abc',2) -> bc; right('abc',0); right('abc',0-1) -> error 536
patindex('%－%','0-59') -> 2; patindex('%－%','059') -> 0; patindex('a%','xa') -> 0; patindex('%[0-9]%','ab7') -> 3
+5 -> 5; -(5) -> -5; +(2)-+(-3) -> 5; - -5 -> 5; -(2*3) -> -6; 2*-len('ab') -> -4; -null -> null; +'a' -> a
-'a' -> error 8117; + -> error 102; -(0-2147483647-1) -> error 8115
2147483647+1 -> error 8115; 2+3*4-(5-1) -> 10; .5+1. -> 1.5; 1e2 -> 100; 'a'*'b' -> error 8117
'a'+N'乙'+'''c''' -> a乙'c'; 'a'+null -> null; '5'+1 -> 6; 'x'+1 -> error 245
)"_s;
    test::EmbeddedBank().walk(cases, u"select "_s);
}

TEST(EmbeddedValues, Conversions) {
    const QString cases =
        uR"(
'' as int) -> 0; ' 12 ' as int) -> 12; '-5' as int) -> -5; 2.9 as int) -> 2; 7 as bit) -> 1; '1.25' as float) -> 1.25
'5.5' as int) -> error 245; 'a' as int) -> error 245; '５' as int) -> error 245; 'x' as float) -> error 8114
'99999999999' as int) -> error 248; 99999999999 as int) -> error 8115; 40000 as smallint) -> error 8115
'abcdef' as nvarchar(3)) -> abc; 12 as nvarchar(10))+'%' -> 12%; 1 as nosuch) -> error 2715
'2026-3-4' as datetime) -> 2026-03-04 00:00:00; '20260304 1:02' as datetime) -> 2026-03-04 01:02:00
'2026-02-30' as datetime) -> error 241
)"_s;
    test::EmbeddedBank().walk(cases, u"select cast("_s);
}

TEST(EmbeddedValues, Conditions) {
    const QString cases =
        uR"(
'abc'='ＡＢＣ  ' -> 1; '￥5'='¥5' -> 1; left('AB',1)='a' -> 1; null=null; 1<>2 and -1<1 -> 1; 1 -> error 4145
'a' in ('B','A') -> 1; 'a' not in ('B','A'); case 'b' when 'A' then 1 when 'B' then 2 end=2 -> 1
'1'=1 -> 1; 'x'=1 -> error 245; '10'>9 -> 1; '10'>'9'
'张三' like '张_' -> 1; 'ab' like 'A%' -> 1; 'ab  ' like 'ab' -> 1; 'd' like '[a-c]'; 'd' like '[^a-c]' -> 1
'[a' like '%[a%'; 'aaaaaaaaaaaaaaaaaaaaab' like '%a%a%a%a%a%a%a%c'
)"_s;
    test::EmbeddedBank().walk(cases, u"select 1 where "_s);
}

TEST(EmbeddedValues, TextIsOneUnderTheCollationInEveryClause) {
    test::EmbeddedBank().walk(
        uR"(
create table t (k nvarchar(10) not null primary key, n int)
insert into t values ('b',1),('Ａ',2),('乙',3),('甲',4),('1',5),('_b',6),('１a',7),('（',8)
insert into t values ('a ',9) -> error 2627
select n from t where k='A' -> 2; select n from t where k<'0' order by k -> 8 / 6
select n from t order by k -> 8 / 6 / 5 / 7 / 2 / 1 / 4 / 3
select k from t where k>='甲' order by k desc -> 乙 / 甲
create table u (k nvarchar(10), n int)
insert into u values ('ax',1),('AＸ',2),('bx',4)
select sum(n) from u group by left(k,1) order by sum(n) -> 3 / 4
select count(*) from (select distinct left(k,1) as l from u) d -> 2
select t.n from t, (select left(k,1) as l from u where n=1) d where d.l=t.k -> 2
select left(k,1) as l, sum(n) as s into #s from u group by left(k,1)
select s from #s where l='Ａ' -> 3
select max(k) from u -> bx
)"_s);
}

TEST(EmbeddedValues, TheCollationIsATotalOrder) {
    // Random short texts of few characters meet every case of the comparison often.
    const QString alphabet = u"aAＡb 　-－1啊阿吖z_é"_s;
    QRandomGenerator random(7);
    std::vector<QString> texts(60);
    for (QString& text : texts) {
        for (int n = random.bounded(12); n > 0; --n) {
            text += alphabet[random.bounded(static_cast<int>(alphabet.size()))];
        }
    }
    using embedded::compareText;
    for (const QString& a : texts) {
        EXPECT_EQ(compareText(a, a + u"  "_s), 0);
        EXPECT_EQ(compareText(a, a.toUpper()), 0) << qPrintable(a);
        for (const QString& b : texts) {
            ASSERT_EQ(compareText(a, b) > 0, compareText(b, a) < 0) << qPrintable(a) << '/' << qPrintable(b);
            for (const QString& c : texts) {
                if (compareText(a, b) <= 0 && compareText(b, c) <= 0) {
                    ASSERT_LE(compareText(a, c), 0) << qPrintable(a) << '/' << qPrintable(b) << '/' << qPrintable(c);
                }
            }
        }
    }
}

}  // namespace
