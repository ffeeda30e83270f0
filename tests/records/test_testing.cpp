// The series of statements of cTesting: their exact texts, what is left behind when each of them fails, and the lists.

#include "core/status_of.h"
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
QString scoring() {
    QString all =
        u"update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 "
        "when 'C' then a.Score3 when  'D' then a.Score4 end   from ExaminationQuestion a where "
        "TestingResultDetail.ExaminationID=a.ExaminationID and TestingResultDetail.QuestionName=a.QuestionName and "
        "TestingResultDetail.ExaminationID={paper}\n"
        "update TestingResult set Score =a.Score from (select TestingId, sum(Score) as Score from "
        "TestingResultDetail where testingID={row} group by testingID) a  where testingResult.TestingID=a.TestingID\n"
        "update TestingResult set FactQuestions =a.FactQuestions from (select TestingId, count(*) as FactQuestions "
        "from TestingResultDetail where testingID={row} and Score is not null group by testingID) a  where "
        "testingResult.TestingID=a.TestingID\n"_s;
    for (int band = 1; band <= 5; ++band) {
        all +=
            u"update TestingResult set TestingResult =a.DescScope%1 from Examination a where "
            "TestingResult.TypeCode=a.typecode and "
            "Score>=cast(left(a.ScoreScope%1,patindex('%－%',a.ScoreScope%1)-1) as int) and "
            "Score<=cast(right(a.ScoreScope%1,len(a.ScoreScope%1)-patindex('%－%',a.ScoreScope%1)) as int) and  "
            "testingResult.TestingID={row}\n"_s.arg(band);
    }
    return all;
}

class TestingTest : public DatabaseTest {
 protected:
    void SetUp() override {
        DatabaseTest::SetUp();
        wide = addPaper({u"001001"_s, 5, 2, {u"0-9 中"_s}});
        narrow = addPaper({u"001001"_s, 2, 1, {}});
        model = addModel(u"主管模型"_s, {u"001001 0.5"_s});
    }

    Status sitSingle() const {
        return submit(candidate(u"条理性"_s), false, {{u"001001"_s, u"条理性"_s, QString::number(wide), u"E_"_s}});
    }
    Status sitModel() const {
        return submit(candidate(u"主管模型"_s), true,
                      {{u"001"_s, u"能力"_s, {}, {}}, {u"001001"_s, u"条理性"_s, QString::number(narrow), u"B"_s}});
    }

    /// Puts the real keys for {paper}, {row} and {model}.
    QString keyed(QString all, int paper) const {
        all.replace(u"{paper}"_s, QString::number(paper));
        all.replace(u"{row}"_s, rowsOf(u"select max(TestingID) from TestingResult"_s));
        return all.replace(u"{model}"_s, QString::number(model));
    }

    static QString counts() { return rowCounts({u"TestingResult"_s, u"TestingResultDetail"_s}); }

    static void forget() { emptyTables({u"TestingResult"_s, u"TestingResultDetail"_s}); }

    int wide = 0;
    int narrow = 0;
    int model = 0;
};
TALVORA_ON_EVERY_ENGINE(TestingTest);

TEST_P(TestingTest, PaperAndModelSendTheseSeries) {
    const QString single =
        u"begin transaction\n"
        "SELECT MAX(TestingNumber) FROM TestingResult\n"_s +
        rowHead +
        u"'条理性','001001',{paper},2,0)\n"
        "SELECT MAX(testingID) FROM TestingResult\n"
        "select AnswerAmount from Examination where ExaminationID={paper}\n"
        "insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,Answer3,Answer4,"
        "Answer5,SelectAnswer) values ({row},{paper},'题1','答1','答2','答3','答4','答5','E')\n"
        "select AnswerAmount from Examination where ExaminationID={paper}\n"
        "insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,Answer3,Answer4,"
        "Answer5,SelectAnswer) values ({row},{paper},'题2','答1','答2','答3','答4','答5','')\n"_s +
        scoring() + u"Update TestingResult Set SolutionID=0 Where TestingNumber = 1\ncommit transaction"_s;
    const QString whole =
        u"begin transaction\n"
        "SELECT MAX(TestingNumber) FROM TestingResult\n"
        "select SolutionID,Version from TestingSolution where SolutionName='主管模型'\n"
        "insert into TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate,"
        "TypeName,SolutionID,Version) values (1,"_s +
        particulars + u"'主管模型',{model},'1.20')\n"_s + rowHead +
        u"'能力','001',0,0,{model})\n"
        "SELECT MAX(testingID) FROM TestingResult\n"_s +
        rowHead +
        u"'条理性','001001',{paper},1,{model})\n"
        "SELECT MAX(testingID) FROM TestingResult\n"
        "select AnswerAmount from Examination where ExaminationID={paper}\n"
        "insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,SelectAnswer) values "
        "({row},{paper},'题1','答1','答2','B')\n"_s +
        scoring() +
        u"SELECT LEFT(TypeCode, 3) AS typecode, SUM(Score1) AS score into #TypecodeScore FROM  "
        "(SELECT a.TestingNumber, a.TypeCode, a.Score * b.Weighing AS Score1 FROM TestingResult a ,"
        "TestingSolutionDetail b where a.SolutionID = b.SolutionID AND a.TypeCode = b.TypeCode and "
        "a.TestingNumber = 1) c GROUP BY LEFT(TypeCode, 3)\n"
        "Update TestingResult Set TestingResult.Score = a.Score FROM #TypecodeScore a where "
        "a.typecode=testingresult.typecode and TestingNumber = 1\n"
        "Update TestingResult Set TestingResult.score = a.score FROM (SELECT TestingNumber, SUM(score) AS "
        "score FROM TestingResult WHERE TestingNumber =1 AND len(TypeCode)=3 GROUP BY TestingNumber) a  Where "
        "TestingResult.TestingNumber = a.TestingNumber and TypeCode Is null\n"
        "commit transaction"_s;
    QString sent = sentBy([&] { return sitSingle(); });
    EXPECT_EQ(sent, keyed(single, wide));
    forget();
    sent = sentBy([&] { return sitModel(); });
    EXPECT_EQ(sent, keyed(whole, narrow));
}

