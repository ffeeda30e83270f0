#include "tests/support/windows.h"
#include "toolkit/icons.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace talvora;
using namespace talvora::test;

namespace {

class PromptTest : public WindowTest {};

TEST_F(PromptTest, ScriptAnswersInOrderAndKeepsWhatWasShown) {
    PromptScript script;
    script.expect(vbYes).expectInput(u"本月"_s).expect(vbNo).expectSaveFile(u"a.xlsx"_s).expectOpenFile({});
    EXPECT_EQ(MsgBox(u"删除？"_s, ConfirmStyle), vbYes);
    EXPECT_EQ(InputBox(u"请输入简要的查询说明："_s), u"本月"_s);
    EXPECT_EQ(MsgBox(u"继续？"_s, vbYesNo, u"帮助"_s), vbNo);
    EXPECT_EQ(saveFileName(u"另存为"_s, {}, {}), u"a.xlsx"_s);
    EXPECT_EQ(openFileName(u"打开"_s, {}, {}), QString());
    EXPECT_EQ(script.shown()[0].style, 292);
    EXPECT_EQ(script.shown()[0].title, u"Talvora 1.3 Build 201000905"_s);
    EXPECT_EQ(script.shown()[1].text, u"请输入简要的查询说明："_s);
    EXPECT_EQ(script.shown()[2].title, u"帮助"_s);
}

/// The boxes that the program itself shows.
class BoxTest : public WindowTest {
 protected:
    ~BoxTest() override { setPrompter(before_); }

    template <class Dialog>
    void whenUp(std::function<void(Dialog&)> script) {
        QTimer::singleShot(20, [script] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            script(*dialog);
        });
    }

 private:
    Prompter* before_ = setPrompter(nullptr);
};

TEST_F(BoxTest, StylesGiveButtonsAndDefault) {
    const QString ok = u"确定"_s;
    const QString cancel = u"取消"_s;
    const QString yes = u"是(&Y)"_s;
    const QString no = u"否(&N)"_s;
    struct Case {
        int style;
        QStringList buttons;
        QString preset;
        Qt::Key key;
        MsgBoxResult result;
    };
    const Case cases[] = {
        {48, {ok}, ok, Qt::Key_Return, vbOK},
        {64, {ok}, ok, Qt::Key_Escape, vbOK},
        {292, {yes, no}, no, Qt::Key_Return, vbNo},
        {36, {yes, no}, yes, Qt::Key_Escape, vbYes},
        {292, {yes, no}, no, Qt::Key_Y, vbYes},
        {1, {ok, cancel}, ok, Qt::Key_Escape, vbCancel},
        {3 + 512, {yes, no, cancel}, cancel, Qt::Key_Return, vbCancel},
    };
    for (const Case& one : cases) {
        whenUp<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.text(), u"<b>［'］！"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            QStringList captions;
            for (const auto* button : box.findChildren<QPushButton*>()) {
                captions << button->text();
            }
            EXPECT_THAT(captions, ::testing::UnorderedElementsAreArray(one.buttons)) << one.style;
            EXPECT_EQ(box.defaultButton()->text(), one.preset) << one.style;
            press(one.key, one.key == Qt::Key_Y ? Qt::AltModifier : Qt::NoModifier);
        });
        EXPECT_EQ(MsgBox(u"<b>［'］！"_s, one.style), one.result) << one.style;
    }
}

TEST_F(BoxTest, InputBoxGivesNothingWhenCancelled) {
    whenUp<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.textValue(), u"旧"_s);
        EXPECT_TRUE(dialog.findChild<QPushButton*>()->icon().isNull()) << "unlike the buttons of the message boxes";
        retype(dialog.findChild<QLineEdit*>(), u"十二个字的说明太长了啊"_s);
        dialog.accept();
    });
    EXPECT_EQ(InputBox(u"说明："_s, titleText(), u"旧"_s, 5), u"十二个字的"_s);
    whenUp<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(InputBox(u"说明："_s, titleText(), u"旧"_s), QString());
}

TEST(Pictures, AreDrawnAtTheScaleOfTheDisplay) {
    const QPixmap off = picture(u"radio-off"_s, 16);
    const QPixmap on = picture(u"radio-on"_s, 16, 1.5);
    EXPECT_EQ(on.size(), QSize(24, 24));
    EXPECT_EQ(on.deviceIndependentSize(), QSizeF(16, 16));
    EXPECT_NE(off.toImage().pixelColor(8, 8), on.toImage().pixelColor(12, 12)) << "marked and not marked look alike";
    EXPECT_THROW(icon(u"no-such-picture"_s), RuntimeError);
}

}  // namespace
