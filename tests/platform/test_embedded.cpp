// The embedded engine as a database: definitions, refusals, and what it remembers to be quick.

#include "platform/embedded_bank.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

TEST(Embedded, RefusesWhatTheServerRefuses) {
    test::EmbeddedBank bank;
    bank.walk(
        uR"(
create table t (name nvarchar(3) not null primary key, n smallint, d datetime, r float, b bit)
create table g (id int identity(1,1) primary key, name nvarchar(3))
insert into t (name) values ('abc')
select * from nothing -> error 208; select nothing from t -> error 207; select x.name from t -> error 4104
select n from t a, t b -> error 209; drop table nothing -> error 3701; create table T (x int) -> error 2714
select 1 as q into t -> error 2714; insert into g (id,name) values (7,'x') -> error 544; update g set id=5 -> error 8102
insert into t (name) values ('abcd') -> error 8152; update t set name=name+'d' -> error 8152
insert into t (name) values (null) -> error 515; insert into t (n) values (1) -> error 515
insert into t (name) values ('ABC ') -> error 2627; insert into t (name,n) values ('x','abc') -> error 245
insert into t (name,n) values ('x',70000) -> error 8115; insert into t (name,d) values ('x','no date') -> error 241
insert into t (name,r) values ('x','one') -> error 8114; insert into t (name) values ('x','y') -> error 110
insert into t (name,n) values ('x') -> error 109; insert into t (name,name) values ('x','y') -> error 264
select * from t where name -> error 4145; select * from t where -> error 102; select * from from -> error 156
selekt 1 -> error 102; select 'abc -> error 105; select 1 /* open -> error 113; select 1 ? -> error 102
exec sp_who -> error 156; select n into #t from t select 1 -> error 156; select len(name) into #u from t -> error 1038
select * from (select len(name) from t) x -> error 8155; select n from t union select n from t -> error 156
select * from t where n in (select n,name from t) -> error 116
)"_s);
    EXPECT_EQ(bank.errorOf({}), 102);
    EXPECT_EQ(bank.errorOf(u"select "_s + u"("_s.repeated(5000) + u"1"_s + u")"_s.repeated(5000)), 191);
    EXPECT_EQ(bank.errorOf(u"select 1"_s + u"+1"_s.repeated(5000)), 191);
    EXPECT_EQ(bank.errorOf(u"insert into t (name) values ('x')"_s + u",('x')"_s.repeated(1000)), 10738);
    EXPECT_EQ(bank.run(u"select * from t"_s), u"abc|null|null|null|null"_s);
}

TEST(Embedded, RefusesInTheWordsOfAChineseServer) {
    test::EmbeddedBank bank;
    const std::pair<QString, QString> refusals[] = {
        {u"select * from nothing"_s, u"对象名 'nothing' 无效。"_s},
        {u"select 1 where and"_s, u"关键字 'and' 附近有语法错误。"_s},
        {u"select ("_s, u"语句末尾附近有语法错误。"_s},
        // What a statement holds is not taken for a place to fill.
        {u"select cast('%2' as int)"_s, u"在将 nvarchar 值 '%2' 转换成数据类型 int 时失败。"_s},
        {u"insert into Options (VarName) values (null)"_s,
         u"不能将值 NULL 插入列 'VarName'，表 'Options'；列不允许有 Null 值。"_s},
        {u"select 'a'*'b'"_s, u"操作数数据类型 nvarchar 对于 multiply 运算符无效。"_s}};
    for (const auto& [statement, words] : refusals) {
        try {
            bank.session.Execute(statement);
            ADD_FAILURE() << qPrintable(statement);
        } catch (const DatabaseError& error) {
            EXPECT_EQ(error.description(), words);
        }
    }
}

