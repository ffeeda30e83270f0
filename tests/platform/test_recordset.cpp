#include "platform/database/recordset.h"
#include "platform/numbers.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <vector>

using namespace talvora;
using test::errorOf;
using namespace Qt::StringLiterals;

namespace {

void addText(Recordset& rows, const QString& text) {
    rows.addText(reinterpret_cast<const char16_t*>(text.utf16()), text.size());
}

Recordset sample() {
    Recordset rows;
    for (const auto& name : {u"ID"_s, u"Name"_s, u"Score"_s}) {
        rows.addColumn(name);
    }
    rows.addWhole(1);
    addText(rows, u"  甲 "_s);
    rows.addReal(2.5);
    rows.addWhole(40000);
    addText(rows, {});
    rows.addNull();
    rows.addNull();
    addText(rows, u"12x"_s);
    rows.addReal(0.3333);
    return rows;
}

TEST(Recordset, FieldsAreReadByNameInAnyCase) {
    const Recordset rows = sample();
    ASSERT_EQ(rows.RecordCount(), 3);
    EXPECT_EQ(rows.first().text("NAME"), u"甲"_s);
    EXPECT_EQ(rows.first().rawText("name"), u"  甲 "_s);
    EXPECT_EQ(rows.first().text("id"), u"1"_s);
    EXPECT_EQ(rows.row(2).text("Score"), u"0.3333"_s);
    EXPECT_EQ(rows.row(2).text("ID"), QString());
    EXPECT_TRUE(rows.row(2).isNull("ID"));
    EXPECT_FALSE(rows.row(1).isNull("Name"));
    int seen = 0;
    for (const Row row : rows) {
        seen += row.isNull("Score") ? 10 : 1;
    }
    EXPECT_EQ(seen, 12);
}

TEST(Recordset, NumbersAreRoundedToEvenAndChecked) {
    const Recordset rows = sample();
    EXPECT_EQ(rows.first().number16("Score"), 2);
    EXPECT_EQ(rows.row(1).number32("ID"), 40000);
    EXPECT_EQ(rows.row(2).number16Or0("ID"), 0);
    EXPECT_EQ(rows.row(2).number32Or0("ID"), 0);
    EXPECT_EQ(errorOf([&] { rows.row(1).number16("ID"); }), errors::Overflow);
    EXPECT_EQ(errorOf([&] { rows.row(1).number16("Score"); }), errors::InvalidUseOfNull);
    EXPECT_EQ(errorOf([&] { rows.row(2).number16("Name"); }), errors::TypeMismatch);
    EXPECT_EQ(errorOf([&] { rows.row(2).number16Or0("Name"); }), errors::TypeMismatch);
}

TEST(Recordset, WhatIsNotThereIsAnError) {
    const Recordset rows = sample();
    EXPECT_EQ(errorOf([&] { rows.first().text("Nothing"); }), errors::NoSuchField);
    EXPECT_EQ(errorOf([&] { rows.row(3); }), errors::NoCurrentRow);
    EXPECT_EQ(errorOf([&] { rows.row(-1); }), errors::NoCurrentRow);
    const Recordset none;
    EXPECT_EQ(none.RecordCount(), 0);
    EXPECT_EQ(errorOf([&] { none.first(); }), errors::NoCurrentRow);
    EXPECT_FALSE(none.begin() != none.end());
}

struct Spelling {
    QString text;
    std::optional<double> number;
};

TEST(Numbers, TextsThatSpellANumber) {
    const std::vector<Spelling> spellings = {
        {u"12"_s, 12},    {u" 12 "_s, 12},        {u"-5"_s, -5},    {u"5-"_s, -5},
        {u"+5"_s, 5},     {u"1,234.5"_s, 1234.5}, {u".5"_s, 0.5},   {u"5."_s, 5},
        {u"1E3"_s, 1000}, {u"1d-2"_s, 0.01},      {u"$12"_s, 12},   {u"(7)"_s, -7},
        {u"&HFF"_s, 255}, {u"&hFFFF"_s, -1},      {u"&O17"_s, 15},  {u"0"_s, 0},
        {QString(), {}},  {u" "_s, {}},           {u"."_s, {}},     {u"-"_s, {}},
        {u"1 2"_s, {}},   {u"12a"_s, {}},         {u"--5"_s, {}},   {u"-5-"_s, {}},
        {u"(5"_s, {}},    {u"(-5)"_s, {}},        {u"１２"_s, {}},  {u"1e"_s, {}},
        {u"&HG"_s, {}},   {u"三"_s, {}},          {u"1.2.3"_s, {}},
    };
    for (const Spelling& one : spellings) {
        EXPECT_EQ(isNumeric(one.text), one.number.has_value()) << qPrintable(one.text);
        if (one.number) {
            EXPECT_DOUBLE_EQ(toNumber(one.text), *one.number) << qPrintable(one.text);
        } else {
            EXPECT_EQ(errorOf([&] { toNumber(one.text); }), errors::TypeMismatch) << qPrintable(one.text);
        }
    }
}

TEST(Numbers, TheNumberAtTheStartOfAText) {
    const std::vector<std::pair<QString, double>> texts = {
        {u"12ab"_s, 12},  {QString(), 0},         {u"ab"_s, 0}, {u" 1 2 3x"_s, 123}, {u"-.5-"_s, -0.5},
        {u"1e2x"_s, 100}, {u"3000~5000"_s, 3000}, {u"5."_s, 5}, {u"1e"_s, 1},
    };
    for (const auto& [text, number] : texts) {
        EXPECT_DOUBLE_EQ(leadingNumber(text), number) << qPrintable(text);
    }
}

TEST(Numbers, TheTextOfANumber) {
    const std::vector<std::pair<double, QString>> numbers = {
        {0, u"0"_s},
        {-0.0, u"0"_s},
        {0.3333, u"0.3333"_s},
        {0.1 + 0.2, u"0.3"_s},
        {2.0 / 3, u"0.666666666666667"_s},
        {1e15, u"1E+15"_s},
        {0.00001, u"0.00001"_s},
        {0.000001, u"1E-06"_s},
    };
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
    EXPECT_EQ(errorOf([] { toInt16(u"x"_s); }), errors::TypeMismatch);
}

TEST(Texts, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(trimBlanks(u"  a b  "_s), u"a b"_s);
    EXPECT_EQ(trimBlanks(u"\ta　"_s), u"\ta　"_s);
    EXPECT_EQ(trimBlanks(u"   "_s), QString());
    EXPECT_EQ(rightOf(u"abc"_s, 2), u"bc"_s);
    EXPECT_EQ(rightOf(u"abc"_s, 9), u"abc"_s);
    EXPECT_EQ(errorOf([] { rightOf(u"abc"_s, -1); }), errors::InvalidCall);
    EXPECT_EQ(dropLeft(u"abc"_s, 1), u"bc"_s);
    EXPECT_EQ(dropLeft(u"abc"_s, 9), QString());
}

}  // namespace
