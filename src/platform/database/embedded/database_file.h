#pragma once

#include <QElapsedTimer>
#include <QString>

struct sqlite3;

namespace talvora::embedded {

/// One open SQLite database with the engine's collation, settings and time limits.
class DatabaseFile {
 public:
    enum class Mode { OpenExisting, Create };

    /// `name` as in openEmbedded. Throws DatabaseError.
    DatabaseFile(const QString& name, Mode mode, int timeoutSeconds);
    DatabaseFile(const DatabaseFile&) = delete;
    DatabaseFile& operator=(const DatabaseFile&) = delete;
    ~DatabaseFile();

    sqlite3* handle() const { return database_; }

    /// The time limit counts from here: to be called before each statement.
    void startClock() {
        clock_.start();
        limited_ = timeoutMilliseconds_ > 0;
    }
    /// The present statement may run as long as it needs.
    void liftLimit() { limited_ = false; }

 private:
    void open(const QString& path, int flags);
    void prepare(bool inMemory, Mode mode);
    void keepOrder();
    bool timeIsUp() const;
    static int waitForLock(void* self, int attempt);
    static int checkTime(void* self);

    sqlite3* database_ = nullptr;
    qint64 timeoutMilliseconds_;
    QElapsedTimer clock_;
    bool limited_ = false;
};

}  // namespace talvora::embedded
