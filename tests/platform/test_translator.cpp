// Every shape of statement that the system sends, over its real tables, with what the server gives for it.

#include "platform/embedded_bank.h"

#include <gtest/gtest.h>

#include <vector>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

struct Step {
    QString statement;
    QString gives;
};

void walk(test::EmbeddedBank& bank, const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        EXPECT_EQ(bank.run(step.statement), step.gives) << qPrintable(step.statement);
    }
}

const QString resultRow =
    u"insert into TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate,TypeName,"
    "TypeCode,ExaminationID,ExamQuestions,SolutionID) values "
    "(%1,'11010119800101001X','张三','男',30,'本科','经理','3000~5000',"
    "'2026-03-04 10:20:30','%2','%3',%4,%5,%6)"_s;

QString verdict(int band, int testingId) {
    return u"update TestingResult set TestingResult =a.DescScope%1 from Examination a where "
           "TestingResult.TypeCode=a.typecode and "
           "Score>=cast(left(a.ScoreScope%1,patindex('%－%',a.ScoreScope%1)-1) as int) and "
           "Score<=cast(right(a.ScoreScope%1,len(a.ScoreScope%1)-patindex('%－%',a.ScoreScope%1)) as int) and  "
           "testingResult.TestingID=%2"_s.replace(u"%1"_s, QString::number(band))
               .replace(u"%2"_s, QString::number(testingId));
}

const QString rescoring =
    u"update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 when 'C' "
    u"then "
    "a.Score3 when  'D' then a.Score4 end   from ExaminationQuestion a where "
    "TestingResultDetail.ExaminationID=a.ExaminationID and TestingResultDetail.QuestionName=a.QuestionName and "
    "TestingResultDetail.ExaminationID=1"_s;

const QString weightedSums =
    u"SELECT LEFT(TypeCode, 3) AS typecode, SUM(Score1) AS score into #TypecodeScore FROM  (SELECT a.TestingNumber, "
    "a.TypeCode, a.Score * b.Weighing AS Score1 FROM TestingResult a ,TestingSolutionDetail b where a.SolutionID = "
    "b.SolutionID AND a.TypeCode = b.TypeCode and a.TestingNumber = 2) c GROUP BY LEFT(TypeCode, 3)"_s;

TEST(Translator, UsersRolesAndRights) {
    test::EmbeddedBank bank;
    walk(
        bank,
        {
            {u"insert into Users (UserName,UserDesc,Password,Locked) values ('admin','系统','Secret',0)"_s, {}},
            {u"insert into Users (UserName,UserDesc,Password,Locked) values ('李四','','x',0)"_s, {}},
            {u"Select * from Users where UserName='ADMIN' and Password='secret' and locked='0'"_s,
             u"1|admin|系统|Secret|0"_s},
            {u"Update Users Set UserName='李四', UserDesc='四', Password='y', Locked=1 where UserID=2"_s, {}},
            {u"Select * from Users where UserName='李四' and Password='y' and locked='0'"_s, {}},
            {u"Select top 1 * from Users where Username='李四'"_s, u"2|李四|四|y|1"_s},
            {u"SELECT MAX(UserID) FROM Users"_s, u"2"_s},
            {u"Select Count(*) from Users where UserName='admin' and UserID<>1"_s, u"0"_s},
            {u"insert into Roles (RoleName,RoleCode,RoleDesc) values ('主管','001','')"_s, {}},
            {u"insert into Roles (RoleName,RoleCode,RoleDesc) values ('助理','001001','')"_s, {}},
            {u"SELECT MAX(RoleCode)  FROM Roles where len(RoleCode)=3"_s, u"001"_s},
            {u"SELECT MAX(RoleCode)  FROM Roles where left(RoleCode,3) ='002' and Len(RoleCode)=6"_s, u"null"_s},
            {u"Select * from Roles where len(RoleCode)=3 order by RoleCode"_s, u"1|主管|001|"_s},
            {u"insert into Roleright (RoleID,moduleCode,moduleFunction,IsAccess) values (1,'001001','browse',1)"_s, {}},
            {u"insert into UserRole (UserID,RoleID) values (2,1)"_s, {}},
            {u"Select Roles.* from UserRole,Roles where Roles.RoleID=UserRole.RoleID and UserRole.userID=2"_s,
             u"1|主管|001|"_s},
            {u"Select isAccess from RoleRight where modulefunction='browse' and ModuleCode='001001' and isaccess=1 and "
             u"RoleID "
             "in (Select RoleID from Users,UserRole where Users.UserID=UserRole.UserID and Users.UserName='李四')"_s,
             u"1"_s},
            {u"Select isAccess from RoleRight where modulefunction='browse' and ModuleCode='001001' and isaccess=1 and "
             u"RoleID "
             "in (Select RoleID from Users,UserRole where Users.UserID=UserRole.UserID and Users.UserName='admin')"_s,
             {}},
        });
}

