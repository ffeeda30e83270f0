#include "core/data_routines.h"

#include "core/mdlpublic.h"
#include "platform/numbers.h"

namespace talvora {

using namespace Qt::StringLiterals;

qint32 countOf(const QString& statement) {
    return countOf(cnnPublic, statement);
}

qint32 countOf(Connection& connection, const QString& statement) {
    return connection.Execute(statement).first().number32(0);
}

qint32 GetNewID(const QString& TableName, const QString& FieldName) {
    const Recordset rows = cnnPublic.Execute(u"SELECT MAX("_s + FieldName + u") FROM "_s + TableName);
    const Row maximum = rows.first();
    return maximum.isNull(0) ? 1 : toInt32(static_cast<double>(maximum.number32(0)) + 1);
}

bool IsExistID(const QString& TableName, const QString& FieldName, qint32 FieldValue) {
    return countOf(u"Select Count(*) from "_s + TableName + u" where "_s + FieldName + u'=' +
                   QString::number(FieldValue)) >= 1;
}

bool IsExistName(const QString& TableName, const QString& FieldName, const QString& FieldValue, const QString& IDName,
                 const QString& IDValue) {
    QString statement =
        u"Select Count(*) from "_s + TableName + u" where "_s + FieldName + u"='"_s + FieldValue + u'\'';
    if (!IDName.isEmpty()) {
        statement += u" and "_s + IDName + u"<>"_s + IDValue;
    }
    return countOf(statement) == 1;
}

QString codeAfterMaximum(const QString& maximumStatement, const QString& parentCode) {
    const Recordset rows = cnnPublic.Execute(maximumStatement);
    const Row maximum = rows.first();
    if (maximum.isNull(0)) {
        return parentCode + u"001"_s;
    }
    return u"00"_s + QString::number(maximum.number32(0) + 1);
}

QString NewTypeCode(const QString& Kind, const QString& ParentCode) {
    if (Kind == "parent"_L1) {
        return codeAfterMaximum(u"SELECT MAX(TypeCode)  FROM testingType where len(TypeCode)=3"_s, ParentCode);
    }
    const QString parent = ParentCode.isEmpty() ? u"001"_s : ParentCode;
    return codeAfterMaximum(
        u"SELECT MAX(TypeCode)  FROM testingType where left(TypeCode,3) ='"_s + parent + u"' and Len(TypeCode)=6"_s,
        parent);
}

}  // namespace talvora
