#include "core/identity_number.h"

#include "platform/numbers.h"

#include <array>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array weights{7, 9, 10, 5, 8, 4, 2, 1, 6, 3, 7, 9, 10, 5, 8, 4, 2};

}  // namespace

QString ChecksumChar(const QString& digits) {
    constexpr int modulus = 11;
    int sum = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        sum += toInt16(digits.mid(static_cast<qsizetype>(i), 1)) * weights[i];
    }
    const QString remainder = QString::number(modulus + 1 - sum % modulus);
    if (remainder == "10"_L1) {
        return u"X"_s;
    }
    if (remainder == "11"_L1) {
        return u"0"_s;
    }
    if (remainder == "12"_L1) {
        return u"1"_s;
    }
    return remainder;
}

bool IsValidIDNumber(const QString& text) {
    constexpr qsizetype length = 18;
    if (text.size() != length || !isNumeric(text)) {
        return false;
    }
    return ChecksumChar(text.left(length - 1)) == text.right(1).toUpper();
}

}  // namespace talvora
