// Every shape of statement that the system sends, over its real tables, with what the server gives for it.

#include "platform/embedded_bank.h"

#include <gtest/gtest.h>

#include <vector>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

const QString resultRow =
    uR"(insert into TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,\
    Salary,TestingDate,TypeName,TypeCode,ExaminationID,ExamQuestions,SolutionID) values (1,'1980X','张三',\
    '男',30,'本科','经理','3000~5000','2026-03-04 10:20:30','逻辑','001001',1,4,0))"_s;

TEST(Translator, UsersRolesAndRights) {
    test::EmbeddedBank().walk(
        uR"(
insert into Users (UserName,UserDesc,Password,Locked) values ('admin','系统','Secret',0),('李四','','x',0)
Select * from Users where UserName='ADMIN' and Password='secret' and locked='0' -> 1|admin|系统|Secret|0
Update Users Set UserName='李四', UserDesc='四', Password='y', Locked=1 where UserID=2
Select * from Users where UserName='李四' and Password='y' and locked='0'
Select top 1 * from Users where Username='李四' -> 2|李四|四|y|1
SELECT MAX(UserID) FROM Users -> 2; Select Count(*) from Users where UserName='admin' and UserID<>1 -> 0
insert into Roles (RoleName,RoleCode,RoleDesc) values ('主管','001',''),('助理','001001','')
SELECT MAX(RoleCode)  FROM Roles where len(RoleCode)=3 -> 001
SELECT MAX(RoleCode)  FROM Roles where left(RoleCode,3) ='002' and Len(RoleCode)=6 -> null
Select * from Roles where len(RoleCode)=3 order by RoleCode -> 1|主管|001|
insert into Roleright (RoleID,moduleCode,moduleFunction,IsAccess) values (1,'001001','browse',1)
insert into UserRole (UserID,RoleID) values (2,1)
Select Roles.* from UserRole,Roles where Roles.RoleID=UserRole.RoleID and UserRole.userID=2 -> 1|主管|001|
Select isAccess from RoleRight where modulefunction='browse' and ModuleCode='001001' and isaccess=1 and RoleID in \
    (Select RoleID from Users,UserRole where Users.UserID=UserRole.UserID and Users.UserName='李四') -> 1
)"_s);
}

TEST(Translator, CatalogueOptionsPositionsAndQueries) {
    test::EmbeddedBank().walk(
        uR"(
insert into Modules (RecordID,ModuleCode,ModuleName,TableName) values (1,'001','题库',null),\
    (2,'001001',N'测评类型','TestingType')
SELECT *  FROM Modules where len(ModuleCode)=3 order by ModuleCode -> 1|001|题库|null|null
SELECT *  FROM Modules where len(ModuleCode)=6 and left(ModuleCode,3)='001' order by ModuleCode \
    -> 2|001001|测评类型|TestingType|null
Select ModuleCode from Modules where TableName='testingtype' -> 001001
insert into Options (VarName,VarValue) values ('blnCheckId','N')
Update Options set VarValue='Y' where varName='BLNCHECKID'; SELECT VarName,VarValue FROM Options -> blnCheckId|Y
insert into Position (PostName,PostCode,Peoples) values ('总经理','001',1),('会计','001001',2)
insert into Position (PostName,PostCode,Peoples) values ('出纳','001002',) -> error 102
SELECT MAX(PostCode)  FROM Position where left(PostCode,3) ='001' and Len(PostCode)=6 -> 001001
select PostName from Position where left(PostCode,3)='001' and len(PostCode)>3 -> 会计
Update Position Set PostName='主办会计',Peoples=3 where PostCode='001001'
Select Distinct PostName from Position order by PostName -> 主办会计 / 总经理
insert into Query (Query,Condition) values ('近期','Select * where Sex=''男'' and 1=1')
Select * from Query order by Query -> 1|近期|Select * where Sex='男' and 1=1
Delete from Query where QueryID=1; Select * from Query order by Query
)"_s);
}

