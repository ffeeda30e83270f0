#pragma once

#include "setup/install.h"

namespace talvora {

/// Stores `count` past tests of invented candidates, spread over the last half year and in the order of their dates:
/// most on a single paper, the others on a competency model. Throws RuntimeError when one can't be stored.
void addSampleTests(int count, const Progress& progress);

}  // namespace talvora
