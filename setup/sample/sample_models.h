#pragma once

#include <QString>

namespace talvora {

/// Stores the competency models of a CSV text with the columns model, position, version, line, score and weight. A
/// line that bears the name of a main type is a dimension; the lines below it are its elements. Throws RuntimeError 5
/// for a name that the bank does not have, and DatabaseError.
void addSampleModels(const QString& csv);

}  // namespace talvora