TEST(Translator, CatalogueOptionsPositionsAndQueries) {
    test::EmbeddedBank bank;
    walk(bank,
         {
             {u"insert into Modules (RecordID,ModuleCode,ModuleName,TableName) values (1,'001','题库',null),"
              "(2,'001001',N'测评类型','TestingType')"_s,
              {}},
             {u"SELECT *  FROM Modules where len(ModuleCode)=3 order by ModuleCode"_s, u"1|001|题库|null|null"_s},
             {u"SELECT *  FROM Modules where len(ModuleCode)=6 and left(ModuleCode,3)='001' order by ModuleCode"_s,
              u"2|001001|测评类型|TestingType|null"_s},
             {u"Select ModuleCode from Modules where TableName='testingtype'"_s, u"001001"_s},
             {u"insert into Options (VarName,VarValue) values ('blnCheckId','N')"_s, {}},
             {u"Update Options set VarValue='Y' where varName='BLNCHECKID'"_s, {}},
             {u"SELECT VarName,VarValue FROM Options "_s, u"blnCheckId|Y"_s},
             {u"insert into Position (PostName,PostCode,Peoples) values ('总经理','001',1)"_s, {}},
             {u"insert into Position (PostName,PostCode,Peoples) values ('会计','001001',2)"_s, {}},
             {u"insert into Position (PostName,PostCode,Peoples) values ('出纳','001002',)"_s, u"error 102"_s},
             {u"SELECT MAX(PostCode)  FROM Position where left(PostCode,3) ='001' and Len(PostCode)=6"_s, u"001001"_s},
             {u"select PostName from Position where left(PostCode,3)='001' and len(PostCode)>3"_s, u"会计"_s},
             {u"Update Position Set PostName='主办会计',Peoples=3 where PostCode='001001'"_s, {}},
             {u"Select Distinct PostName from Position order by PostName "_s, u"主办会计\n总经理"_s},
             {u"insert into Query (Query,Condition) values ('近期','Select * where Sex=''男'' and 1=1')"_s, {}},
             {u"Select * from Query order by Query"_s, u"1|近期|Select * where Sex='男' and 1=1"_s},
         });
}

