#include "support/error_of.h"
#include "toolkit/icons.h"
#include "toolkit/toolbar.h"

#include <QAction>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

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

TEST_F(ToolBarTest, TellsButtonsAndEntriesApart) {
    bar.addMenuEntry(u"find"_s, u"a7"_s, u"甲&乙"_s);
    for (const auto& key : {u"add"_s, u"find"_s}) {
        QTest::mouseClick(bar.button(key), Qt::LeftButton, {}, QPoint(10, 10));
    }
    // A dropdown has no command of its own; its menu waits for a choice here.
    EXPECT_EQ(bar.button(u"export"_s)->popupMode(), QToolButton::InstantPopup);
    bar.entry(u"exportlist"_s)->trigger();
    bar.entry(u"a7"_s)->trigger();
    bar.setUsable(u"add"_s, false);
    bar.pressButton(u"add"_s);
    EXPECT_EQ(told.join(u','), u"add,find,menu exportlist,menu a7"_s);
    EXPECT_EQ(bar.keys().join(u','), u"add,export,find"_s);
}

TEST_F(ToolBarTest, KeepsCaptionsToTheBlank) {
    bar.addMenuEntry(u"find"_s, u"a7"_s, u"甲&乙"_s);
    bar.setCaption(u"exportlist"_s, u"按列表  √"_s);
    EXPECT_EQ(bar.caption(u"add"_s) + bar.caption(u"exportlist"_s) + bar.caption(u"a7"_s), u"  增加  按列表  √甲&乙"_s);
    EXPECT_EQ(bar.entry(u"a7"_s)->text(), u"甲&&乙"_s);
    bar.clearMenu(u"find"_s);
    EXPECT_EQ(errorOf([&] { bar.caption(u"a7"_s); }), 35601);
    EXPECT_EQ(errorOf([&] { bar.setUsable(u"del"_s, true); }), 35601);
}

TEST(ToolBarIcons, HaveAGreyTwinEach) {
    constexpr int small = 16;
    for (const auto& key : {u"type1"_s, u"type2"_s, u"type3"_s, u"edit"_s, u"del"_s, u"level"_s, u"export"_s,
                            u"print"_s, u"exit"_s, u"add"_s, u"detail"_s, u"find"_s}) {
        const QImage grey = icon(key + u'1').pixmap(small, small, QIcon::Disabled).toImage();
        EXPECT_NE(icon(key).pixmap(small, small).toImage(), grey) << key.toStdString();
        for (int dot = 0; dot < small * small; ++dot) {
            const QColor color = grey.pixelColor(dot % small, dot / small);
            ASSERT_LT(std::max({color.red(), color.green(), color.blue()}) -
                          std::min({color.red(), color.green(), color.blue()}),
                      8)
                << key.toStdString();
        }
    }
    EXPECT_EQ(errorOf([] { icon(u"nothing1"_s); }), 481);
}

}  // namespace
}  // namespace talvora::test
