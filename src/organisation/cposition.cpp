#include "organisation/cposition.h"

#include "core/mdlpublic.h"
#include "core/status_of.h"
#include "platform/numbers.h"
#include "platform/text.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int digitsPerLevel = 3;

// Beside a position the greatest code of its level counts, in the whole tree: the new one may land under another parent
// than the one beside which it was asked for. That is meant, as is the wrap to 000 after 999.
QString NewPostCode(const QString& reference, const QString& kind) {
    if (reference.isEmpty()) {
        return u"001"_s;
    }
    const qsizetype length = reference.size();
    const Recordset rows = cnnPublic.Execute(
        kind == "parent"_L1
            ? u"SELECT MAX(PostCode)  FROM Position where len(PostCode)="_s + QString::number(length)
            : u"SELECT MAX(PostCode)  FROM Position where left(PostCode,"_s + QString::number(length) + u") ='"_s +
                  reference + u"' and Len(PostCode)="_s + QString::number(length + digitsPerLevel));
    const Row row = rows.first();
    if (row.isNull(0)) {
        return reference + u"001"_s;
    }
    const QString maximum = row.text(0);
    const QString next = u"00"_s + QString::number(toInt32(rightOf(maximum, digitsPerLevel)) + 1);
    return maximum.left(std::max<qsizetype>(maximum.size() - digitsPerLevel, 0)) + rightOf(next, digitsPerLevel);
}

bool anyRow(const QString& statement) {
    return cnnPublic.Execute(statement).RecordCount() > 0;
}

}  // namespace

Status cPosition::AddNew(const QString& kind, const QString& PostCode, const QString& PostName, qint16 Peoples) {
    return statusOf([&] {
        cnnPublic.Execute(u"insert into Position (PostName,PostCode,Peoples) values ('"_s + PostName + u"','"_s +
                          NewPostCode(PostCode, kind) + u"',"_s + QString::number(Peoples) + u')');
        return Status::Done;
    });
}

Status cPosition::Update(const QString& PostCode, const QString& PostName, qint16 Peoples) {
    return statusOf([&] {
        if (!anyRow(u"select * from Position where PostCode='"_s + PostCode + u'\'')) {
            return Status::NoSuchRow;
        }
        if (anyRow(u"select * from Position where PostName='"_s + PostName + u"' and PostCode<>'"_s + PostCode +
                   u'\'')) {
            return Status::Taken;
        }
        cnnPublic.Execute(u"Update Position Set PostName='"_s + PostName + u"',Peoples="_s + QString::number(Peoples) +
                          u" where PostCode='"_s + PostCode + u'\'');
        return Status::Done;
    });
}

Status cPosition::Delete(const QString& PostCode) {
    const QString length = QString::number(PostCode.size());
    if (anyRow(u"select * from Position where left(PostCode,"_s + length + u")='"_s + PostCode +
               u"' and len(PostCode)>"_s + length)) {
        return Status::InUse;
    }
    return executed(u"Delete from Position where PostCode='"_s + PostCode + u'\'');
}

QString cPosition::GetParent(const QString& PostCode) {
    if (PostCode.isEmpty()) {
        return {};
    }
    const qsizetype length = PostCode.size() - digitsPerLevel;
    const Recordset rows =
        cnnPublic.Execute(u"SELECT PostName  FROM Position where len(PostCode)="_s + QString::number(length) +
                          u" and postcode='"_s + PostCode.left(length) + u'\'');
    return rows.RecordCount() > 0 ? rows.first().text("PostName") : QString();
}

cPositions& cPositions::Find(const QString& PostCode) {
    const QString statement = PostCode.isEmpty() ? u"Select * from Position order by PostCode "_s
                                                 : u"Select * from Position where PostCode ='"_s + PostCode + u'\'';
    load(statement, [](cPosition& position, const Row& row) {
        position.PostName = row.text("PostName");
        position.PostCode = row.text("PostCode");
        position.DeptCode = row.text("DeptCode");
        position.Peoples = row.number16Or0("Peoples");
        position.Author = row.text("Author");
        position.Auditing = row.text("Auditing");
        position.Approver = row.text("Approver");
        position.WriteDate = row.text("WriteDate");
        position.AuditingDate = row.text("AuditingDate");
        position.ApproveDate = row.text("ApproveDate");
        position.ReportTo = row.text("ReportTo");
        position.Guidance = row.text("Guidance");
        position.CoWorker = row.text("CoWorker");
        position.Exterior = row.text("Exterior");
        position.Educational = row.text("Educational");
        position.Training = row.text("Training");
        position.Experience = row.text("Experience");
        position.Skill = row.text("Skill");
        position.WorkPeriodic = row.text("WorkPeriodic");
        position.WorkDaily = row.text("WorkDaily");
        position.WorkFortuitous = row.text("WorkFortuitous");
        position.Authority = row.text("Authority");
        position.Obligation = row.text("Obligation");
    });
    return *this;
}

cPositions& cPositions::GetDistPostName() {
    int number = 0;
    load(u"Select Distinct PostName from Position order by PostName "_s, [&](cPosition& position, const Row& row) {
        position.PostName = row.text("PostName");
        position.PostCode = QString::number(++number);
    });
    return *this;
}

}  // namespace talvora
