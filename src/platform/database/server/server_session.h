#pragma once

#include "platform/database/driver.h"
#include "platform/database/server/server_kind.h"
#include "platform/database/server/transaction_journal.h"
#include "platform/database/server/watched_link.h"
#include "platform/runtime_error.h"

#include <QElapsedTimer>
#include <QString>

#include <memory>
#include <optional>

namespace talvora {

/// A session with a server that outlives its links. Outside a transaction a lost link is made anew before a statement,
/// so that a terminal that stood over a restart of the server goes on; a select that meets the loss is sent again, a
/// change never, since nobody knows whether it arrived. A transaction whose link is lost is over: every statement up
/// to its end fails.
///
/// Where a server has rolled a transaction back by itself over an error, the changes before it are made again, so that
/// they stay as they do on a server that ends the statement alone. Only a series that has read in between, and may
/// have built on the keys it read, cannot be made again: it is over then, too.
///
/// On a server that reads snapshots a transaction takes a lock of the whole database, so that a second one waits for
/// the first as it does where readers wait for writers.
class ServerSession final : public Driver {
 public:
    /// Connects. `name` is the server in messages; a statement may run for `timeoutSeconds` (0 is no limit).
    ServerSession(WatchedLink::Open open, QString name, int timeoutSeconds);
    ~ServerSession() override;

    Recordset execute(const QString& statement) override;
    std::vector<Recordset> executeTogether(const QStringList& statements) override;
    void beginTransaction() override;
    void commitTransaction() override;
    void rollbackTransaction() override;
    bool hasLostTransaction() const override { return transaction_ == Transaction::Broken && !link_->isLost(); }

 private:
    /// None; open on the server; or over by itself, while its series still runs.
    enum class Transaction { None, Open, Broken };

    void connect(int seconds);
    void reconnect();
    void makeSureOfLink();
    template <class Work>
    auto repeated(Work&& work) -> decltype(work());
    Recordset sendStatement(const QString& statement);
    Recordset executeInTransaction(const QString& statement);
    void endTransaction(const QString& statement);
    void failBroken();
    void breakTransaction(const DatabaseError& error);
    void restoreTransaction(const DatabaseError& error);
    void lockDatabase();
    void unlockDatabase() noexcept;

    WatchedLink::Open open_;
    QString name_;
    int timeoutSeconds_;
    std::unique_ptr<WatchedLink> link_;
    ServerKind kind_;
    QElapsedTimer sinceUse_;
    Transaction transaction_ = Transaction::None;
    std::optional<DatabaseError> brokenBy_;
    TransactionJournal journal_;
    bool locked_ = false;
};

}  // namespace talvora
