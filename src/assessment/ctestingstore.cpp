// Storing a finished test and taking one away: the row operations of cTesting. The database does all of the scoring;
// nothing here adds a score.

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/resume_next.h"
#include "core/status_of.h"
#include "platform/numbers.h"
#include "results/ctesting.h"
#include "results/ctestingdetail.h"
#include "testbank/cquestion.h"
#include "testbank/ctestingtype.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int scoreBands = 5;

QString text(qint32 value) {
    return QString::number(value);
}

/// The series of statements that stores one test. It stops at the first one that fails, by its exception.
class TestingStore {
 public:
    TestingStore(const cTesting& test, const cTestingDetails& details) : test_(test), details_(details) {}

    void run(bool isModel, const cTestings& testings);

 private:
    void insertHeader();
    void storeRow(const cTesting& item);
    void insertRow(const cTesting& item);
    void insertDetails(double examination);
    void insertDetail(const cTestingDetail& detail, int answers);
    void scoreDetails();
    void sumUp();
    void judge();
    void rollUp();
    QString firstValues() const;

    const cTesting& test_;
    const cTestingDetails& details_;
    // The testing number, the model (0 for a single paper) and the row just inserted. They are 16 bits wide, and that
    // is meant: a number above 32767 is an overflow that fails the series.
    qint16 number_ = 0;
    qint16 solution_ = 0;
    qint16 row_ = 0;
    // The paper of the answers handled last. It outlives its row, so that a row without answers scores that paper
    // once more.
    qint16 examination_ = 0;
};

void TestingStore::run(bool isModel, const cTestings& testings) {
    cnnPublic.BeginTrans();
    number_ = toInt16(GetNewID(u"TestingResult"_s, u"TestingNumber"_s));
    if (isModel) {
        insertHeader();
    }
    for (const auto& item : testings) {
        storeRow(*item);
    }
    if (isModel) {
        rollUp();
    } else {
        cnnPublic.Execute(u"Update TestingResult Set SolutionID=0 Where TestingNumber = "_s + text(number_));
    }
    cnnPublic.CommitTrans();
}

/// The values that every row of the family begins with, up to the comma behind the moment.
QString TestingStore::firstValues() const {
    return text(number_) + u",'"_s + test_.IDNumber + u"','"_s + test_.Name + u"','"_s + test_.Sex + u"',"_s +
           text(test_.Age) + u",'"_s + test_.Education + u"','"_s + test_.PostName + u"','"_s + test_.Salary +
           u"','"_s + test_.TestingDate + u"',"_s;
}

void TestingStore::insertHeader() {
    const Recordset models = cnnPublic.Execute(
        u"select SolutionID,Version from TestingSolution where SolutionName='"_s + test_.TypeName + u"'"_s);
    solution_ = models.first().number16("SolutionID");
    const QString version = models.first().rawText("Version");
    cnnPublic.Execute(
        u"insert into TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,"
        "TestingDate,TypeName,SolutionID,Version) values ("_s +
        firstValues() + u'\'' + test_.TypeName + u"',"_s + text(solution_) + u",'"_s + version + u"')"_s);
}

void TestingStore::storeRow(const cTesting& item) {
    insertRow(item);
    row_ = toInt16(GetNewID(u"TestingResult"_s, u"testingID"_s) - 1);
    if (item.TypeCode.size() != subtypeCodeLength) {
        return;
    }
    insertDetails(leadingNumber(item.ExaminationID));
    scoreDetails();
    sumUp();
    judge();
}

void TestingStore::insertRow(const cTesting& item) {
    cnnPublic.Execute(
        u"insert into TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,"
        "TestingDate,TypeName,TypeCode,ExaminationID,ExamQuestions,SolutionID) values ("_s +
        firstValues() + u'\'' + item.TypeName + u"','"_s + item.TypeCode + u"',"_s +
        numberText(leadingNumber(item.ExaminationID)) + u","_s + text(item.ExamQuestions) + u","_s + text(solution_) +
        u")"_s);
}

void TestingStore::insertDetails(double examination) {
    for (const auto& detail : details_) {
        if (detail->ExaminationID != examination) {
            continue;
        }
        examination_ = detail->ExaminationID;
        const Recordset papers =
            cnnPublic.Execute(u"select AnswerAmount from Examination where ExaminationID="_s + text(examination_));
        const int answers = papers.first().number32Or0("AnswerAmount");
        // A paper with another number of answers stores none, and says nothing about it.
        if (answers >= leastAnswerAmount && answers <= mostAnswerAmount) {
            insertDetail(*detail, answers);
        }
    }
}

void TestingStore::insertDetail(const cTestingDetail& detail, int answers) {
    QString columns = u"TestingID,ExaminationID,QuestionName,"_s;
    QString values = text(row_) + u","_s + text(examination_) + u",'"_s + detail.QuestionName + u"','"_s;
    for (int i = 0; i < answers; ++i) {
        columns += u"Answer"_s + text(i + 1) + u","_s;
        values += detail.*detailAnswers[static_cast<std::size_t>(i)] + u"','"_s;
    }
    cnnPublic.Execute(u"insert into TestingResultDetail ("_s + columns + u"SelectAnswer) values ("_s + values +
                      detail.SelectAnswer + u"')"_s);
}

