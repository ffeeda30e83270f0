#pragma once

#include <QString>

namespace talvora {

/// The pieces of an ADO connection string that the drivers read.
struct ConnectionParts {
    QString dataSource;
    QString initialCatalog;
    QString userId;
    QString password;

    /// Reads "Key=value;Key=value". Keys go without regard to case; unknown ones are passed over. A value ends at the
    /// next semicolon, but the last piece, "pwd=", runs to the end of the text, so that a password may hold one.
    static ConnectionParts parse(const QString& connectionString);

    bool isEmbedded() const;
};

}  // namespace talvora