TEST(Translator, TypesPapersAndModels) {
    test::EmbeddedBank bank;
    walk(
        bank,
        {
            {u"SELECT MAX(TypeCode)  FROM testingType where len(TypeCode)=3"_s, u"null"_s},
            {u"insert into testingType (TestingType,TypeCode,WriteDate,TestingResult1,TestingResult2,TestingResult3) "
             u"values "
             "('智力','001','','','',''),('逻辑','001001','','差','好','')"_s,
             {}},
            {u"Select Count(*) from testingType where TestingType='逻辑' and left(TypeCode,3)='001' and len(TypeCode)=6"_s,
             u"1"_s},
            {u"Select TestingResult1,TestingResult2,TestingResult3 from testingType where TypeCode='001001'"_s,
             u"差|好|"_s},
            {u"Select TypeCode from TestingType where left(TypeCode,3) ='001' and len(TypeCode)>3 order by TypeCode"_s,
             u"001001"_s},
            {u"insert into Examination (TypeCode,ExaminationNum,TestingTime,ScoreScope1,ScoreScope2,DescScope1,Status) "
             u" "
             "values ('001001','A1',10,'0-59','60-100','差','1 - 已完成')"_s,
             {}},
            {u"update examination set descScope1='弱' where TypeCode='001001' and descScope1='差'"_s, {}},
            {u"Select DescScope1 from Examination where TypeCode='001001' and (Status is null or left(Status,1)<>'0') "
             u"order by "
             "ExaminationNum"_s,
             u"弱"_s},
            {u"insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Answer2,Score2) values "
             "(1,'问','是',3,'否',1)"_s,
             {}},
            {u"Select count(*) as Nums from ExaminationQuestion where ExaminationID=1"_s, u"1"_s},
            {u"Select * from ExaminationQuestion where ExaminationID=1 Order by QuestionID"_s,
             u"1|1|问|是|3|否|1|null|null|null|null|null|null"_s},
            {u"insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values (1,'001','智力',8,1.)"_s,
             {}},
            {u"insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values (1,'001001','逻辑',7.5,.3333)"_s,
             {}},
            {u"insert into TestingSolutionDetail (SolutionID,TypeCode,TypeName,Score,Weighing) values (1,'001002','x','3','0.5')"_s,
             {}},
            {u"SELECT *  FROM TestingSolutionDetail where SolutionID=1 order by TypeCode"_s,
             u"1|001|智力|8|1\n1|001001|逻辑|7.5|0.3333\n1|001002|x|3|0.5"_s},
        });
}

TEST(Translator, OnePaperFromItsAnswersToItsVerdict) {
    test::EmbeddedBank bank;
    walk(
        bank,
        {
            {u"insert into Examination "
             u"(TypeCode,AnswerAmount,ScoreScope1,DescScope1,ScoreScope2,DescScope2,ScoreScope3) values "
             "('001001',5,'0-4','差','5-10','好','-')"_s,
             {}},
            {u"insert into ExaminationQuestion (ExaminationID,QuestionName,Score1,Score2,Score5) values "
             "(1,'一',3,2,9),(1,'二',4,2,9),(1,'三',4,2,9)"_s,
             {}},
            {u"SELECT MAX(TestingNumber) FROM TestingResult"_s, u"null"_s},
            {resultRow.arg(u"1"_s, u"逻辑"_s, u"001001"_s, u"1"_s, u"4"_s, u"0"_s), {}},
            {u"SELECT MAX(testingID) FROM TestingResult"_s, u"1"_s},
            {u"insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,SelectAnswer) values "
             "(1,1,'一','是','A'),(1,1,'二','是','b'),(1,1,'三','是','E'),(1,1,'四','是','')"_s,
             {}},
            {rescoring, {}},
            {u"Select ID,SelectAnswer,Score from TestingResultDetail where TestingID=1 Order by ID"_s,
             u"1|A|3\n2|b|2\n3|E|null\n4||null"_s},
            {u"update TestingResult set Score =a.Score from (select TestingId, sum(Score) as Score from "
             u"TestingResultDetail "
             "where testingID=1 group by testingID) a  where testingResult.TestingID=a.TestingID"_s,
             {}},
            {u"update TestingResult set FactQuestions =a.FactQuestions from (select TestingId, count(*) as "
             u"FactQuestions from "
             "TestingResultDetail where testingID=1 and Score is not null group by testingID) a  where "
             "testingResult.TestingID=a.TestingID"_s,
             {}},
            {verdict(1, 1), {}},
            {verdict(2, 1), {}},
            {verdict(3, 1), {}},
            {verdict(5, 1), {}},
            {u"Update TestingResult Set SolutionID=0 Where TestingNumber = 1"_s, {}},
            {u"select Score,FactQuestions,TestingResult from TestingResult where testingNumber=1 order by Typecode"_s,
             u"5|2|好"_s},
            {u"update Examination set ScoreScope4='没有'"_s, {}},
            {verdict(4, 1), u"error 537"_s},
            {u"update Examination set ScoreScope4='a-b'"_s, {}},
            {verdict(4, 1), u"error 245"_s},
            {u"SELECT DISTINCT TypeName FROM testingResult where typecode is null or SolutionID=0 order by TypeName"_s,
             u"逻辑"_s},
            {u"select TestingNumber from TestingResult where testingid=1"_s, u"1"_s},
            {u"delete from TestingResultDetail where TestingID in (select TestingID from TestingResult where TestingNumber='1')"_s,
             {}},
            {u"Delete from TestingResult where TestingNumber='1'"_s, {}},
        });
}

