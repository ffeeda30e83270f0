#pragma once

#include "setup/import/fault.h"

#include <QByteArray>
#include <QString>

namespace talvora {

/// The text of a file that a spreadsheet program wrote: UTF-8 with or without its mark, else GBK. Line ends become LF.
/// What is neither is a fault, told with its line, and gives empty text.
QString fileText(const QByteArray& content, ImportFaults& faults);

/// Whether GBK, the code page of the database's collation, knows every character.
bool isGbkText(const QString& text);

}  // namespace talvora
