// The series of statements of cTesting::AddNew and cTesting::Delete: their exact texts, and what is left behind when
// each of them fails in turn.

#include "records/scoring_bank.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

const QString particulars = u"'110101199001011234','张三','女',34,'本科','会计','3000~5000','2010-09-05 08:30:00',"_s;

const QString rowHead =
    u"insert into TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate,TypeName,"
    "TypeCode,ExaminationID,ExamQuestions,SolutionID) values (1,"_s +
    particulars;

/// From the scoring of the answers to the verdict, for the row {row} and the paper {paper}.
QStringList scoring() {
    QStringList all = {
        u"update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 "
        "when 'C' then a.Score3 when  'D' then a.Score4 end   from ExaminationQuestion a where "
        "TestingResultDetail.ExaminationID=a.ExaminationID and TestingResultDetail.QuestionName=a.QuestionName and "
        "TestingResultDetail.ExaminationID={paper}"_s,
        u"update TestingResult set Score =a.Score from (select TestingId, sum(Score) as Score from "
        "TestingResultDetail where testingID={row} group by testingID) a  where testingResult.TestingID=a.TestingID"_s,
        u"update TestingResult set FactQuestions =a.FactQuestions from (select TestingId, count(*) as FactQuestions "
        "from TestingResultDetail where testingID={row} and Score is not null group by testingID) a  where "
        "testingResult.TestingID=a.TestingID"_s};
    for (const QString& n : {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}) {
        all +=
            u"update TestingResult set TestingResult =a.DescScope{n} from Examination a where "
            "TestingResult.TypeCode=a.typecode and "
            "Score>=cast(left(a.ScoreScope{n},patindex('%－%',a.ScoreScope{n})-1) as int) and "
            "Score<=cast(right(a.ScoreScope{n},len(a.ScoreScope{n})-patindex('%－%',a.ScoreScope{n})) as int) and  "
            "testingResult.TestingID={row}"_s.replace(u"{n}"_s, n);
    }
    return all;
}

QStringList singleSeries() {
    return QStringList{
               u"begin transaction"_s,
               u"SELECT MAX(TestingNumber) FROM TestingResult"_s,
               rowHead + u"'条理性','001001',{paper},2,0)"_s,
               u"SELECT MAX(testingID) FROM TestingResult"_s,
               u"select AnswerAmount from Examination where ExaminationID={paper}"_s,
               u"insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,Answer3,"
               "Answer4,Answer5,SelectAnswer) values ({row},{paper},'题1','答1','答2','答3','答4','答5','E')"_s,
               u"select AnswerAmount from Examination where ExaminationID={paper}"_s,
               u"insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,Answer3,"
               "Answer4,Answer5,SelectAnswer) values ({row},{paper},'题2','答1','答2','答3','答4','答5','')"_s} +
           scoring() +
           QStringList{u"Update TestingResult Set SolutionID=0 Where TestingNumber = 1"_s, u"commit transaction"_s};
}

QStringList modelSeries() {
    return QStringList{u"begin transaction"_s,
                       u"SELECT MAX(TestingNumber) FROM TestingResult"_s,
                       u"select SolutionID,Version from TestingSolution where SolutionName='主管模型'"_s,
                       u"insert into TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,"
                       "TestingDate,TypeName,SolutionID,Version) values (1,"_s +
                           particulars + u"'主管模型',{model},'1.20')"_s,
                       rowHead + u"'能力','001',0,0,{model})"_s,
                       u"SELECT MAX(testingID) FROM TestingResult"_s,
                       rowHead + u"'条理性','001001',{paper},1,{model})"_s,
                       u"SELECT MAX(testingID) FROM TestingResult"_s,
                       u"select AnswerAmount from Examination where ExaminationID={paper}"_s,
                       u"insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,"
                       "SelectAnswer) values ({row},{paper},'题1','答1','答2','B')"_s} +
           scoring() +
           QStringList{
               u"SELECT LEFT(TypeCode, 3) AS typecode, SUM(Score1) AS score into #TypecodeScore FROM  "
               "(SELECT a.TestingNumber, a.TypeCode, a.Score * b.Weighing AS Score1 FROM TestingResult a ,"
               "TestingSolutionDetail b where a.SolutionID = b.SolutionID AND a.TypeCode = b.TypeCode and "
               "a.TestingNumber = 1) c GROUP BY LEFT(TypeCode, 3)"_s,
               u"Update TestingResult Set TestingResult.Score = a.Score FROM #TypecodeScore a where "
               "a.typecode=testingresult.typecode and TestingNumber = 1"_s,
               u"Update TestingResult Set TestingResult.score = a.score FROM (SELECT TestingNumber, SUM(score) AS "
               "score FROM TestingResult WHERE TestingNumber =1 AND len(TypeCode)=3 GROUP BY TestingNumber) a  Where "
               "TestingResult.TestingNumber = a.TestingNumber and TypeCode Is null"_s,
               u"commit transaction"_s};
}

