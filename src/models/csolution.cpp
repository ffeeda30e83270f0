#include "models/csolution.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/resume_next.h"
#include "core/status_of.h"
#include "core/transaction.h"
#include "platform/numbers.h"
#include "platform/optional_format.h"

#include <QStringList>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString headInsert(const cSolution& solution) {
    const QStringList values{solution.SolutionName, solution.PostName, solution.Version,   solution.Author,
                             solution.Auditing,     solution.Approver, solution.WriteDate, solution.AuditingDate,
                             solution.ApproverDate, solution.Note};
    return u"insert into TestingSolution "
           u"(SolutionName,PostName,Version,Author,Auditing,Approver,WriteDate,AuditingDate,"
           "ApproverDate,Note) values ('"_s +
           values.join(u"','"_s) + u"')"_s;
}

QString headUpdate(const cSolution& solution) {
    return u"Update TestingSolution Set SolutionName='"_s + solution.SolutionName + u"', PostName='"_s +
           solution.PostName + u"', Version='"_s + solution.Version + u"', Author='"_s + solution.Author +
           u"', Auditing='"_s + solution.Auditing + u"', Approver='"_s + solution.Approver + u"', WriteDate='"_s +
           solution.WriteDate + u"', AuditingDate='"_s + solution.AuditingDate + u"', ApproverDate='"_s +
           solution.ApproverDate + u"', Note='"_s + solution.Note + u"' where SolutionID="_s +
           QString::number(solution.SolutionID);
}

// The percentage of the screen is stored as a fraction with four decimals at most: 33.33% as .3333, 100.% as 1. with
// its point. A weight of nothing comes out as the point alone, and its line's statement fails, which is meant.
QString storedFraction(const QString& percentage) {
    constexpr int decimals = 4;
    return formatOptional(percentNumber(percentage), decimals);
}

void insertLine(const cDimension& line, qint16 solutionId) {
    cnnPublic.Execute(u"insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values ("_s +
                      QString::number(solutionId) + u",'"_s + line.TypeCode + u"','"_s + line.TypeName + u"',"_s +
                      line.Score + u',' + storedFraction(line.Weighing) + u')');
}

void insertWhole(const cSolution& solution, const cDimensions& lines) {
    cnnPublic.Execute(headInsert(solution));
    const qint16 solutionId = toInt16(GetNewID(u"testingsolution"_s, u"solutionID"_s) - 1);
    for (const auto& line : lines) {
        insertLine(*line, solutionId);
    }
    cnnPublic.CommitTrans();
}

// The transaction's end must not hide that the operation failed: a lost link cannot roll back, and has.
void rollBack() {
    ResumeNext steps;
    steps([] { cnnPublic.RollbackTrans(); });
}

}  // namespace

Status cSolution::AddNew(const cDimensions& lines) const {
    bool begun = false;
    try {
        if (IsExistName(u"TestingSolution"_s, u"SolutionName"_s, SolutionName, QString(), u"0"_s)) {
            return Status::Taken;
        }
        cnnPublic.BeginTrans();
        begun = true;
        insertWhole(*this, lines);
        return Status::Done;
    } catch (const RuntimeError&) {
        // The one rollback of the program's records.
        if (begun) {
            rollBack();
        }
        return Status::Failed;
    }
}

Status cSolution::Update(const cDimensions& lines) const {
    const QString id = QString::number(SolutionID);
    const Status guard = statusOfGuard(Status::Taken, [&] {
        return IsExistName(u"TestingSolution"_s, u"SolutionName"_s, SolutionName, u"SolutionID"_s, id);
    });
    if (guard != Status::Done) {
        return guard;
    }
    ResumeNext steps;
    steps([] { cnnPublic.BeginTrans(); });
    steps([&] { cnnPublic.Execute(headUpdate(*this)); });
    steps([&] { cnnPublic.Execute(u"delete from TestingSolutionDetail where SolutionID="_s + id); });
    for (const auto& line : lines) {
        steps([&] { insertLine(*line, SolutionID); });
    }
    steps([] { cnnPublic.CommitTrans(); });
    return steps.status();
}

Status cSolution::Delete(qint16 SolutionID) {
    const QString id = QString::number(SolutionID);
    return executePassingErrors({u"Delete from TestingSolutionDetail where SolutionID="_s + id,
                                 u"Delete from TestingSolution where SolutionID="_s + id});
}

cSolutions& cSolutions::Find(qint16 SolutionID) {
    const QString statement = SolutionID != 0
                                  ? u"Select * from TestingSolution where SolutionID="_s + QString::number(SolutionID)
                                  : u"Select * from TestingSolution order by SolutionName "_s;
    load(statement, [](cSolution& solution, const Row& row) {
        solution.SolutionID = row.number16("SolutionID");
        solution.SolutionName = row.text("SolutionName");
        solution.PostName = row.text("PostName");
        solution.Version = row.text("Version");
        solution.Author = row.text("Author");
        solution.Auditing = row.text("Auditing");
        solution.Approver = row.text("Approver");
        solution.WriteDate = row.text("WriteDate");
        solution.AuditingDate = row.text("AuditingDate");
        solution.ApproverDate = row.text("ApproverDate");
        solution.Note = row.text("Note");
    });
    return *this;
}

}  // namespace talvora
