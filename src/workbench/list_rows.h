#pragma once

#include <QString>

#include <array>
#include <charconv>
#include <limits>

namespace talvora {

namespace detail {

inline void addCell(QString& row, const QString& text) {
    row += text;
}
// Lists of 100,000 rows have half a million numbers, which is why none becomes a text of its own.
inline void addCell(QString& row, qint32 number) {
    std::array<char, std::numeric_limits<qint32>::digits10 + 2> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    row += QLatin1StringView(digits.data(), end - digits.data());
}

}  // namespace detail

/// A row of a list as the one text that a grid takes, from its cells: texts and whole numbers.
template <class... Cells>
QString rowText(const Cells&... cells) {
    constexpr qsizetype usualCell = 7;
    QString text;
    text.reserve(usualCell * qsizetype{sizeof...(cells)});
    const auto add = [&](const auto& cell) {
        detail::addCell(text, cell);
        text += u'\t';
    };
    (add(cells), ...);
    text.chop(1);
    return text;
}

}  // namespace talvora
