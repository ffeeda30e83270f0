#pragma once

#include <QLineEdit>

#include <algorithm>

namespace talvora {

/// Shows a stored text whole, even one longer than may be typed in `field`, so that saving again does not cut it.
inline void showWhole(QLineEdit* field, const QString& text) {
    field->setMaxLength(std::max(field->maxLength(), static_cast<int>(text.size())));
    field->setText(text);
}

}  // namespace talvora