TEST(Translator, TypesPapersAndModels) {
    test::EmbeddedBank().walk(
        uR"(
SELECT MAX(TypeCode)  FROM testingType where len(TypeCode)=3 -> null
insert into testingType (TestingType,TypeCode,WriteDate,TestingResult1,TestingResult2,TestingResult3) values \
    ('智力','001','','','',''),('逻辑','001001','','差','好','')
Select Count(*) from testingType where TestingType='逻辑' and left(TypeCode,3)='001' and len(TypeCode)=6 -> 1
Select TestingResult1,TestingResult2,TestingResult3 from testingType where TypeCode='001001' -> 差|好|
Select TypeCode from TestingType where left(TypeCode,3) ='001' and len(TypeCode)>3 order by TypeCode -> 001001
insert into Examination (TypeCode,ExaminationNum,TestingTime,ScoreScope1,ScoreScope2,DescScope1,Status)  values \
    ('001001','A1',10,'0-59','60-100','差','1 - 已完成')
update examination set descScope1='弱' where TypeCode='001001' and descScope1='差'
Select DescScope1 from Examination where TypeCode='001001' and (Status is null or left(Status,1)<>'0') \
    order by ExaminationNum -> 弱
insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Answer2,Score2) values (1,'问','A',3,'B',1)
Select count(*) as Nums from ExaminationQuestion where ExaminationID=1 -> 1
Select * from ExaminationQuestion where ExaminationID=1 Order by QuestionID \
    -> 1|1|问|A|3|B|1|null|null|null|null|null|null
insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values (1,'001','智力',8,1.),\
    (1,'001001','逻辑',7.5,.3333),(1,'001002','x','3','0.5')
SELECT *  FROM TestingSolutionDetail where SolutionID=1 order by TypeCode \
    -> 1|001|智力|8|1 / 1|001001|逻辑|7.5|0.3333 / 1|001002|x|3|0.5
)"_s);
}

TEST(Translator, OnePaperFromItsAnswersToItsVerdict) {
    test::EmbeddedBank bank;
    bank.walk(
        uR"(
insert into Examination (TypeCode,AnswerAmount,ScoreScope1,DescScope1,ScoreScope2,DescScope2,ScoreScope3) values \
    ('001001',5,'0-4','差','5-10','好','-')
insert into ExaminationQuestion (ExaminationID,QuestionName,Score1,Score2,Score5) values \
    (1,'一',3,2,9),(1,'二',4,2,9),(1,'三',4,2,9)
SELECT MAX(TestingNumber) FROM TestingResult -> null
)"_s + resultRow +
        uR"(
SELECT MAX(testingID) FROM TestingResult -> 1
insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,SelectAnswer) values \
    (1,1,'一','是','A'),(1,1,'二','是','b'),(1,1,'三','是','E'),(1,1,'四','是','')
update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 when 'C' then \
    a.Score3 when  'D' then a.Score4 end   from ExaminationQuestion a where \
    TestingResultDetail.ExaminationID=a.ExaminationID and TestingResultDetail.QuestionName=a.QuestionName and \
    TestingResultDetail.ExaminationID=1
Select ID,SelectAnswer,Score from TestingResultDetail where TestingID=1 Order by ID \
    -> 1|A|3 / 2|b|2 / 3|E|null / 4||null
update TestingResult set Score =a.Score from (select TestingId, sum(Score) as Score from TestingResultDetail \
    where testingID=1 group by testingID) a  where testingResult.TestingID=a.TestingID
update TestingResult set FactQuestions =a.FactQuestions from (select TestingId, count(*) as FactQuestions from \
    TestingResultDetail where testingID=1 and Score is not null group by testingID) a  where \
    testingResult.TestingID=a.TestingID
)"_s);
    const auto verdict = [&](int band) {
        return bank.run(
            uR"(update TestingResult set TestingResult =a.DescScope%1 from Examination a where
            TestingResult.TypeCode=a.typecode and
            Score>=cast(left(a.ScoreScope%1,patindex('%－%',a.ScoreScope%1)-1) as int) and
            Score<=cast(right(a.ScoreScope%1,len(a.ScoreScope%1)-patindex('%－%',a.ScoreScope%1)) as int) and
            testingResult.TestingID=1)"_s.arg(band));
    };
    for (const int band : {1, 2, 3, 5}) {
        EXPECT_EQ(verdict(band), QString()) << band;
    }
    bank.walk(
        uR"(
Update TestingResult Set SolutionID=0 Where TestingNumber = 1
select Score,FactQuestions,TestingResult from TestingResult where testingNumber=1 order by Typecode -> 5|2|好
update Examination set ScoreScope4='没有',ScoreScope5='a-b'
)"_s);
    EXPECT_EQ(verdict(4), u"error 537"_s);
    EXPECT_EQ(verdict(5), u"error 245"_s);
    bank.walk(
        uR"(
Select * From TestingResult WHERE (TypeCode is null  and SolutionID>0)  or (len(TypeCode)=6 and SolutionID =1) \
    ORDER BY testingNumber
SELECT DISTINCT TypeName FROM testingResult where typecode is null or SolutionID=0 order by TypeName -> 逻辑
select TestingNumber from TestingResult where testingid=1 -> 1
delete from TestingResultDetail where TestingID in (select TestingID from TestingResult where TestingNumber='1')
Delete from TestingResult where TestingNumber='1'
select count(*) from TestingResultDetail -> 0
select * from testingresult where  IdNumber='1980X' order by TestingDate desc
)"_s);
}

