#pragma once

#include "results/ctesting.h"

#include <QDate>

#include <random>

namespace talvora {

/// A reproducible source of choices for the sample: the same names, answers and verdicts at every installation, only
/// the dates count from its day.
class SampleChance {
 public:
    /// A whole number from 0 to `count` - 1.
    int below(int count);
    /// A number around `centre`, mostly within `spread` of it, kept between 0 and 1.
    double around(double centre, double spread);

    template <class List>
    auto pick(const List& list) {
        return list[static_cast<typename List::size_type>(below(static_cast<int>(list.size())))];
    }

 private:
    std::mt19937 series_{20100905};
};

/// An invented candidate as of `day`: name, sex, age, an identity number with the right check digit, education and
/// salary wish.
cTesting sampleCandidate(SampleChance& chance, const QDate& day);

}  // namespace talvora
