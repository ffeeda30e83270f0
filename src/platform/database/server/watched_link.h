#pragma once

#include "platform/database/driver.h"
#include "platform/database/server/statement_thread.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace talvora {

/// One link to a server, given up when the server does not answer within the time limit, whatever its driver makes of
/// that limit. Every failure is a DatabaseError in the words of link_error.h. A link that is lost stays lost.
class WatchedLink {
 public:
    using Open = std::function<std::unique_ptr<Driver>()>;

    /// Connects. Gives up after `connectSeconds`, a statement after `statementSeconds` (0 is no limit).
    WatchedLink(const Open& open, int connectSeconds, int statementSeconds);

    Recordset execute(const QString& statement);
    /// Sends the selects in one go; gives the rows of each, or nothing when any of them failed.
    std::vector<Recordset> executeTogether(const QStringList& statements);

    bool isLost() const { return lost_; }

 private:
    /// Runs `call` on the thread with a hold on the link. Throws what it throws.
    void run(const std::function<void(Driver&)>& call, int seconds);

    StatementThread thread_;
    std::shared_ptr<std::unique_ptr<Driver>> link_ = std::make_shared<std::unique_ptr<Driver>>();
    int statementSeconds_;
    bool lost_ = false;
};

}  // namespace talvora
