#pragma once

#include <QString>

namespace talvora {

/// Copies the SQLite database `from`, which other programs may be using, as it stands at one moment, into the new file
/// `to`, which only its owner can read. Writers of `from` go on meanwhile. What is cut off leaves a part of `to`.
/// Throws DatabaseError: 4060 when a file cannot be opened, 5172 for one that is no database, 1105 on a full disk.
void copyEmbedded(const QString& from, const QString& to);

/// Whether the database `file` is sound: every page, row and index of it. An index that a newer system would sort
/// otherwise is built anew. Throws DatabaseError 5172 for a file that is no database.
bool isSoundEmbedded(const QString& file);

/// Takes what lies beside the database `file` into it, so that it is one file, and nobody's. False when another program
/// has it open. Throws DatabaseError: 5172, 824 for one that is damaged beyond reading.
bool detachEmbedded(const QString& file);

}  // namespace talvora
