// Values: the fields of a recordset, and numbers, shares and moments with their texts.

#include "platform/database/recordset.h"
#include "platform/moment.h"
#include "platform/numbers.h"
#include "platform/optional_format.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "support/error_of.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace talvora;
using test::errorOf;
using namespace Qt::StringLiterals;

namespace {

Recordset sample() {
    Recordset rows;
    rows.addColumn(u"ID"_s);
    rows.addColumn(u"Name"_s);
    rows.addWhole(40000);
    rows.addText(u"  12x ", 6);
    rows.addNull();
    rows.addReal(2.5);
    return rows;
}

TEST(Recordset, FieldsAreReadByNameInAnyCase) {
    const Recordset rows = sample();
    EXPECT_EQ(rows.RecordCount(), 2);
    QStringList seen;
    for (const Row row : rows) {
        seen << row.text("id") + u'|' + row.text("NAME");
    }
    EXPECT_EQ(seen, QStringList({u"40000|12x"_s, u"|2.5"_s}));
    EXPECT_EQ(rows.first().rawText("name"), u"  12x "_s);
    EXPECT_TRUE(rows.row(1).isNull("ID"));
    EXPECT_EQ(errorOf([&] { rows.first().text("Nothing"); }), errors::NoSuchField);
    EXPECT_EQ(errorOf([&] { rows.row(2); }), errors::NoCurrentRow);
    EXPECT_EQ(errorOf([&] { rows.row(-1); }), errors::NoCurrentRow);
    const Recordset none;
    EXPECT_EQ(errorOf([&] { none.first(); }), errors::NoCurrentRow);
    EXPECT_FALSE(none.begin() != none.end());
}

TEST(Recordset, NumbersAreRoundedToEvenAndChecked) {
    const Recordset rows = sample();
    EXPECT_EQ(rows.row(1).number16("Name"), 2);
    EXPECT_EQ(rows.first().number32("ID"), 40000);
    EXPECT_EQ(rows.row(1).number16Or0("ID"), 0);
    EXPECT_EQ(rows.row(1).number32Or0("ID"), 0);
    EXPECT_EQ(errorOf([&] { rows.first().number16("ID"); }), errors::Overflow);
    EXPECT_EQ(errorOf([&] { rows.row(1).number16("ID"); }), errors::InvalidUseOfNull);
    EXPECT_EQ(errorOf([&] { rows.first().number16("Name"); }), errors::TypeMismatch);
    EXPECT_EQ(errorOf([&] { rows.first().number16Or0("Name"); }), errors::TypeMismatch);
}

TEST(Recordset, ARealNumberIsRoundedAsItsTextSpellsIt) {
    const struct {
        double share, score;
        int whole;
    } cases[] = {{.35, 90, 32}, {.7, 45, 32}, {.7, 85, 60}, {.82, 75, 62}, {.14, 75, 10}, {-.7, 45, -32}, {.499, 1, 0}};
    Recordset rows;
    rows.addColumn(u"Score"_s);
    for (const auto& [share, score, whole] : cases) {
        rows.addReal(share * score);
        const Row row = rows.row(rows.RecordCount() - 1);
        EXPECT_EQ(row.number16("Score"), whole) << share << " of " << score;
        EXPECT_EQ(row.number32("Score"), toInt32(row.text("Score"))) << share << " of " << score;
    }
}

TEST(Numbers, TextsThatSpellANumber) {
    const std::vector<std::pair<QString, double>> spellings = {
        {u"12"_s, 12},  {u" 12 "_s, 12},        {u"-5"_s, -5},     {u"5-"_s, -5},
        {u"+5"_s, 5},   {u"1,234.5"_s, 1234.5}, {u".5"_s, 0.5},    {u"5."_s, 5},
        {u"0"_s, 0},    {u"1E3"_s, 1000},       {u"1d-2"_s, 0.01}, {u"$12"_s, 12},
        {u"(7)"_s, -7}, {u"&HFF"_s, 255},       {u"&hFFFF"_s, -1}, {u"&O17"_s, 15}};
    for (const auto& [text, number] : spellings) {
        EXPECT_TRUE(isNumeric(text)) << qPrintable(text);
        EXPECT_DOUBLE_EQ(toNumber(text), number) << qPrintable(text);
    }
    for (const QString& text : {u""_s, u" "_s, u"."_s, u"-"_s, u"1 2"_s, u"12a"_s, u"--5"_s, u"-5-"_s, u"(5"_s,
                                u"(-5)"_s, u"１２"_s, u"1e"_s, u"&HG"_s, u"三"_s, u"1.2.3"_s}) {
        EXPECT_FALSE(isNumeric(text)) << qPrintable(text);
        EXPECT_EQ(errorOf([&] { toNumber(text); }), errors::TypeMismatch) << qPrintable(text);
    }
}

TEST(Numbers, TheNumberAtTheStartOfAText) {
    const std::vector<std::pair<QString, double>> texts = {{u"12ab"_s, 12},        {QString(), 0},    {u"ab"_s, 0},
                                                           {u" 1 2 3x"_s, 123},    {u"-.5-"_s, -0.5}, {u"1e2x"_s, 100},
                                                           {u"3000~5000"_s, 3000}, {u"5."_s, 5},      {u"1e"_s, 1}};
    for (const auto& [text, number] : texts) {
        EXPECT_DOUBLE_EQ(leadingNumber(text), number) << qPrintable(text);
    }
}

TEST(Numbers, TheTextOfANumber) {
    const std::vector<std::pair<double, QString>> numbers = {
        {-0.0, u"0"_s},     {0.1 + 0.2, u"0.3"_s},   {2.0 / 3, u"0.666666666666667"_s},
        {1e15, u"1E+15"_s}, {0.00001, u"0.00001"_s}, {0.000001, u"1E-06"_s}};
    for (const auto& [number, text] : numbers) {
        EXPECT_EQ(numberText(number), text);
    }
    EXPECT_EQ(signedNumberText(1), u" 1"_s);
    EXPECT_EQ(signedNumberText(-1), u"-1"_s);
}

TEST(Numbers, WholeNumbersRoundToEvenWithinTheirWidth) {
    const std::vector<std::pair<double, int>> halves = {{0.5, 0},  {1.5, 2},   {2.5, 2},
                                                        {-0.5, 0}, {-1.5, -2}, {32767.4, 32767}};
    for (const auto& [number, whole] : halves) {
        EXPECT_EQ(toInt16(number), whole) << number;
        EXPECT_EQ(toInt32(number), whole) << number;
    }
    EXPECT_EQ(toInt16(u" 7 "_s), 7);
    EXPECT_EQ(toInt32(u"-40000"_s), -40000);
    EXPECT_EQ(errorOf([] { toInt16(32767.5); }), errors::Overflow);
    EXPECT_EQ(errorOf([] { toInt16(-32769); }), errors::Overflow);
    EXPECT_EQ(errorOf([] { toInt32(2147483648.0); }), errors::Overflow);
    EXPECT_EQ(errorOf([] { toInt32(std::numeric_limits<double>::quiet_NaN()); }), errors::Overflow);
}

TEST(Texts, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(trimBlanks(u"  \ta b　 "_s), u"\ta b　"_s);
    EXPECT_EQ(rightOf(u"abc"_s, 2), u"bc"_s);
    EXPECT_EQ(rightOf(u"abc"_s, 9), u"abc"_s);
    EXPECT_EQ(errorOf([] { rightOf(u"abc"_s, -1); }), errors::InvalidCall);
    EXPECT_EQ(dropLeft(u"abc"_s, 1), u"bc"_s);
    EXPECT_EQ(dropLeft(u"abc"_s, 9), QString());
}

TEST(OptionalFormatTest, DigitsStandOnlyWhereTheySaySomething) {
    const struct {
        double value;
        QString plain, percent;
    } cases[] = {{0.3333, u".3333"_s, u"33.33%"_s},  {0.5, u".5"_s, u"50.%"_s},
                 {1, u"1."_s, u"100.%"_s},           {0, u"."_s, u".%"_s},
                 {2.0 / 3, u".6667"_s, u"66.67%"_s}, {0.005, u".005"_s, u".5%"_s},
                 {0.00005, u".0001"_s, u".01%"_s},   {0.00004999, u"."_s, u".%"_s},
                 {0.12345, u".1235"_s, u"12.35%"_s}, {1.00005, u"1.0001"_s, u"100.01%"_s},
                 {0.99995, u"1."_s, u"100.%"_s},     {1234.5, u"1234.5"_s, u"123450.%"_s},
                 {-0.25, u"-.25"_s, u"-25.%"_s},     {-0.00001, u"."_s, u".%"_s}};
    for (const auto& [value, plain, percent] : cases) {
        EXPECT_EQ(formatOptional(value, 4), plain) << value;
        EXPECT_EQ(formatOptionalPercent(value, 2), percent) << value;
    }
}

TEST(OptionalFormatTest, PercentageTextIsReadBack) {
    const std::pair<QString, double> cases[] = {{u"33.33%"_s, 0.3333}, {u"100.%"_s, 1},   {u".5%"_s, 0.005},
                                                {u" 12.5% "_s, 0.125}, {u"0.25"_s, 0.25}, {u".%"_s, 0}};
    for (const auto& [text, value] : cases) {
        EXPECT_DOUBLE_EQ(percentNumber(text), value) << text.toStdString();
    }
    for (const QString& text : {QString(), u"%"_s, u"x%"_s, u"5%%"_s}) {
        EXPECT_THROW(percentNumber(text), RuntimeError) << text.toStdString();
    }
}

TEST(Moment, ReadsTheFormsOfADate) {
    EXPECT_EQ(momentText(toMoment(u"2026-3-4 5:6:7"_s)), u"2026-03-04 05:06:07"_s);
    EXPECT_EQ(momentText(toMoment(u"2026/03/04 23:59"_s)), u"2026-03-04 23:59:00"_s);
    EXPECT_EQ(momentText(toMoment(u" 2024-02-29 "_s)), u"2024-02-29 00:00:00"_s);
    for (const auto& text : {u""_s, u"2026-02-30 01:02:03"_s, u"2026-01-01 25:00:00"_s, u"yesterday"_s}) {
        EXPECT_THROW(toMoment(text), RuntimeError) << text.toStdString();
    }
    EXPECT_EQ(presentMoment().time().msec(), 0);
}

}  // namespace
