#pragma once

#include "setup/sample/test_store.h"

#include <vector>

namespace talvora {

/// `count` past tests of invented candidates from the bank at hand, spread over the last half year and in the order of
/// their dates: most on a single paper, the others on a competency model.
std::vector<FinishedTest> drawSampleTests(int count);

}  // namespace talvora
