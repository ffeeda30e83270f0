#pragma once

#include "platform/database/embedded/database_file.h"

#include <QString>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace talvora::bench {

/// A prepared statement straight on SQLite, to be run again and again.
class PlainStatement {
 public:
    PlainStatement(sqlite3* database, const char* sql);

    void bind(int index, qint64 value);
    /// `text` must live until the statement has run.
    void bind(int index, const QString& text);
    /// Steps once; true while there is a row.
    bool step();
    void reset();
    /// Runs a statement that gives no rows.
    void run();
    /// Runs a statement that gives one whole number.
    qint64 number();

    sqlite3_stmt* get() const { return statement_.get(); }

 private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// A file of the embedded engine, opened with its settings and used straight through SQLite. A failing statement ends
/// the program.
class PlainDatabase {
 public:
    explicit PlainDatabase(const QString& file);

    void execute(const char* sql);
    PlainStatement prepare(const char* sql) { return {file_.handle(), sql}; }

 private:
    embedded::DatabaseFile file_;
};

}  // namespace talvora::bench
