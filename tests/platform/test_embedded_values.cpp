// What T-SQL's expressions give on the embedded engine: collation, functions, conversions and their errors.

#include "platform/database/embedded/collation.h"
#include "platform/embedded_bank.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

#include <vector>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

struct Case {
    QString expression;
    QString gives;
};

/// Every expression alone behind a select.
void evaluate(const std::vector<Case>& cases) {
    test::EmbeddedBank bank;
    for (const Case& one : cases) {
        EXPECT_EQ(bank.run(u"select "_s + one.expression), one.gives) << qPrintable(one.expression);
    }
}

TEST(EmbeddedValues, Functions) {
    evaluate({
        {u"len('ab  ')"_s, u"2"_s},
        {u"len(null)"_s, u"null"_s},
        {u"left('甲乙丙',2)"_s, u"甲乙"_s},
        {u"left('ab',9)"_s, u"ab"_s},
        {u"left('ab',-1)"_s, u"error 537"_s},
        {u"right('abc',2)"_s, u"bc"_s},
        {u"right('abc',0)"_s, {}},
        {u"right('abc',0-1)"_s, u"error 536"_s},
        {u"patindex('%－%','0-59')"_s, u"2"_s},
        {u"patindex('%－%','059')"_s, u"0"_s},
        {u"patindex('a%','xa')"_s, u"0"_s},
        {u"patindex('%[0-9]%','ab7')"_s, u"3"_s},
        {u"len(12345)"_s, u"5"_s},
        {u"nosuch(1)"_s, u"error 195"_s},
        {u"left('a')"_s, u"error 174"_s},
    });
}

TEST(EmbeddedValues, ArithmeticAndConcatenation) {
    evaluate({
        {u"2147483647+1"_s, u"error 8115"_s},
        {u"2+3*4-(5-1)"_s, u"10"_s},
        {u"'a'+N'乙'+'''c'''"_s, u"a乙'c'"_s},
        {u"'a'+null"_s, u"null"_s},
        {u"'5'+1"_s, u"6"_s},
        {u"'x'+1"_s, u"error 245"_s},
        {u"'a'*'b'"_s, u"error 8117"_s},
        {u".5+1."_s, u"1.5"_s},
        {u"1e2"_s, u"100"_s},
    });
}

TEST(EmbeddedValues, Conversions) {
    evaluate({
        {u"cast('' as int)"_s, u"0"_s},
        {u"cast(' 12 ' as int)"_s, u"12"_s},
        {u"cast('-5' as int)"_s, u"-5"_s},
        {u"cast('5.5' as int)"_s, u"error 245"_s},
        {u"cast('a' as int)"_s, u"error 245"_s},
        {u"cast('５' as int)"_s, u"error 245"_s},
        {u"cast('99999999999' as int)"_s, u"error 248"_s},
        {u"cast(99999999999 as int)"_s, u"error 8115"_s},
        {u"cast(40000 as smallint)"_s, u"error 8115"_s},
        {u"cast(2.9 as int)"_s, u"2"_s},
        {u"cast(7 as bit)"_s, u"1"_s},
        {u"cast('1.25' as float)"_s, u"1.25"_s},
        {u"cast('x' as float)"_s, u"error 8114"_s},
        {u"cast('abcdef' as nvarchar(3))"_s, u"abc"_s},
        {u"cast(12 as nvarchar(10))+'%'"_s, u"12%"_s},
        {u"cast('2026-3-4' as datetime)"_s, u"2026-03-04 00:00:00"_s},
        {u"cast('20260304 1:02' as datetime)"_s, u"2026-03-04 01:02:00"_s},
        {u"cast('2026-02-30' as datetime)"_s, u"error 241"_s},
        {u"cast(1 as nosuch)"_s, u"error 2715"_s},
    });
}

