#include "platform/database/embedded/file_backup.h"

#include "platform/database/embedded/database_file.h"
#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/sqlite_error.h"
#include "platform/database/embedded/statement.h"

#include <QFile>
#include <sqlite3.h>

namespace talvora {

using namespace Qt::StringLiterals;
using namespace embedded;

namespace {

constexpr int patienceMilliseconds = 10'000;

/// A database as SQLite alone knows it, whose pages count and not its texts.
class PlainFile {
 public:
    PlainFile(const QString& path, int patience) {
        if (sqlite3_open_v2(path.toUtf8().constData(), &database_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
            sqlite3_close_v2(database_);
            throw serverError(server_error::CannotOpenDatabase, {path});
        }
        sqlite3_extended_result_codes(database_, 1);
        sqlite3_busy_timeout(database_, patience);
    }
    PlainFile(const PlainFile&) = delete;
    PlainFile& operator=(const PlainFile&) = delete;
    ~PlainFile() { sqlite3_close_v2(database_); }

    sqlite3* handle() const { return database_; }

 private:
    sqlite3* database_ = nullptr;
};

void makeOwnersFile(const QString& path) {
    QFile::remove(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
        throw serverError(server_error::CannotOpenDatabase, {path});
    }
}

}  // namespace

void copyEmbedded(const QString& from, const QString& to) {
    const PlainFile source(from, patienceMilliseconds);
    makeOwnersFile(to);
    const PlainFile target(to, patienceMilliseconds);
    // A copy that is cut off is thrown away.
    runSqlite(target.handle(), "PRAGMA journal_mode = OFF");
    sqlite3_backup* copy = sqlite3_backup_init(target.handle(), "main", source.handle(), "main");
    if (copy == nullptr) {
        throw sqliteError(target.handle());
    }
    // All pages in one go: between two, a writer would make it begin again.
    sqlite3_backup_step(copy, -1);
    if (sqlite3_backup_finish(copy) != SQLITE_OK) {
        throw sqliteError(target.handle());
    }
}

bool isSoundEmbedded(const QString& file) {
    const DatabaseFile database(file, DatabaseFile::Mode::OpenExisting, 0);
    SqliteStatement check(database.handle(), "PRAGMA integrity_check(1)");
    return check.step() && check.text(0) == "ok"_L1;
}

bool detachEmbedded(const QString& file) {
    const PlainFile database(file, 0);
    try {
        // SQLite leaves the mode with companions only for a session that has the file to itself.
        SqliteStatement mode(database.handle(), "PRAGMA journal_mode = DELETE");
        return mode.step() && mode.text(0) == "delete"_L1;
    } catch (const DatabaseError& error) {
        if (error.number() == server_error::LockTimeout) {
            return false;
        }
        throw;
    }
}

}  // namespace talvora
