#pragma once

#include "core/connection_file.h"

#include <functional>

namespace talvora {

/// Copies the embedded bank, which programs may be using, as it stands at one moment into `file`, and puts what was
/// there before out of the way only when the copy is whole and sound. Only the file's owner can read it.
/// Throws RuntimeError with words for the user.
void backUpBank(const ConnectionFile& bank, const QString& file);

/// Puts the backup `file` in the place of the embedded bank, which keeps its rights; whatever cuts this off leaves the
/// one or the other. `isWanted` is asked when the backup has been found sound. False when it said no.
/// Throws RuntimeError with words for the user: for a file that is no sound bank, and while another program has the
/// bank open.
bool restoreBank(const ConnectionFile& bank, const QString& file, const std::function<bool()>& isWanted);

/// Where restoreBank leaves the bank that it replaces.
QString replacedBank(const ConnectionFile& bank);

}  // namespace talvora
