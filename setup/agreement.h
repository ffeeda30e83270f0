#pragma once

#include "setup/arguments.h"

namespace talvora {

/// Whether the user agrees to what the question says will be done: asked at a terminal, or beforehand by --yes. One who
/// does not is told that nothing was changed. Throws RuntimeError 5 when there is nobody to ask.
bool isAgreed(const Arguments& arguments, const QString& question);

}  // namespace talvora