TEST_P(TestingTest, RowWithoutAnswersScoresThePaperHandledLast) {
    const auto scored = [&](const std::vector<SheetPlan>& sheets) {
        const QStringList sent = statementsOf([&] { submit(candidate(u"条理性"_s), false, sheets); });
        return sent.filter(u"update TestingResultDetail"_s).last().section(u'=', -1);
    };
    const SheetPlan empty{u"001002"_s, u"判断力"_s, u"77"_s, {}};
    EXPECT_EQ(scored({empty}), u"0"_s);
    EXPECT_EQ(scored({{u"001001"_s, u"条理性"_s, QString::number(wide), u"AB"_s}, empty}), QString::number(wide));
}

// The series stops there, with no commit and no rollback: whatever is stored next stores what it has written.
TEST_P(TestingTest, EachStatementOfAddNewFailsInTurn) {
    failEachStatement(
        OnError::Stops, u"0 0, 0 0, 0 0, 1 0, 1 0, 1 0, 1 1, 1 1"_s + u", 1 2"_s.repeated(10), forget,
        [&] { return sitSingle(); }, counts);
    const auto forgetModel = [] {
        forget();
        executed(u"drop table #TypecodeScore"_s);
    };
    failEachStatement(
        OnError::Stops, u"0 0, 0 0, 0 0, 0 0, 1 0, 2 0, 2 0, 3 0, 3 0, 3 0"_s + u", 3 1"_s.repeated(12), forgetModel,
        [&] { return sitModel(); }, counts);
}

TEST_P(TestingTest, DeleteSendsThisSeriesAndGoesOnPastAFailure) {
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

class TestListTest : public DatabaseTest {
 protected:
    /// Two single papers and one model between them, written in no order: number, name, code, model, score, verdict.
    void SetUp() override {
        DatabaseTest::SetUp();
        cnnPublic.Execute(
            u"insert into TestingResult (TestingNumber,TypeName,TypeCode,SolutionID,Score,TestingResult) values "
            "(3,'英语','002001',0,7,'良'), (2,'诚信','001002',5,null,null), (2,'品格','001',5,null,null), "
            "(2,'主管模型',null,5,2.5,null), (2,'条理性','001001',5,null,null), (1,'条理性','001001',0,3,'优'), "
            "(70000,'条理性','001001',0,null,' 优 ')"_s);
    }

    /// Number, name, code and the score rounded half to even.
    static QString listed(const cTestings& testings) {
        QStringList lines;
        for (const auto& testing : testings) {
            const QString number = QString::number(testing->TestingNumber);
            lines +=
                QStringList{number, testing->TypeName, testing->TypeCode, QString::number(testing->Score)}.join(u' ');
        }
        return lines.join(u'\n');
    }
};
TALVORA_ON_EVERY_ENGINE(TestListTest);

TEST_P(TestListTest, NamesOfSinglePapersAndModelsAreListedOnce) {
    cTestings testings;
    EXPECT_EQ(listed(testings.GetTestingType()), u"0 条理性  0\n0 英语  0\n0 主管模型  0"_s);
    EXPECT_THROW(testings.GetTestingType(), RuntimeError) << "nothing is cleared, so that the keys meet";
    EXPECT_EQ(testings.Count(), 3);
    EXPECT_EQ(cTestings().GetTestingResult(u"英语"_s).Item(1)->TestingResult, u"良"_s);
}

TEST_P(TestListTest, FindListsTestsAFamilyOrWhatAStatementGives) {
    cTestings testings;
    EXPECT_EQ(listed(testings.Find(0, {})),
              u"1 条理性 001001 3\n2 主管模型  2\n3 英语 002001 7\n70000 条理性 001001 0"_s);
    EXPECT_EQ(listed(testings.Find(2, {})), u"2 主管模型  2\n2 品格 001 0\n2 条理性 001001 0\n2 诚信 001002 0"_s);
    EXPECT_EQ(listed(testings.Find(2, u"select * from testingresult where Score>2 order by Score desc"_s)),
              u"3 英语 002001 7\n1 条理性 001001 3\n2 主管模型  2"_s);
    cnnPublic.Execute(u"update TestingResult set Score=32767.5 where TestingNumber=1"_s);
    EXPECT_THROW(testings.Find(1, {}), RuntimeError);
    EXPECT_THROW(testings.Find(0, u"select TestingID,TestingNumber from TestingResult"_s), RuntimeError);
    EXPECT_THROW(testings.Find(0, u"select * from NoSuchTable"_s), DatabaseError);
}

}  // namespace

}  // namespace talvora::test
