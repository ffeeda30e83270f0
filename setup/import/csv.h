#pragma once

#include "setup/import/fault.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace talvora {

/// One record of a CSV text, with the line on which it begins.
struct CsvRecord {
    int line = 0;
    QStringList cells;
};

/// The separator of a CSV text: of comma, semicolon and tab the one that its first line holds most, outside quotes.
QChar csvSeparator(const QString& text);

/// Cuts a text with LF line ends into records. A cell in double quotes may hold separators, line breaks and doubled
/// double quotes; in another cell a double quote is itself. Records whose cells are all blank are left out. A quote
/// that does not end, and text behind a closing quote, are faults.
std::vector<CsvRecord> parseCsv(const QString& text, QChar separator, ImportFaults& faults);

}  // namespace talvora
