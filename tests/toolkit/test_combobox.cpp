#include "tests/support/error_of.h"
#include "toolkit/combobox.h"

#include <QStringList>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace talvora;
using talvora::test::errorOf;

namespace {

class ComboBoxTest : public ::testing::Test {
 protected:
    ComboBoxTest() {
        QObject::connect(&combo, &ComboBox::Click, &combo, [this] { clicks << combo.text(); });
    }
    void fill() {
        combo.AddItem(u"甲"_s, 1001);
        combo.AddItem(u"|-乙"_s, 2001002);
        combo.AddItem(u"|-丙"_s);
        combo.show();
    }

    ComboBox combo;
    QStringList clicks;
};

TEST_F(ComboBoxTest, NothingIsSelectedByFillingOrByClearing) {
    for (int round = 0; round < 2; ++round) {
        fill();
        EXPECT_EQ(combo.ListIndex(), -1);
        EXPECT_EQ(combo.text(), QString());
        combo.setListIndex(0);
        combo.Clear();
        EXPECT_EQ(combo.ListIndex(), -1);
        EXPECT_EQ(combo.text(), QString());
    }
    EXPECT_EQ(clicks, QStringList({u"甲"_s, u"甲"_s}));
}

TEST_F(ComboBoxTest, ClickIsTheSameFromCodeAndFromTheUser) {
    fill();
    combo.setListIndex(1);
    EXPECT_EQ(combo.ItemData(), 2001002);
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 2);
    QTest::keyClick(&combo, Qt::Key_Down);  // the end of the list: no choice made
    combo.setListIndex(2);                  // the same again is a choice
    combo.setListIndex(-1);
    EXPECT_EQ(clicks, QStringList({u"|-乙"_s, u"|-丙"_s, u"|-丙"_s}));
}

TEST_F(ComboBoxTest, WrongPositionsAndForeignTextAreErrors) {
    fill();
    EXPECT_EQ(errorOf([&] { combo.setListIndex(3); }), 380);
    EXPECT_EQ(errorOf([&] { combo.setListIndex(-2); }), 380);
    EXPECT_EQ(errorOf([&] { combo.ItemData(); }), 381);
    EXPECT_EQ(errorOf([&] { combo.List(3); }), 381);
    combo.setText(u"|-丙"_s);
    EXPECT_EQ(errorOf([&] { combo.setText(u"丁"_s); }), 383);
    EXPECT_EQ(combo.ListIndex(), 2) << "a refused text changes nothing";
    combo.setText({});
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(clicks, QStringList({u"|-丙"_s}));
}

TEST_F(ComboBoxTest, FreeTypingStandsBesideTheList) {
    combo.setEditable(true);
    fill();
    EXPECT_EQ(combo.text(), QString());
    QTest::keyClicks(&combo, u"2"_s);
    combo.AddItem(u"2000~4000"_s);
    EXPECT_EQ(combo.text(), u"2"_s) << "an item added must not touch what was typed, nor complete it";
    combo.setListIndex(0);
    EXPECT_EQ(combo.ListIndex(), 0);
    QTest::keyClicks(&combo, u"x"_s);
    EXPECT_EQ(combo.text(), u"甲x"_s);
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.setListIndex(0);
    EXPECT_EQ(combo.text(), u"甲"_s);
    combo.setText(u"自由"_s);
    EXPECT_EQ(combo.ListIndex(), -1);
    QTest::keyClick(&combo, Qt::Key_Return);
    EXPECT_EQ(combo.ListCount(), 4) << "what was typed must not become an item";
    combo.Clear();
    EXPECT_EQ(combo.text(), QString());
    EXPECT_EQ(clicks, QStringList({u"甲"_s, u"甲"_s}));
}

}  // namespace
