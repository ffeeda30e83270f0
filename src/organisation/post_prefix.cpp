#include "organisation/post_prefix.h"

#include "platform/text.h"

namespace talvora {

QString PostPrefixes::of(const QString& postCode) {
    constexpr qsizetype digitsPerLevel = 3;
    constexpr qsizetype deepest = 5;
    const qsizetype depth = postCode.size() / digitsPerLevel;
    if (depth == 1) {
        last_.clear();
    } else if (depth > 1 && depth <= deepest) {
        last_ = QString(depth - 2, u'|').append(PostPrefixSign);
    }
    return last_;
}

QString textBehindPrefix(const QString& text) {
    // Counted from 1, with 0 for a sign that is not there.
    const qsizetype sign = text.indexOf(PostPrefixSign) + 1;
    return rightOf(text, text.size() - sign - 1);
}

QString postNameOf(const QString& text) {
    return text.contains(PostPrefixSign) ? textBehindPrefix(text) : text;
}

}  // namespace talvora
