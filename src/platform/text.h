#pragma once

#include <QString>

namespace talvora {

/// `text` without the blanks (U+0020) at both ends. Other white space is content and stays.
QString trimBlanks(const QString& text);

/// The last `count` characters of `text`, all of it when it is shorter.
/// Throws RuntimeError 5 when `count` is negative.
QString rightOf(const QString& text, qsizetype count);

/// `text` without its first `count` characters, empty when it is shorter.
QString dropLeft(const QString& text, qsizetype count);

}  // namespace talvora
