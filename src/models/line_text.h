#pragma once

#include "models/cdimension.h"
#include "testbank/ctestingtype.h"

namespace talvora {

/// How long the codes of the two kinds of model lines are: a dimension is a main type, an element a subtype.
inline constexpr qsizetype DimensionDigits = mainTypeCodeLength;
inline constexpr qsizetype ElementDigits = subtypeCodeLength;

/// A line of a model, or a test type offered for one, as lists and the grid show it: its code, a blank, its name.
QString lineText(const QString& code, const QString& name);

/// The line that stands in such a text, with its score. A text shorter than its code gives what there is.
std::shared_ptr<cDimension> lineOf(const QString& text, qsizetype codeDigits, const QString& score);

}  // namespace talvora