TEST(Translator, AModelsScoresRollUp) {
    const QString weightedSums =
        uR"(
SELECT LEFT(TypeCode, 3) AS typecode, SUM(Score1) AS score into #TypecodeScore FROM  (SELECT a.TestingNumber, \
    a.TypeCode, a.Score * b.Weighing AS Score1 FROM TestingResult a ,TestingSolutionDetail b where a.SolutionID = \
    b.SolutionID AND a.TypeCode = b.TypeCode and a.TestingNumber = 2) c GROUP BY LEFT(TypeCode, 3))"_s;
    test::EmbeddedBank().walk(
        uR"(
insert into TestingSolutionDetail (SolutionID,TypeCode,Weighing) values (5,'001001',.25),(5,'001002',.5),(5,'002001',1)
insert into TestingResult (TestingNumber,TypeCode,SolutionID,Score) values (2,null,5,null),(2,'001',5,null),\
    (2,'001001',5,10),(2,'001002',5,10),(2,'002',5,null),(2,'002001',5,null))"_s +
        weightedSums +
        uR"(
Update TestingResult Set TestingResult.Score = a.Score FROM #TypecodeScore a where \
    a.typecode=testingresult.typecode and TestingNumber = 2
Update TestingResult Set TestingResult.score = a.score FROM (SELECT TestingNumber, SUM(score) AS score \
    FROM TestingResult WHERE TestingNumber =2 AND len(TypeCode)=3 GROUP BY TestingNumber) a  Where \
    TestingResult.TestingNumber = a.TestingNumber and TypeCode Is null
select TypeCode,Score from TestingResult where testingNumber=2 order by Typecode \
    -> null|7.5 / 001|7.5 / 001001|10 / 001002|10 / 002|null / 002001|null)"_s +
        weightedSums +
        uR"( -> error 2714
)"_s);
}

TEST(Translator, SearchesAsTheSearchWindowComposesThem) {
    test::EmbeddedBank bank;
    bank.walk(resultRow);
    bank.run(u"update TestingResult set TestingResult='好'"_s);
    const QString frame =
        uR"(Select TestingNumber From TestingResult WHERE ((TypeCode is null  and SolutionID>0)  or
        (len(TypeCode)=6 and SolutionID =0)) and %1 ORDER BY testingNumber)"_s;
    const std::vector<std::pair<QString, QString>> searches = {
        {u"testingdate>='2026-03-04'"_s, u"1"_s},
        {u"testingdate>='2026-03-05'"_s, {}},
        {u"(testingdate>='2026-02-04' and testingdate<='2026-03-04')"_s, {}},
        {u"(testingdate>='2026-02-04' and testingdate<='2026-03-05')"_s, u"1"_s},
        {u"Name like '%三%'  and  sex in ('男','女')  and  Education in ('本科')"_s, u"1"_s},
        {u"Name like '%四%'  or  PostName in ('经理')  or  TypeName in ('x')"_s, u"1"_s},
        {u"Name like '%三%' and TestingResult in ('差','好')"_s, u"1"_s},
        {u"testingdate>='2026-03-04'and"_s, u"error 156"_s},
        {u"Name like '%O'Neil%'"_s, u"error 105"_s}};
    for (const auto& [condition, gives] : searches) {
        EXPECT_EQ(bank.run(frame.arg(condition)), gives) << qPrintable(condition);
    }
}

}  // namespace
