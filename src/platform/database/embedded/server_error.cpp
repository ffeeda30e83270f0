#include "platform/database/embedded/server_error.h"

#include "platform/database/embedded/tokens.h"

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

QString stateOf(int number) {
    switch (number) {
        case server_error::Timeout:
            return u"HYT00"_s;
        case server_error::InvalidColumn:
            return u"42S22"_s;
        case server_error::InvalidObject:
        case server_error::CannotDrop:
            return u"42S02"_s;
        case server_error::ObjectExists:
            return u"42S01"_s;
        case server_error::ConversionFailed:
        case server_error::RealConversion:
            return u"22018"_s;
        case server_error::InvalidDate:
            return u"22007"_s;
        case server_error::ConversionOverflow:
        case server_error::ArithmeticOverflow:
            return u"22003"_s;
        case server_error::TextTruncated:
            return u"22001"_s;
        case server_error::NullNotAllowed:
        case server_error::DuplicateIndexKey:
        case server_error::DuplicateKey:
            return u"23000"_s;
        case server_error::NothingToCommit:
        case server_error::NothingToRollBack:
            return u"25000"_s;
        case server_error::CannotOpenDatabase:
        case server_error::NoDatabaseFile:
            return u"08004"_s;
        default:
            return u"42000"_s;
    }
}

}  // namespace

DatabaseError serverError(int number, const QString& words) {
    return {number, words, stateOf(number)};
}

DatabaseError incorrectSyntax(QStringView near) {
    constexpr qsizetype shown = 60;
    if (near.isEmpty()) {
        return serverError(server_error::IncorrectSyntax, u"Incorrect syntax near the end of the statement."_s);
    }
    if (isReserved(near)) {
        return serverError(server_error::KeywordSyntax, u"Incorrect syntax near the keyword '%1'."_s.arg(near));
    }
    return serverError(server_error::IncorrectSyntax, u"Incorrect syntax near '%1'."_s.arg(near.left(shown)));
}

}  // namespace talvora::embedded