void TestingStore::scoreDetails() {
    // Four letters have a score, the fifth has none although a paper may offer it. Every answer ever stored for the
    // paper is scored again, so that a changed question reaches the answers of earlier tests. Both are meant.
    cnnPublic.Execute(
        u"update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 "
        "when 'C' then a.Score3 when  'D' then a.Score4 end   from ExaminationQuestion a "
        "where TestingResultDetail.ExaminationID=a.ExaminationID and "
        "TestingResultDetail.QuestionName=a.QuestionName and TestingResultDetail.ExaminationID="_s +
        text(examination_));
}

void TestingStore::sumUp() {
    cnnPublic.Execute(
        u"update TestingResult set Score =a.Score from (select TestingId, sum(Score) as Score "
        "from TestingResultDetail where testingID="_s +
        text(row_) + u" group by testingID) a  where testingResult.TestingID=a.TestingID"_s);
    cnnPublic.Execute(
        u"update TestingResult set FactQuestions =a.FactQuestions from (select TestingId, count(*) as FactQuestions "
        "from TestingResultDetail where testingID="_s +
        text(row_) + u" and Score is not null group by testingID) a  where testingResult.TestingID=a.TestingID"_s);
}

/// Finds the verdict by the bands of the papers of this type, not of this paper alone. Each band that holds the score
/// overwrites the one before.
void TestingStore::judge() {
    // The full-width dash stands for the stored hyphen too, as the database tells no widths apart.
    static const QString statement =
        u"update TestingResult set TestingResult =a.DescScope%1 from Examination a "
        "where TestingResult.TypeCode=a.typecode and "
        "Score>=cast(left(a.ScoreScope%1,patindex('%－%',a.ScoreScope%1)-1) as int) and "
        "Score<=cast(right(a.ScoreScope%1,len(a.ScoreScope%1)-patindex('%－%',a.ScoreScope%1)) as int) and  "
        "testingResult.TestingID=%2"_s;
    for (int band = 1; band <= scoreBands; ++band) {
        cnnPublic.Execute(statement.arg(band).arg(row_));
    }
}

/// Weighs the scores of a model's papers into the scores of its dimensions and the total.
void TestingStore::rollUp() {
    // Nothing ever drops the temporary table: a second model test on the same connection fails here, which is meant.
    cnnPublic.Execute(
        u"SELECT LEFT(TypeCode, 3) AS typecode, SUM(Score1) AS score into #TypecodeScore FROM  "
        "(SELECT a.TestingNumber, a.TypeCode, a.Score * b.Weighing AS Score1 "
        "FROM TestingResult a ,TestingSolutionDetail b "
        "where a.SolutionID = b.SolutionID AND a.TypeCode = b.TypeCode and a.TestingNumber = "_s +
        text(number_) + u") c GROUP BY LEFT(TypeCode, 3)"_s);
    cnnPublic.Execute(
        u"Update TestingResult Set TestingResult.Score = a.Score FROM #TypecodeScore a "
        "where a.typecode=testingresult.typecode and TestingNumber = "_s +
        text(number_));
    cnnPublic.Execute(
        u"Update TestingResult Set TestingResult.score = a.score FROM "
        "(SELECT TestingNumber, SUM(score) AS score FROM TestingResult WHERE TestingNumber ="_s +
        text(number_) +
        u" AND len(TypeCode)=3 GROUP BY TestingNumber) a  "
        "Where TestingResult.TestingNumber = a.TestingNumber and TypeCode Is null"_s);
}

}  // namespace

Status cTesting::AddNew(bool isModel, const cTestings& testings, const cTestingDetails& details) const {
    // A failure neither rolls back nor commits: what was done stays in the open transaction.
    return statusOf([&] {
        cnnPublic.RunSeries([&] { TestingStore(*this, details).run(isModel, testings); });
        return Status::Done;
    });
}

Status cTesting::Delete(qint32 testingId) {
    ResumeNext steps;
    QString number;
    steps([&] { cnnPublic.BeginTrans(); });
    steps([&] {
        number = cnnPublic.Execute(u"select TestingNumber from TestingResult where testingid="_s + text(testingId))
                     .first()
                     .text("TestingNumber");
    });
    steps([&] {
        cnnPublic.Execute(
            u"delete from TestingResultDetail where TestingID in "
            "(select TestingID from TestingResult where TestingNumber='"_s +
            number + u"')"_s);
    });
    steps([&] { cnnPublic.Execute(u"Delete from TestingResult where TestingNumber='"_s + number + u"'"_s); });
    steps([&] { cnnPublic.CommitTrans(); });
    return steps.status();
}

}  // namespace talvora