TEST(Translator, AModelsScoresRollUp) {
    test::EmbeddedBank bank;
    walk(bank,
         {
             {u"insert into TestingSolutionDetail (SolutionID,TypeCode,Weighing) values "
              u"(5,'001001',.25),(5,'001002',.5),"
              "(5,'002001',1)"_s,
              {}},
             {u"insert into TestingResult (TestingNumber,TypeCode,SolutionID,Score) values (2,null,5,null),"
              "(2,'001',5,null),(2,'001001',5,10),(2,'001002',5,10),(2,'002',5,null),(2,'002001',5,null)"_s,
              {}},
             {weightedSums, {}},
             {u"Update TestingResult Set TestingResult.Score = a.Score FROM #TypecodeScore a where "
              "a.typecode=testingresult.typecode and TestingNumber = 2"_s,
              {}},
             {u"Update TestingResult Set TestingResult.score = a.score FROM (SELECT TestingNumber, SUM(score) AS score "
              "FROM TestingResult WHERE TestingNumber =2 AND len(TypeCode)=3 GROUP BY TestingNumber) a  Where "
              "TestingResult.TestingNumber = a.TestingNumber and TypeCode Is null"_s,
              {}},
             {u"select TypeCode,Score from TestingResult where testingNumber=2 order by Typecode"_s,
              u"null|7.5\n001|7.5\n001001|10\n001002|10\n002|null\n002001|null"_s},
             {weightedSums, u"error 2714"_s},
         });
}

TEST(Translator, SearchesAsTheSearchWindowComposesThem) {
    test::EmbeddedBank bank;
    bank.session.Execute(resultRow.arg(u"1"_s, u"逻辑"_s, u"001001"_s, u"1"_s, u"4"_s, u"0"_s));
    bank.session.Execute(u"update TestingResult set TestingResult='好'"_s);
    const QString frame =
        u"Select TestingNumber From TestingResult WHERE ((TypeCode is null  and SolutionID>0)  or "
        "(len(TypeCode)=6 and SolutionID =0)) and %1 ORDER BY testingNumber"_s;
    const std::vector<Step> searches = {
        {u"testingdate>='2026-03-04'"_s, u"1"_s},
        {u"testingdate>='2026-03-05'"_s, {}},
        {u"(testingdate>='2026-02-04' and testingdate<='2026-03-04')"_s, {}},
        {u"(testingdate>='2026-02-04' and testingdate<='2026-03-05')"_s, u"1"_s},
        {u"Name like '%三%'  and  sex in ('男','女')  and  Education in ('本科')"_s, u"1"_s},
        {u"Name like '%四%'  or  PostName in ('经理')  or  TypeName in ('x')"_s, u"1"_s},
        {u"Name like '%三%' and TestingResult in ('差','好')"_s, u"1"_s},
        {u"testingdate>='2026-03-04'and"_s, u"error 156"_s},
        {u"testingdate>='2026-03-04'or"_s, u"error 156"_s},
        {u"Name like '%O'Neil%'"_s, u"error 105"_s},
    };
    for (const Step& search : searches) {
        EXPECT_EQ(bank.run(frame.arg(search.statement)), search.gives) << qPrintable(search.statement);
    }
}

}  // namespace
