#pragma once

#include <QString>

#include <optional>

namespace talvora {

/// Whether the platform takes `text` for a number: blanks around it, one sign in front or behind, digits with group
/// commas and one point, an exponent (E or D), a leading currency sign, brackets for a negative, or &H and &O for
/// hexadecimal and octal. Full-width digits are none.
bool isNumeric(const QString& text);

/// The number that `text` spells by the rules of isNumeric, none when it spells none.
std::optional<double> numberIn(const QString& text);

/// The same. Throws RuntimeError 13 when it spells none.
double toNumber(const QString& text);

/// The number at the start of `text`, blanks passed over, 0 when there is none ("12ab" is 12, "" is 0). Never throws.
double leadingNumber(const QString& text);

/// `value` rounded half to even, as a 16-bit whole number. Throws RuntimeError 6 outside -32768..32767.
qint16 toInt16(double value);
/// The same from text; RuntimeError 13 when the text is no number.
qint16 toInt16(const QString& text);

/// `value` rounded half to even, as a 32-bit whole number. Throws RuntimeError 6 outside its range.
qint32 toInt32(double value);
qint32 toInt32(const QString& text);

/// The shortest text of `value` with at most 15 significant digits and no exponent between 1E-5 and 1E15: 0.3333,
/// 12, -5. A zero stands before the point.
QString numberText(double value);

/// The same with a blank in front of a number that is not negative (" 1", "-1").
QString signedNumberText(double value);

}  // namespace talvora
