#pragma once

#include <QString>

namespace talvora {

/// The statements that a list of papers sends for each subtype and each paper: read one by one, or ahead.
inline QString papersOfType(const QString& typeCode, bool all) {
    const QString finished = all ? QString() : QStringLiteral(" and (Status is null or left(Status,1)<>'0')");
    return QStringLiteral("Select * from Examination where TypeCode='") + typeCode + u'\'' + finished +
           QStringLiteral(" order by ExaminationNum");
}

inline QString questionCountOf(const QString& examinationId) {
    return QStringLiteral("Select count(*) as Nums from ExaminationQuestion where ExaminationID=") + examinationId;
}

}  // namespace talvora
