#include "platform/database/embedded/database_file.h"

#include "platform/database/embedded/collation.h"
#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/sqlite_error.h"
#include "platform/database/embedded/statement.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QThread>
#include <sqlite3.h>

#include <algorithm>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView inMemoryName(":memory:");

QString pathOf(const QString& name) {
    if (name == inMemoryName || QFileInfo(name).isAbsolute()) {
        return name;
    }
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

}  // namespace

DatabaseFile::DatabaseFile(const QString& name, Mode mode, int timeoutSeconds)
    : timeoutMilliseconds_(qint64{timeoutSeconds} * 1000) {
    const QString path = pathOf(name);
    const bool inMemory = path == inMemoryName;
    const bool missing = name.isEmpty() || !QFileInfo(path).isFile();
    if (!inMemory && missing && (mode == Mode::OpenExisting || name.isEmpty())) {
        throw serverError(server_error::CannotOpenDatabase, {name});
    }
    startClock();
    try {
        open(path, mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
        prepare(inMemory, mode);
    } catch (const DatabaseError&) {
        sqlite3_close_v2(database_);
        throw;
    }
}

DatabaseFile::~DatabaseFile() {
    sqlite3_close_v2(database_);
}

void DatabaseFile::open(const QString& path, int flags) {
    // A session belongs to one thread, so that SQLite need not guard each of its calls.
    const int all = flags | SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &database_, all, nullptr);
    if (code != SQLITE_OK) {
        throw serverError(server_error::CannotOpenDatabase, {path});
    }
    sqlite3_extended_result_codes(database_, 1);
    // Without these a mistyped name in double quotes would pass for a text.
    sqlite3_db_config(database_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_busy_handler(database_, &DatabaseFile::waitForLock, this);
    if (timeoutMilliseconds_ > 0) {
        constexpr int instructionsBetweenLooks = 10000;
        sqlite3_progress_handler(database_, instructionsBetweenLooks, &DatabaseFile::checkTime, this);
    }
    registerCollation(database_);
}

void DatabaseFile::prepare(bool inMemory, Mode mode) {
    // Text as the program holds it, so that nothing is converted on the way. Heeded only by a new file.
    runSqlite(database_, "PRAGMA encoding = 'UTF-16'");
    runSqlite(database_, "PRAGMA temp_store = MEMORY");
    // Kilobytes of pages kept: what a paper with some hundred thousand stored answers touches.
    runSqlite(database_, "PRAGMA cache_size = -65536");
    if (inMemory) {
        return;
    }
    runSqlite(database_, "PRAGMA journal_mode = WAL");
    // A committed test is on the disk, whatever becomes of the power.
    runSqlite(database_, "PRAGMA synchronous = FULL");
    if (mode == Mode::Create) {
        SqliteStatement tables(database_, "SELECT count(*) FROM sqlite_schema");
        tables.step();
        if (tables.whole(0) == 0) {
            tables.reset();
            // The encoding is written with the first table.
            runSqlite(database_, "CREATE TABLE first_table (x)");
            runSqlite(database_, "DROP TABLE first_table");
        }
    }
    keepOrder();
}

void DatabaseFile::keepOrder() {
    // Indexes on text hold only under the order they were built with. The mark of that order stands in the file; where
    // a newer system or program sorts differently, the indexes are built anew.
    SqliteStatement mark(database_, "PRAGMA user_version");
    mark.step();
    const bool current = mark.whole(0) == orderFingerprint();
    mark.reset();
    if (!current) {
        runSqlite(database_, "BEGIN IMMEDIATE");
        // A large bank takes longer than a statement may, and cut off it would be closed to every later start as well.
        liftLimit();
        runSqlite(database_, QByteArray("REINDEX ") + collationName);
        runSqlite(database_, "PRAGMA user_version = " + QByteArray::number(orderFingerprint()));
        runSqlite(database_, "COMMIT");
    }
}

bool DatabaseFile::timeIsUp() const {
    return limited_ && clock_.hasExpired(timeoutMilliseconds_);
}

int DatabaseFile::waitForLock(void* self, int attempt) {
    if (static_cast<DatabaseFile*>(self)->timeIsUp()) {
        return 0;
    }
    constexpr int longestWait = 25;
    QThread::msleep(static_cast<unsigned long>(std::min(attempt + 1, longestWait)));
    return 1;
}

int DatabaseFile::checkTime(void* self) {
    return static_cast<DatabaseFile*>(self)->timeIsUp() ? 1 : 0;
}

}  // namespace talvora::embedded
