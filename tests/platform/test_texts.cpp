// Texts of shares and of moments.

#include "platform/moment.h"
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
        // Halves of the decimal text go away from zero, whatever the binary number behind it.
        {0.12345, u".1235"_s, u"12.35%"_s},
        {1.00005, u"1.0001"_s, u"100.01%"_s},
        {0.99995, u"1."_s, u"100.%"_s},
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
                 {u" 12.5% "_s, 0.125}, {u"0.25"_s, 0.25}, {u"1."_s, 1},      {u".%"_s, 0}};
    for (const auto& [text, value] : cases) {
        EXPECT_DOUBLE_EQ(percentNumber(text), value) << text.toStdString();
    }
    for (const QString& text : {QString(), u"%"_s, u"x%"_s, u"5%%"_s}) {
        EXPECT_THROW(percentNumber(text), RuntimeError) << text.toStdString();
    }
}

TEST(OptionalFormatTest, EveryShareOfAHundredthKeepsItsText) {
    for (int hundredths = 1; hundredths <= 10'000; ++hundredths) {
        const QString text = formatOptionalPercent(hundredths / 10'000.0, 2);
        EXPECT_EQ(formatOptionalPercent(formatOptional(percentNumber(text), 4).toDouble(), 2), text);
    }
}

TEST(Moment, ReadsTheFormsOfADate) {
    const struct {
        QString text;
        QString moment;
    } table[] = {
        {u"2026-03-04 05:06:07"_s, u"2026-03-04 05:06:07"_s},
        {u"2026-3-4 5:6:7"_s, u"2026-03-04 05:06:07"_s},
        {u"2026/03/04 23:59"_s, u"2026-03-04 23:59:00"_s},
        {u" 2024-02-29 "_s, u"2024-02-29 00:00:00"_s},
    };
    for (const auto& row : table) {
        EXPECT_EQ(momentText(toMoment(row.text)), row.moment) << row.text.toStdString();
    }
    for (const auto& text : {u""_s, u"2026-02-30 01:02:03"_s, u"2026-01-01 25:00:00"_s, u"yesterday"_s}) {
        EXPECT_THROW(toMoment(text), RuntimeError) << text.toStdString();
    }
}

TEST(Moment, PresentHasNoPartsOfASecond) {
    EXPECT_EQ(toMoment(momentText(presentMoment())).msecsTo(presentMoment()) % 1000, 0);
}

}  // namespace

}  // namespace talvora::test
