#pragma once

#include <QString>

namespace talvora::test {

/// Fills the database of cnnPublic with a small bank whose keys lie far apart: papers, one of which has been deleted
/// since it was taken, questions, a model, a query, and the tests of the families 30, 44 and 45, of which 44 has rows
/// of both 2023 and 2024 and 45 is of 2024.
void addScatteredBank();

/// Everything that hangs together by keys, told by names alone and in the order of the keys.
QString whatBelongsTogether();

/// The keys of each range in their order.
QString allKeys();

/// All rows of all tables.
QString everything();

}  // namespace talvora::test
