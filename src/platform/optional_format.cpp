#include "platform/optional_format.h"

#include "platform/numbers.h"
#include "platform/text.h"

#include <algorithm>
#include <cmath>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int significantDigits = 15;
constexpr int percentPlaces = 2;

// A number as its decimal digits: 0.00123 is "123" with the point 2 places in front of them (-2).
struct Decimal {
    QString digits;
    int pointAt;
};

Decimal decimalOf(double value) {
    const QString text = QString::number(value, 'e', significantDigits - 1);
    const qsizetype exponentAt = text.indexOf(u'e');
    QString digits = text.left(exponentAt);
    digits.remove(u'.');
    return {digits, text.mid(exponentAt + 1).toInt() + 1};
}

// Adds one in the last place of `digits`; true when the carry runs out in front and one more digit stands there.
bool carryInto(QString& digits) {
    for (qsizetype i = digits.size() - 1; i >= 0; --i) {
        if (digits[i] != u'9') {
            digits[i] = QChar(digits[i].unicode() + 1);
            return false;
        }
        digits[i] = u'0';
    }
    digits.prepend(u'1');
    return true;
}

QString formatted(Decimal number, int decimals) {
    const int kept = number.pointAt + decimals;
    if (kept < 0) {
        return u"."_s;
    }
    const bool up = kept < number.digits.size() && number.digits[kept] >= u'5';
    QString digits = number.digits.left(kept).leftJustified(kept, u'0');
    if (up && carryInto(digits)) {
        ++number.pointAt;
    }
    QString whole = digits.left(std::max(number.pointAt, 0));
    QString fraction = QString(std::max(-number.pointAt, 0), u'0') + digits.mid(whole.size());
    while (fraction.endsWith(u'0')) {
        fraction.chop(1);
    }
    while (whole.startsWith(u'0')) {
        whole.remove(0, 1);
    }
    return whole + u'.' + fraction;
}

QString withSign(double value, const QString& text) {
    return value < 0 && text != "."_L1 ? u'-' + text : text;
}

}  // namespace

QString formatOptional(double value, int decimals) {
    return withSign(value, formatted(decimalOf(std::fabs(value)), decimals));
}

QString formatOptionalPercent(double value, int decimals) {
    Decimal number = decimalOf(std::fabs(value));
    number.pointAt += percentPlaces;
    return withSign(value, formatted(number, decimals)) + u'%';
}

double percentNumber(const QString& text) {
    constexpr double hundred = 100;
    const QString trimmed = trimBlanks(text);
    const bool isPercentage = trimmed.endsWith(u'%');
    const QString number = isPercentage ? trimmed.chopped(1) : trimmed;
    if (number == "."_L1) {
        return 0;
    }
    return isPercentage ? toNumber(number) / hundred : toNumber(number);
}

}  // namespace talvora
