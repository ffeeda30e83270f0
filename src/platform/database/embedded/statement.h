#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace talvora::embedded {

/// One prepared statement of SQLite. Preparing and stepping throw the error of SQLite as a DatabaseError (see
/// sqlite_error.h).
class SqliteStatement {
 public:
    SqliteStatement() = default;
    SqliteStatement(sqlite3* database, const QByteArray& sql);
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;
    SqliteStatement(SqliteStatement&& other) noexcept;
    SqliteStatement& operator=(SqliteStatement&& other) noexcept;
    ~SqliteStatement();

    /// Whether there is a row; false at the end.
    bool step();
    /// Makes the statement ready for its next run. Never fails: what the run met, step has told.
    void reset();

    QString text(int column) const;
    qint64 whole(int column) const;

    sqlite3_stmt* handle() const { return statement_; }

 private:
    sqlite3_stmt* statement_ = nullptr;
};

/// Runs `sql`, which gives no rows that matter.
void runSqlite(sqlite3* database, const QByteArray& sql);

}  // namespace talvora::embedded
