#include "records/scoring_bank.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class ScoringTest : public DatabaseTest {};
TALVORA_ON_EVERY_ENGINE(ScoringTest);

QString id(int number) {
    return QString::number(number);
}

/// One sitting of a paper of the type 001001.
Status sit(int paper, const QString& letters) {
    return submit(candidate(u"条理性"_s), false, {{u"001001"_s, u"条理性"_s, id(paper), letters}});
}

QString verdicts() {
    return rowsOf(u"select Score,FactQuestions,TestingResult from TestingResult order by TestingID"_s);
}

TEST_P(ScoringTest, EachTestIsNumberedAboveTheHighestUpTo16Bits) {
    const int paper = addPaper({u"001001"_s, 2, 1, {}});
    sit(paper, u"A"_s);
    sit(paper, u"A"_s);
    cnnPublic.Execute(u"update TestingResult set TestingNumber=32766 where TestingNumber=1"_s);
    EXPECT_EQ(sit(paper, u"A"_s), Status::Done);
    EXPECT_EQ(sit(paper, u"A"_s), Status::Failed);
    EXPECT_EQ(rowsOf(u"select TestingNumber from TestingResult order by TestingID"_s), u"32766\n2\n32767"_s);
}

TEST_P(ScoringTest, AsManyAnswersAreStoredAsThePaperOffers) {
    const int paper = addPaper({u"001001"_s, 5, 1, {}});
    // Two and five answers are stored by the series of statements.
    const std::pair<QString, QString> cases[] = {
        {u"null"_s, {}}, {u"1"_s, {}}, {u"3"_s, u"答3|null|null"_s}, {u"4"_s, u"答3|答4|null"_s}, {u"6"_s, {}}};
    for (const auto& [amount, stored] : cases) {
        cnnPublic.Execute(u"delete from TestingResultDetail"_s);
        cnnPublic.Execute(u"update Examination set AnswerAmount="_s + amount);
        EXPECT_EQ(sit(paper, u"A"_s), Status::Done);
        EXPECT_EQ(rowsOf(u"select Answer3,Answer4,Answer5 from TestingResultDetail"_s), stored) << amount.toStdString();
    }
}

TEST_P(ScoringTest, FifthLetterAndNoAnswerScoreNothing) {
    const int paper = addPaper({u"001001"_s, 5, 4, {u"0-100 差"_s}});
    EXPECT_EQ(sit(paper, u"AE_D"_s), Status::Done);
    EXPECT_EQ(rowsOf(u"select SelectAnswer,Score from TestingResultDetail order by ID"_s),
              u"A|1\nE|null\n|null\nD|4"_s);
    EXPECT_EQ(sit(paper, u"____"_s), Status::Done);
    EXPECT_EQ(verdicts(), u"5|2|差\nnull|null|null"_s);
}

TEST_P(ScoringTest, ScoreFindsItsBand) {
    // Both bounds are inside, a gap and what is above all bands has no word, the highest of two bands wins. An unused
    // band holds exactly 0, one that was never written nothing. No hyphen, no whole number as the upper bound and a
    // second hyphen, which belongs to that bound, fail; a wide hyphen is one.
    const QString fails = u"fails"_s;
    const struct {
        int score;
        QString bands, verdict;
    } cases[] = {{60, u"0-59 差,60-100 优"_s, u"优"_s},
                 {59, u"0-59 差,60-100 优"_s, u"差"_s},
                 {60, u"0-59 差,61-100 优"_s, u"null"_s},
                 {101, u"0-59 差,60-100 优"_s, u"null"_s},
                 {60, u"60-100 优,0-60 差"_s, u"差"_s},
                 {7, u"0-9 一,- ,- ,- ,7-7 五"_s, u"五"_s},
                 {0, u"0-59 差,- "_s, u""_s},
                 {1, u"0-59 差,- "_s, u"差"_s},
                 {5, {}, u"null"_s},
                 {5, u"9 差"_s, fails},
                 {1, u"0-1.5 差"_s, fails},
                 {1, u"-5-10 差"_s, fails},
                 {5, u"0－9 差"_s, u"差"_s}};
    for (const auto& [score, bands, verdict] : cases) {
        SCOPED_TRACE(bands.toStdString());
        emptyTables({u"TestingResult"_s, u"Examination"_s});
        const int paper = addPaper({u"001001"_s, 2, 1, bands.split(u',', Qt::SkipEmptyParts)});
        cnnPublic.Execute(u"update ExaminationQuestion set Score1=%1"_s.arg(score));
        EXPECT_EQ(sit(paper, u"A"_s), verdict == fails ? Status::Failed : Status::Done);
        if (verdict != fails) {
            EXPECT_EQ(verdicts(), u"%1|1|%2"_s.arg(score).arg(verdict));
        }
    }
}

