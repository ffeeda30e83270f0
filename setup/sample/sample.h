#pragma once

#include "setup/install.h"

namespace talvora {

/// Fills the database of cnnPublic, freshly installed, with the sample bank: test types and papers, two competency
/// models, positions, users and roles, and some 200 past tests of invented candidates. The password of each sample
/// user is its login name. Throws RuntimeError 58 for a database that has types, papers, models, positions, tests, or
/// roles and users of its own already. Should the database fail half way, what was written is taken out again.
void installSample(const Progress& progress = {});

}  // namespace talvora
