#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace talvora {

/// A picture of the program by its name ("talvora", "radio-off", "radio-on"), drawn sharply at any size and scale.
/// The name with a 1 behind it is the picture's grey twin, for what is disabled ("edit1"), unless a picture of that
/// very name was drawn. A name that there is no picture for is a fault of the program: RuntimeError 481.
QIcon icon(const QString& name);

/// The same as a square pixmap of `size` device-independent pixels for a display of this scale.
QPixmap picture(const QString& name, int size, qreal scale = 1.0);

}  // namespace talvora
