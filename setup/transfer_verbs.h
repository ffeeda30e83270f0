#pragma once

#include "setup/arguments.h"
#include "setup/commands.h"

namespace talvora {

// The verbs that move a whole bank: into another database, into a backup and back. Only the target of a copy is
// changed; what a backup or a bank would be replaced by is made whole first, and the user is asked.

ExitCode copyVerb(const Arguments& arguments);
ExitCode backupVerb(const Arguments& arguments);
ExitCode restoreVerb(const Arguments& arguments);

}  // namespace talvora
