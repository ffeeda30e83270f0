#include "models/cdimension.h"

#include "core/mdlpublic.h"
#include "core/status_of.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString requiredText(const Row& row, FieldName name) {
    if (row.isNull(name)) {
        throw RuntimeError(errors::InvalidUseOfNull);
    }
    return row.rawText(name);
}

}  // namespace

Status cDimension::AddNew(qint16 SolutionID, const QString& TypeCode, const QString& TypeName, const QString& Score,
                          const QString& Weighing) {
    return statusOf([&] {
        cnnPublic.Execute(
            u"insert into TestingSolutionDetail (SolutionID,TypeCode,TypeName,Score,Weighing) values ("_s +
            QString::number(SolutionID) + u",'"_s + TypeCode + u"','"_s + TypeName + u"','"_s + Score + u"','"_s +
            Weighing + u"')"_s);
        return Status::Done;
    });
}

Status cDimension::Delete(qint16 SolutionID) {
    return statusOf([&] {
        cnnPublic.Execute(u"Delete from TestingSolutionDetail where SolutionID="_s + QString::number(SolutionID));
        return Status::Done;
    });
}

cDimensions& cDimensions::Find(qint16 SolutionID) {
    const QString statement = u"SELECT *  FROM TestingSolutionDetail where SolutionID="_s +
                              QString::number(SolutionID) + u" order by TypeCode"_s;
    Clear();
    qint16 position = 0;
    for (const Row row : cnnPublic.Execute(statement)) {
        auto line = std::make_shared<cDimension>();
        line->ID = ++position;
        line->TypeCode = row.text("TypeCode");
        line->TypeName = row.text("TypeName");
        line->Score = requiredText(row, "Score");
        line->Weighing = requiredText(row, "Weighing");
        Add(line);
    }
    return *this;
}

}  // namespace talvora
