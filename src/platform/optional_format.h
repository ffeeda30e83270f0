#pragma once

#include <QString>

namespace talvora {

/// `value` with at most `decimals` digits behind the point, which always stands, and no zero that says nothing:
/// 0.3333 is ".3333", 0.5 is ".5", 1 is "1.", 0 is ".". The decimal text of the value is rounded half away from zero.
QString formatOptional(double value, int decimals);

/// The same as a percentage: 0.3333 is "33.33%", 0.5 is "50.%", 1 is "100.%".
QString formatOptionalPercent(double value, int decimals);

/// The number that a plain or a percentage text spells: "33.33%" is 0.3333, "100.%" is 1, ".5%" is 0.005, "12" is 12,
/// ".%" is 0. Throws RuntimeError 13 when it spells none.
double percentNumber(const QString& text);

}  // namespace talvora
