#include "platform/numbers.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

std::optional<double> radixNumber(const QString& text) {
    static const QRegularExpression form(u"^&([HO])([0-9A-F]{1,8})&?$"_s, QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const int base = match.captured(1).compare("H"_L1, Qt::CaseInsensitive) == 0 ? 16 : 8;
    bool ok = false;
    const uint bits = match.captured(2).toUInt(&ok, base);
    if (!ok) {
        return std::nullopt;
    }
    // Up to four hexadecimal digits are a 16-bit pattern, more a 32-bit one: &HFFFF is -1.
    return bits <= 0xFFFFU ? static_cast<qint16>(bits) : static_cast<qint32>(bits);
}

}  // namespace

std::optional<double> numberIn(const QString& raw) {
    static const QRegularExpression form(
        u"^(?<open>\\()?\\s*(?<sign>[+-])?\\s*[$¥￥]?\\s*(?<whole>[0-9][0-9,]*)?(?<fraction>\\.[0-9]*)?"
        "(?:[EeDd](?<exponent>[+-]?[0-9]+))?\\s*(?<tail>[+-])?\\s*(?<close>\\))?$"_s);
    const QString text = raw.trimmed();
    if (text.startsWith(u'&')) {
        return radixNumber(text);
    }
    const auto match = form.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    QString digits = match.captured(u"whole");
    digits.remove(u',');
    const QString fraction = match.captured(u"fraction");
    const bool bracketed = match.hasCaptured(u"open");
    const bool signedTwice = match.hasCaptured(u"sign") && match.hasCaptured(u"tail");
    if ((digits.isEmpty() && fraction.size() < 2) || bracketed != match.hasCaptured(u"close") || signedTwice ||
        (bracketed && (match.hasCaptured(u"sign") || match.hasCaptured(u"tail")))) {
        return std::nullopt;
    }
    const QString exponent = match.captured(u"exponent");
    const QString plain = (digits.isEmpty() ? u"0"_s : digits) + fraction + (fraction == "."_L1 ? u"0"_s : QString()) +
                          (exponent.isEmpty() ? QString() : u'E' + exponent);
    bool ok = false;
    const double value = QLocale::c().toDouble(plain, &ok);
    if (!ok) {
        return std::nullopt;
    }
    const bool negative = bracketed || match.captured(u"sign") == "-"_L1 || match.captured(u"tail") == "-"_L1;
    return negative ? -value : value;
}

namespace {

template <class Whole>
Whole rounded(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max())) {
        throw RuntimeError(errors::Overflow);
    }
    return static_cast<Whole>(whole);
}

}  // namespace

bool isNumeric(const QString& text) {
    return numberIn(text).has_value();
}

double toNumber(const QString& text) {
    const auto value = numberIn(text);
    if (!value) {
        throw RuntimeError(errors::TypeMismatch);
    }
    return *value;
}

double leadingNumber(const QString& text) {
    static const QRegularExpression form(u"^[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[EeDd][+-]?[0-9]+)?"_s);
    QString packed = text;
    packed.remove(u' ').remove(u'\t').remove(u'\n');
    QString found = form.match(packed).captured();
    found.replace(u'D', u'E').replace(u'd', u'E');
    return QLocale::c().toDouble(found);
}

qint16 toInt16(double value) {
    return rounded<qint16>(value);
}
qint16 toInt16(const QString& text) {
    return rounded<qint16>(toNumber(text));
}
qint32 toInt32(double value) {
    return rounded<qint32>(value);
}
qint32 toInt32(const QString& text) {
    return rounded<qint32>(toNumber(text));
}

QString numberText(double value) {
    constexpr int digits = 15;
    constexpr double plainBelow = 1E15;
    constexpr double plainFrom = 1E-5;
    const double size = std::fabs(value);
    if (value == 0 || (size >= plainFrom && size < plainBelow)) {
        const int before = size < 1 ? 1 : static_cast<int>(std::floor(std::log10(size))) + 1;
        QString text = QString::number(value, 'f', size < 1 ? digits : std::max(0, digits - before));
        if (text.contains(u'.')) {
            while (text.endsWith(u'0')) {
                text.chop(1);
            }
            if (text.endsWith(u'.')) {
                text.chop(1);
            }
        }
        return text == "-0"_L1 ? u"0"_s : text;
    }
    return QString::number(value, 'G', digits);
}

QString signedNumberText(double value) {
    const QString text = numberText(value);
    return value < 0 ? text : u' ' + text;
}

}  // namespace talvora
