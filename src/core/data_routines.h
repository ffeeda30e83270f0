#pragma once

#include <QString>

// The routines on cnnPublic that the record classes share. None of them handles an error: a failing statement's
// RuntimeError goes to the caller. Nothing here escapes text; the windows refuse the character ' beforehand.
namespace talvora {

class Connection;

/// The number in the first column of the first row: for a statement that counts.
qint32 countOf(const QString& statement);
/// The same on another session than cnnPublic.
qint32 countOf(Connection& connection, const QString& statement);

/// The greatest value of the column plus 1, 1 for an empty table. Nothing is reserved by it.
qint32 GetNewID(const QString& TableName, const QString& FieldName);

/// Whether any row holds `FieldValue` in the column.
bool IsExistID(const QString& TableName, const QString& FieldName, qint32 FieldValue);

/// Whether exactly one row holds the text: a name that two rows share already counts as free, which is meant.
/// With an `IDName` the row whose key is `IDValue` is left out of the count.
bool IsExistName(const QString& TableName, const QString& FieldName, const QString& FieldValue, const QString& IDName,
                 const QString& IDValue);

/// The next free code of a test type: of a main type for the kind "parent", else of a subtype under `ParentCode` ("001"
/// when that is empty).
QString NewTypeCode(const QString& Kind, const QString& ParentCode);

/// The code after the one that `maximumStatement` finds: `parentCode` and "001" when it finds NULL, else "00" and the
/// found code as a number plus 1, without leading zeros. So 005 gives 006, 003007 gives 003008, and 009 gives 0010:
/// the codes run out there, and nothing mends them.
QString codeAfterMaximum(const QString& maximumStatement, const QString& parentCode);

}  // namespace talvora