TEST(EmbeddedValues, Conditions) {
    const std::vector<Case> conditions = {
        {u"'abc'='ＡＢＣ  '"_s, u"1"_s},
        {u"'a' in ('B','A')"_s, u"1"_s},
        {u"'a' not in ('B','A')"_s, {}},
        {u"'1'=1"_s, u"1"_s},
        {u"'x'=1"_s, u"error 245"_s},
        {u"'10'>9"_s, u"1"_s},
        {u"'10'>'9'"_s, {}},
        {u"null=null"_s, {}},
        {u"1<>2 and -1<1"_s, u"1"_s},
        {u"'张三' like '张_'"_s, u"1"_s},
        {u"'ab' like 'A%'"_s, u"1"_s},
        {u"'ab  ' like 'ab'"_s, u"1"_s},
        {u"'d' like '[a-c]'"_s, {}},
        {u"'[a' like '%[a%'"_s, {}},
        {u"'￥5'='¥5'"_s, u"1"_s},
        {u"'d' like '[^a-c]'"_s, u"1"_s},
        {u"'aaaaaaaaaaaaaaaaaaaaab' like '%a%a%a%a%a%a%a%c'"_s, {}},
        {u"case 'b' when 'A' then 1 when 'B' then 2 end=2"_s, u"1"_s},
        {u"1"_s, u"error 4145"_s},
        {u"left('AB',1)='a'"_s, u"1"_s},
    };
    test::EmbeddedBank bank;
    for (const Case& one : conditions) {
        EXPECT_EQ(bank.run(u"select 1 where "_s + one.expression), one.gives) << qPrintable(one.expression);
    }
}

TEST(EmbeddedValues, TextIsOneUnderTheCollationInEveryClause) {
    test::EmbeddedBank bank;
    bank.session.Execute(u"create table t (k nvarchar(10) not null primary key, n int)"_s);
    bank.session.Execute(u"insert into t values ('b',1),('Ａ',2),('乙',3),('甲',4),('1',5)"_s);
    EXPECT_EQ(bank.errorOf(u"insert into t values ('a ',9)"_s), 2627);
    EXPECT_EQ(bank.run(u"select n from t where k='A'"_s), u"2"_s);
    EXPECT_EQ(bank.run(u"select n from t order by k"_s), u"5\n2\n1\n4\n3"_s);
    EXPECT_EQ(bank.run(u"select k from t where k>='甲' order by k desc"_s), u"乙\n甲"_s);
    bank.session.Execute(u"create table u (k nvarchar(10), n int)"_s);
    bank.session.Execute(u"insert into u values ('ax',1),('AＸ',2),('bx',4)"_s);
    EXPECT_EQ(bank.run(u"select sum(n) from u group by left(k,1) order by sum(n)"_s), u"3\n4"_s);
    EXPECT_EQ(bank.run(u"select count(*) from (select distinct left(k,1) as l from u) d"_s), u"2"_s);
    EXPECT_EQ(bank.run(u"select t.n from t, (select left(k,1) as l from u where n=1) d where d.l=t.k"_s), u"2"_s);
    bank.session.Execute(u"select left(k,1) as l, sum(n) as s into #s from u group by left(k,1)"_s);
    EXPECT_EQ(bank.run(u"select s from #s where l='Ａ'"_s), u"3"_s);
    EXPECT_EQ(bank.run(u"select max(k) from u"_s), u"bx"_s);
}

TEST(EmbeddedValues, TheCollationIsATotalOrder) {
    // Random short texts of few characters meet every case of the comparison often.
    const QString alphabet = u"aAＡb 　-－1啊阿吖z_é"_s;
    QRandomGenerator random(7);
    std::vector<QString> texts;
    for (int i = 0; i < 60; ++i) {
        QString text;
        for (int n = random.bounded(12); n > 0; --n) {
            text += alphabet[random.bounded(static_cast<int>(alphabet.size()))];
        }
        texts.push_back(text);
    }
    const auto sign = [](int order) { return (order > 0) - (order < 0); };
    using embedded::compareText;
    for (const QString& a : texts) {
        EXPECT_EQ(compareText(a, a + u"  "_s), 0);
        EXPECT_EQ(compareText(a, a.toUpper()), 0) << qPrintable(a);
        for (const QString& b : texts) {
            ASSERT_EQ(sign(compareText(a, b)), -sign(compareText(b, a))) << qPrintable(a) << '/' << qPrintable(b);
            for (const QString& c : texts) {
                if (compareText(a, b) <= 0 && compareText(b, c) <= 0) {
                    ASSERT_LE(compareText(a, c), 0) << qPrintable(a) << '/' << qPrintable(b) << '/' << qPrintable(c);
                }
            }
        }
    }
}

}  // namespace
