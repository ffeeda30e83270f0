#include "results/ctesting.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString statementFor(qint32 testingNumber, const QString& sql) {
    if (!sql.isEmpty()) {
        return sql;
    }
    if (testingNumber != 0) {
        return u"select * from TestingResult where testingNumber="_s + QString::number(testingNumber) +
               u" order by Typecode"_s;
    }
    return u"Select * From TestingResult WHERE (TypeCode is null  and SolutionID>0)  or "
           "(len(TypeCode)=6 and SolutionID =0) ORDER BY testingNumber"_s;
}

void fill(cTesting& testing, const Row& row) {
    testing.TestingID = row.number32("TestingID");
    testing.TestingNumber = row.number32("TestingNumber");
    testing.Name = row.text("Name");
    testing.Sex = row.text("Sex");
    testing.Age = row.number16Or0("Age");
    testing.IDNumber = row.text("IDNumber");
    testing.Education = row.text("Education");
    testing.PostName = row.text("PostName");
    testing.Salary = row.text("Salary");
    testing.TypeName = row.text("TypeName");
    testing.TypeCode = row.text("TypeCode");
    testing.Version = row.text("Version");
    testing.TestingDate = row.text("TestingDate");
    testing.ExaminationID = row.isNull("ExaminationID") ? u"0"_s : row.text("ExaminationID");
    testing.Score = row.number16Or0("Score");
    testing.ExamQuestions = row.number16Or0("ExamQuestions");
    testing.FactQuestions = row.number16Or0("FactQuestions");
    testing.TestingResult = row.text("TestingResult");
    testing.TestingDesc = row.text("TestingDesc");
}

}  // namespace

cTestings& cTestings::Find(qint32 testingNumber, const QString& sql) {
    load(statementFor(testingNumber, sql), fill);
    return *this;
}

cTestings& cTestings::GetTestingType() {
    appendNames(
        u"SELECT DISTINCT TypeName FROM testingResult where typecode is null or SolutionID=0 order by TypeName"_s,
        &cTesting::TypeName);
    return *this;
}

cTestings& cTestings::GetTestingResult(const QString& typeName) {
    appendNames(u"SELECT DISTINCT TestingResult FROM testingResult where typename='"_s + typeName +
                    u"' order by TestingResult"_s,
                &cTesting::TestingResult);
    return *this;
}

void cTestings::appendNames(const QString& statement, QString cTesting::*member) {
    qint32 number = 0;
    append(statement, [&](cTesting& testing, const Row& row) {
        testing.TestingID = ++number;
        testing.*member = row.text(0);
    });
}

}  // namespace talvora