TEST_P(ScoringTest, BandsOfEveryPaperOfTheTypeAreLookedAt) {
    const int taken = addPaper({u"001001"_s, 4, 1, {u"0-2 低"_s}});
    addPaper({u"001001"_s, 4, 1, {u"- "_s, u"3-4 别卷"_s}});
    addPaper({u"001002"_s, 4, 1, {u"- "_s, u"- "_s, u"0-9 他类"_s}});
    sit(taken, u"B"_s);
    sit(taken, u"C"_s);
    EXPECT_EQ(verdicts(), u"2|1|低\n3|1|别卷"_s);
}

TEST_P(ScoringTest, ChangedQuestionsReachEarlierAnswersButNotTheirSums) {
    const int paper = addPaper({u"001001"_s, 4, 2, {}});
    addPaper({u"001001"_s, 4, 2, {}});
    sit(paper, u"AB"_s);
    cnnPublic.Execute(u"update ExaminationQuestion set Score1=9 where ExaminationID=%1"_s.arg(paper));
    cnnPublic.Execute(u"update ExaminationQuestion set QuestionName='改' where QuestionName='题2'"_s);
    sit(paper, u"AA"_s);
    // A question that was renamed leaves earlier answers as they are, and the new one finds none.
    EXPECT_EQ(rowsOf(u"select QuestionName,SelectAnswer,Score from TestingResultDetail order by ID"_s),
              u"题1|A|9\n题2|B|2\n题1|A|9\n题2|A|null"_s);
    EXPECT_EQ(verdicts(), u"3|2|null\n9|1|null"_s);
}

TEST_P(ScoringTest, PaperIsTheNumberAtTheStartOfItsText) {
    const int paper = addPaper({u"001001"_s, 4, 1, {}});
    const auto sitAs = [](const QString& code, const QString& text) {
        return submit(candidate(u"条理性"_s), false, {{code, u"条理性"_s, text, u"B"_s}});
    };
    EXPECT_EQ(sitAs(u"001001"_s, u" %1 号"_s.arg(paper)), Status::Done);
    EXPECT_EQ(sitAs(u"0010011"_s, id(paper)), Status::Done) << "a code of another length is stored without answers";
    EXPECT_EQ(sitAs(u"001001"_s, u"12345"_s), Status::Failed) << "an unknown paper";
    EXPECT_EQ(rowsOf(u"select ExaminationID,Score from TestingResult order by TestingID"_s),
              u"%1|2\n%1|null\n12345|null"_s.arg(paper));
}

/// A model of two dimensions, with three papers of two questions under it.
class ModelScoringTest : public DatabaseTest {
 protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        // The weights of the dimensions themselves play no part, so they may be absurd.
        addModel(u"主管模型"_s, {u"001 9"_s, u"001001 0.25"_s, u"001002 0.5"_s, u"002 7"_s, u"002001 0.125"_s});
        order = addPaper({u"001001"_s, 4, 2, {u"0-4 低"_s, u"5-8 高"_s}});
        judgement = addPaper({u"001002"_s, 5, 2, {u"0-8 一般"_s}});
        honesty = addPaper({u"002001"_s, 2, 2, {u"0-1 差"_s}});
    }

    Status sitModel(const QString& first, const QString& second, const QString& third) const {
        return submit(candidate(u"主管模型"_s), true,
                      {{u"001"_s, u"能力"_s, {}, {}},
                       {u"001001"_s, u"条理性"_s, id(order), first},
                       {u"001002"_s, u"判断力"_s, id(judgement), second},
                       {u"002"_s, u"品格"_s, {}, {}},
                       {u"002001"_s, u"诚信"_s, id(honesty), third}});
    }

    int order = 0;
    int judgement = 0;
    int honesty = 0;
};
TALVORA_ON_EVERY_ENGINE(ModelScoringTest);

