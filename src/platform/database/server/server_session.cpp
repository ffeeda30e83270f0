#include "platform/database/server/server_session.h"

#include "platform/database/server/link_error.h"
#include "platform/database/server/narrowed_update.h"
#include "platform/database/server_errors.h"
#include "platform/database/statement_kind.h"
#include "platform/runtime_error.h"

#include <algorithm>
#include <utility>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int connectSeconds = 15;
/// A link that stood unused for longer is asked before a change goes over it.
constexpr qint64 trustedMilliseconds = 1000;

}  // namespace

ServerSession::ServerSession(WatchedLink::Open open, QString name, int timeoutSeconds)
    : open_(std::move(open)), name_(std::move(name)), timeoutSeconds_(timeoutSeconds) {
    connect(connectSeconds);
    kind_ = readServerKind(*link_);
}

ServerSession::~ServerSession() = default;

void ServerSession::connect(int seconds) {
    link_.reset();
    try {
        link_ = std::make_unique<WatchedLink>(open_, seconds, timeoutSeconds_);
    } catch (const DatabaseError& error) {
        throw connectFailure(error, name_);
    }
    sinceUse_.start();
}

/// Tries to connect for as long as a statement may take.
void ServerSession::reconnect() {
    const qint64 limit = 1000 * (timeoutSeconds_ > 0 ? timeoutSeconds_ : connectSeconds);
    QElapsedTimer since;
    since.start();
    for (std::chrono::milliseconds pause{250};; pause *= 2) {
        try {
            return connect(static_cast<int>(std::max<qint64>(1, (limit - since.elapsed()) / 1000)));
        } catch (const DatabaseError& error) {
            if (!isLinkLost(error) || since.elapsed() + pause.count() >= limit) {
                throw;
            }
        }
        waitForServer(pause);
    }
}

void ServerSession::makeSureOfLink() {
    if (link_ && !link_->isLost() && sinceUse_.elapsed() > trustedMilliseconds) {
        try {
            link_->execute(u"select 1"_s);
        } catch (const DatabaseError&) {
            if (!link_->isLost()) {
                throw;
            }
        }
    }
    if (!link_ || link_->isLost()) {
        reconnect();
    }
}

/// Does `work`, which may be done twice, once more on a new link when the link turns out to be lost.
template <class Work>
auto ServerSession::repeated(Work&& work) -> decltype(work()) {
    if (!link_ || link_->isLost()) {
        reconnect();
    }
    try {
        return work();
    } catch (const DatabaseError& error) {
        if (!isLinkLost(error)) {
            throw;
        }
    }
    reconnect();
    return work();
}

Recordset ServerSession::execute(const QString& statement) {
    if (transaction_ != Transaction::None) {
        return executeInTransaction(statement);
    }
    const auto send = [&] { return sendStatement(statement); };
    Recordset rows = isQuery(statement) ? repeated(send) : (makeSureOfLink(), send());
    sinceUse_.start();
    return rows;
}

Recordset ServerSession::sendStatement(const QString& statement) {
    std::optional<NarrowedUpdate> narrowed;
    if (kind_.rewritesUnchangedRows) {
        narrowed = narrowedUpdate(statement);
    }
    if (!narrowed) {
        return link_->execute(statement);
    }
    QStringList keys;
    for (const Row row : link_->execute(narrowed->findKeys)) {
        keys += row.text(0);
    }
    for (const QString& update : narrowed->updates(keys)) {
        link_->execute(update);
    }
    return {};
}

Recordset ServerSession::executeInTransaction(const QString& statement) {
    failBroken();
    try {
        Recordset rows = sendStatement(statement);
        isQuery(statement) ? journal_.addQuery() : journal_.addChange(statement);
        return rows;
    } catch (const DatabaseError& error) {
        if (link_->isLost()) {
            breakTransaction(error);
        } else {
            restoreTransaction(error);
        }
        throw;
    }
}

void ServerSession::breakTransaction(const DatabaseError& error) {
    transaction_ = Transaction::Broken;
    brokenBy_ = error;
}

/// Brings back what the server has rolled back with the failing statement, if it has.
void ServerSession::restoreTransaction(const DatabaseError& error) {
    try {
        if (link_->execute(u"select @@trancount"_s).first().number32(0) > 0) {
            return;
        }
        if (!journal_.isRepeatable()) {
            return breakTransaction(error);
        }
        link_->execute(u"begin transaction"_s);
        for (const QString& change : journal_.changes()) {
            sendStatement(change);
        }
    } catch (const DatabaseError&) {
        breakTransaction(error);
    }
}

std::vector<Recordset> ServerSession::executeTogether(const QStringList& statements) {
    if (transaction_ != Transaction::None) {
        return {};
    }
    return repeated([&] { return link_->executeTogether(statements); });
}

void ServerSession::failBroken() {
    if (transaction_ == Transaction::Broken) {
        throw *brokenBy_;
    }
}

void ServerSession::beginTransaction() {
    repeated([&] {
        lockDatabase();
        link_->execute(u"begin transaction"_s);
    });
    transaction_ = Transaction::Open;
    journal_.begin();
}

void ServerSession::commitTransaction() {
    endTransaction(u"commit transaction"_s);
}

void ServerSession::rollbackTransaction() {
    endTransaction(u"rollback transaction"_s);
}

void ServerSession::endTransaction(const QString& statement) {
    const auto ended = std::exchange(transaction_, Transaction::None);
    if (ended == Transaction::Broken) {
        locked_ = false;
        const DatabaseError reason = *std::exchange(brokenBy_, std::nullopt);
        throw DatabaseError(server_error::NothingToCommit, reason.description(), reason.sqlState());
    }
    try {
        link_->execute(statement);
    } catch (const DatabaseError&) {
        unlockDatabase();
        throw;
    }
    unlockDatabase();
    sinceUse_.start();
}

void ServerSession::lockDatabase() {
    if (!kind_.readsSnapshots) {
        return;
    }
    // The owner is the session and not the transaction, for an error may end the transaction before its series ends.
    const int patience = timeoutSeconds_ > 0 ? 1000 * timeoutSeconds_ : -1;
    const Recordset answer = link_->execute(
        u"declare @r int exec @r=sp_getapplock @Resource='Talvora',@LockMode='Exclusive',@LockOwner='Session',"
        "@LockTimeout=%1 select @r"_s.arg(patience));
    if (answer.first().number32(0) < 0) {
        throw timeLimitReached();
    }
    locked_ = true;
}

void ServerSession::unlockDatabase() noexcept {
    if (!std::exchange(locked_, false)) {
        return;
    }
    try {
        link_->execute(u"exec sp_releaseapplock @Resource='Talvora',@LockOwner='Session'"_s);
    } catch (const DatabaseError&) {  // NOLINT(bugprone-empty-catch): a lost link has given the lock back
    }
}

}  // namespace talvora
