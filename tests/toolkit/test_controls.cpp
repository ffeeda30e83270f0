#include "support/error_of.h"
#include "support/windows.h"
#include "toolkit/controls/combobox.h"
#include "toolkit/controls/toolbar.h"

#include <QAction>
#include <QMenu>
#include <QTest>
#include <QToolButton>

namespace talvora::test {

using namespace Qt::StringLiterals;

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

TEST_F(ComboBoxTest, ClickIsTheSameFromCodeAndFromTheUser) {
    for (int round = 0; round < 2; ++round) {
        fill();
        EXPECT_EQ(combo.ListIndex(), -1) << "neither filling nor clearing chooses";
        EXPECT_EQ(combo.text(), QString());
        combo.setListIndex(1);
        EXPECT_EQ(combo.ItemData(), 2001002);
        combo.Clear();
    }
    fill();
    combo.setListIndex(1);
    QTest::keyClick(&combo, Qt::Key_Down);
    QTest::keyClick(&combo, Qt::Key_Down);  // the end of the list: no choice made
    combo.setListIndex(2);                  // the same again is a choice
    combo.setListIndex(-1);
    EXPECT_EQ(clicks.join(u' '), u"|-乙 |-乙 |-乙 |-丙 |-丙"_s);
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
    QTest::keyClicks(&combo, u"2"_s);
    combo.AddItem(u"2000~4000"_s);
    EXPECT_EQ(combo.text(), u"2"_s) << "an item added must not touch what was typed, nor complete it";
    combo.setListIndex(0);
    QTest::keyClicks(&combo, u"x"_s);
    EXPECT_EQ(combo.text(), u"甲x"_s);
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.setText(u"自由"_s);
    QTest::keyClick(&combo, Qt::Key_Return);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.ListCount(), 4) << "what was typed must not become an item";
    combo.Clear();
    EXPECT_EQ(combo.text(), QString());
    EXPECT_EQ(clicks, QStringList({u"甲"_s}));
}

class ToolBarTest : public ::testing::Test {
 protected:
    ToolBarTest() {
        bar.addButton(u"add"_s, u"  增加  "_s);
        bar.addButton(u"export"_s, u"导出"_s);
        bar.addMenuEntry(u"export"_s, u"exportlist"_s, u"按列表"_s);
        bar.addBar();
        bar.addButton(u"find"_s, u"查找"_s, ToolBar::Kind::Split);
        QObject::connect(&bar, &ToolBar::ButtonClick, [this](const QString& key) { told += key; });
        QObject::connect(&bar, &ToolBar::ButtonMenuClick, [this](const QString& key) { told += u"menu "_s + key; });
        bar.show();
    }

    ToolBar bar;
    QStringList told;
};

TEST_F(ToolBarTest, TellsButtonsAndEntriesApartAndKeepsCaptionsToTheBlank) {
    bar.addMenuEntry(u"find"_s, u"a7"_s, u"甲&乙"_s);
    for (const auto& key : {u"add"_s, u"find"_s}) {
        QTest::mouseClick(bar.button(key), Qt::LeftButton, {}, QPoint(10, 10));
    }
    // A dropdown has no command of its own; its menu waits for a choice here.
    EXPECT_EQ(bar.button(u"export"_s)->popupMode(), QToolButton::InstantPopup);
    bar.entry(u"exportlist"_s)->trigger();
    bar.entry(u"a7"_s)->trigger();
    bar.setUsable(u"add"_s, false);
    bar.button(u"add"_s)->click();
    EXPECT_EQ(told.join(u','), u"add,find,menu exportlist,menu a7"_s);
    EXPECT_EQ(bar.keys().join(u','), u"add,export,find"_s);
    bar.setCaption(u"exportlist"_s, u"按列表  √"_s);
    EXPECT_EQ(bar.caption(u"add"_s) + bar.caption(u"exportlist"_s) + bar.caption(u"a7"_s), u"  增加  按列表  √甲&乙"_s);
    EXPECT_EQ(bar.entry(u"a7"_s)->text(), u"甲&&乙"_s);
    bar.clearMenu(u"find"_s);
    EXPECT_EQ(errorOf([&] { bar.caption(u"a7"_s); }), 35601);
    EXPECT_EQ(errorOf([&] { bar.setUsable(u"del"_s, true); }), 35601);
}

}  // namespace talvora::test
