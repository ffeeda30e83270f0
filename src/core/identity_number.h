#pragma once

#include <QString>

namespace talvora {

/// Whether `text` passes as a citizen identity number of 18 characters by its check digit. Neither the area nor the
/// birth date is looked at. The whole text has to be numeric, so that a number whose check character is X is refused,
/// which is meant. Throws RuntimeError 13 for a numeric text with a sign or point among its first 17 characters.
bool IsValidIDNumber(const QString& text);

/// The check character of the first 17 digits of an identity number: "0" to "9" or "X".
/// Throws RuntimeError 13 when one of them is no digit, or fewer than 17 are given.
QString ChecksumChar(const QString& digits);

}  // namespace talvora
