#include "models/cdimension.h"

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
    return executed(u"insert into TestingSolutionDetail (SolutionID,TypeCode,TypeName,Score,Weighing) values ("_s +
                    QString::number(SolutionID) + u",'"_s + TypeCode + u"','"_s + TypeName + u"','"_s + Score +
                    u"','"_s + Weighing + u"')"_s);
}

Status cDimension::Delete(qint16 SolutionID) {
    return executed(u"Delete from TestingSolutionDetail where SolutionID="_s + QString::number(SolutionID));
}

cDimensions& cDimensions::Find(qint16 SolutionID) {
    const QString statement = u"SELECT *  FROM TestingSolutionDetail where SolutionID="_s +
                              QString::number(SolutionID) + u" order by TypeCode"_s;
    qint16 position = 0;
    load(statement, [&](cDimension& line, const Row& row) {
        line.ID = ++position;
        line.TypeCode = row.text("TypeCode");
        line.TypeName = row.text("TypeName");
        line.Score = requiredText(row, "Score");
        line.Weighing = requiredText(row, "Weighing");
    });
    return *this;
}

}  // namespace talvora
