#include "assessment/identity_number.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

namespace talvora {
namespace {

using namespace Qt::StringLiterals;

TEST(ChecksumChar, MapsEveryRemainder) {
    // The 17th digit weighs 2: its ten values reach every remainder but 9, which the eleventh row gives.
    const struct {
        QString digits;
        QString check;
    } table[] = {
        {u"00000000000000000"_s, u"1"_s}, {u"00000000000000001"_s, u"X"_s}, {u"00000000000000002"_s, u"8"_s},
        {u"00000000000000003"_s, u"6"_s}, {u"00000000000000004"_s, u"4"_s}, {u"00000000000000005"_s, u"2"_s},
        {u"00000000000000006"_s, u"0"_s}, {u"00000000000000007"_s, u"9"_s}, {u"00000000000000008"_s, u"7"_s},
        {u"00000000000000009"_s, u"5"_s}, {u"00000000000100000"_s, u"3"_s}, {u"44052418800101001"_s, u"4"_s},
        {u"11010519491231002"_s, u"X"_s},
    };
    for (const auto& row : table) {
        EXPECT_EQ(ChecksumChar(row.digits), row.check) << row.digits.toStdString();
    }
}

TEST(IsValidIDNumber, LooksAtLengthNumbersAndCheckDigit) {
    const struct {
        QString text;
        bool valid;
        const char* why;
    } table[] = {
        {u"440524188001010014"_s, true, "right check digit"},
        {u"440524188001010015"_s, false, "wrong check digit"},
        {u"11010519491231002X"_s, false, "X is right but not numeric"},
        {u""_s, false, "empty"},
        {u"130503670401001"_s, false, "the older form of 15 digits"},
        {u"44052418800101001４"_s, false, "a full-width digit"},
        {u"44052418800101001 "_s, false, "a blank in place of the check digit"},
        {u"000000000000000001"_s, true, "neither area nor birth date is looked at"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(IsValidIDNumber(row.text), row.valid) << row.why;
    }
}

TEST(IsValidIDNumber, FailsOnASignOrPointAmongTheDigits) {
    for (const auto& text : {u"-40524188001010014"_s, u"4405241880010.0014"_s, u"44052,188001010014"_s}) {
        EXPECT_EQ(test::errorOf([&] { IsValidIDNumber(text); }), errors::TypeMismatch) << text.toStdString();
    }
}

}  // namespace
}  // namespace talvora
