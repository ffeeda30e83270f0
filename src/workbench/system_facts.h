#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace talvora {

/// What an administrator is asked for when a machine gives trouble: names and values, such as the operating system,
/// the processor, the memory, the screens and the database. What the platform doesn't tell is left out.
std::vector<std::pair<QString, QString>> systemFacts();

}  // namespace talvora
