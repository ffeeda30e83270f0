#include "support/database_fixture.h"
#include "testbank/cexamination.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class ExaminationTest : public DatabaseTest {
 protected:
    /// A paper whose every member is told from the others.
    static cExamination paper(qint16 answers, const QString& number = u"P1"_s, qint16 key = 0) {
        return {key,       number,   u"001001"_s, u"au"_s,  u"ad"_s,  u"ap"_s, u"d1"_s, u"d2"_s, u"d3"_s, answers, 45,
                u"note"_s, u"0-0"_s, u"1-1"_s,    u"2-2"_s, u"3-3"_s, u"w0"_s, u"w1"_s, u"w2"_s, u"w3"_s, u"1"_s};
    }

    /// As the editor hands them over: numbered, with labelled answers.
    static cQuestions questions(int count) {
        cQuestions all;
        for (qint16 number = 1; number <= count; ++number) {
            all.Add(std::make_shared<cQuestion>(cQuestion{0, number, u"题%1"_s.arg(number), u"A．答1"_s, u"B．答2"_s,
                                                          u"C．答3"_s, u"D．答4"_s, u"E．答5"_s, 1, 2, 3, 4, 5}));
        }
        return all;
    }

    static qint16 keyOf(const QString& number) {
        return numberOf(u"select ExaminationID from Examination where ExaminationNum='%1'"_s.arg(number));
    }
    static Status add(const QString& type, const QString& number) {
        cExamination added = paper(2, number);
        added.TypeCode = type;
        return added.AddNew({});
    }
    static Status update(const QString& old, const QString& number) { return paper(2, number, keyOf(old)).Update({}); }

    static QString counts() { return rowCounts({u"Examination"_s, u"ExaminationQuestion"_s}); }
    static void forget() { emptyTables({u"Examination"_s, u"ExaminationQuestion"_s}); }
};
TALVORA_ON_EVERY_ENGINE(ExaminationTest);

TEST_P(ExaminationTest, AddNewAndUpdateSendTheseSeries) {
    const QString sent = sentBy([] { return paper(2).AddNew(questions(2)); });
    const qint16 key = keyOf(u"P1"_s);
    EXPECT_EQ(sent,
              u"Select Count(*) from Examination where TypeCode='001001' and ExaminationNum='P1'\n"
              "begin transaction\n"
              "insert into Examination (TypeCode,ExaminationNum,Author,Auditing,Approver,WriteDate,AuditingDate,"
              "ApproverDate,AnswerAmount,TestingTime,Note,ScoreScope1,ScoreScope2,ScoreScope3,ScoreScope4,DescScope1,"
              "DescScope2,DescScope3,DescScope4,Status)  values ('001001','P1','au','ad','ap','d1',"
              "'d2','d3',2,45,'note','0-0','1-1','2-2','3-3','w0','w1','w2','w3','1')\n"
              "SELECT MAX(ExaminationID) FROM Examination\n"
              "insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Answer2,Score2) values "
              "(%1,'题1','答1',1,'答2',2)\n"
              "insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Answer2,Score2) values "
              "(%1,'题2','答1',1,'答2',2)\n"
              "commit transaction"_s.arg(key));
    cnnPublic.Execute(u"update Examination set TypeCode='009009'"_s);
    EXPECT_EQ(
        sentBy([&] { return paper(5, u"P2"_s, key).Update(questions(1)); }),
        u"Select Count(*) from Examination where ExaminationID<>%1 and ExaminationNum='P2'\n"
        "begin transaction\n"
        "update Examination set ExaminationNum='P2',Author='au',Auditing='ad',Approver='ap',WriteDate='d1',"
        "AuditingDate='d2',ApproverDate='d3',AnswerAmount=5,TestingTime=45,Note='note',ScoreScope1='0-0',"
        "ScoreScope2='1-1',ScoreScope3='2-2',ScoreScope4='3-3',DescScope1='w0',DescScope2='w1',DescScope3='w2',"
        "DescScope4='w3',Status='1' where ExaminationID=%1\n"
        "delete from ExaminationQuestion where ExaminationID=%1\n"
        "insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Answer2,Score2,Answer3,Score3,"
        "Answer4,Score4,Answer5,Score5) values (%1,'题1','答1',1,'答2',2,'答3',3,'答4',4,'答5',5)\n"
        "commit transaction"_s.arg(key));
    EXPECT_EQ(rowsOf(u"select TypeCode from Examination"_s), u"009009"_s) << "the type stays";
}

