#include "core/mdlpublic.h"
#include "records/scoring_bank.h"
#include "support/database_fixture.h"

#include <gtest/gtest.h>

#include <optional>

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

TEST_P(ScoringTest, SinglePaperIsStoredInFull) {
    const int paper = addPaper({u"001001"_s, 4, 3, {u"0-3 差"_s, u"4-7 中"_s, u"8-12 优"_s}});
    EXPECT_EQ(sit(paper, u"ACD"_s), Status::Done);
    EXPECT_EQ(rowsOf(u"select TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate,TypeName,"
                     "TypeCode,ExaminationID,ExamQuestions,FactQuestions,Score,TestingResult,TestingDesc,SolutionID,"
                     "Version from TestingResult"_s),
              u"1|110101199001011234|张三|女|34|本科|会计|3000~5000|2010-09-05 08:30:00|条理性|001001|%1|3|3|8|优|"
              "null|0|null"_s.arg(paper));
    EXPECT_EQ(rowsOf(u"select b.TestingNumber,a.ExaminationID,a.QuestionName,a.Answer1,a.Answer2,a.Answer3,a.Answer4,"
                     "a.Answer5,a.SelectAnswer,a.Score from TestingResultDetail a,TestingResult b "
                     "where a.TestingID=b.TestingID order by a.ID"_s),
              u"1|%1|题1|答1|答2|答3|答4|null|A|1\n"
              "1|%1|题2|答1|答2|答3|答4|null|C|3\n"
              "1|%1|题3|答1|答2|答3|答4|null|D|4"_s.arg(paper));
}

TEST_P(ScoringTest, EachTestIsNumberedAboveTheHighest) {
    const int paper = addPaper({u"001001"_s, 2, 1, {}});
    sit(paper, u"A"_s);
    sit(paper, u"A"_s);
    cnnPublic.Execute(u"update TestingResult set TestingNumber=40 where TestingNumber=1"_s);
    sit(paper, u"A"_s);
    EXPECT_EQ(rowsOf(u"select TestingNumber from TestingResult order by TestingID"_s), u"40\n2\n41"_s);
}

TEST_P(ScoringTest, AsManyAnswersAreStoredAsThePaperOffers) {
    const struct {
        QString amount;
        QString stored;
    } cases[] = {
        {u"null"_s, QString()},
        {u"1"_s, QString()},
        {u"2"_s, u"答1|答2|null|null|null|A"_s},
        {u"3"_s, u"答1|答2|答3|null|null|A"_s},
        {u"4"_s, u"答1|答2|答3|答4|null|A"_s},
        {u"5"_s, u"答1|答2|答3|答4|答5|A"_s},
        {u"6"_s, QString()},
    };
    const int paper = addPaper({u"001001"_s, 5, 1, {}});
    for (const auto& c : cases) {
        cnnPublic.Execute(u"delete from TestingResultDetail"_s);
        cnnPublic.Execute(u"update Examination set AnswerAmount=%1"_s.arg(c.amount));
        EXPECT_EQ(sit(paper, u"A"_s), Status::Done);
        EXPECT_EQ(rowsOf(u"select Answer1,Answer2,Answer3,Answer4,Answer5,SelectAnswer from TestingResultDetail"_s),
                  c.stored)
            << "AnswerAmount " << c.amount.toStdString();
    }
}

TEST_P(ScoringTest, FifthLetterAndNoAnswerScoreNothing) {
    const int paper = addPaper({u"001001"_s, 5, 4, {}});
    EXPECT_EQ(sit(paper, u"AE_D"_s), Status::Done);
    EXPECT_EQ(rowsOf(u"select SelectAnswer,Score from TestingResultDetail order by ID"_s),
              u"A|1\nE|null\n|null\nD|4"_s);
    EXPECT_EQ(rowsOf(u"select ExamQuestions,FactQuestions,Score from TestingResult"_s), u"4|2|5"_s);
}

TEST_P(ScoringTest, NothingAnsweredLeavesEverythingNull) {
    const int paper = addPaper({u"001001"_s, 4, 2, {u"0-100 差"_s}});
    EXPECT_EQ(sit(paper, u"__"_s), Status::Done);
    EXPECT_EQ(verdicts(), u"null|null|null"_s);
    EXPECT_EQ(rowsOf(u"select count(*) from TestingResultDetail"_s), u"2"_s);
}

struct BandCase {
    const char* what;
    int score;
    QStringList bands;
    std::optional<QString> verdict;  // none: the series fails
};

const std::vector<BandCase>& bandCases() {
    static const std::vector<BandCase> cases = {
        {"the lower bound is inside", 60, {u"0-59 差"_s, u"60-100 优"_s}, u"优"_s},
        {"the upper bound is inside", 59, {u"0-59 差"_s, u"60-100 优"_s}, u"差"_s},
        {"a gap has no word", 60, {u"0-59 差"_s, u"61-100 优"_s}, u"null"_s},
        {"above all bands", 101, {u"0-59 差"_s, u"60-100 优"_s}, u"null"_s},
        {"the highest of two bands that hold it", 60, {u"60-100 优"_s, u"0-60 差"_s}, u"差"_s},
        {"a fifth band filled by another hand", 7, {u"0-9 一"_s, u"- "_s, u"- "_s, u"- "_s, u"7-7 五"_s}, u"五"_s},
        {"an unused band holds exactly 0", 0, {u"0-59 差"_s, u"- "_s}, u""_s},
        {"an unused band holds nothing else", 1, {u"0-59 差"_s, u"- "_s}, u"差"_s},
        {"a band with no hyphen", 5, {u"9 差"_s}, std::nullopt},
        {"an upper bound that is no whole number", 1, {u"0-1.5 差"_s}, std::nullopt},
        {"a second hyphen belongs to the upper bound", 1, {u"-5-10 差"_s}, std::nullopt},
        {"a wide hyphen parts the bounds too", 5, {u"0－9 差"_s}, u"差"_s},
        {"a row of bands that were never written", 5, {}, u"null"_s},
    };
    return cases;
}