TEST(Embedded, StoresWhatTheServerStores) {
    test::EmbeddedBank().walk(
        uR"(
create table [a table] (id int identity(1,1), [Key] nvarchar(3) null, n int, d datetime, r float, b bit, c char(5), \
    long nvarchar(max))
insert into [a table] ([Key],d,r,b,c) values ('ab   ','2026/3/4 5:6:7','.25',5,'x')
insert [a table] (n,long) values ('', 12)
select * from dbo.[A Table] where d='2026-3-4 05:06:07' -> 1|ab|null|2026-03-04 05:06:07|0.25|1|x|null
select n,long from [a table] where id=2 -> 0|12
delete from [a table] where id=2
insert into [a table] ([Key]) values (null)
select max(id) from [a table] -> 3
create index IX on [a table] (n, id)
create index IX on Users (UserDesc)
create index IX on [a table] (n) -> error 1913
drop index IX on [a table]
drop table [a table]
select * from [a table] -> error 208
insert into ExaminationQuestion (ExaminationID,QuestionName) values (1,'b'),(1,'c'),(1,'a')
Select QuestionName from ExaminationQuestion where ExaminationID=1 -> b / c / a
)"_s);
}

TEST(Embedded, TakesKeysWhereTheyAreLetInAndGoesOnBehindThem) {
    test::EmbeddedBank bank;
    bank.walk(
        uR"(insert into Users (UserName) values ('a'); insert into Users (UserID,UserName) values (7,'b') -> error 544
set identity_insert users on; insert into Users (UserID,UserName) values (7,'b'),(4,'c')
insert into Users (UserName) values ('d') -> error 545; insert into Roles (RoleID) values (3) -> error 544
set identity_insert Roles on -> error 8107; set identity_insert Modules on -> error 8106; set identity_insert x off -> error 208
set identity_insert Roles off; insert into Users (UserID,UserName) values (5,'e'); set identity_insert Users off
insert into Users (UserID,UserName) values (9,'f') -> error 544; insert into Users (UserName) values ('g')
select UserID,UserName from Users order by UserID -> 1|a / 4|c / 5|e / 7|b / 8|g
create table #Keys (ID int identity(1,1) not null primary key); select ident_current('users') -> 8; select ident_current('Roles') -> 1
delete from Users where UserID>4; dbcc checkident (Users, reseed, 4); select ident_current('Users') -> 4
insert into Users (UserName) values ('h'); select max(UserID) from Users -> 5
dbcc checkident (Modules, reseed, 4) -> error 8106; select ident_current('Modules') -> error 8106; select ident_current('x') -> error 208
dbcc checkident (Users, reseed, x) -> error 102; dbcc checkdb (Users) -> error 102)"_s);
}

TEST(Embedded, StatementsOfOneShapeKeepTheirOwnValues) {
    test::EmbeddedBank bank;
    bank.walk(u"insert into UserRole values (1,10),(2,20),(3,30)"_s);
    for (int i = 1; i <= 3; ++i) {
        bank.walk(
            u"select RoleID from UserRole where UserID=%1 -> %10;select RoleID from UserRole where UserID='%1' -> %10;"
            "select RoleID from UserRole where UserID=%1. -> %10"_s.replace(u"%1"_s, QString::number(i)));
        EXPECT_EQ(bank.run(u"select top %1 RoleID from UserRole order by RoleID"_s.arg(i)).count(u'0'), i);
        EXPECT_EQ(bank.run(u"select cast('abcdef' as nvarchar(%1))"_s.arg(i)).size(), i);
    }
    // More shapes than are remembered.
    for (int i = 0; i < 450; ++i) {
        const QString name = u"c%1"_s.arg(i % 300);
        EXPECT_EQ(bank.run(u"select RoleID as %1 from UserRole where UserID=2 and 1=%2"_s.arg(name).arg(i % 2)),
                  i % 2 == 1 ? u"20"_s : QString());
    }
}

QString rescoring(const QString& branches) {
    return u"update TestingResultDetail set Score=case SelectAnswer %1 end   from ExaminationQuestion a where "
           "TestingResultDetail.ExaminationID=a.ExaminationID and TestingResultDetail.QuestionName=a.QuestionName and "
           "TestingResultDetail.ExaminationID=1"_s.arg(branches);
}

