#include "core/data_routines.h"
#include "support/database_fixture.h"
#include "testbank/cexamination.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class ExaminationTest : public DatabaseTest {
 protected:
    /// A paper whose every member is told from the others.
    static cExamination paper(qint16 answers, const QString& number = u"P1"_s) {
        cExamination paper;
        paper.TypeCode = u"001001"_s;
        paper.ExaminationNum = number;
        paper.Author = u"au"_s;
        paper.Auditing = u"ad"_s;
        paper.Approver = u"ap"_s;
        paper.WriteDate = u"2010-01-01"_s;
        paper.AuditingDate = u"2010-01-02"_s;
        paper.ApproverDate = u"2010-01-03"_s;
        paper.AnswerAmount = answers;
        paper.TestingTime = 45;
        paper.Note = u"note"_s;
        for (std::size_t i = 0; i < examinationScopes.size(); ++i) {
            paper.*examinationScopes[i] = u"%1-%1"_s.arg(i);
            paper.*examinationWords[i] = u"w%1"_s.arg(i);
        }
        paper.Status = u"1 - 已完成"_s;
        return paper;
    }

    /// As the editor hands them over: numbered, with labelled answers.
    static cQuestions questions(int count) {
        cQuestions all;
        for (int number = 1; number <= count; ++number) {
            auto question = std::make_shared<cQuestion>();
            question->QuestionID = static_cast<qint16>(number);
            question->QuestionName = u"题%1"_s.arg(number);
            for (std::size_t i = 0; i < questionAnswers.size(); ++i) {
                (*question).*questionAnswers[i] = QChar(u'A' + static_cast<char16_t>(i)) + u"．答%1"_s.arg(i + 1);
                (*question).*questionScores[i] = static_cast<qint16>(i + 1);
            }
            all.Add(question);
        }
        return all;
    }

    static qint16 add(const QString& type, const QString& number) {
        cExamination added = paper(2, number);
        added.TypeCode = type;
        EXPECT_EQ(added.AddNew({}), Status::Done);
        return static_cast<qint16>(GetNewID(u"Examination"_s, u"ExaminationID"_s) - 1);
    }

    static QString counts() { return rowCounts({u"Examination"_s, u"ExaminationQuestion"_s}); }
    static void forget() { emptyTables({u"Examination"_s, u"ExaminationQuestion"_s}); }
    static void store() {
        forget();
        EXPECT_EQ(paper(2, u"old"_s).AddNew(questions(3)), Status::Done);
    }
    static qint16 stored() { return cExamination::GetExamIDByNum(u"001001"_s, u"old"_s); }
};
TALVORA_ON_EVERY_ENGINE(ExaminationTest);

TEST_P(ExaminationTest, AddNewSendsThisSeries) {
    const auto sent = statementsOf([] { EXPECT_EQ(paper(2).AddNew(questions(2)), Status::Done); });
    const QString key = rowsOf(u"select ExaminationID from Examination"_s);
    const QString head =
        u"insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Answer2,Score2) values ("_s + key;
    EXPECT_EQ(sent.join(u'\n'),
              u"Select Count(*) from Examination where TypeCode='001001' and ExaminationNum='P1'\n"
              "begin transaction\n"
              "insert into Examination (TypeCode,ExaminationNum,Author,Auditing,Approver,WriteDate,AuditingDate,"
              "ApproverDate,AnswerAmount,TestingTime,Note,ScoreScope1,ScoreScope2,ScoreScope3,ScoreScope4,DescScope1,"
              "DescScope2,DescScope3,DescScope4,Status)  values ('001001','P1','au','ad','ap','2010-01-01',"
              "'2010-01-02','2010-01-03',2,45,'note','0-0','1-1','2-2','3-3','w0','w1','w2','w3','1 - 已完成')\n"
              "SELECT MAX(ExaminationID) FROM Examination\n"_s +
                  head + u",'题1','答1',1,'答2',2)\n"_s + head + u",'题2','答1',1,'答2',2)\ncommit transaction"_s);
}

TEST_P(ExaminationTest, UpdateSendsThisSeries) {
    cExamination changed = paper(5, u"P2"_s);
    changed.ExaminationID = add(u"001001"_s, u"P1"_s);
    changed.TypeCode = u"009009"_s;
    const auto sent = statementsOf([&] { EXPECT_EQ(changed.Update(questions(1)), Status::Done); });
    EXPECT_EQ(
        sent.join(u'\n'),
        u"Select Count(*) from Examination where ExaminationID<>%1 and ExaminationNum='P2'\n"
        "begin transaction\n"
        "update Examination set ExaminationNum='P2',Author='au',Auditing='ad',Approver='ap',"
        "WriteDate='2010-01-01',AuditingDate='2010-01-02',ApproverDate='2010-01-03',AnswerAmount=5,"
        "TestingTime=45,Note='note',ScoreScope1='0-0',ScoreScope2='1-1',ScoreScope3='2-2',ScoreScope4='3-3',"
        "DescScope1='w0',DescScope2='w1',DescScope3='w2',DescScope4='w3',Status='1 - 已完成' where "
        "ExaminationID=%1\n"
        "delete from ExaminationQuestion where ExaminationID=%1\n"
        "insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Answer2,Score2,Answer3,Score3,"
        "Answer4,Score4,Answer5,Score5) values (%1,'题1','答1',1,'答2',2,'答3',3,'答4',4,'答5',5)\n"
        "commit transaction"_s.arg(changed.ExaminationID));
    EXPECT_EQ(rowsOf(u"select TypeCode from Examination"_s), u"001001"_s);
}

