#pragma once

#include <QString>
#include <QStringList>

namespace talvora {

/// The four words for how important a line of a model is, each beginning with its letter, in the order of their list.
/// Each stands for a band of scores; only the score is stored.
QStringList importanceEntries();

/// The position of the word whose band holds the score, -1 when none does or the text is no number.
int importanceOf(const QString& score);

/// The score in the middle of the word's band. Empty when the text is none of the words.
QString middleScoreOf(const QString& entry);

/// The words that refuse a score: it is no number, or outside the band of the chosen entry. Empty when it is in the
/// band, both ends included, and for any number when the entry is none of the four.
QString scoreRefusal(const QString& entry, const QString& score);

}  // namespace talvora
