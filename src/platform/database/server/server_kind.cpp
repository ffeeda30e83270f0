#include "platform/database/server/server_kind.h"

#include "platform/database/server/watched_link.h"
#include "platform/runtime_error.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

/// The number in the first cell, 0 for none or a question that the server does not understand.
qint32 answer(WatchedLink& link, const QString& question) {
    try {
        const Recordset rows = link.execute(question);
        return rows.RecordCount() > 0 && !rows.first().isNull(0) ? rows.first().number32(0) : 0;
    } catch (const DatabaseError&) {
        if (link.isLost()) {
            throw;
        }
        return 0;
    }
}

}  // namespace

ServerKind readServerKind(WatchedLink& link) {
    const bool isBabelfish = answer(link, u"select cast(serverproperty('Babelfish') as int)"_s) == 1;
    const bool hasSnapshots =
        isBabelfish ||
        answer(link, u"select cast(is_read_committed_snapshot_on as int) from sys.databases where name=db_name()"_s) ==
            1;
    return {hasSnapshots, isBabelfish, isBabelfish};
}

}  // namespace talvora
