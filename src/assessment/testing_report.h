#pragma once

#include "results/ctesting.h"

#include <QString>

namespace talvora {

/// The report that a candidate reads after a test: name, moment, test, score and verdict of the first row of the
/// family, and below a rule the table of the rows that follow it in a model's family. Lines end with carriage return
/// and line feed. Throws RuntimeError 9 for an empty family.
QString testingReport(const QString& name, const QString& moment, const QString& typeName, const cTestings& family);

}  // namespace talvora
