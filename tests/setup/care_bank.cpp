#include "setup/care_bank.h"

#include "core/mdlpublic.h"
#include "setup/care/key_ranges.h"
#include "setup/tables.h"
#include "support/database_fixture.h"

#include <algorithm>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

// Rows with keys of their own: "table|columns|values|values…".
void insertKeyed(const QString& line) {
    const auto parts = line.split(u'|');
    cnnPublic.Execute(u"set identity_insert %1 on"_s.arg(parts[0]));
    for (const auto& values : parts.sliced(2)) {
        cnnPublic.Execute(u"insert into %1 (%2) values (%3)"_s.arg(parts[0], parts[1], values));
    }
    cnnPublic.Execute(u"set identity_insert %1 off"_s.arg(parts[0]));
}

}  // namespace

void addScatteredBank() {
    for (const auto& line :
         {u"Examination|ExaminationID,ExaminationNum|9,N'P-1'|700,N'P-2'"_s,
          u"ExaminationQuestion|QuestionID,ExaminationID,QuestionName|20,700,N'甲'|21,9,N'乙'|32000,9,N'丙'|"
          "32001,700,N'It''s  '"_s,
          u"TestingSolution|SolutionID,SolutionName|77,N'模型'"_s, u"Query|QueryID,Query|5,N'q'"_s,
          // A single test of a paper, a model's family, and a test of the paper 8000, which is gone.
          u"TestingResult|TestingID,TestingNumber,Name,TestingDate,TypeCode,ExaminationID,SolutionID,Score|"
          "300,30,N'一',N'2023-05-01 10:00:00',N'001001',9,0,31.499999999999996|"
          "301,44,N'二',N'2023-12-31 23:59:59',null,null,77,0.1|"
          "302,44,N'二',N'2024-01-01 00:00:00',N'001',0,77,null|"
          "30000,44,N'二',N'2024-01-01 00:00:00',N'001001',700,77,3|"
          "30001,45,N'三',N'2024-06-01 00:00:00',N'001002',8000,0,null"_s,
          // The last answer is of a test that is not there.
          u"TestingResultDetail|ID,TestingID,ExaminationID,QuestionName,SelectAnswer,Score|"
          "3,300,9,N'乙',N'A',1|4,300,9,N'丙',N'',null|9,30000,700,N'It''s  ',N'B',2|12,30001,8000,N'丁',N'A',1|"
          "13,31000,9,N'戊',N'A',1"_s}) {
        insertKeyed(line);
    }
    cnnPublic.Execute(u"insert into TestingSolutionDetail (SolutionID,TypeCode,Weighing) values (77,N'001',0.7)"_s);
}

QString whatBelongsTogether() {
    QStringList lists;
    for (const auto& statement :
         {u"select e.ExaminationNum,q.QuestionName from Examination e,ExaminationQuestion q "
          "where e.ExaminationID=q.ExaminationID order by q.QuestionID"_s,
          u"select t.Name,t.TypeCode,e.ExaminationNum from Examination e,TestingResult t "
          "where e.ExaminationID=t.ExaminationID order by t.TestingID"_s,
          u"select t.Name,d.QuestionName,d.Score from TestingResult t,TestingResultDetail d "
          "where t.TestingID=d.TestingID order by d.ID"_s,
          u"select e.ExaminationNum,d.QuestionName from Examination e,TestingResultDetail d "
          "where e.ExaminationID=d.ExaminationID order by d.ID"_s,
          u"select t.Name,s.SolutionName,t.Score from TestingResult t,TestingSolution s "
          "where t.SolutionID=s.SolutionID order by t.TestingID"_s,
          u"select s.SolutionName,d.Weighing from TestingSolution s,TestingSolutionDetail d "
          "where s.SolutionID=d.SolutionID"_s,
          u"select a.TestingDate,b.TestingDate from TestingResult a,TestingResult b "
          "where a.TestingNumber=b.TestingNumber order by a.TestingID,b.TestingID"_s,
          u"select u.UserName,r.RoleName from Users u,UserRole l,Roles r "
          "where u.UserID=l.UserID and l.RoleID=r.RoleID order by u.UserID"_s,
          u"select r.RoleName,count(*) from Roles r,RoleRight g where r.RoleID=g.RoleID group by r.RoleName"_s}) {
        lists.append(rowsOf(statement));
    }
    return lists.join(u"\n\n"_s);
}

QString allKeys() {
    QStringList lists;
    for (const auto& range : keyRanges()) {
        lists.append(rowsOf(u"select distinct %1 from %2 order by %1"_s.arg(range.home.column, range.home.table))
                         .replace(u'\n', u' '));
    }
    return lists.join(u'|');
}

QString everything() {
    QStringList lists;
    for (const auto& table : schemaTables()) {
        auto rows = rowsOf(u"select %1 from %2"_s.arg(table.columns.join(u','), table.table)).split(u'\n');
        std::sort(rows.begin(), rows.end());
        lists.append(rows.join(u'\n'));
    }
    return lists.join(u"\n\n"_s);
}

}  // namespace talvora::test
