#pragma once

#include "core/collection.h"
#include "core/status.h"
#include "core/trimmed_text.h"

#include <QString>

namespace talvora {

/// A saved search: a whole statement under a short description.
struct cQuery {
    qint16 QueryID = 0;
    TrimmedText Query;  ///< the description
    TrimmedText Condition;

    /// Stores the statement, whose quotes are doubled on the way; the description goes as it is. Taken when just one
    /// query bears the description.
    static Status AddNew(const QString& description, const QString& statement);
    static Status Delete(qint16 QueryID);
};

class cQuerys : public Collection<cQuery, NumberKey<&cQuery::QueryID>> {
 public:
    /// Loads one query, or all by description for 0.
    cQuerys& Find(qint16 QueryID);
};

}  // namespace talvora
