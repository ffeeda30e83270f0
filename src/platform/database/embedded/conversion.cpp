#include "platform/database/embedded/conversion.h"

#include "platform/database/embedded/server_error.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

struct WholeRange {
    qint64 lowest;
    qint64 highest;
};

WholeRange rangeOf(Kind kind) {
    if (kind == Kind::SmallInt) {
        return {std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max()};
    }
    if (kind == Kind::Int) {
        return {std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()};
    }
    return {std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()};
}

QStringView withoutBlanks(QStringView text) {
    while (text.startsWith(u' ')) {
        text = text.sliced(1);
    }
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

DatabaseError arithmeticOverflow(Kind kind) {
    return serverError(server_error::ArithmeticOverflow, {typeWord(kind)});
}

}  // namespace

qint64 wholeFromWhole(qint64 value, Kind kind) {
    if (kind == Kind::Bit) {
        return value != 0 ? 1 : 0;
    }
    const WholeRange range = rangeOf(kind);
    if (value < range.lowest || value > range.highest) {
        throw arithmeticOverflow(kind);
    }
    return value;
}

qint64 wholeFromReal(double value, Kind kind) {
    if (kind == Kind::Bit) {
        return value != 0 ? 1 : 0;
    }
    constexpr double beyond = 9.2233720368547748e18;
    const double whole = std::trunc(value);
    if (!(whole > -beyond && whole < beyond)) {
        throw arithmeticOverflow(kind);
    }
    return wholeFromWhole(static_cast<qint64>(whole), kind);
}

qint64 wholeFromText(QStringView text, Kind kind) {
    const QStringView packed = withoutBlanks(text);
    // A lone sign is 0 on the server, as is nothing at all.
    if (packed.isEmpty() || packed == u"-" || packed == u"+") {
        return 0;
    }
    qsizetype at = packed[0] == u'-' || packed[0] == u'+' ? 1 : 0;
    const bool negative = packed[0] == u'-';
    constexpr qint64 beyond = std::numeric_limits<qint64>::max() / 10 - 1;
    qint64 value = 0;
    bool overflow = false;
    for (; at < packed.size(); ++at) {
        const char16_t c = packed[at].unicode();
        if (c < u'0' || c > u'9') {
            throw serverError(server_error::ConversionFailed, {text.toString(), typeWord(kind)});
        }
        overflow = overflow || value > beyond;
        value = overflow ? 0 : value * 10 + (c - u'0');
    }
    value = negative ? -value : value;
    const WholeRange range = rangeOf(kind);
    if (overflow || value < range.lowest || value > range.highest) {
        throw serverError(server_error::ConversionOverflow, {text.toString(), typeWord(kind)});
    }
    return wholeFromWhole(value, kind);
}

double realFromText(QStringView text) {
    const QStringView packed = withoutBlanks(text);
    if (packed.isEmpty()) {
        return 0;
    }
    static const QRegularExpression form(u"^[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?$"_s);
    bool ok = form.match(packed.toString()).hasMatch();
    const double value = ok ? QLocale::c().toDouble(packed, &ok) : 0;
    if (!ok || !std::isfinite(value)) {
        throw serverError(server_error::RealConversion);
    }
    return value;
}

QString dateTimeFromText(QStringView text) {
    static const QRegularExpression form(
        u"^(?:(\\d{4})[-/.](\\d{1,2})[-/.](\\d{1,2})|(\\d{4})(\\d{2})(\\d{2}))"
        "(?:[ T]+(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2})(?:\\.\\d{1,7})?)?)?$"_s);
    const QStringView packed = withoutBlanks(text);
    if (packed.isEmpty()) {
        return u"1900-01-01 00:00:00"_s;
    }
    const auto match = form.match(packed.toString());
    const auto part = [&match](int group) { return match.capturedView(group).toInt(); };
    const int shift = match.capturedView(1).isEmpty() ? 3 : 0;
    const QDate date(part(1 + shift), part(2 + shift), part(3 + shift));
    const QTime time(part(7), part(8), part(9));
    if (!match.hasMatch() || !date.isValid() || !time.isValid()) {
        throw serverError(server_error::InvalidDate);
    }
    return QDateTime(date, time, Qt::UTC).toString(u"yyyy-MM-dd HH:mm:ss");
}

QString textFromReal(double value) {
    constexpr int digits = 6;
    return QString::number(value, 'g', digits);
}

QString textFromDecimal(QStringView literal) {
    QString text = literal.toString();
    if (text.startsWith(u'.')) {
        text.prepend(u'0');
    }
    if (text.endsWith(u'.')) {
        text.chop(1);
    }
    return text;
}

QStringView fitted(QStringView text, int length) {
    if (length == SqlType::Unlimited || text.size() <= length) {
        return text;
    }
    for (const QChar c : text.sliced(length)) {
        if (c != u' ') {
            throw serverError(server_error::TextTruncated);
        }
    }
    return text.left(length);
}

}  // namespace talvora::embedded
