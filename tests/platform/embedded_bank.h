#pragma once

#include "platform/database/connection.h"
#include "support/error_of.h"

#include <QString>

namespace talvora::test {

/// A session on an embedded database that has the tables of the system and no rows.
class EmbeddedBank {
 public:
    /// In memory, or in the file `file`, which is made unless another session has made it.
    explicit EmbeddedBank(const QString& file = QStringLiteral(":memory:"));

    Connection session;

    /// What a statement gives: cells parted by "|", rows by line breaks, NULL as "null"; "error N" when it is refused.
    QString run(const QString& statement);
    /// The number of the error that it raises, 0 for none.
    int errorOf(const QString& statement) {
        return test::errorOf([&] { session.Execute(statement); });
    }
    /// Runs a script of statements, one a line ("\" at its end goes on in the next one) or parted by ";". What a
    /// statement must give stands behind " -> ", its rows parted by " / "; without that it gives no row. `front` opens
    /// each one.
    void walk(QString script, const QString& front = {});
};

/// The connection string of an embedded database file.
QString embeddedString(const QString& file);

}  // namespace talvora::test
