#include "records/scoring_bank.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

/// A model of two dimensions, with three papers of two questions under it.
class ModelScoringTest : public DatabaseTest {
 protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        // The weights of the dimensions themselves play no part, so they may be absurd.
        model = addModel(u"主管模型"_s, u"1.20"_s,
                         {{u"001"_s, u"能力"_s, 9},
                          {u"001001"_s, u"条理性"_s, 0.25},
                          {u"001002"_s, u"判断力"_s, 0.5},
                          {u"002"_s, u"品格"_s, 7},
                          {u"002001"_s, u"诚信"_s, 0.125}});
        order = addPaper({u"001001"_s, 4, 2, {u"0-4 低"_s, u"5-8 高"_s}});
        judgement = addPaper({u"001002"_s, 5, 2, {u"0-8 一般"_s}});
        honesty = addPaper({u"002001"_s, 2, 2, {u"0-1 差"_s}});
    }

    Status sit(const QString& first, const QString& second, const QString& third) const {
        return submit(candidate(u"主管模型"_s), true,
                      {{u"001"_s, u"能力"_s, {}, {}},
                       {u"001001"_s, u"条理性"_s, QString::number(order), first},
                       {u"001002"_s, u"判断力"_s, QString::number(judgement), second},
                       {u"002"_s, u"品格"_s, {}, {}},
                       {u"002001"_s, u"诚信"_s, QString::number(honesty), third}});
    }

    int model = 0;
    int order = 0;
    int judgement = 0;
    int honesty = 0;
};
TALVORA_ON_EVERY_ENGINE(ModelScoringTest);

TEST_P(ModelScoringTest, FamilyIsStoredInFull) {
    EXPECT_EQ(sit(u"CD"_s, u"A_"_s, u"BB"_s), Status::Done);
    EXPECT_EQ(rowsOf(u"select TypeName,TypeCode,SolutionID,Version,ExaminationID,ExamQuestions,FactQuestions,Score,"
                     "TestingResult from TestingResult order by TestingID"_s),
              u"主管模型|null|%1|1.20|null|null|null|2.75|null\n"
              "能力|001|%1|null|0|0|null|2.25|null\n"
              "条理性|001001|%1|null|%2|2|2|7|高\n"
              "判断力|001002|%1|null|%3|2|1|1|一般\n"
              "品格|002|%1|null|0|0|null|0.5|null\n"
              "诚信|002001|%1|null|%4|2|2|4|null"_s.arg(model)
                  .arg(order)
                  .arg(judgement)
                  .arg(honesty));
    EXPECT_EQ(rowsOf(u"select distinct TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate "
                     "from TestingResult"_s),
              u"1|110101199001011234|张三|女|34|本科|会计|3000~5000|2010-09-05 08:30:00"_s);
    EXPECT_EQ(rowsOf(u"select b.TypeCode,a.QuestionName,a.Answer3,a.SelectAnswer,a.Score "
                     "from TestingResultDetail a,TestingResult b where a.TestingID=b.TestingID order by a.ID"_s),
              u"001001|题1|答3|C|3\n001001|题2|答3|D|4\n001002|题1|答3|A|1\n001002|题2|答3||null\n"
              "002001|题1|null|B|2\n002001|题2|null|B|2"_s);
}

TEST_P(ModelScoringTest, ScoresRollUpFromWhatThereIs) {
    addModel(u"另一模型"_s, u"1.00"_s, {{u"001001"_s, u"条理性"_s, 100}});
    const auto scoresOf = [&](const QString& second, const QString& third) {
        EXPECT_EQ(sit(second == "__"_L1 ? second : u"CD"_s, second, third), Status::Done);
        const QString scores = rowsOf(u"select TypeCode,Score from TestingResult order by TestingID"_s);
        emptyTables({u"TestingResult"_s, u"TestingResultDetail"_s});
        cnnPublic.Execute(u"drop table #TypecodeScore"_s);
        return scores;
    };
    EXPECT_EQ(scoresOf(u"A_"_s, u"__"_s), u"null|2.25\n001|2.25\n001001|7\n001002|1\n002|null\n002001|null"_s);
    EXPECT_EQ(scoresOf(u"__"_s, u"__"_s), u"null|null\n001|null\n001001|null\n001002|null\n002|null\n002001|null"_s);
    // An element without a line adds nothing, and the other model's line neither.
    cnnPublic.Execute(u"delete from TestingSolutionDetail where TypeCode='001002'"_s);
    EXPECT_EQ(scoresOf(u"DD"_s, u"BB"_s), u"null|2.25\n001|1.75\n001001|7\n001002|8\n002|0.5\n002001|4"_s);
}

TEST_P(ModelScoringTest, SecondModelTestOnOneConnectionFailsAtTheRollUp) {
    EXPECT_EQ(sit(u"CD"_s, u"A_"_s, u"BB"_s), Status::Done);
    EXPECT_EQ(sit(u"AA"_s, u"BB"_s, u"AA"_s), Status::Failed);
    // All rows of the second test are there and its papers are judged, only the weighted scores are missing.
    EXPECT_EQ(
        rowsOf(u"select TypeCode,Score,TestingResult from TestingResult where TestingNumber=2 order by TestingID"_s),
        u"null|null|null\n001|null|null\n001001|2|低\n001002|4|一般\n002|null|null\n002001|2|null"_s);

    // A single paper goes on as ever, and stores what the failed test left open along with itself.
    const cTesting single = candidate(u"条理性"_s);
    EXPECT_EQ(submit(single, false, {{u"001001"_s, u"条理性"_s, QString::number(order), u"AA"_s}}), Status::Done);
    EXPECT_EQ(
        rowsOf(u"select TestingNumber,count(*) from TestingResult group by TestingNumber order by TestingNumber"_s),
        u"1|6\n2|6\n3|1"_s);

    cnnPublic.Execute(u"drop table #TypecodeScore"_s);
    EXPECT_EQ(sit(u"CD"_s, u"A_"_s, u"BB"_s), Status::Done);
}

TEST_P(ModelScoringTest, DeletingAnyRowDeletesTheFamily) {
    EXPECT_EQ(submit(candidate(u"没有的模型"_s), true, {{u"001"_s, u"能力"_s, {}, {}}}), Status::Failed);
    submit(candidate(u"条理性"_s), false, {{u"001001"_s, u"条理性"_s, QString::number(order), u"AA"_s}});
    for (const QString& code : {u"is null"_s, u"='001'"_s, u"='001002'"_s}) {
        sit(u"CD"_s, u"A_"_s, u"BB"_s);
        cnnPublic.Execute(u"drop table #TypecodeScore"_s);
        const QString row = u"select TestingID from TestingResult where SolutionID>0 and TypeCode "_s + code;
        EXPECT_EQ(cTesting::Delete(numberOf(row)), Status::Done) << code.toStdString();
        EXPECT_EQ(rowCounts({u"TestingResult"_s, u"TestingResultDetail"_s}), u"1 2"_s);
    }
}

}  // namespace

}  // namespace talvora::test
