#pragma once

#include "platform/database/embedded/sql_type.h"

#include <QString>

namespace talvora::embedded {

/// `text` as a whole number of `kind`. Empty text and blanks are 0. DatabaseError 245 when it spells none, 248 or 244
/// when it is past the kind's range.
qint64 wholeFromText(QStringView text, Kind kind);
/// `value` cut to a whole number of `kind`; DatabaseError 8115 past its range. A bit is 0 or 1.
qint64 wholeFromReal(double value, Kind kind);
qint64 wholeFromWhole(qint64 value, Kind kind);

/// `text` as a number; empty text is 0. DatabaseError 8114 when it spells none.
double realFromText(QStringView text);

/// `text` read as a date, with or without a time, as "yyyy-mm-dd hh:mm:ss". DatabaseError 241 when it is none. The
/// forms are year first, with - / or . between, or eight digits.
QString dateTimeFromText(QStringView text);

/// A real number as the server writes it: at most six significant digits.
QString textFromReal(double value);
/// A decimal literal as the server's text of it: ".5" is "0.5", "1." is "1".
QString textFromDecimal(QStringView literal);

/// `text` for a column of `length` characters: blanks past the end are dropped, anything else is DatabaseError 8152.
QStringView fitted(QStringView text, int length);

}  // namespace talvora::embedded
