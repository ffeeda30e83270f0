#include "testbank/score_bands.h"

#include "platform/numbers.h"
#include "platform/text.h"

#include <QStringList>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int requiredBands = 2;

using Fault = std::optional<ScoreBandFault>;

bool isBlank(const QString& text) {
    return trimBlanks(text).isEmpty();
}

QString named(int band) {
    return u"［序号%1］"_s.arg(band + 1);
}

Fault missingBound(const ScoreBand& band, int number) {
    const bool lower = isBlank(band.lower);
    const bool upper = isBlank(band.upper);
    if (number < requiredBands && (lower || upper)) {
        return ScoreBandFault{named(number) + u"中的［得分范围］必须输入完整！"_s, number};
    }
    if (lower != upper) {
        return ScoreBandFault{named(number) + u"中的［得分范围］必须全部输入（或者全部不输入）！"_s, number};
    }
    return {};
}

Fault noNumber(const ScoreBand& band, int number) {
    if (isNumeric(band.lower) && isNumeric(band.upper)) {
        return {};
    }
    return ScoreBandFault{u"［得分范围］必须输入数字类型！"_s, number};
}

// The words ask for more than is tested: equal bounds pass, for a band of a single score.
Fault swappedBounds(const ScoreBand& band, int number) {
    if (toNumber(band.upper) >= toNumber(band.lower)) {
        return {};
    }
    return ScoreBandFault{u"［得分范围］中的前一个数字必须小于后一个数字！"_s, number};
}

Fault noWord(const ScoreBand& band, int number) {
    if (!band.word.isEmpty()) {
        return {};
    }
    return ScoreBandFault{named(number) + u"中的［评价结果］必须选择一个值！"_s, number, true};
}

// A word that stays chosen in an unused band counts as well.
Fault repeatedWord(const ScoreBands& bands, int number) {
    const auto* const last = bands.begin() + number;
    if (std::none_of(bands.begin(), last, [&](const ScoreBand& band) { return band.word == last->word; })) {
        return {};
    }
    if (number < requiredBands) {
        return ScoreBandFault{u"［序号1］和［序号2］的［评价结果］不能一样！"_s, 0, true};
    }
    QStringList names;
    for (int band = 0; band <= number; ++band) {
        names += named(band);
    }
    return ScoreBandFault{names.join(u'、') + u"中的［评价结果］不能重复选择！"_s, 0, true};
}

Fault requiredFault(const ScoreBands& bands) {
    // One matter is looked at in all bands before the next one is. Of the optional bands it is here whether the bounds
    // are both there or both not.
    for (int number = 0; number < scoreBandCount; ++number) {
        if (const Fault fault = missingBound(bands[static_cast<std::size_t>(number)], number)) {
            return fault;
        }
    }
    for (const auto test : {noNumber, swappedBounds, noWord}) {
        for (int number = 0; number < requiredBands; ++number) {
            if (const Fault fault = test(bands[static_cast<std::size_t>(number)], number)) {
                return fault;
            }
        }
    }
    return repeatedWord(bands, requiredBands - 1);
}

Fault optionalFault(const ScoreBands& bands, int number) {
    const ScoreBand& band = bands[static_cast<std::size_t>(number)];
    if (isBlank(band.lower)) {
        return {};
    }
    for (const auto test : {noNumber, swappedBounds, noWord}) {
        if (const Fault fault = test(band, number)) {
            return fault;
        }
    }
    return repeatedWord(bands, number);
}

}  // namespace

void ScoreBand::setScope(const QString& scope) {
    const qsizetype hyphen = scope.indexOf(u'-');
    lower = hyphen < 0 ? scope : scope.left(hyphen);
    upper = hyphen < 0 ? QString() : scope.mid(hyphen + 1);
}

std::optional<ScoreBandFault> scoreBandFault(const ScoreBands& bands) {
    Fault fault = requiredFault(bands);
    for (int number = requiredBands; !fault && number < scoreBandCount; ++number) {
        fault = optionalFault(bands, number);
    }
    return fault;
}

}  // namespace talvora
