#pragma once

#include "platform/database/connection.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace talvora {

/// Selects that are known to follow, read in few round trips where a server stands behind the session. While the
/// object stands, Execute answers each of these texts once from what has come, in whatever order they are asked for;
/// the observer sees them there, and one that failed is sent again by itself, so that its failure comes where it would
/// have come. A change gives up what is left. On the embedded file, where a statement costs no trip, it does nothing.
class ReadAhead {
 public:
    ReadAhead(Connection& connection, const QStringList& selects);
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// What came for each of the selects, in their order, to be read before Execute hands it out; empty when nothing
    /// came.
    const std::vector<std::shared_ptr<Recordset>>& results() const { return results_; }

 private:
    Connection& connection_;
    QStringList selects_;
    std::vector<std::shared_ptr<Recordset>> results_;
};

}  // namespace talvora
