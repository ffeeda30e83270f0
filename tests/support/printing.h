#pragma once

#include <QString>

#include <ostream>

/// Has a failed comparison show a text as text. It stands where the type's own namespace is, which is how it is found.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
