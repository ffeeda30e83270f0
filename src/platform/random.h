#pragma once

namespace talvora {

/// The next number of the program's one random series, at least 0 and below 1. The series is never seeded: each
/// start of the program walks the same numbers, which is meant.
double nextRandom();

/// An index chosen by the next random number among `count` entries (`count` above 0).
int randomIndex(int count);

}  // namespace talvora