TEST_P(ExaminationTest, AsManyAnswersAreStoredAsThePaperHas) {
    // One of two and one of five answers are stored by the series above.
    const std::pair<qint16, QString> cases[] = {
        {1, {}}, {3, u"答1|1|答2|2|答3|3|null|null"_s}, {4, u"答1|1|答2|2|答3|3|答4|4"_s}, {6, {}}};
    for (const auto& [answers, stored] : cases) {
        forget();
        EXPECT_EQ(paper(answers).AddNew(questions(1)), Status::Done);
        EXPECT_EQ(rowsOf(u"select Answer1,Score1,Answer2,Score2,Answer3,Score3,Answer4,Score4 from "
                         "ExaminationQuestion where Answer5 is null and Score5 is null"_s),
                  stored);
    }
}

TEST_P(ExaminationTest, NumbersAreComparedByTheRuleOfEachOperation) {
    add(u"001001"_s, u"1"_s);
    add(u"001002"_s, u"2"_s);
    EXPECT_EQ(paper(2, u"1"_s).AddNew(questions(1)), Status::Taken);
    EXPECT_EQ(counts(), u"2 0"_s);
    EXPECT_EQ(update(u"1"_s, u"1"_s), Status::Done) << "its own number";
    EXPECT_EQ(update(u"2"_s, u"1"_s), Status::Taken) << "a number of another subtype's paper";
    EXPECT_EQ(add(u"001003"_s, u"1"_s), Status::Done) << "free in this subtype";
    EXPECT_EQ(update(u"2"_s, u"1"_s), Status::Done) << "a number that two others share";
}

TEST_P(ExaminationTest, EachStatementFailsInTurn) {
    qint16 key = 0;
    const auto store = [&] {
        forget();
        EXPECT_EQ(paper(2, u"old"_s).AddNew(questions(3)), Status::Done);
        key = keyOf(u"old"_s);
    };
    failEachStatement(
        OnError::Stops, u"0 0, 0 0, 0 0, 1 0, 1 0, 1 1, 1 2"_s, forget, [] { return paper(2).AddNew(questions(2)); },
        counts);
    failEachStatement(
        OnError::Throws, u"old 1 3, old 1 3, old 1 3, P1 1 3, P1 1 0, P1 1 1, P1 1 2"_s, store,
        [&] { return paper(2, u"P1"_s, key).Update(questions(2)); },
        [] { return rowsOf(u"select ExaminationNum from Examination"_s) + u' ' + counts(); });
    failEachStatement(
        OnError::GoesOn, u"0 0, 0 3, 1 0, 0 0"_s, store, [&] { return cExamination::Delete(key); }, counts);
}

TEST_P(ExaminationTest, LoadersKnowTheDefaultsAndLeaveOutDrafts) {
    cnnPublic.Execute(
        u"insert into Examination (TypeCode,ExaminationNum,Status) values ('001001','3','1 - 已完成'), "
        "('001001','2','0 - 建立中'), ('001001','1',null), ('001001','4','')"_s);
    add(u"001002"_s, u"5"_s);
    cExaminations papers;
    EXPECT_EQ(papers.FindByTypeCode(u"001001"_s, true).Item(2)->ExaminationNum, u"2"_s);
    EXPECT_EQ(papers.FindByTypeCode(u"001001"_s, false).Item(2)->ExaminationNum, u"3"_s);
    EXPECT_EQ(papers.Count(), 3);
    EXPECT_EQ(papers.FindByExamID(keyOf(u"1"_s)).Item(1)->TestingTime, 10);
    EXPECT_EQ(cExamination::GetExamAnswersByNum(u"001001"_s, u"1"_s), 2);
    EXPECT_THROW(cExamination::GetExamIDByNum(u"001001"_s, u"5"_s), RuntimeError);
}

TEST(ExaminationOrderTest, QuestionsComeInTheOrderInWhichTheyWereStored) {
    // A server gives the rows as the index lies that led it to them. This table gives them by their texts.
    const EmbeddedDatabase database;
    cnnPublic.Execute(u"drop table ExaminationQuestion"_s);
    QString columns = u"create table ExaminationQuestion (ExaminationID int,QuestionID int,QuestionName nvarchar(9)"_s;
    for (int i = 1; i <= 5; ++i) {
        columns += u",Answer%1 nvarchar(9),Score%1 int"_s.arg(i);
    }
    cnnPublic.Execute(columns + u')');
    cnnPublic.Execute(
        u"insert into ExaminationQuestion (ExaminationID,QuestionID,QuestionName) values "
        "(7,12,'乙'),(7,9,'甲'),(8,10,'丙'),(7,11,'丁')"_s);
    QString names;
    for (const auto& question : cExamination::GetQuestions(7)) {
        names += question->QuestionName;
    }
    EXPECT_EQ(names, u"甲丁乙"_s);
    EXPECT_EQ(cExamination::GetQuestions(7).Item(u"a11"_s)->QuestionName, u"丁"_s);
    cnnPublic.Execute(u"update ExaminationQuestion set QuestionID=40000 where QuestionID=12"_s);
    EXPECT_THROW(cExamination::GetQuestions(7), RuntimeError);
}

}  // namespace

}  // namespace talvora::test