TEST_P(ExaminationTest, AsManyAnswersAreStoredAsThePaperHas) {
    const struct {
        qint16 answers;
        QString stored;
    } cases[] = {{1, QString()},
                 {2, u"答1|1|答2|2|null|null|null|null|null|null"_s},
                 {3, u"答1|1|答2|2|答3|3|null|null|null|null"_s},
                 {4, u"答1|1|答2|2|答3|3|答4|4|null|null"_s},
                 {5, u"答1|1|答2|2|答3|3|答4|4|答5|5"_s},
                 {6, QString()}};
    for (const auto& [answers, stored] : cases) {
        const QString all =
            u"select Answer1,Score1,Answer2,Score2,Answer3,Score3,Answer4,Score4,Answer5,Score5 from ExaminationQuestion"_s;
        EXPECT_EQ(paper(answers).AddNew(questions(1)), Status::Done);
        EXPECT_EQ(rowsOf(all), stored) << answers;
        cExamination changed = paper(answers);
        changed.ExaminationID = cExamination::GetExamIDByNum(u"001001"_s, u"P1"_s);
        EXPECT_EQ(changed.Update(questions(1)), Status::Done);
        EXPECT_EQ(rowsOf(all), stored) << answers;
        forget();
    }
}

TEST_P(ExaminationTest, LabelsAreCutAndBlanksKept) {
    cQuestions all = questions(1);
    all.Item(1)->QuestionName = u" 题 "_s;
    all.Item(1)->Answer1 = u"A. x "_s;
    all.Item(1)->Answer2 = u"B"_s;
    paper(2).AddNew(all);
    const auto question = cExamination::GetQuestions(cExamination::GetExamIDByNum(u"001001"_s, u"P1"_s)).Item(1);
    EXPECT_EQ(question->QuestionName, u" 题 "_s);
    EXPECT_EQ(question->Answer1, u"x"_s);
    EXPECT_EQ(question->Answer2 + question->Answer5, QString());
    EXPECT_EQ(question->Score2, 2);
    EXPECT_EQ(question->Score5, 0);
}

TEST_P(ExaminationTest, NumbersAreComparedByTheRuleOfEachOperation) {
    const qint16 first = add(u"001001"_s, u"1"_s);
    const qint16 second = add(u"001002"_s, u"2"_s);
    EXPECT_EQ(paper(2, u"1"_s).AddNew(questions(1)), Status::Taken);
    EXPECT_EQ(counts(), u"2 0"_s);

    cExamination changed = paper(2, u"1"_s);
    changed.ExaminationID = first;
    EXPECT_EQ(changed.Update({}), Status::Done) << "its own number";
    changed.ExaminationID = second;
    EXPECT_EQ(changed.Update({}), Status::Taken) << "a number of another subtype's paper";
    add(u"001003"_s, u"1"_s);
    EXPECT_EQ(changed.Update({}), Status::Done) << "a number that two others share";
}

TEST_P(ExaminationTest, AddNewStopsAtEachFailingStatementAndLeavesTheTransactionOpen) {
    failEachStatement(
        {u"0 0"_s, u"0 0"_s, u"0 0"_s, u"1 0"_s, u"1 0"_s, u"1 1"_s, u"1 2"_s}, forget,
        [] { EXPECT_EQ(paper(2).AddNew(questions(2)), Status::Failed); },
        [](const QStringList& sent) {
            EXPECT_EQ(sent.contains(u"commit transaction"_s), sent.size() == 7);
            EXPECT_FALSE(sent.contains(u"rollback transaction"_s));
            return counts();
        });
}

TEST_P(ExaminationTest, UpdateHandsEachErrorToItsCaller) {
    cExamination changed = paper(2);
    failEachStatement(
        {u"old 1 3"_s, u"old 1 3"_s, u"old 1 3"_s, u"P1 1 3"_s, u"P1 1 0"_s, u"P1 1 1"_s, u"P1 1 2"_s},
        [&] {
            store();
            changed.ExaminationID = stored();
        },
        [&] { EXPECT_THROW(changed.Update(questions(2)), DatabaseError); },
        [](const QStringList&) { return rowsOf(u"select ExaminationNum from Examination"_s) + u' ' + counts(); });
}

