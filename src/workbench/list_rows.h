#pragma once

#include <QColor>
#include <QString>

namespace talvora {

/// The colours in which the lists mark rows and cells.
inline constexpr QColor PaleYellow{255, 255, 192};
inline constexpr QColor Red{255, 0, 0};

namespace detail {

inline const QString& cellText(const QString& text) {
    return text;
}
inline QString cellText(qint32 number) {
    return QString::number(number);
}

}  // namespace detail

/// A row of a list as the one text that a grid takes, from its cells: texts and whole numbers.
template <class... Cells>
QString rowText(const Cells&... cells) {
    constexpr qsizetype usualCell = 8;
    QString text;
    text.reserve(usualCell * qsizetype{sizeof...(cells)});
    const auto add = [&](const QString& cell) {
        text += cell;
        text += u'\t';
    };
    (add(detail::cellText(cells)), ...);
    text.chop(1);
    return text;
}

}  // namespace talvora
