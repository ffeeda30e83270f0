#pragma once

#include "platform/database/recordset.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace talvora {

/// What stands behind a Connection: one open link to one engine. Every failure is a DatabaseError.
/// A driver belongs to one thread.
class Driver {
 public:
    Driver() = default;
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;
    virtual ~Driver() = default;

    /// Runs one T-SQL statement and brings all its rows to the client (none for a statement that returns no rows).
    /// A failing statement leaves an open transaction open, with what was done before it, unless the engine itself
    /// gives the transaction up: a server over a failing conversion or a deadlock, the embedded file over a full or
    /// broken disk.
    virtual Recordset execute(const QString& statement) = 0;

    /// Runs several selects in one go and gives the rows of each, in their order. Nothing comes when one of them fails,
    /// or when the driver has nothing to save by it: they are then run one by one.
    virtual std::vector<Recordset> executeTogether(const QStringList& /*statements*/) { return {}; }

    virtual void beginTransaction() = 0;
    virtual void commitTransaction() = 0;
    virtual void rollbackTransaction() = 0;

    /// Whether the server has rolled back the transaction by itself while its series still runs.
    virtual bool hasLostTransaction() const { return false; }
};

}  // namespace talvora
