#include "bench/plain_store.h"

namespace talvora::bench {

namespace {

PlainStatement band(PlainDatabase& database, char number) {
    QByteArray sql =
        "update TestingResult set TestingResult=a.DescScope# from Examination a where "
        "TestingResult.TypeCode=a.TypeCode "
        "and Score>=cast(substr(a.ScoreScope#,1,instr(a.ScoreScope#,'-')-1) as integer) "
        "and Score<=cast(substr(a.ScoreScope#,instr(a.ScoreScope#,'-')+1) as integer) and TestingResult.TestingID=?1";
    return database.prepare(sql.replace('#', number).constData());
}

}  // namespace

PlainStore::PlainStore(PlainDatabase& database)
    : begin_(database.prepare("begin immediate")),
      commit_(database.prepare("commit")),
      highestNumber_(database.prepare("select max(TestingNumber) from TestingResult")),
      insertRow_(database.prepare(
          "insert into TestingResult "
          "(TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate,TypeName,"
          "TypeCode,ExaminationID,ExamQuestions,SolutionID) values (?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,0)")),
      highestRow_(database.prepare("select max(TestingID) from TestingResult")),
      answerAmount_(database.prepare("select AnswerAmount from Examination where ExaminationID=?1")),
      insertDetail_(database.prepare(
          "insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,Answer3,Answer4,"
          "SelectAnswer) values (?1,?2,?3,?4,?5,?6,?7,?8)")),
      scoreDetails_(database.prepare(
          "update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 "
          "when 'C' then a.Score3 when 'D' then a.Score4 end from ExaminationQuestion a "
          "where TestingResultDetail.ExaminationID=a.ExaminationID and "
          "TestingResultDetail.QuestionName=a.QuestionName and TestingResultDetail.ExaminationID=?1")),
      sum_(database.prepare("update TestingResult set Score=a.Score from (select TestingID,sum(Score) as Score "
                            "from TestingResultDetail where TestingID=?1 group by TestingID) a "
                            "where TestingResult.TestingID=a.TestingID")),
      count_(database.prepare("update TestingResult set FactQuestions=a.FactQuestions from (select TestingID,count(*) "
                              "as FactQuestions from TestingResultDetail where TestingID=?1 and Score is not null "
                              "group by TestingID) a where TestingResult.TestingID=a.TestingID")),
      bands_{band(database, '1'), band(database, '2'), band(database, '3'), band(database, '4'), band(database, '5')},
      clearModel_(database.prepare("update TestingResult set SolutionID=0 where TestingNumber=?1")),
      deleteDetails_(database.prepare("delete from TestingResultDetail where TestingID=?1")),
      deleteRow_(database.prepare("delete from TestingResult where TestingID=?1")) {}

void PlainStore::store(const Sitting& sitting) {
    begin_.run();
    number_ = highestNumber_.number() + 1;
    insertRow(sitting);
    row_ = highestRow_.number();
    for (const auto& detail : sitting.details) {
        answerAmount_.bind(1, qint64{detail->ExaminationID});
        if (answerAmount_.number() == answersOfQuestion) {
            insertDetail(*detail);
        }
    }
    scoreDetails_.bind(1, qint64{sitting.details.Item(1)->ExaminationID});
    scoreDetails_.run();
    for (PlainStatement* statement : {&sum_, &count_, &bands_[0], &bands_[1], &bands_[2], &bands_[3], &bands_[4]}) {
        statement->bind(1, row_);
        statement->run();
    }
    clearModel_.bind(1, number_);
    clearModel_.run();
    commit_.run();
}

void PlainStore::insertRow(const Sitting& sitting) {
    const cTesting& test = sitting.test;
    const auto item = sitting.testings.Item(1);
    insertRow_.bind(1, number_);
    insertRow_.bind(2, test.IDNumber);
    insertRow_.bind(3, test.Name);
    insertRow_.bind(4, test.Sex);
    insertRow_.bind(5, qint64{test.Age});
    insertRow_.bind(6, test.Education);
    insertRow_.bind(7, test.PostName);
    insertRow_.bind(8, test.Salary);
    insertRow_.bind(9, test.TestingDate);
    insertRow_.bind(10, item->TypeName);
    insertRow_.bind(11, item->TypeCode);
    insertRow_.bind(12, qint64{item->ExaminationID.toInt()});
    insertRow_.bind(13, qint64{item->ExamQuestions});
    insertRow_.run();
}

void PlainStore::insertDetail(const cTestingDetail& detail) {
    insertDetail_.bind(1, row_);
    insertDetail_.bind(2, qint64{detail.ExaminationID});
    insertDetail_.bind(3, detail.QuestionName);
    insertDetail_.bind(4, detail.Answer1);
    insertDetail_.bind(5, detail.Answer2);
    insertDetail_.bind(6, detail.Answer3);
    insertDetail_.bind(7, detail.Answer4);
    insertDetail_.bind(8, detail.SelectAnswer);
    insertDetail_.run();
}

void PlainStore::forget() {
    deleteDetails_.bind(1, row_);
    deleteDetails_.run();
    deleteRow_.bind(1, row_);
    deleteRow_.run();
}

}  // namespace talvora::bench
