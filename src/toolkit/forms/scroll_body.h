#pragma once

#include <Qt>

class QWidget;

namespace talvora {

/// Puts all that stands above a window's row of buttons (`layoutButtons`) into a view that scrolls; in a window without
/// such a row, everything. Does nothing to a window that has one already, or whose layout is not a column.
void makeScrollable(QWidget& window);

/// Brings a control that has got the focus into sight, where it lies in such a view. What the mouse has reached, it has
/// reached in sight.
void scrollIntoView(QWidget& control, Qt::FocusReason reason);

}  // namespace talvora
