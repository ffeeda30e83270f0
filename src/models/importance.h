#pragma once

#include <QString>
#include <QStringList>

namespace talvora {

/// The four words for how important a line of a model is, each beginning with its letter, in the order of their list.
/// Each stands for a band of scores; only the score is stored.
QStringList importanceEntries();

/// Whether the text is a number as the tables take one that stands bare in a statement: digits with a point, a sign and
/// an exponent. Currency signs, group commas and the like are none.
bool isScore(const QString& text);

/// The position of the word whose band holds the score, -1 when none does or the text is no number.
int importanceOf(const QString& score);

/// The score in the middle of the word's band. Empty when the text is none of the words.
QString middleScoreOf(const QString& entry);

/// The words that refuse a score outside the band of the chosen entry; empty when the score is in it, both ends
/// included, or when the entry is none of the four. RuntimeError 13 when the score is no number.
QString scoreRefusal(const QString& entry, const QString& score);

}  // namespace talvora
