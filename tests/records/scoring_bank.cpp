#include "records/scoring_bank.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "platform/numbers.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

QString questionName(int number) {
    return u"题%1"_s.arg(number);
}

}  // namespace

int addPaper(const PaperPlan& plan) {
    QString columns;
    QString values;
    for (int i = 1; i <= plan.bands.size(); ++i) {
        const QString& band = plan.bands[i - 1];
        columns += u",ScoreScope%1,DescScope%1"_s.arg(i);
        values += u",'%1','%2'"_s.arg(band.section(u' ', 0, 0), band.section(u' ', 1));
    }
    cnnPublic.Execute(u"insert into Examination (TypeCode,ExaminationNum,AnswerAmount%1) values ('%2','1',%3%4)"_s.arg(
        columns, plan.typeCode, QString::number(plan.answers), values));
    const int examination = GetNewID(u"Examination"_s, u"ExaminationID"_s) - 1;
    columns.clear();
    values.clear();
    for (int i = 1; i <= plan.answers; ++i) {
        columns += u",Answer%1,Score%1"_s.arg(i);
        values += u",'答%1',%1"_s.arg(i);
    }
    for (int number = 1; number <= plan.questions; ++number) {
        cnnPublic.Execute(u"insert into ExaminationQuestion (ExaminationID,QuestionName%1) values (%2,'%3'%4)"_s.arg(
            columns, QString::number(examination), questionName(number), values));
    }
    return examination;
}

int addModel(const QString& name, const QStringList& lines) {
    cnnPublic.Execute(u"insert into TestingSolution (SolutionName,Version) values ('%1','1.20')"_s.arg(name));
    const int solution = GetNewID(u"TestingSolution"_s, u"SolutionID"_s) - 1;
    for (const QString& line : lines) {
        cnnPublic.Execute(
            u"insert into TestingSolutionDetail (SolutionID,TypeCode,Score,Weighing) values (%1,'%2',1,%3)"_s.arg(
                QString::number(solution), line.section(u' ', 0, 0), line.section(u' ', 1)));
    }
    return solution;
}

cTesting candidate(const QString& typeName, const QString& name) {
    cTesting test;
    test.IDNumber = u"110101199001011234"_s;
    test.Name = name;
    test.Sex = u"女"_s;
    test.Age = 34;
    test.Education = u"本科"_s;
    test.PostName = u"会计"_s;
    test.Salary = u"3000~5000"_s;
    test.TestingDate = u"2010-09-05 08:30:00"_s;
    test.TypeName = typeName;
    test.TypeCode = u"999999"_s;
    return test;
}

Status submit(const cTesting& test, bool isModel, const std::vector<SheetPlan>& sheets) {
    cTestings testings;
    cTestingDetails details;
    for (const auto& sheet : sheets) {
        auto item = std::make_shared<cTesting>();
        item->TestingID = testings.Count() + 1;
        item->TypeCode = sheet.typeCode;
        item->TypeName = sheet.typeName;
        item->ExaminationID = sheet.examination;
        item->ExamQuestions = static_cast<qint16>(sheet.letters.size());
        testings.Add(item);
        for (int i = 0; i < sheet.letters.size(); ++i) {
            details.Add(std::make_shared<cTestingDetail>(
                cTestingDetail{details.Count() + 1, static_cast<qint16>(leadingNumber(sheet.examination)), 0,
                               questionName(i + 1), u"答1"_s, u"答2"_s, u"答3"_s, u"答4"_s, u"答5"_s,
                               sheet.letters[i] == u'_' ? QString() : QString(sheet.letters[i]), 0}));
        }
    }
    return test.AddNew(isModel, testings, details);
}

void openTerminal(const QString& bank) {
    const bool isConnection = bank.startsWith("Provider="_L1);
    cnnPublic.ConnectionString =
        isConnection ? bank : u"Provider=SQLOLEDB.1;User ID=;Initial Catalog=%1;Data Source=embedded;pwd="_s.arg(bank);
    // Longer on a server, where all terminals of a test may share two processors with it.
    cnnPublic.CommandTimeout = isConnection ? 60 : 10;
    cnnPublic.Open();
}

}  // namespace talvora::test
