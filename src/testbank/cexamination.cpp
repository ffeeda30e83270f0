#include "testbank/cexamination.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/status_of.h"
#include "core/transaction.h"
#include "platform/numbers.h"
#include "platform/text.h"
#include "testbank/column_settings.h"
#include "testbank/paper_statements.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString paperInsert(const cExamination& paper) {
    const QStringList head{paper.TypeCode, paper.ExaminationNum, paper.Author,       paper.Auditing,
                           paper.Approver, paper.WriteDate,      paper.AuditingDate, paper.ApproverDate};
    QStringList tail{paper.Note};
    for (const auto scope : examinationScopes) {
        tail += paper.*scope;
    }
    for (const auto word : examinationWords) {
        tail += paper.*word;
    }
    tail += paper.Status;
    return u"insert into Examination (TypeCode,ExaminationNum,Author,Auditing,Approver,WriteDate,AuditingDate,"
           "ApproverDate,AnswerAmount,TestingTime,Note,ScoreScope1,ScoreScope2,"
           "ScoreScope3,ScoreScope4,DescScope1,DescScope2,DescScope3,DescScope4,Status)  values ('"_s +
           head.join(u"','"_s) + u"',"_s + QString::number(paper.AnswerAmount) + u',' +
           QString::number(paper.TestingTime) + u",'"_s + tail.join(u"','"_s) + u"')"_s;
}

QString paperUpdate(const cExamination& paper) {
    QStringList settings{columnSetting(u"ExaminationNum"_s, paper.ExaminationNum),
                         columnSetting(u"Author"_s, paper.Author),
                         columnSetting(u"Auditing"_s, paper.Auditing),
                         columnSetting(u"Approver"_s, paper.Approver),
                         columnSetting(u"WriteDate"_s, paper.WriteDate),
                         columnSetting(u"AuditingDate"_s, paper.AuditingDate),
                         columnSetting(u"ApproverDate"_s, paper.ApproverDate),
                         u"AnswerAmount="_s + QString::number(paper.AnswerAmount),
                         u"TestingTime="_s + QString::number(paper.TestingTime),
                         columnSetting(u"Note"_s, paper.Note)};
    settings += numberedSettings(u"ScoreScope"_s, paper, examinationScopes);
    settings += numberedSettings(u"DescScope"_s, paper, examinationWords);
    settings += columnSetting(u"Status"_s, paper.Status);
    return u"update Examination set "_s + settings.join(u',') + u" where ExaminationID="_s +
           QString::number(paper.ExaminationID);
}

// Answers beyond the paper's amount are not named, so that their columns stay NULL. The label of an answer goes.
QString questionInsert(const cQuestion& question, int answers, qint16 paperId) {
    QStringList columns{u"ExaminationID"_s, u"QuestionName"_s};
    QStringList values;
    for (int i = 0; i < answers; ++i) {
        const auto index = static_cast<std::size_t>(i);
        columns << u"Answer%1"_s.arg(i + 1) << u"Score%1"_s.arg(i + 1);
        values += u'\'' + dropLeft(question.*questionAnswers[index], answerLabelLength) + u"',"_s +
                  QString::number(question.*questionScores[index]);
    }
    return u"insert into ExaminationQuestion ("_s + columns.join(u',') + u") values ("_s + QString::number(paperId) +
           u",'"_s + question.QuestionName + u"',"_s + values.join(u',') + u')';
}

// An amount of answers that no paper has writes no question and is no error.
void insertQuestions(const cQuestions& questions, qint16 answerAmount, qint16 paperId) {
    if (answerAmount < leastAnswerAmount || answerAmount > mostAnswerAmount) {
        return;
    }
    for (const auto& question : questions) {
        cnnPublic.Execute(questionInsert(*question, answerAmount, paperId));
    }
}

}  // namespace

Status cExamination::AddNew(const cQuestions& questions) const {
    return statusOf([&] {
        if (countOf(u"Select Count(*) from Examination where TypeCode='"_s + TypeCode + u"' and ExaminationNum='"_s +
                    ExaminationNum + u'\'') == 1) {
            return Status::Taken;
        }
        cnnPublic.BeginTrans();
        cnnPublic.Execute(paperInsert(*this));
        const qint16 paperId = toInt16(GetNewID(u"Examination"_s, u"ExaminationID"_s) - 1);
        insertQuestions(questions, AnswerAmount, paperId);
        cnnPublic.CommitTrans();
        return Status::Done;
    });
}

