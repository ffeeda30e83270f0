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
        return serverError(
            server_error::NullNotAllowed,
            u"Cannot insert the value NULL into column '%1', table '%2'; column does not allow nulls."_s.arg(
                where.section(u'.', 1), where.section(u'.', 0, 0)));
    }
    const QString table = where.section(u'.', 0, 0);
    if (code == SQLITE_CONSTRAINT_PRIMARYKEY || code == SQLITE_CONSTRAINT_ROWID) {
        return serverError(
            server_error::DuplicateKey,
            u"Violation of PRIMARY KEY constraint. Cannot insert duplicate key in object '%1'."_s.arg(table));
    }
    return serverError(server_error::DuplicateIndexKey,
                       u"Cannot insert duplicate key row in object '%1' with a unique index."_s.arg(table));
}

DatabaseError statementError(const QString& message) {
    if (message == "integer overflow"_L1) {
        return serverError(server_error::ArithmeticOverflow,
                           u"Arithmetic overflow error converting expression to data type int."_s);
    }
    if (message.endsWith("already exists"_L1)) {
        return serverError(1913,
                           u"The operation failed because an index with that name already exists: %1."_s.arg(message));
    }
    return serverError(server_error::IncorrectSyntax, u"Incorrect statement: %1."_s.arg(message));
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
            return {server_error::LockTimeout, u"Lock request time out period exceeded."_s, u"HYT00"_s};
        case SQLITE_INTERRUPT:
            return serverError(server_error::Timeout, u"Query timeout expired"_s);
        case SQLITE_NOTADB:
            return serverError(server_error::NoDatabaseFile,
                               u"The header of the file is not a valid database file header."_s);
        case SQLITE_CANTOPEN:
            return serverError(server_error::CannotOpenDatabase, u"Cannot open database: %1."_s.arg(message));
        case SQLITE_READONLY:
            return serverError(3906, u"Failed to update database because the database is read-only."_s);
        case SQLITE_FULL:
            return serverError(1105, u"Could not allocate space in the database because the disk is full."_s);
        case SQLITE_NOMEM:
            return serverError(701, u"There is insufficient system memory to run this query."_s);
        case SQLITE_CORRUPT:
            return serverError(824, u"The database file is damaged: %1."_s.arg(message));
        case SQLITE_IOERR:
            return serverError(823, u"The operating system returned an error to the database: %1."_s.arg(message));
        case SQLITE_TOOBIG:
            return serverError(server_error::TextTruncated, u"String or binary data would be truncated."_s);
        default:
            return statementError(message);
    }
}

}  // namespace talvora::embedded
