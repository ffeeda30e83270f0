#pragma once

#include <QColor>

namespace talvora {

/// The colours in which the lists and the detail pane mark rows and cells.
inline constexpr QColor PaleYellow{255, 255, 192};
inline constexpr QColor Red{255, 0, 0};

}  // namespace talvora
