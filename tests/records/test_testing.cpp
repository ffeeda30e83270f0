#include "core/mdlpublic.h"
#include "platform/runtime_error.h"
#include "records/scoring_bank.h"
#include "support/database_fixture.h"

#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class TestingTest : public DatabaseTest {
 protected:
    /// A row of TestingResult with the columns that tell rows apart; `code` and `score` are written bare.
    static void addRow(int number, const QString& name, const QString& code, int solution,
                       const QString& score = u"null"_s, const QString& verdict = u"null"_s) {
        cnnPublic.Execute(
            u"insert into TestingResult (TestingNumber,TypeName,TypeCode,SolutionID,Score,TestingResult) "
            "values (%1,'%2',%3,%4,%5,%6)"_s.arg(QString::number(number), name, code, QString::number(solution), score,
                                                 verdict));
    }

    /// Two single papers and one model between them, written in no order.
    static void addThreeTests() {
        addRow(3, u"英语"_s, u"'002001'"_s, 0, u"7"_s, u"'良'"_s);
        addRow(2, u"诚信"_s, u"'001002'"_s, 5);
        addRow(2, u"品格"_s, u"'001'"_s, 5);
        addRow(2, u"主管模型"_s, u"null"_s, 5, u"2.5"_s);
        addRow(2, u"条理性"_s, u"'001001'"_s, 5);
        addRow(1, u"条理性"_s, u"'001001'"_s, 0, u"3"_s, u"'优'"_s);
    }

    static QString listed(const cTestings& testings) {
        QStringList lines;
        for (const auto& testing : testings) {
            lines += u"%1 %2 %3 %4"_s.arg(testing->TestingNumber)
                         .arg(testing->TypeName, testing->TypeCode)
                         .arg(testing->Score);
        }
        return lines.join(u'\n');
    }
};
TALVORA_ON_EVERY_ENGINE(TestingTest);

TEST_P(TestingTest, FindListsOneRowForEachTest) {
    addThreeTests();
    cTestings testings;
    EXPECT_EQ(&testings.Find(0, {}), &testings);
    EXPECT_EQ(listed(testings), u"1 条理性 001001 3\n2 主管模型  2\n3 英语 002001 7"_s);
}

TEST_P(TestingTest, FindGivesAFamilyWithItsHeaderFirst) {
    addThreeTests();
    cTestings testings;
    testings.Find(2, {});
    EXPECT_EQ(listed(testings), u"2 主管模型  2\n2 品格 001 0\n2 条理性 001001 0\n2 诚信 001002 0"_s);
    EXPECT_EQ(testings.Item(u"a%1"_s.arg(testings.Item(2)->TestingID))->TypeName, u"品格"_s);
    testings.Find(99, {});
    EXPECT_EQ(testings.Count(), 0);
}

TEST_P(TestingTest, FindRunsAGivenStatementWhateverTheNumber) {
    addThreeTests();
    cTestings testings;
    testings.Find(2, u"select * from testingresult where Score>2 order by Score desc"_s);
    EXPECT_EQ(listed(testings), u"3 英语 002001 7\n1 条理性 001001 3\n2 主管模型  2"_s);
}

TEST_P(TestingTest, FindFailsOnAStatementThatLeavesColumnsOut) {
    addThreeTests();
    cTestings testings;
    EXPECT_THROW(testings.Find(0, u"select TestingID,TestingNumber from TestingResult"_s), RuntimeError);
    EXPECT_THROW(testings.Find(0, u"select * from NoSuchTable"_s), DatabaseError);
}

TEST_P(TestingTest, EveryColumnReachesItsMember) {
    cnnPublic.Execute(
        u"insert into TestingResult "
        u"(TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate,TypeName,"
        "TypeCode,ExaminationID,ExamQuestions,FactQuestions,Score,TestingResult,TestingDesc,SolutionID,Version) values "
        "(7,' 11 ',' 李 四 ','男',45,'硕士','经理','8000~','2010-09-05 08:30:00','英语','002001',12,30,28,66,"
        "' 良 ','说明',0,'1.00')"_s);
    const auto testing = cTestings().Find(7, {}).Item(1);
    EXPECT_EQ(testing->TestingID, rowsOf(u"select TestingID from TestingResult"_s).toInt());
    const QStringList texts = {testing->IDNumber,   testing->Name,    testing->Sex,           testing->Education,
                               testing->PostName,   testing->Salary,  testing->TestingDate,   testing->TypeName,
                               testing->TypeCode,   testing->Version, testing->ExaminationID, testing->TestingResult,
                               testing->TestingDesc};
    EXPECT_EQ(texts.join(u'|'), u"11|李 四|男|硕士|经理|8000~|2010-09-05 08:30:00|英语|002001|1.00|12|良|说明"_s);
    EXPECT_EQ(testing->TestingNumber, 7);
    EXPECT_EQ(testing->Age, 45);
    EXPECT_EQ(testing->ExamQuestions, 30);
    EXPECT_EQ(testing->FactQuestions, 28);
    EXPECT_EQ(testing->Score, 66);
}