TEST_P(ScoringTest, ScoreFindsItsBand) {
    for (const auto& c : bandCases()) {
        cnnPublic.Execute(u"delete from TestingResult"_s);
        cnnPublic.Execute(u"delete from Examination"_s);
        const int paper = addPaper({u"001001"_s, 2, 1, c.bands});
        cnnPublic.Execute(u"update ExaminationQuestion set Score1=%1"_s.arg(c.score));
        EXPECT_EQ(sit(paper, u"A"_s), c.verdict ? Status::Done : Status::Failed) << c.what;
        if (c.verdict) {
            EXPECT_EQ(verdicts(), u"%1|1|%2"_s.arg(c.score).arg(*c.verdict)) << c.what;
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

TEST_P(ScoringTest, ChangedScoresReachEarlierAnswersButNotTheirSums) {
    const int paper = addPaper({u"001001"_s, 4, 2, {}});
    sit(paper, u"AB"_s);
    cnnPublic.Execute(u"update ExaminationQuestion set Score1=9"_s);
    cnnPublic.Execute(u"update ExaminationQuestion set Score2=null"_s);
    sit(paper, u"AA"_s);
    EXPECT_EQ(rowsOf(u"select SelectAnswer,Score from TestingResultDetail order by ID"_s), u"A|9\nB|null\nA|9\nA|9"_s);
    EXPECT_EQ(rowsOf(u"select Score,FactQuestions from TestingResult order by TestingID"_s), u"3|2\n18|2"_s);
}

TEST_P(ScoringTest, AnswerIsFoundByPaperAndQuestionText) {
    const int paper = addPaper({u"001001"_s, 4, 2, {}});
    const int other = addPaper({u"001001"_s, 4, 2, {}});
    cnnPublic.Execute(u"update ExaminationQuestion set Score1=7 where ExaminationID=%1"_s.arg(other));
    sit(paper, u"AA"_s);
    cnnPublic.Execute(u"update ExaminationQuestion set QuestionName='改' where QuestionName='题2'"_s);
    sit(paper, u"AA"_s);
    // The renamed question's earlier answer keeps the score it has; the new one finds no question.
    EXPECT_EQ(rowsOf(u"select QuestionName,Score from TestingResultDetail order by ID"_s),
              u"题1|1\n题2|1\n题1|1\n题2|null"_s);
}

TEST_P(ScoringTest, PaperIsTheNumberAtTheStartOfItsText) {
    const int paper = addPaper({u"001001"_s, 4, 1, {}});
    EXPECT_EQ(submit(candidate(u"条理性"_s), false, {{u"001001"_s, u"条理性"_s, u" %1 号"_s.arg(paper), u"B"_s}}),
              Status::Done);
    EXPECT_EQ(rowsOf(u"select ExaminationID,Score from TestingResult"_s), u"%1|2"_s.arg(paper));
}

TEST_P(ScoringTest, CodeOfAnotherLengthIsStoredWithoutAnswers) {
    const int paper = addPaper({u"0010011"_s, 4, 1, {}});
    EXPECT_EQ(submit(candidate(u"条理性"_s), false, {{u"0010011"_s, u"条理性"_s, id(paper), u"B"_s}}), Status::Done);
    EXPECT_EQ(verdicts(), u"null|null|null"_s);
    EXPECT_EQ(rowsOf(u"select count(*) from TestingResultDetail"_s), u"0"_s);
}

TEST_P(ScoringTest, NumbersPast16BitsFail) {
    const int paper = addPaper({u"001001"_s, 4, 1, {}});
    cnnPublic.Execute(u"insert into TestingResult (TestingNumber) values (32766)"_s);
    EXPECT_EQ(sit(paper, u"A"_s), Status::Done);
    EXPECT_EQ(sit(paper, u"A"_s), Status::Failed);
    EXPECT_EQ(rowsOf(u"select TestingNumber from TestingResult order by TestingID"_s), u"32766\n32767"_s);
}

TEST_P(ScoringTest, RowIdPast16BitsFailsAfterItsInsert) {
    if (GetParam() == Engine::Server) {
        GTEST_SKIP() << "a server's keys would stay past 16 bits for every later test";
    }
    const int paper = addPaper({u"001001"_s, 4, 1, {}});
    cnnPublic.Execute(u"insert into TestingResult (TestingNumber) values (1)"_s);
    while (rowsOf(u"select max(TestingID) from TestingResult"_s).toInt() <= 32767) {
        cnnPublic.Execute(u"insert into TestingResult (TestingNumber) select TestingNumber from TestingResult"_s);
    }
    EXPECT_EQ(sit(paper, u"A"_s), Status::Failed);
    EXPECT_EQ(rowsOf(u"select TypeCode,Score from TestingResult where TestingNumber=2"_s), u"001001|null"_s);
}

TEST_P(ScoringTest, UnknownPaperFails) {
    EXPECT_EQ(sit(12345, u"A"_s), Status::Failed);
    EXPECT_EQ(rowsOf(u"select TypeCode,ExaminationID from TestingResult"_s), u"001001|12345"_s);
}

}  // namespace

}  // namespace talvora::test