class ScoringStatementsTest : public DatabaseTest {
 protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        wide = addPaper({u"001001"_s, 5, 2, {u"0-9 中"_s}});
        narrow = addPaper({u"001001"_s, 2, 1, {}});
        model = addModel(u"主管模型"_s, u"1.20"_s, {{u"001001"_s, u"条理性"_s, 0.5}});
    }

    Status sitSingle() const {
        return submit(candidate(u"条理性"_s), false, {{u"001001"_s, u"条理性"_s, QString::number(wide), u"E_"_s}});
    }
    Status sitModel() const {
        return submit(candidate(u"主管模型"_s), true,
                      {{u"001"_s, u"能力"_s, {}, {}}, {u"001001"_s, u"条理性"_s, QString::number(narrow), u"B"_s}});
    }

    /// Puts the real keys for {paper}, {row} and {model}.
    QString keyed(const QStringList& statements, int paper) const {
        QString all = statements.join(u'\n');
        all.replace(u"{paper}"_s, QString::number(paper));
        all.replace(u"{row}"_s, rowsOf(u"select max(TestingID) from TestingResult"_s));
        return all.replace(u"{model}"_s, QString::number(model));
    }

    static QString counts() { return rowCounts({u"TestingResult"_s, u"TestingResultDetail"_s}); }

    /// How many rows the statements have inserted, in the form of counts().
    static QString insertedBy(const QStringList& statements) {
        return u"%1 %2"_s.arg(statements.filter(u"insert into TestingResult ("_s).size())
            .arg(statements.filter(u"insert into TestingResultDetail"_s).size());
    }

    static void forget() { emptyTables({u"TestingResult"_s, u"TestingResultDetail"_s}); }

    int wide = 0;
    int narrow = 0;
    int model = 0;
};
TALVORA_ON_EVERY_ENGINE(ScoringStatementsTest);

TEST_P(ScoringStatementsTest, PaperAndModelSendTheseSeries) {
    const QString single = sentBy([&] { return sitSingle(); });
    EXPECT_EQ(single, keyed(singleSeries(), wide));
    forget();
    const QString whole = sentBy([&] { return sitModel(); });
    EXPECT_EQ(whole, keyed(modelSeries(), narrow));
}

TEST_P(ScoringStatementsTest, RowWithoutAnswersScoresThePaperHandledLast) {
    const auto scored = [&](const std::vector<SheetPlan>& sheets) {
        const QStringList sent = statementsOf([&] { submit(candidate(u"条理性"_s), false, sheets); });
        QStringList papers;
        for (const QString& statement : sent.filter(u"update TestingResultDetail"_s)) {
            papers += statement.section(u'=', -1);
        }
        return papers.join(u' ');
    };
    const SheetPlan empty{u"001002"_s, u"判断力"_s, u"77"_s, {}};
    EXPECT_EQ(scored({empty}), u"0"_s);
    EXPECT_EQ(scored({{u"001001"_s, u"条理性"_s, QString::number(wide), u"AB"_s}, empty}), u"%1 %1"_s.arg(wide));
}

TEST_P(ScoringStatementsTest, EachStatementOfAddNewFailsInTurn) {
    for (const bool isModel : {false, true}) {
        const qsizetype length = (isModel ? modelSeries() : singleSeries()).size();
        for (qsizetype failing = 1; failing <= length; ++failing) {
            SCOPED_TRACE(u"statement %1 of %2"_s.arg(failing).arg(length).toStdString());
            QStringList done =
                statementsOf([&] { EXPECT_EQ(isModel ? sitModel() : sitSingle(), Status::Failed); }, failing);
            // The series stops there: no later statement, no commit, no rollback.
            EXPECT_EQ(done.size(), failing);
            done.removeLast();
            EXPECT_EQ(counts(), insertedBy(done));
            // What it left open is stored with the next test.
            if (done.filter(u"#TypecodeScore"_s).size() > 0) {
                cnnPublic.Execute(u"drop table #TypecodeScore"_s);
            }
            done += statementsOf([&] { EXPECT_EQ(sitSingle(), Status::Done); });
            EXPECT_EQ(counts(), insertedBy(done));
            forget();
        }
    }
}

TEST_P(ScoringStatementsTest, FailedSeriesCanStillBeTakenBack) {
    statementsOf([&] { EXPECT_EQ(sitSingle(), Status::Failed); }, singleSeries().size());
    EXPECT_EQ(counts(), u"1 2"_s);
    cnnPublic.RollbackTrans();
    EXPECT_EQ(submit(candidate(u"条理性"_s, u"O'Neil"_s), false,
                     {{u"001001"_s, u"条理性"_s, QString::number(wide), u"AB"_s}}),
              Status::Failed);
    EXPECT_EQ(counts(), u"0 0"_s);
}

TEST_P(ScoringStatementsTest, DeleteSendsThisSeriesAndGoesOnPastAFailure) {
    qint16 row = 0;
    const auto store = [&] {
        forget();
        sitSingle();
        row = numberOf(u"select TestingID from TestingResult"_s);
    };
    failEachStatement(
        OnError::GoesOn, u"0 0, 1 2, 0 2, 1 0, 0 0"_s, store, [&] { return cTesting::Delete(row); }, counts);
    store();
    EXPECT_EQ(cTesting::Delete(987654), Status::Failed);
    EXPECT_EQ(counts(), u"1 2"_s);
    EXPECT_EQ(sentBy([&] { return cTesting::Delete(row); }),
              u"begin transaction\n"
              "select TestingNumber from TestingResult where testingid=%1\n"
              "delete from TestingResultDetail where TestingID in (select TestingID from TestingResult where "
              "TestingNumber='1')\n"
              "Delete from TestingResult where TestingNumber='1'\n"
              "commit transaction"_s.arg(row));
}

}  // namespace

}  // namespace talvora::test
