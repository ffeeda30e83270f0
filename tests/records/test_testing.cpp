#include "records/scoring_bank.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class TestingTest : public DatabaseTest {
 protected:
    /// Two single papers and one model between them, written in no order: number, name, code, model, score, verdict.
    static void addThreeTests() {
        for (const char* const row :
             {"3,'英语','002001',0,7,'良'", "2,'诚信','001002',5,null,null", "2,'品格','001',5,null,null",
              "2,'主管模型',null,5,2.5,null", "2,'条理性','001001',5,null,null", "1,'条理性','001001',0,3,'优'",
              "70000,'条理性','001001',0,null,' 优 '"}) {
            cnnPublic.Execute(
                u"insert into TestingResult (TestingNumber,TypeName,TypeCode,SolutionID,Score,TestingResult) values (%1)"_s
                    .arg(QString::fromUtf8(row)));
        }
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

TEST_P(TestingTest, FindListsTestsAFamilyOrWhatAStatementGives) {
    addThreeTests();
    cTestings testings;
    EXPECT_EQ(listed(testings.Find(0, {})),
              u"1 条理性 001001 3\n2 主管模型  2\n3 英语 002001 7\n70000 条理性 001001 0"_s);
    EXPECT_EQ(listed(testings.Find(2, {})), u"2 主管模型  2\n2 品格 001 0\n2 条理性 001001 0\n2 诚信 001002 0"_s);
    EXPECT_EQ(testings.Item(u"a%1"_s.arg(testings.Item(2)->TestingID))->TypeName, u"品格"_s);
    EXPECT_EQ(testings.Item(1)->ExaminationID, u"0"_s) << "no paper";
    EXPECT_EQ(listed(testings.Find(2, u"select * from testingresult where Score>2 order by Score desc"_s)),
              u"3 英语 002001 7\n1 条理性 001001 3\n2 主管模型  2"_s);
    EXPECT_EQ(testings.Find(99, {}).Count(), 0);
    EXPECT_THROW(testings.Find(0, u"select TestingID,TestingNumber from TestingResult"_s), RuntimeError);
    EXPECT_THROW(testings.Find(0, u"select * from NoSuchTable"_s), DatabaseError);
}

TEST_P(TestingTest, ScoresAreRoundedHalfToEvenInto16Bits) {
    addThreeTests();
    const std::pair<const char*, int> cases[] = {{"0.5", 0},   {"1.5", 2},      {"2.51", 3},
                                                 {"-1.5", -2}, {"59.4999", 59}, {"32767.4", 32767}};
    for (const auto& [stored, read] : cases) {
        cnnPublic.Execute(u"update TestingResult set Score="_s + QString::fromLatin1(stored));
        EXPECT_EQ(cTestings().Find(1, {}).Item(1)->Score, read) << stored;
    }
    cnnPublic.Execute(u"update TestingResult set Score=32767.5"_s);
    EXPECT_THROW(cTestings().Find(1, {}), RuntimeError);
}

TEST_P(TestingTest, NamesAndVerdictsAreListedOnce) {
    addThreeTests();
    const auto named = [](const cTestings& testings) {
        QString names;
        for (const auto& testing : testings) {
            names += QString::number(testing->TestingID) + testing->TypeName + testing->TestingResult + u' ';
        }
        return names;
    };
    // The names of single papers and of model headers, in Chinese order; those of dimensions and elements are left out.
    cTestings testings;
    EXPECT_EQ(named(testings.GetTestingType()), u"1条理性 2英语 3主管模型 "_s);
    EXPECT_THROW(testings.GetTestingType(), RuntimeError) << "nothing is cleared, so that the keys meet";
    EXPECT_THROW(testings.GetTestingResult(u"英语"_s), RuntimeError);
    EXPECT_EQ(testings.Count(), 3);
    EXPECT_EQ(named(cTestings().GetTestingResult(u"英语"_s)), u"1良 "_s);
    EXPECT_EQ(named(cTestings().GetTestingResult(u"品格"_s)), u"1 "_s);
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
    QStringList lines;
    for (const auto& detail : details.Find(9)) {
        lines += u"%1 %2 %3 %4%5%6 %7 %8"_s.arg(detail->TestingID)
                     .arg(detail->ExaminationID)
                     .arg(detail->QuestionName, detail->Answer1, detail->Answer2, detail->Answer5, detail->SelectAnswer)
                     .arg(detail->Score);
    }
    EXPECT_EQ(lines.join(u'\n'), u"9 4 题1 甲乙 B 1\n9 4 题3 甲乙 B 0"_s);
}

}  // namespace

}  // namespace talvora::test
