#pragma once

#include <QString>

namespace talvora {

/// What the connection file tells about the database.
struct ConnectionFile {
    QString server;    ///< "Data Source": host, host,port, host\instance, or "embedded"
    QString database;  ///< "Initial Catalog"
    QString login;     ///< "User ID"
    QString password;  ///< "pwd"
};

/// The name of the connection file in the application's folder.
QString connectionFileName();

/// The connection string of the session that the file describes.
QString connectionString(const ConnectionFile& file);

/// Undoes the scrambling of a text of character codes (in the file's encoding, one code a unit): each code but the last
/// is raised by its position modulo 10, the last is dropped, and the order is turned round. RuntimeError 6 for a
/// text that 16-bit counters cannot walk.
QString UnscrambleText(const QString& Text);

/// Reads the file. Throws RuntimeError: 75 when it cannot be read, 6 when it is too long, 9 when it holds fewer than
/// the five pieces.
ConnectionFile readConnectionFile(const QString& path);

/// Writes the file, readable by its owner only. What could not be read back as it stands, or would not reach the
/// server, is refused with a RuntimeError that says so: characters that the file's encoding lacks, control characters,
/// the separator word "Encrypt", a semicolon outside the password.
void writeConnectionFile(const QString& path, const ConnectionFile& content);

}  // namespace talvora