TEST_P(ExaminationTest, DeleteGoesOnPastEachFailingStatement) {
    qint16 key = 0;
    failEachStatement(
        {u"0 0"_s, u"0 3"_s, u"1 0"_s, u"0 0"_s},
        [&] {
            store();
            key = stored();
        },
        [&] { EXPECT_EQ(cExamination::Delete(key), Status::Failed); },
        [&](const QStringList& sent) {
            EXPECT_EQ(sent.join(u'\n'),
                      u"begin transaction\nDelete from ExaminationQuestion where ExaminationID=%1\n"
                      "Delete from Examination where ExaminationID=%1\ncommit transaction"_s.arg(key));
            return counts();
        });
}

TEST_P(ExaminationTest, LookUpsByNumberKnowTheDefaults) {
    paper(4).AddNew(questions(2));
    cnnPublic.Execute(u"insert into Examination (TypeCode,ExaminationNum) values ('001001','null')"_s);
    EXPECT_EQ(cExamination::GetExamAnswersByNum(u"001001"_s, u"P1"_s), 4);
    EXPECT_EQ(cExamination::GetExamQuestions(cExamination::GetExamIDByNum(u"001001"_s, u"P1"_s)), 2);
    EXPECT_EQ(cExamination::GetExamAnswersByNum(u"001001"_s, u"null"_s), 2);
    cExaminations papers;
    const auto bare = papers.FindByExamID(cExamination::GetExamIDByNum(u"001001"_s, u"null"_s)).Item(1);
    EXPECT_EQ(bare->AnswerAmount, 2);
    EXPECT_EQ(bare->TestingTime, 10);
    EXPECT_EQ(bare->DescScope4 + bare->Status, QString());
    EXPECT_THROW(cExamination::GetExamIDByNum(u"001002"_s, u"P1"_s), RuntimeError);
    EXPECT_THROW(cExamination::GetExamAnswersByNum(u"001001"_s, u"P9"_s), RuntimeError);
}

TEST_P(ExaminationTest, DraftsStayOutOfTheListsThatSetATest) {
    const struct {
        QString number;
        QString status;
    } rows[] = {{u"3"_s, u"'1 - 已完成'"_s}, {u"2"_s, u"'0 - 建立中'"_s}, {u"1"_s, u"null"_s}, {u"4"_s, u"''"_s}};
    for (const auto& [number, status] : rows) {
        cnnPublic.Execute(u"insert into Examination (TypeCode,ExaminationNum,Status) values ('001001','%1',%2)"_s.arg(
            number, status));
    }
    add(u"001002"_s, u"5"_s);
    const auto numbers = [](bool all) {
        cExaminations papers;
        QStringList found;
        for (const auto& paper : papers.FindByTypeCode(u"001001"_s, all)) {
            found += paper->ExaminationNum;
        }
        return found.join(u' ');
    };
    EXPECT_EQ(numbers(true), u"1 2 3 4"_s);
    EXPECT_EQ(numbers(false), u"1 3 4"_s);
}

TEST_P(ExaminationTest, LoadersFillWhatEachPromises) {
    paper(3).AddNew({});
    const cExamination expected = paper(3);
    cExaminations papers;
    const auto whole = papers.FindByTypeCode(u"001001"_s, true).Item(1);
    const auto one = papers.FindByExamID(whole->ExaminationID).Item(u"a%1"_s.arg(whole->ExaminationID));
    for (const auto member :
         {&cExamination::TypeCode, &cExamination::ExaminationNum, &cExamination::Author, &cExamination::WriteDate,
          &cExamination::Status, examinationScopes[0], examinationScopes[1], examinationScopes[2], examinationScopes[3],
          examinationWords[0], examinationWords[1], examinationWords[2], examinationWords[3]}) {
        EXPECT_EQ((*whole).*member, expected.*member);
        EXPECT_EQ((*one).*member, expected.*member);
    }
    // The paper's editor counts on these being empty.
    for (const auto member : {&cExamination::Note, &cExamination::Auditing, &cExamination::Approver,
                              &cExamination::AuditingDate, &cExamination::ApproverDate}) {
        EXPECT_EQ((*whole).*member, expected.*member);
        EXPECT_EQ((*one).*member, QString());
    }
    for (const auto& loaded : {whole, one}) {
        EXPECT_EQ(loaded->AnswerAmount, 3);
        EXPECT_EQ(loaded->TestingTime, 45);
    }
}

TEST_P(ExaminationTest, QuestionsComeByKeyWithEveryColumn) {
    paper(5).AddNew(questions(3));
    cQuestions all;
    ASSERT_EQ(all.Find(cExamination::GetExamIDByNum(u"001001"_s, u"P1"_s)).Count(), 3);
    EXPECT_EQ(all.Item(u"a%1"_s.arg(all.Item(3)->QuestionID))->QuestionName, u"题3"_s);
    for (std::size_t i = 0; i < questionAnswers.size(); ++i) {
        EXPECT_EQ((*all.Item(1)).*questionAnswers[i], u"答%1"_s.arg(i + 1));
        EXPECT_EQ((*all.Item(1)).*questionScores[i], static_cast<qint16>(i + 1));
    }
}

}  // namespace

}  // namespace talvora::test
