#pragma once

#include "platform/database/recordset.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <exception>
#include <functional>
#include <memory>
#include <vector>

namespace talvora {

class Driver;

/// One session with one database, as the record classes use it. The same T-SQL runs on SQL Server through ODBC and
/// on the embedded file. Belongs to one thread.
class Connection {
 public:
    /// Called with the text of each statement before it runs, and with "begin transaction", "commit transaction" and
    /// "rollback transaction" for those. It may throw a RuntimeError, which then stands for the statement's failure.
    using Observer = std::function<void(const QString& statement)>;

    Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    /// Closes the session, see Close.
    ~Connection();

    /// "Provider=SQLOLEDB.1;…;User ID=…;Initial Catalog=…;Data Source=…;pwd=…". Data Source "embedded" is the SQLite
    /// file named by Initial Catalog, relative to the application's folder; ":memory:" there is a database that lives
    /// as long as the session. Anything else is a SQL Server, written host, host,port or host\instance.
    QString ConnectionString;
    /// Seconds that a statement may run, or wait for another session's lock, before it fails; 0 is no limit. A change
    /// inside a transaction of the embedded file is never cut off. Read by Open.
    int CommandTimeout = 30;

    /// Opens the session, closing an earlier one. Throws DatabaseError.
    void Open();
    bool IsOpen() const { return driver_ != nullptr; }

    /// Runs one statement; all its rows come back with it. Throws DatabaseError, or RuntimeError 3704 when not open.
    Recordset Execute(const QString& statement);

    /// Begins a transaction. One that a failed series left open is committed first, so that nothing a candidate did
    /// is lost.
    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();

    /// Runs a series that begins with BeginTrans and ends at its first failure, which comes out. What was done before
    /// stays in the open transaction: a server that has rolled it back by itself over the failure gets the series once
    /// more, up to the statement that failed. The series reads its keys anew then, so it must begin from nothing.
    void RunSeries(const std::function<void()>& series);

    /// Ends the session in an orderly way: a transaction left open is committed. Does nothing when not open. A
    /// failing commit is passed over, since nobody is left to tell.
    void Close() noexcept;
    /// Ends the session and rolls back what is open: for an end by a run-time error.
    void Abandon() noexcept;

    void setObserver(Observer observer) { observer_ = std::move(observer); }

 private:
    friend class ReadAhead;

    Driver& driver(const QString& statement);
    std::vector<Recordset> executeTogether(const QStringList& statements);

    std::unique_ptr<Driver> driver_;
    Observer observer_;
    bool inTransaction_ = false;
    /// Statements since BeginTrans, and the one among them that is not sent again, with its failure.
    int statements_ = 0;
    int refused_ = 0;
    std::exception_ptr failure_;
    QHash<QString, std::shared_ptr<Recordset>> ahead_;
};

}  // namespace talvora
