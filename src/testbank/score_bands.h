#pragma once

#include <QString>

#include <array>
#include <optional>

namespace talvora {

inline constexpr int scoreBandCount = 4;

/// One score band of a paper as its editor shows it: both bounds as typed, and the word of the band.
struct ScoreBand {
    QString lower;
    QString upper;
    QString word;

    /// The bounds as a paper stores them: "0-59", untrimmed; "-" for an empty band.
    QString scope() const { return lower + u'-' + upper; }
    /// Takes the bounds from a stored text, parted at its first hyphen.
    void setScope(const QString& scope);
};

using ScoreBands = std::array<ScoreBand, scoreBandCount>;

/// Why the bands of a paper are refused.
struct ScoreBandFault {
    QString words;
    int band = 0;         ///< the band at fault, counted from 0
    bool inWord = false;  ///< whether its word is at fault, or its bounds
};

/// The first fault of the bands. The first two must be in use, the others may be, also the last without the third.
/// Nothing compares the bounds of one band with those of another.
std::optional<ScoreBandFault> scoreBandFault(const ScoreBands& bands);

}  // namespace talvora
