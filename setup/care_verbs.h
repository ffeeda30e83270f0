#pragma once

#include "setup/arguments.h"
#include "setup/commands.h"

namespace talvora {

// The verbs that look after a bank in use. The first two change what cannot be brought back, so they ask first; a
// command line that cannot be asked has to say --yes.

ExitCode renumberVerb(const Arguments& arguments);
ExitCode archiveVerb(const Arguments& arguments);
ExitCode grantVerb(const Arguments& arguments);

}  // namespace talvora
