#include "platform/database/connection.h"

#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"
#include "platform/database/odbc/odbc_driver.h"
#include "platform/database/server_errors.h"
#include "platform/database/statement_kind.h"
#include "platform/runtime_error.h"

namespace talvora {

using namespace Qt::StringLiterals;

Connection::Connection() = default;

Connection::~Connection() {
    Close();
}

void Connection::Open() {
    Close();
    const auto parts = ConnectionParts::parse(ConnectionString);
    driver_ = parts.isEmbedded() ? openEmbedded(parts, CommandTimeout) : openOdbc(parts, CommandTimeout);
}

Driver& Connection::driver(const QString& statement) {
    if (!driver_) {
        throw RuntimeError(errors::ConnectionClosed);
    }
    if (observer_) {
        observer_(statement);
    }
    return *driver_;
}

Recordset Connection::Execute(const QString& statement) {
    Driver& open = driver(statement);
    if (++statements_ == refused_) {
        std::rethrow_exception(failure_);
    }
    if (!ahead_.isEmpty()) {
        if (const auto read = ahead_.take(statement)) {
            return std::move(*read);
        }
        if (!isQuery(statement)) {
            ahead_.clear();
        }
    }
    return open.execute(statement);
}

std::vector<Recordset> Connection::executeTogether(const QStringList& statements) {
    try {
        return driver_ ? driver_->executeTogether(statements) : std::vector<Recordset>();
    } catch (const DatabaseError&) {
        // The statement at fault fails by itself when its turn comes.
        return {};
    }
}

void Connection::BeginTrans() {
    if (inTransaction_) {
        try {
            CommitTrans();
        } catch (const DatabaseError& error) {
            // A server that rolled the transaction back by itself, or with its link, has none left to commit.
            if (error.number() != server_error::NothingToCommit) {
                throw;
            }
        }
    }
    driver(u"begin transaction"_s).beginTransaction();
    inTransaction_ = true;
    statements_ = 0;
    ahead_.clear();
}

void Connection::RunSeries(const std::function<void()>& series) {
    try {
        return series();
    } catch (const DatabaseError&) {
        if (!driver_ || !driver_->hasLostTransaction()) {
            throw;
        }
        refused_ = statements_;
        failure_ = std::current_exception();
    }
    try {
        series();
    } catch (const RuntimeError&) {
        refused_ = 0;
        throw;
    }
    refused_ = 0;
}

void Connection::CommitTrans() {
    Driver& open = driver(u"commit transaction"_s);
    inTransaction_ = false;
    open.commitTransaction();
}

void Connection::RollbackTrans() {
    Driver& open = driver(u"rollback transaction"_s);
    inTransaction_ = false;
    open.rollbackTransaction();
}

void Connection::Close() noexcept {
    if (driver_ && inTransaction_) {
        try {
            driver_->commitTransaction();
        } catch (const RuntimeError&) {  // NOLINT(bugprone-empty-catch): see the header
        }
    }
    inTransaction_ = false;
    ahead_.clear();
    driver_.reset();
}

void Connection::Abandon() noexcept {
    if (driver_ && inTransaction_) {
        try {
            driver_->rollbackTransaction();
        } catch (const RuntimeError&) {  // NOLINT(bugprone-empty-catch): the link may be gone already
        }
    }
    inTransaction_ = false;
    driver_.reset();
}

}  // namespace talvora
