#pragma once

#include <QDateTime>
#include <QString>

namespace talvora {

/// The present moment to the second, in this machine's own time.
QDateTime presentMoment();

/// `moment` as "yyyy-mm-dd hh:mm:ss", the form in which the tables keep it.
QString momentText(const QDateTime& moment);

/// `date` as "yyyy-mm-dd", the form in which the tables keep it and every moment begins.
QString dateText(const QDate& date);

/// The moment that `text` spells: a date with dashes or strokes, alone or with a time of hours and minutes or to the
/// second. Throws RuntimeError 13 when it spells none.
QDateTime toMoment(const QString& text);

}  // namespace talvora
