#include "platform/database/embedded/statement.h"

#include "platform/database/embedded/sqlite_error.h"

#include <sqlite3.h>

#include <utility>

namespace talvora::embedded {

SqliteStatement::SqliteStatement(sqlite3* database, const QByteArray& sql) {
    const int code = sqlite3_prepare_v3(database, sql.constData(), static_cast<int>(sql.size()) + 1,
                                        SQLITE_PREPARE_PERSISTENT, &statement_, nullptr);
    if (code != SQLITE_OK) {
        throw sqliteError(database);
    }
}

SqliteStatement::SqliteStatement(SqliteStatement&& other) noexcept
    : statement_(std::exchange(other.statement_, nullptr)) {}

SqliteStatement& SqliteStatement::operator=(SqliteStatement&& other) noexcept {
    std::swap(statement_, other.statement_);
    return *this;
}

SqliteStatement::~SqliteStatement() {
    sqlite3_finalize(statement_);
}

bool SqliteStatement::step() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) {
        return true;
    }
    if (code != SQLITE_DONE) {
        DatabaseError error = sqliteError(sqlite3_db_handle(statement_));
        reset();
        throw error;
    }
    return false;
}

void SqliteStatement::reset() {
    sqlite3_reset(statement_);
}

QString SqliteStatement::text(int column) const {
    const auto* data = static_cast<const QChar*>(sqlite3_column_text16(statement_, column));
    return QString(data, sqlite3_column_bytes16(statement_, column) / static_cast<int>(sizeof(QChar)));
}

qint64 SqliteStatement::whole(int column) const {
    return sqlite3_column_int64(statement_, column);
}

void runSqlite(sqlite3* database, const QByteArray& sql) {
    SqliteStatement statement(database, sql);
    while (statement.step()) {
    }
}

}  // namespace talvora::embedded
