#include "platform/database/server/watched_link.h"

#include "platform/database/server/link_error.h"

namespace talvora {

namespace {

/// A driver keeps the limit by itself as long as the server answers at all; then it also says what the server says.
constexpr std::chrono::milliseconds grace{500};

std::chrono::milliseconds limitOf(int seconds) {
    return seconds == 0 ? std::chrono::milliseconds(0) : std::chrono::seconds(seconds) + grace;
}

}  // namespace

WatchedLink::WatchedLink(const Open& open, int connectSeconds, int statementSeconds)
    : statementSeconds_(statementSeconds) {
    const auto call = [link = link_, open] { *link = open(); };
    if (!thread_.run(call, limitOf(connectSeconds))) {
        throw timeLimitReached();
    }
}

void WatchedLink::run(const std::function<void(Driver&)>& call, int seconds) {
    try {
        if (thread_.run([link = link_, call] { call(**link); }, limitOf(seconds))) {
            return;
        }
    } catch (const DatabaseError& error) {
        lost_ = isLinkLost(error);
        throw statementFailure(error);
    }
    lost_ = true;
    link_.reset();
    throw timeLimitReached();
}

Recordset WatchedLink::execute(const QString& statement) {
    const auto rows = std::make_shared<Recordset>();
    run([statement, rows](Driver& link) { *rows = link.execute(statement); }, statementSeconds_);
    return std::move(*rows);
}

std::vector<Recordset> WatchedLink::executeTogether(const QStringList& statements) {
    const auto results = std::make_shared<std::vector<Recordset>>();
    run([statements, results](Driver& link) { *results = link.executeTogether(statements); }, statementSeconds_);
    return std::move(*results);
}

}  // namespace talvora
