#include "platform/optional_format.h"
#include "platform/runtime_error.h"

#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

TEST(OptionalFormatTest, DigitsStandOnlyWhereTheySaySomething) {
    const struct {
        double value;
        QString plain;
        QString percent;
    } cases[] = {
        {0.3333, u".3333"_s, u"33.33%"_s},
        {0.5, u".5"_s, u"50.%"_s},
        {1, u"1."_s, u"100.%"_s},
        {0, u"."_s, u".%"_s},
        {1.0 / 3, u".3333"_s, u"33.33%"_s},
        {2.0 / 3, u".6667"_s, u"66.67%"_s},
        {0.005, u".005"_s, u".5%"_s},
        {0.0001, u".0001"_s, u".01%"_s},
        {0.00005, u".0001"_s, u".01%"_s},
        {0.00004999, u"."_s, u".%"_s},
        {0.000000001, u"."_s, u".%"_s},
        // Halves of the decimal text go away from zero, whatever the binary number behind it.
        {0.12345, u".1235"_s, u"12.35%"_s},
        {0.28985, u".2899"_s, u"28.99%"_s},
        {1.00005, u"1.0001"_s, u"100.01%"_s},
        {0.99995, u"1."_s, u"100.%"_s},
        {9.99996, u"10."_s, u"1000.%"_s},
        {1234.5, u"1234.5"_s, u"123450.%"_s},
        {-0.25, u"-.25"_s, u"-25.%"_s},
        {-0.00001, u"."_s, u".%"_s},
    };
    for (const auto& [value, plain, percent] : cases) {
        EXPECT_EQ(formatOptional(value, 4), plain) << value;
        EXPECT_EQ(formatOptionalPercent(value, 2), percent) << value;
    }
}

TEST(OptionalFormatTest, PercentageTextIsReadBack) {
    const struct {
        QString text;
        double value;
    } cases[] = {{u"33.33%"_s, 0.3333}, {u"100.%"_s, 1},   {u".5%"_s, 0.005}, {u"50.%"_s, 0.5},
                 {u" 12.5% "_s, 0.125}, {u"0.25"_s, 0.25}, {u"1."_s, 1}};
    for (const auto& [text, value] : cases) {
        EXPECT_DOUBLE_EQ(percentNumber(text), value) << text.toStdString();
    }
    for (const QString& text : {QString(), u"%"_s, u".%"_s, u"x%"_s, u"5%%"_s}) {
        EXPECT_THROW(percentNumber(text), RuntimeError) << text.toStdString();
    }
}

TEST(OptionalFormatTest, EveryShareOfAHundredthKeepsItsText) {
    for (int hundredths = 1; hundredths <= 10'000; ++hundredths) {
        const QString text = formatOptionalPercent(hundredths / 10'000.0, 2);
        EXPECT_EQ(formatOptionalPercent(formatOptional(percentNumber(text), 4).toDouble(), 2), text);
    }
}

}  // namespace

}  // namespace talvora::test
