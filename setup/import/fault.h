#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace talvora {

/// What is wrong with an import file, and on which of its lines (counted from 1; 0 when it is the file as a whole).
struct ImportFault {
    int line = 0;
    QString reason;
};

using ImportFaults = std::vector<ImportFault>;

/// The faults as lines for the user, in the order of the file; past `limit` only their number is told.
QStringList faultLines(ImportFaults faults, int limit = 50);

}  // namespace talvora
