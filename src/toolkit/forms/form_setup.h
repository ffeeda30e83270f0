#pragma once

#include <QSize>

class QWidget;

namespace talvora {

/// What a window's frame and title bar take, where the platform has not told yet.
inline constexpr QSize FrameAllowance(16, 40);

/// Gives the controls of a new window what the .ui file only names: required fields their look, Tab its way out of
/// lists and texts of several lines, Enter to the buttons that have the focus.
void prepareControls(QWidget& window);

/// Sizes a window to its contents, but never larger than its screen, where it scrolls if it must; and centres it over
/// `owner`, or on the screen where there is no owner or no room for that, unless it has been given a place already.
void placeWindow(QWidget& window, const QWidget* owner);

/// Puts the focus on the first control in the tab order that a user can reach, unless one has it already.
void focusFirst(QWidget& window);

}  // namespace talvora
