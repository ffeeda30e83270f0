#include "bench/plain_database.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

namespace talvora::bench {

namespace {

constexpr int statementSeconds = 600;

void require(bool done, sqlite3* database) {
    if (!done) {
        std::fprintf(stderr, "plain SQLite: %s\n", sqlite3_errmsg(database));
        std::abort();
    }
}

}  // namespace

void PlainStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

PlainStatement::PlainStatement(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) == SQLITE_OK,
            database);
    statement_.reset(statement);
}

void PlainStatement::bind(int index, qint64 value) {
    sqlite3_bind_int64(get(), index, value);
}

void PlainStatement::bind(int index, const QString& text) {
    sqlite3_bind_text16(get(), index, text.utf16(), static_cast<int>(text.size() * 2), SQLITE_STATIC);
}

bool PlainStatement::step() {
    const int result = sqlite3_step(get());
    require(result == SQLITE_ROW || result == SQLITE_DONE, sqlite3_db_handle(get()));
    return result == SQLITE_ROW;
}

void PlainStatement::reset() {
    sqlite3_reset(get());
}

void PlainStatement::run() {
    step();
    reset();
}

qint64 PlainStatement::number() {
    const qint64 value = step() ? sqlite3_column_int64(get(), 0) : 0;
    reset();
    return value;
}

PlainDatabase::PlainDatabase(const QString& file)
    : file_(file, embedded::DatabaseFile::Mode::OpenExisting, statementSeconds) {}

void PlainDatabase::execute(const char* sql) {
    require(sqlite3_exec(file_.handle(), sql, nullptr, nullptr, nullptr) == SQLITE_OK, file_.handle());
}

}  // namespace talvora::bench
