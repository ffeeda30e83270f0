#pragma once

#include <QString>

namespace talvora {

/// The sign that ends a prefix: in front of it stands one more stroke for each level below the second.
inline constexpr QStringView PostPrefixSign = u"|-";

/// The prefixes by which a list of positions shows its tree: nothing for the first level, "|-" for the second, one
/// more stroke for each level down to the fifth. To be asked in the order of the list.
class PostPrefixes {
 public:
    /// The prefix of the position with this code. A code deeper than five levels keeps the one of the position before.
    QString of(const QString& postCode);

 private:
    QString last_;
};

/// What stands behind the prefix of `text`. A text without one loses its first character, which is meant: the first
/// level has no models of its own. Throws RuntimeError 5 for an empty text.
QString textBehindPrefix(const QString& text);

/// The position's name: `text` without its prefix, or as it stands when it has none.
QString postNameOf(const QString& text);

}  // namespace talvora