// The index lets the engine look for the rows that change; without it the statement is run as it stands.
const QString dropTheIndex = u"drop index IX_TestingResultDetail_Answer on TestingResultDetail"_s;

TEST(Embedded, RescoringOnlyWhatChangesGivesTheSameScores) {
    const QString letters[] = {u"'A'"_s, u"'a'"_s, u"'Ｂ'"_s, u"'C'"_s, u"'D'"_s,
                               u"'E'"_s, u"''"_s,  u"null"_s, u"'0'"_s, u"' '"_s};
    const QString scores[] = {u"null"_s, u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"-1"_s};
    for (const int answers : {300, 2400}) {
        QRandomGenerator random(static_cast<quint32>(answers));
        QString rows;
        // Some questions stand there twice, with other scores.
        const auto below = [&](int bound) { return QString::number(random.bounded(bound)); };
        for (int q = 0; q < 8; ++q) {
            rows +=
                u"insert into ExaminationQuestion (ExaminationID,QuestionName,Score1,Score2,Score3,Score4) values "
                "(1,'q%1',%2,%3,null,%4)\n"_s.arg(QString::number(q % 5), below(4), below(4), below(4));
        }
        for (int i = 0; i < answers; ++i) {
            rows +=
                u"insert into TestingResultDetail (ExaminationID,QuestionName,SelectAnswer,Score) values "
                "(1+%1,'q%2',%3,%4)\n"_s.arg(below(2), below(6), letters[random.bounded(10)],
                                             scores[random.bounded(6)]);
        }
        test::EmbeddedBank banks[2];
        banks[1].walk(dropTheIndex);
        for (test::EmbeddedBank& bank : banks) {
            bank.walk(rows);
            bank.walk(rescoring(
                u"when 'A' then a.Score1 when 'B' then a.Score2 when 'C' then a.Score3 when 'D' then a.Score4"_s));
        }
        const QString all = u"select ID,Score from TestingResultDetail order by ID"_s;
        EXPECT_EQ(banks[0].run(all).count(u'\n'), answers - 1);
        EXPECT_EQ(banks[0].run(all), banks[1].run(all));
    }
}

TEST(Embedded, TheFirstOfTwoEqualQuestionsScoresForGood) {
    for (const QString& index : {QString(), dropTheIndex}) {
        test::EmbeddedBank bank;
        bank.walk(index);
        bank.walk(
            u"insert into ExaminationQuestion (ExaminationID,QuestionName,Score1,Score2) values (1,'q',5,null),"
            "(1,'q',1,2),(1,'r',3,4)"_s);
        QString scores = u"5\nnull\n4"_s;
        for (int test = 1; test <= 3; ++test, scores += u"\n5\nnull\n4"_s) {
            bank.walk(
                u"insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,SelectAnswer) "
                "values (%1,1,'q','A'),(%1,1,'q','B'),(%1,1,'r','B')"_s.arg(test));
            bank.walk(rescoring(u"when 'A' then a.Score1 when 'B' then a.Score2"_s));
            EXPECT_EQ(bank.run(u"select Score from TestingResultDetail order by ID"_s), scores) << qPrintable(index);
        }
    }
}

TEST(Embedded, TheFirstOfTwoBranchesForOneAnswerCounts) {
    test::EmbeddedBank bank;
    bank.walk(
        u"insert into ExaminationQuestion (ExaminationID,QuestionName,Score1,Score2) values (1,'q',5,6);"
        "insert into TestingResultDetail (ExaminationID,QuestionName,SelectAnswer) values (1,'q','A')"_s);
    const QString branches = u"when 'B' then a.Score2 when '%1' then a.Score1 when '%2' then a.Score2"_s;
    for (const auto& [first, second] : {std::pair(u"A"_s, u"C"_s), std::pair(u"ａ"_s, u"A"_s)}) {
        bank.walk(rescoring(branches.arg(first, second)));
        EXPECT_EQ(bank.run(u"select Score from TestingResultDetail"_s), u"5"_s);
    }
}

}  // namespace
