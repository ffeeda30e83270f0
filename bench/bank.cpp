#include "bench/bank.h"

#include "bench/plain_database.h"
#include "core/mdlpublic.h"
#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"
#include "setup/install.h"

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace talvora::bench {

using namespace Qt::StringLiterals;

namespace {

QString questionName(int number) {
    return u"第%1题：在日常工作中遇到下列情形时，您通常会怎样处理？请选择最符合您的一项。"_s.arg(number);
}

QString answerName(int number) {
    return u"先了解情况，再与有关同事商量后处理（%1）"_s.arg(number);
}

void addPaper() {
    cnnPublic.Execute(
        u"insert into Examination "
        u"(TypeCode,ExaminationNum,AnswerAmount,TestingTime,ScoreScope1,ScoreScope2,ScoreScope3,"
        "ScoreScope4,DescScope1,DescScope2,DescScope3,DescScope4,Status) values "
        "('001001','1',4,30,'0-59','60-99','100-149','150-200','较差','一般','良好','优秀','1 - 已完成')"_s);
    for (int question = 1; question <= questionsOfPaper; ++question) {
        QString columns;
        QString values;
        for (int answer = 1; answer <= answersOfQuestion; ++answer) {
            columns += u",Answer%1,Score%1"_s.arg(answer);
            values += u",'%1',%2"_s.arg(answerName(answer)).arg(answer);
        }
        cnnPublic.Execute(u"insert into ExaminationQuestion (ExaminationID,QuestionName%1) values (1,'%2'%3)"_s.arg(
            columns, questionName(question), values));
    }
}

}  // namespace

Bank::Bank() {
    ConnectionParts parts;
    parts.initialCatalog = file();
    createEmbedded(parts);
    open();
    install(cnnPublic, u"admin"_s);
    cnnPublic.BeginTrans();
    addPaper();
    cnnPublic.CommitTrans();
    paper_ = cnnPublic.Execute(u"select max(ExaminationID) from Examination"_s).first().number32(0);
}

Bank::~Bank() {
    cnnPublic.Close();
}

void Bank::open() const {
    constexpr int timeoutSeconds = 10;
    cnnPublic.ConnectionString =
        u"Provider=SQLOLEDB.1;Persist Security Info=True;User ID=;Initial Catalog=%1;Data Source=embedded;pwd="_s.arg(
            file());
    cnnPublic.CommandTimeout = timeoutSeconds;
    cnnPublic.Open();
}

void Bank::addHistory(int tests, bool answers) const {
    cnnPublic.Close();
    PlainDatabase plain(file());
    plain.execute("begin");
    PlainStatement rows = plain.prepare(
        "with recursive n(i) as (select 1 union all select i+1 from n where i<?1) "
        "insert into TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate,TypeName,"
        "TypeCode,ExaminationID,ExamQuestions,FactQuestions,Score,TestingResult,SolutionID) select i,"
        "printf('1101011990%08d',i),'考生'||i,case i%2 when 0 then '男' else '女' end,20+i%40,'本科','职位'||(i%30),"
        "'3000~5000',datetime('2009-01-01','+'||i||' minutes'),'条理性','001001',1,50,50,100+i%90,'良好',0 from n");
    rows.bind(1, qint64{tests});
    rows.run();
    if (answers) {
        // All letters and none, each with the score that it has, so that scoring once more changes nothing.
        plain.execute(
            "insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,Answer3,Answer4,"
            "SelectAnswer,Score) select t.TestingID,1,q.QuestionName,q.Answer1,q.Answer2,q.Answer3,q.Answer4,"
            "substr('ABCDE',(t.TestingID+q.QuestionID)%6+1,1),"
            "nullif(substr('12340',(t.TestingID+q.QuestionID)%6+1,1)+0,0) from TestingResult t,ExaminationQuestion q");
    }
    plain.execute("commit");
    plain.execute("analyze");
}

Sitting Bank::sitting() const {
    Sitting sitting;
    sitting.test.IDNumber = u"110101199001011234"_s;
    sitting.test.Name = u"张三"_s;
    sitting.test.Sex = u"女"_s;
    sitting.test.Age = 34;
    sitting.test.Education = u"本科"_s;
    sitting.test.PostName = u"会计"_s;
    sitting.test.Salary = u"3000~5000"_s;
    sitting.test.TestingDate = u"2010-09-05 08:30:00"_s;
    sitting.test.TypeName = u"条理性"_s;
    sitting.test.TypeCode = u"001001"_s;
    auto item = std::make_shared<cTesting>();
    item->TypeCode = sitting.test.TypeCode;
    item->TypeName = sitting.test.TypeName;
    item->ExaminationID = QString::number(paper_);
    item->ExamQuestions = questionsOfPaper;
    sitting.testings.Add(item);
    for (int question = 1; question <= questionsOfPaper; ++question) {
        auto detail = std::make_shared<cTestingDetail>();
        detail->ID = question;
        detail->ExaminationID = static_cast<qint16>(paper_);
        detail->QuestionName = questionName(question);
        detail->Answer1 = answerName(1);
        detail->Answer2 = answerName(2);
        detail->Answer3 = answerName(3);
        detail->Answer4 = answerName(4);
        detail->SelectAnswer = u"ABCD"_s[question % answersOfQuestion];
        sitting.details.Add(detail);
    }
    return sitting;
}

void report(benchmark::State& state, const char* name, const Costs& costs, const char* otherName, const Costs& other) {
    constexpr double thousandth = 1e-3;
    state.counters[name] = costs.clock() / thousandth;
    state.counters[otherName] = other.clock() / thousandth;
    state.counters["ratio"] = costs.clock() / other.clock();
    state.counters["cpu_ratio"] = costs.cpu() / other.cpu();
}

double allocatedBytes() {
#if defined(__GLIBC__)
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
#else
    return 0;
#endif
}

}  // namespace talvora::bench
