#include "models/importance.h"

#include "platform/numbers.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

struct Band {
    QLatin1StringView middle;
    double least;
    double most;
    QStringView entry;
    QStringView refusal;

    bool holds(double score) const { return score >= least && score <= most; }
};

// The third band has no words of its own and is refused with those of the second, which is meant.
constexpr std::array<Band, 4> bands{{
    {"1.5"_L1, 1, 2, u"A：一般（1~2分）", u"［分数］只能在［1~2］之间！"},
    {"3.5"_L1, 3, 4, u"B：比较重要（3~4分）", u"［分数］只能在［3~4］之间！"},
    {"5.5"_L1, 5, 6, u"C：很 重 要（5~6分）", u"［分数］只能在［3~4］之间！"},
    {"7.5"_L1, 7, 8, u"D：非常重要（7~8分）", u"［分数］只能在［7~8］之间！"},
}};

const Band* bandOf(const QString& entry) {
    const auto band =
        std::find_if(bands.begin(), bands.end(), [&](const Band& one) { return entry.left(1) == one.entry.left(1); });
    return band == bands.end() ? nullptr : &*band;
}

}  // namespace

QStringList importanceEntries() {
    QStringList entries;
    for (const Band& band : bands) {
        entries += band.entry.toString();
    }
    return entries;
}

int importanceOf(const QString& score) {
    const auto value = numberIn(score);
    const auto band =
        std::find_if(bands.begin(), bands.end(), [&](const Band& one) { return value && one.holds(*value); });
    return band == bands.end() ? -1 : static_cast<int>(std::distance(bands.begin(), band));
}

QString middleScoreOf(const QString& entry) {
    const Band* band = bandOf(entry);
    return band ? QString(band->middle) : QString();
}

QString scoreRefusal(const QString& entry, const QString& score) {
    const auto value = numberIn(score);
    if (!value) {
        return u"［分数］只能为数字型！"_s;
    }
    const Band* band = bandOf(entry);
    return !band || band->holds(*value) ? QString() : band->refusal.toString();
}

}  // namespace talvora
