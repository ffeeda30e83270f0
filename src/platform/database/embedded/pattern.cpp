#include "platform/database/embedded/pattern.h"

#include "platform/database/embedded/collation.h"

#include <algorithm>

namespace talvora::embedded {

namespace {

/// One step of a pattern: how many of its characters it takes, and what it asks of one character of the text.
struct Step {
    qsizetype length = 1;
    bool accepts = false;
};

/// Whether the set between brackets, `set`, holds `c`.
bool setHolds(QStringView set, char16_t c) {
    const bool inverted = set.startsWith(u'^');
    qsizetype i = inverted ? 1 : 0;
    bool found = false;
    while (i < set.size()) {
        if (i + 2 < set.size() && set[i + 1] == u'-') {
            found = found ||
                    (compareCharacters(set[i].unicode(), c) <= 0 && compareCharacters(c, set[i + 2].unicode()) <= 0);
            i += 3;
        } else {
            found = found || compareCharacters(set[i].unicode(), c) == 0;
            ++i;
        }
    }
    return found != inverted;
}

Step stepAt(QStringView pattern, qsizetype p, char16_t c) {
    const char16_t want = pattern[p].unicode();
    if (want == u'_') {
        return {1, true};
    }
    if (want == u'[') {
        const qsizetype from = pattern.sliced(p + 1).startsWith(u'^') ? p + 3 : p + 2;
        const qsizetype close = from < pattern.size() ? pattern.indexOf(u']', from) : -1;
        // A set that is never closed holds nothing.
        return {close - p + 1, close > 0 && setHolds(pattern.sliced(p + 1, close - p - 1), c)};
    }
    return {1, compareCharacters(want, c) == 0};
}

bool onlyBlanks(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return folded(c.unicode()) == u' '; });
}

}  // namespace

bool matchesPattern(QStringView text, QStringView pattern) {
    qsizetype t = 0;
    qsizetype p = 0;
    qsizetype afterPercent = -1;
    qsizetype resumeAt = 0;
    while (t < text.size()) {
        const bool percent = p < pattern.size() && pattern[p] == u'%';
        if (percent) {
            afterPercent = ++p;
            resumeAt = t;
            continue;
        }
        if (p < pattern.size()) {
            const Step step = stepAt(pattern, p, text[t].unicode());
            if (step.accepts) {
                p += step.length;
                ++t;
                continue;
            }
        } else if (onlyBlanks(text.sliced(t))) {
            return true;
        }
        if (afterPercent < 0) {
            return false;
        }
        p = afterPercent;
        t = ++resumeAt;
    }
    while (p < pattern.size() && pattern[p] == u'%') {
        ++p;
    }
    return p == pattern.size();
}

int patternIndex(QStringView text, QStringView pattern) {
    if (!pattern.startsWith(u'%')) {
        return matchesPattern(text, pattern) ? 1 : 0;
    }
    while (pattern.startsWith(u'%')) {
        pattern = pattern.sliced(1);
    }
    if (pattern.isEmpty()) {
        return 1;
    }
    for (qsizetype start = 0; start < text.size(); ++start) {
        if (matchesPattern(text.sliced(start), pattern)) {
            return static_cast<int>(start) + 1;
        }
    }
    return 0;
}

}  // namespace talvora::embedded
