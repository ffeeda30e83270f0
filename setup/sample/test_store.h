#pragma once

#include "results/ctesting.h"
#include "results/ctestingdetail.h"
#include "setup/install.h"

#include <vector>

namespace talvora {

/// A finished test with what cTesting::AddNew takes to store it.
struct FinishedTest {
    cTesting head;
    bool isModel = false;
    cTestings rows;
    cTestingDetails answers;
};

/// Stores tests into a bank that has none, with the rows that cTesting::AddNew would store for them one after the
/// other, but in few statements: on a server each one costs a round trip, and a test alone takes about a hundred. The
/// database scores all of them together. One transaction. Throws RuntimeError.
void storeTests(const std::vector<FinishedTest>& tests, const Progress& progress);

}  // namespace talvora
