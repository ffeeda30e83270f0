#include "platform/database/embedded/sqlite_error.h"

#include "platform/database/embedded/server_error.h"

#include <QString>
#include <sqlite3.h>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

/// What SQLite names behind the colon of "NOT NULL constraint failed: Table.Column".
QString constrained(const QString& message) {
    return message.section(u": "_s, 1);
}

DatabaseError constraintError(int code, const QString& message) {
    const QString where = constrained(message);
    if (code == SQLITE_CONSTRAINT_NOTNULL) {
        return serverError(server_error::NullNotAllowed, {where.section(u'.', 1), where.section(u'.', 0, 0)});
    }
    const bool isKey = code == SQLITE_CONSTRAINT_PRIMARYKEY || code == SQLITE_CONSTRAINT_ROWID;
    return serverError(isKey ? server_error::DuplicateKey : server_error::DuplicateIndexKey,
                       {where.section(u'.', 0, 0)});
}

DatabaseError statementError(const QString& message) {
    if (message == "integer overflow"_L1) {
        return serverError(server_error::ArithmeticOverflow, {u"int"_s});
    }
    if (message.endsWith("already exists"_L1)) {
        return serverError(server_error::IndexExists);
    }
    return {server_error::IncorrectSyntax, u"语句有误：%1。"_s.arg(message), u"42000"_s};
}

}  // namespace

DatabaseError sqliteError(sqlite3* database) {
    constexpr int primaryMask = 0xFF;
    const int code = sqlite3_extended_errcode(database);
    const QString message = QString::fromUtf8(sqlite3_errmsg(database));
    switch (code & primaryMask) {
        case SQLITE_CONSTRAINT:
            return constraintError(code, message);
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return serverError(server_error::LockTimeout);
        case SQLITE_INTERRUPT:
            return serverError(server_error::Timeout);
        case SQLITE_NOTADB:
            return serverError(server_error::NoDatabaseFile);
        case SQLITE_CANTOPEN:
            return serverError(server_error::CannotOpenDatabase,
                               {QString::fromUtf8(sqlite3_db_filename(database, "main"))});
        case SQLITE_READONLY:
            return serverError(server_error::ReadOnlyDatabase);
        case SQLITE_FULL:
            return serverError(server_error::DiskFull);
        case SQLITE_NOMEM:
            return serverError(server_error::OutOfMemory);
        case SQLITE_CORRUPT:
            return serverError(server_error::DamagedFile);
        case SQLITE_IOERR:
            return serverError(server_error::FileAccess, {QString::number(code)});
        case SQLITE_TOOBIG:
            return serverError(server_error::TextTruncated);
        default:
            return statementError(message);
    }
}

}  // namespace talvora::embedded
