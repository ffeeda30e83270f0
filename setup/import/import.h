#pragma once

#include "setup/import/fault.h"
#include "setup/install.h"

#include <QByteArray>

namespace talvora {

/// What an import did. With faults, nothing is written.
struct ImportOutcome {
    ImportFaults faults;
    QStringList notes;  ///< what the user had better look at, though it is no fault
    int mainTypes = 0;
    int subtypes = 0;
    int papers = 0;
    int questions = 0;
};

/// Reads an import file (docs/import-format.md) and writes its types, papers and questions through cnnPublic. Should
/// the database fail half way, all that was written is taken out again and a RuntimeError tells so.
ImportOutcome importPapers(const QByteArray& content, const Progress& progress = {});

/// The same from a file. Throws RuntimeError 53 when it cannot be read.
ImportOutcome importFile(const QString& path, const Progress& progress = {});

/// What an import made, and its notes, or its faults, as text for the user.
QString outcomeText(const ImportOutcome& outcome, const QString& fileName);

}  // namespace talvora
