#pragma once

#include "platform/text.h"

#include <QString>

#include <limits>

namespace talvora {

/// A text member whose setter trims the blanks at both ends and cuts what is longer than `Limit` characters.
template <qsizetype Limit = std::numeric_limits<qsizetype>::max()>
class LimitedText {
 public:
    LimitedText() = default;
    LimitedText(const QString& text) : text_(trimBlanks(text).left(Limit)) {}  // NOLINT: assigns like a QString

    operator const QString&() const { return text_; }  // NOLINT(google-explicit-constructor): reads like a QString
    const QString& text() const { return text_; }

 private:
    QString text_;
};

using TrimmedText = LimitedText<>;

}  // namespace talvora
