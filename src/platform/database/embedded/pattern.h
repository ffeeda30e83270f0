#pragma once

#include <QStringView>

namespace talvora::embedded {

/// T-SQL's `like`: % any text, _ any character, [a-f] and [^a-f] one of a set. Characters compare as in the collation.
bool matchesPattern(QStringView text, QStringView pattern);

/// T-SQL's `patindex`: where the first match begins, counted from 1; 0 for none.
int patternIndex(QStringView text, QStringView pattern);

}  // namespace talvora::embedded