TEST_P(ModelScoringTest, ScoresRollUpFromWhatThereIs) {
    addModel(u"另一模型"_s, {u"001001 100"_s});
    const auto scoresOf = [&](const QString& first, const QString& second, const QString& third) {
        EXPECT_EQ(sitModel(first, second, third), Status::Done);
        const QString scores = rowsOf(u"select TypeCode,Score from TestingResult order by TestingID"_s);
        emptyTables({u"TestingResult"_s, u"TestingResultDetail"_s});
        cnnPublic.Execute(u"drop table #TypecodeScore"_s);
        return scores;
    };
    EXPECT_EQ(scoresOf(u"CD"_s, u"A_"_s, u"__"_s), u"null|2.25\n001|2.25\n001001|7\n001002|1\n002|null\n002001|null"_s);
    EXPECT_EQ(scoresOf(u"__"_s, u"__"_s, u"__"_s),
              u"null|null\n001|null\n001001|null\n001002|null\n002|null\n002001|null"_s);
    // An element without a line adds nothing, and the other model's line neither.
    cnnPublic.Execute(u"delete from TestingSolutionDetail where TypeCode='001002'"_s);
    EXPECT_EQ(scoresOf(u"CD"_s, u"DD"_s, u"BB"_s), u"null|2.25\n001|1.75\n001001|7\n001002|8\n002|0.5\n002001|4"_s);
}

TEST_P(ModelScoringTest, AWeightedScoreOnTheHalfIsRoundedAsItReads) {
    // 70% of 45 is a hair below 31.5 as the engines reckon, and 14% of 75 a hair above 10.5.
    for (const auto& [weight, score, rounded] : {std::tuple{u"0.7"_s, 45, 32}, std::tuple{u"0.14"_s, 75, 10}}) {
        emptyTables({u"TestingResult"_s, u"TestingResultDetail"_s});
        cnnPublic.Execute(u"update TestingSolutionDetail set Weighing="_s + weight);
        cnnPublic.Execute(u"update ExaminationQuestion set Score1=%1"_s.arg(score));
        EXPECT_EQ(sitModel(u"A_"_s, u"__"_s, u"__"_s), Status::Done);
        cnnPublic.Execute(u"drop table #TypecodeScore"_s);
        EXPECT_EQ(cTestings().Find(1, {}).Item(1)->Score, rounded) << "the total";
        EXPECT_EQ(cTestings().Find(1, {}).Item(2)->Score, rounded) << "the dimension";
    }
}

TEST_P(ModelScoringTest, SecondModelTestOnOneConnectionFailsAtTheRollUp) {
    EXPECT_EQ(sitModel(u"CD"_s, u"A_"_s, u"BB"_s), Status::Done);
    EXPECT_EQ(sitModel(u"AA"_s, u"BB"_s, u"AA"_s), Status::Failed);
    // All rows of the second test are there and its papers are judged, only the weighted scores are missing.
    EXPECT_EQ(
        rowsOf(u"select TypeCode,Score,TestingResult from TestingResult where TestingNumber=2 order by TestingID"_s),
        u"null|null|null\n001|null|null\n001001|2|低\n001002|4|一般\n002|null|null\n002001|2|null"_s);

    // A single paper goes on as ever, and stores what the failed test left open along with itself.
    EXPECT_EQ(sit(order, u"AA"_s), Status::Done);
    EXPECT_EQ(
        rowsOf(u"select TestingNumber,count(*) from TestingResult group by TestingNumber order by TestingNumber"_s),
        u"1|6\n2|6\n3|1"_s);

    cnnPublic.Execute(u"drop table #TypecodeScore"_s);
    EXPECT_EQ(sitModel(u"CD"_s, u"A_"_s, u"BB"_s), Status::Done);
}

TEST_P(ModelScoringTest, DeletingAnyRowDeletesTheFamily) {
    EXPECT_EQ(submit(candidate(u"没有的模型"_s), true, {{u"001"_s, u"能力"_s, {}, {}}}), Status::Failed);
    sit(order, u"AA"_s);
    for (const QString& code : {u"is null"_s, u"='001'"_s, u"='001002'"_s}) {
        sitModel(u"CD"_s, u"A_"_s, u"BB"_s);
        cnnPublic.Execute(u"drop table #TypecodeScore"_s);
        const QString row = u"select TestingID from TestingResult where SolutionID>0 and TypeCode "_s + code;
        EXPECT_EQ(cTesting::Delete(numberOf(row)), Status::Done) << code.toStdString();
        EXPECT_EQ(rowCounts({u"TestingResult"_s, u"TestingResultDetail"_s}), u"1 2"_s);
    }
}

}  // namespace

}  // namespace talvora::test