TEST_P(TestingTest, NullsBecomeEmptyTextAndZero) {
    cnnPublic.Execute(u"insert into TestingResult (TestingNumber,Name) values (1,'   ')"_s);
    const auto testing = cTestings().Find(1, {}).Item(1);
    const QStringList texts = {testing->IDNumber, testing->Name,    testing->Sex,           testing->Education,
                               testing->PostName, testing->Salary,  testing->TestingDate,   testing->TypeName,
                               testing->TypeCode, testing->Version, testing->TestingResult, testing->TestingDesc};
    EXPECT_EQ(texts.join(QString()), QString());
    EXPECT_EQ(testing->ExaminationID, u"0"_s);
    EXPECT_EQ(testing->Age + testing->Score + testing->ExamQuestions + testing->FactQuestions, 0);
}

TEST_P(TestingTest, ScoresAreRoundedHalfToEvenInto16Bits) {
    const struct {
        QString stored;
        int read;
    } cases[] = {{u"0.5"_s, 0},   {u"1.5"_s, 2},      {u"2.5"_s, 2},        {u"2.51"_s, 3},
                 {u"-1.5"_s, -2}, {u"59.4999"_s, 59}, {u"32767.4"_s, 32767}};
    for (const auto& c : cases) {
        cnnPublic.Execute(u"delete from TestingResult"_s);
        addRow(1, u"英语"_s, u"'002001'"_s, 0, c.stored);
        EXPECT_EQ(cTestings().Find(1, {}).Item(1)->Score, c.read) << c.stored.toStdString();
    }
    cnnPublic.Execute(u"update TestingResult set Score=32767.5"_s);
    EXPECT_THROW(cTestings().Find(1, {}), RuntimeError);
}

TEST_P(TestingTest, ListsReadNumbersPast16Bits) {
    addRow(70000, u"英语"_s, u"'002001'"_s, 0);
    EXPECT_EQ(listed(cTestings().Find(0, {})), u"70000 英语 002001 0"_s);
    EXPECT_EQ(cTestings().Find(70000, {}).Count(), 1);
}

TEST_P(TestingTest, TypesAreNamedOnce) {
    addThreeTests();
    addRow(4, u"条理性"_s, u"'001001'"_s, 0);
    cTestings testings;
    testings.GetTestingType();
    QStringList names;
    for (const auto& testing : testings) {
        names += u"%1 %2"_s.arg(testing->TestingID).arg(testing->TypeName);
    }
    // The names of single papers and of model headers, in Chinese order; those of dimensions and elements are left out.
    EXPECT_EQ(names.join(u'\n'), u"1 条理性\n2 英语\n3 主管模型"_s);
    EXPECT_EQ(testings.Item(u"a2"_s)->TypeName, u"英语"_s);
}

TEST_P(TestingTest, VerdictsOfATypeAreNamedOnce) {
    addThreeTests();
    addRow(4, u"条理性"_s, u"'001001'"_s, 0, u"3"_s, u"' 优 '"_s);
    cTestings judged;
    judged.GetTestingResult(u"英语"_s);
    EXPECT_EQ(judged.Count(), 1);
    EXPECT_EQ(judged.Item(1)->TestingResult, u"良"_s);
    cTestings unjudged;
    unjudged.GetTestingResult(u"品格"_s);
    EXPECT_EQ(unjudged.Count(), 1);
    EXPECT_EQ(unjudged.Item(u"a1"_s)->TestingResult, QString());
}

TEST_P(TestingTest, NameListsDoNotClearAndSoMeetTheirOwnKeys) {
    addThreeTests();
    cTestings testings;
    testings.GetTestingType();
    EXPECT_THROW(testings.GetTestingType(), RuntimeError);
    EXPECT_EQ(testings.Count(), 3);
    EXPECT_THROW(testings.GetTestingResult(u"英语"_s), RuntimeError);
}

TEST_P(TestingTest, DetailsComeInTheOrderOfTheirIds) {
    for (int i = 1; i <= 3; ++i) {
        cnnPublic.Execute(
            u"insert into TestingResultDetail "
            u"(TestingID,ExaminationID,QuestionName,Answer1,Answer2,SelectAnswer,Score) "
            "values (%1,4,' 题%2 ','甲','乙','B',%2)"_s.arg(i == 2 ? 8 : 9)
                .arg(i));
    }
    cnnPublic.Execute(u"update TestingResultDetail set Score=null where Score=3"_s);
    cTestingDetails details;
    EXPECT_EQ(&details.Find(9), &details);
    QStringList lines;
    for (const auto& detail : details) {
        lines += u"%1 %2 %3 %4%5%6 %7 %8"_s.arg(detail->TestingID)
                     .arg(detail->ExaminationID)
                     .arg(detail->QuestionName, detail->Answer1, detail->Answer2, detail->Answer5, detail->SelectAnswer)
                     .arg(detail->Score);
    }
    EXPECT_EQ(lines.join(u'\n'), u"9 4 题1 甲乙 B 1\n9 4 题3 甲乙 B 0"_s);
    EXPECT_LT(details.Item(1)->ID, details.Item(2)->ID);
    EXPECT_EQ(details.Find(10).Count(), 0);
}

}  // namespace

}  // namespace talvora::test
