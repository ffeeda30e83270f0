#pragma once

#include <QColor>
#include <QFont>

class QApplication;
class QWidget;

namespace talvora {

/// The one look of the program. Lengths are device-independent pixels and go with the display's scale.
namespace theme {

inline constexpr int RowHeight = 30;

inline constexpr QColor Accent{0x1f, 0x5f, 0xbf};
inline constexpr QColor AccentSoft{0xe3, 0xed, 0xfa};  ///< a selected row
inline constexpr QColor Required{0xff, 0xfb, 0xd6};    ///< required fields, and what the lists mark so
inline constexpr QColor Window{0xf5, 0xf6, 0xf8};
inline constexpr QColor Surface{0xff, 0xff, 0xff};
inline constexpr QColor Header{0xee, 0xf1, 0xf5};
inline constexpr QColor Workspace{0xd3, 0xd8, 0xe0};  ///< a grey ground that sets rows apart from their neighbours
inline constexpr QColor Line{0xdd, 0xe1, 0xe7};
inline constexpr QColor Text{0x1e, 0x26, 0x32};
inline constexpr QColor TextQuiet{0x5c, 0x67, 0x76};

/// The best Chinese interface font that is installed, at the platform's size within what reads well
/// (9 or 10 to 10.5 points).
QFont interfaceFont();

}  // namespace theme

/// Gives the application its font, palette and style, and to plain windows their whole look: to those of labels, fields
/// of one line, buttons and options.
void applyTheme(QApplication& application);

/// Gives all other controls their look too. A Form with any of them does so by itself.
void completeTheme();

/// Makes a field look required or not, with the tooltip "淡黄背景表示必填项" when it has none. Fields that are always
/// required carry the property `required` in their .ui file.
void setRequired(QWidget* field, bool required = true);

}  // namespace talvora
