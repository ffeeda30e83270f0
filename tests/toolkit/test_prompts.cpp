#include "tests/support/windows.h"
#include "toolkit/icons.h"
#include "toolkit/prompts.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

using namespace Qt::StringLiterals;
using namespace talvora;
using namespace talvora::test;
using ::testing::ElementsAre;

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
    ASSERT_EQ(script.shown().size(), 5U);
    EXPECT_EQ(script.shown()[0].style, 292);
    EXPECT_EQ(script.shown()[0].title, titleText());
    EXPECT_EQ(script.shown()[1].text, u"请输入简要的查询说明："_s);
    EXPECT_EQ(script.shown()[2].title, u"帮助"_s);
}

TEST_F(PromptTest, PromptWithoutAnswerFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(EXPECT_THROW(MsgBox(u"谁？"_s), ProgramEnded), "No answer was given for the message box");
    EXPECT_NONFATAL_FAILURE(
        {
            PromptScript script;
            script.expectInput(u"x"_s);
            EXPECT_THROW(openFileName(u"打开"_s, {}, {}), ProgramEnded);
            EXPECT_EQ(InputBox({}), u"x"_s);
        },
        "open file picker");
}

TEST_F(PromptTest, LeftoverAnswersAndOtherWordsFailTheTest) {
    EXPECT_NONFATAL_FAILURE(
        {
            PromptScript script;
            script.expect();
        },
        "answers that nothing asked for");
    EXPECT_NONFATAL_FAILURE(
        {
            PromptScript script;
            script.expect(vbOK, u"一"_s);
            MsgBox(u"二"_s);
        },
        "text.toStdString()");
}

TEST_F(PromptTest, WindowThatNeverCameFailsTheTest) {
    struct Never : Form {
        QWidget* build() override { return nullptr; }
    };
    EXPECT_NONFATAL_FAILURE(
        {
            class Inner : public WindowTest {
                void TestBody() override {}
            } inner;
            whenModal<Never>([](Never&) {});
        },
        "never came up");
}

/// The boxes that the program itself shows.
class BoxTest : public WindowTest {
 protected:
    BoxTest() : before_(setPrompter(nullptr)) {}
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
    Prompter* before_;
};

TEST_F(BoxTest, StylesGiveButtonsAndDefault) {
    struct Case {
        int style;
        QStringList buttons;
        QString preset;
        Qt::Key key;
        MsgBoxResult result;
    };
    const Case cases[] = {
        {48, {u"确定"_s}, u"确定"_s, Qt::Key_Return, vbOK},
        {64, {u"确定"_s}, u"确定"_s, Qt::Key_Escape, vbOK},
        {292, {u"是(&Y)"_s, u"否(&N)"_s}, u"否(&N)"_s, Qt::Key_Return, vbNo},
        {36, {u"是(&Y)"_s, u"否(&N)"_s}, u"是(&Y)"_s, Qt::Key_Return, vbYes},
        {292, {u"是(&Y)"_s, u"否(&N)"_s}, u"否(&N)"_s, Qt::Key_Y, vbYes},
        {1, {u"确定"_s, u"取消"_s}, u"确定"_s, Qt::Key_Escape, vbCancel},
        {3 + 512, {u"是(&Y)"_s, u"否(&N)"_s, u"取消"_s}, u"取消"_s, Qt::Key_Return, vbCancel},
    };
    for (const Case& one : cases) {
        whenUp<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), titleText());
            EXPECT_EQ(box.text(), u"<b>［'］！"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            QStringList captions;
            const auto buttons = box.buttons();
            for (const auto* button : buttons) {
                captions << button->text();
            }
            EXPECT_THAT(captions, ::testing::UnorderedElementsAreArray(one.buttons)) << one.style;
            EXPECT_EQ(box.defaultButton()->text(), one.preset) << one.style;
            const bool letter = one.key == Qt::Key_Y;
            press(one.key, letter ? Qt::AltModifier : Qt::NoModifier);
        });
        EXPECT_EQ(MsgBox(u"<b>［'］！"_s, one.style), one.result) << one.style;
    }
}

TEST_F(BoxTest, InputBoxGivesNothingWhenCancelled) {
    whenUp<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.textValue(), u"旧"_s);
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
    EXPECT_EQ(off.size(), QSize(16, 16));
    EXPECT_EQ(on.size(), QSize(24, 24));
    EXPECT_EQ(on.deviceIndependentSize(), QSizeF(16, 16));
    EXPECT_NE(off.toImage().pixelColor(8, 8), on.toImage().pixelColor(12, 12)) << "marked and not marked look alike";
    EXPECT_FALSE(icon(u"talvora"_s).pixmap(32).toImage().allGray());
    EXPECT_THROW(icon(u"no-such-picture"_s), RuntimeError);
}

}  // namespace
