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
    const QString cases[][2] = {{u"null"_s, {}},
                                {u"1"_s, {}},
                                {u"2"_s, u"答1|答2|null|null|null|A"_s},
                                {u"3"_s, u"答1|答2|答3|null|null|A"_s},
                                {u"4"_s, u"答1|答2|答3|答4|null|A"_s},
                                {u"5"_s, u"答1|答2|答3|答4|答5|A"_s},
                                {u"6"_s, {}}};
    const int paper = addPaper({u"001001"_s, 5, 1, {}});
    for (const auto& [amount, stored] : cases) {
        cnnPublic.Execute(u"delete from TestingResultDetail"_s);
        cnnPublic.Execute(u"update Examination set AnswerAmount="_s + amount);
        EXPECT_EQ(sit(paper, u"A"_s), Status::Done);
        EXPECT_EQ(rowsOf(u"select Answer1,Answer2,Answer3,Answer4,Answer5,SelectAnswer from TestingResultDetail"_s),
                  stored)
            << amount.toStdString();
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
    struct BandCase {
        int score;
        QStringList bands;
        const char* verdict;
    };
    const char* const fails = "fails";
    const BandCase cases[] = {
        // Both bounds are inside, a gap and what is above all bands has no word, the highest of two bands wins.
        {60, {u"0-59 差"_s, u"60-100 优"_s}, "优"},
        {59, {u"0-59 差"_s, u"60-100 优"_s}, "差"},
        {60, {u"0-59 差"_s, u"61-100 优"_s}, "null"},
        {101, {u"0-59 差"_s, u"60-100 优"_s}, "null"},
        {60, {u"60-100 优"_s, u"0-60 差"_s}, "差"},
        {7, {u"0-9 一"_s, u"- "_s, u"- "_s, u"- "_s, u"7-7 五"_s}, "五"},
        // An unused band holds exactly 0; one that was never written holds nothing.
        {0, {u"0-59 差"_s, u"- "_s}, ""},
        {1, {u"0-59 差"_s, u"- "_s}, "差"},
        {5, {}, "null"},
        // No hyphen, an upper bound that is no whole number, a second hyphen, which belongs to the upper bound, a wide
        // one.
        {5, {u"9 差"_s}, fails},
        {1, {u"0-1.5 差"_s}, fails},
        {1, {u"-5-10 差"_s}, fails},
        {5, {u"0－9 差"_s}, "差"},
    };
    for (const BandCase& c : cases) {
        SCOPED_TRACE(c.bands.join(u' ').toStdString());
        emptyTables({u"TestingResult"_s, u"Examination"_s});
        const int paper = addPaper({u"001001"_s, 2, 1, c.bands});
        cnnPublic.Execute(u"update ExaminationQuestion set Score1=%1"_s.arg(c.score));
        EXPECT_EQ(sit(paper, u"A"_s), c.verdict == fails ? Status::Failed : Status::Done);
        if (c.verdict != fails) {
            EXPECT_EQ(verdicts(), u"%1|1|%2"_s.arg(c.score).arg(QString::fromUtf8(c.verdict)));
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

}  // namespace

}  // namespace talvora::test