Status cExamination::Update(const cQuestions& questions) const {
    const QString id = QString::number(ExaminationID);
    // The papers of all subtypes count here, unlike in AddNew.
    if (countOf(u"Select Count(*) from Examination where ExaminationID<>"_s + id + u" and ExaminationNum='"_s +
                ExaminationNum + u'\'') == 1) {
        return Status::Taken;
    }
    cnnPublic.BeginTrans();
    cnnPublic.Execute(paperUpdate(*this));
    cnnPublic.Execute(u"delete from ExaminationQuestion where ExaminationID="_s + id);
    insertQuestions(questions, AnswerAmount, ExaminationID);
    cnnPublic.CommitTrans();
    return Status::Done;
}

Status cExamination::Delete(qint16 ExaminationID) {
    const QString id = QString::number(ExaminationID);
    return executePassingErrors({u"Delete from ExaminationQuestion where ExaminationID="_s + id,
                                 u"Delete from Examination where ExaminationID="_s + id});
}

cQuestions cExamination::GetQuestions(qint16 ExaminationID) {
    cQuestions found;
    found.FindBy(u"Select * from ExaminationQuestion where ExaminationID="_s + QString::number(ExaminationID));
    // The statement asks for no order, and a server gives the rows as the index lies by which it found them. A paper's
    // questions stand as they were stored, which their growing keys tell.
    std::vector<cQuestions::Pointer> stored(found.begin(), found.end());
    std::sort(stored.begin(), stored.end(),
              [](const auto& left, const auto& right) { return left->QuestionID < right->QuestionID; });
    cQuestions questions;
    for (const auto& question : stored) {
        questions.Add(question);
    }
    return questions;
}

qint16 cExamination::GetExamIDByNum(const QString& TypeCode, const QString& ExaminationNum) {
    return cnnPublic
        .Execute(u"Select ExaminationID from Examination where TypeCode='"_s + TypeCode + u"' and ExaminationNum='"_s +
                 ExaminationNum + u'\'')
        .first()
        .number16("ExaminationID");
}

namespace {

qint16 answerAmountOf(const Row& row) {
    return row.isNull("AnswerAmount") ? defaultAnswerAmount : row.number16("AnswerAmount");
}

// What both loaders read.
void fillPaper(cExamination& paper, const Row& row) {
    paper.ExaminationID = row.number16("ExaminationID");
    paper.TypeCode = row.text("TypeCode");
    paper.ExaminationNum = row.text("ExaminationNum");
    paper.AnswerAmount = answerAmountOf(row);
    paper.TestingTime = row.isNull("TestingTime") ? defaultTestingTime : row.number16("TestingTime");
    paper.Author = row.text("Author");
    paper.WriteDate = row.text("WriteDate");
    paper.ScoreScope1 = row.text("ScoreScope1");
    paper.ScoreScope2 = row.text("ScoreScope2");
    paper.ScoreScope3 = row.text("ScoreScope3");
    paper.ScoreScope4 = row.text("ScoreScope4");
    paper.DescScope1 = row.text("DescScope1");
    paper.DescScope2 = row.text("DescScope2");
    paper.DescScope3 = row.text("DescScope3");
    paper.DescScope4 = row.text("DescScope4");
    paper.Status = row.text("Status");
}

}  // namespace

qint16 cExamination::GetExamAnswersByNum(const QString& TypeCode, const QString& ExaminationNum) {
    return answerAmountOf(cnnPublic
                              .Execute(u"Select AnswerAmount from Examination where TypeCode='"_s + TypeCode +
                                       u"' and ExaminationNum='"_s + ExaminationNum + u'\'')
                              .first());
}

qint16 cExamination::GetExamQuestions(qint16 ExaminationID) {
    return cnnPublic.Execute(questionCountOf(QString::number(ExaminationID))).first().number16Or0("Nums");
}

cExaminations& cExaminations::FindByTypeCode(const QString& TypeCode, bool all) {
    load(papersOfType(TypeCode, all), [](cExamination& paper, const Row& row) {
        fillPaper(paper, row);
        paper.Note = row.text("Note");
        paper.Auditing = row.text("Auditing");
        paper.Approver = row.text("Approver");
        paper.AuditingDate = row.text("AuditingDate");
        paper.ApproverDate = row.text("ApproverDate");
    });
    return *this;
}

cExaminations& cExaminations::FindByExamID(qint16 ExaminationID) {
    load(u"Select * from Examination where ExaminationID="_s + QString::number(ExaminationID), fillPaper);
    return *this;
}

}  // namespace talvora
