#pragma once

#include "platform/database/connection.h"
#include "platform/runtime_error.h"

#include <QString>

namespace talvora::test {

/// A session on an embedded database that has the tables of the system and no rows.
class EmbeddedBank {
 public:
    /// In memory, or in the file `file`, which is made.
    explicit EmbeddedBank(const QString& file = QStringLiteral(":memory:"));

    Connection session;

    /// What a statement gives: cells parted by "|", rows by line breaks, NULL as "null"; "error N" when it is refused.
    QString run(const QString& statement);
    /// The number of the error that it raises, 0 for none.
    int errorOf(const QString& statement);
};

/// The connection string of an embedded database file.
QString embeddedString(const QString& file);

}  // namespace talvora::test
