#include "tests/support/windows.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace talvora;
using namespace talvora::test;

namespace {

/// The icon and the buttons beside a window's title.
constexpr int titleBarParts = 100;

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
    EXPECT_EQ(ConfirmStyle, 292);
    struct Case {
        int style;
        QString buttons;  ///< sorted
        QString preset;
        Qt::Key key;
        MsgBoxResult result;
    };
    const Case cases[] = {
        {48, u"确定"_s, u"确定"_s, Qt::Key_Return, vbOK},
        {64, u"确定"_s, u"确定"_s, Qt::Key_Escape, vbOK},
        {292, u"否(&N) 是(&Y)"_s, u"否(&N)"_s, Qt::Key_Return, vbNo},
        {36, u"否(&N) 是(&Y)"_s, u"是(&Y)"_s, Qt::Key_Escape, vbYes},
        {292, u"否(&N) 是(&Y)"_s, u"否(&N)"_s, Qt::Key_Y, vbYes},
        {1, u"取消 确定"_s, u"确定"_s, Qt::Key_Escape, vbCancel},
        {3 + 512, u"取消 否(&N) 是(&Y)"_s, u"取消"_s, Qt::Key_Return, vbCancel},
    };
    for (const Case& one : cases) {
        whenUp<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(titleText()) + titleBarParts) << one.style;
            QStringList captions;
            for (const auto* button : box.findChildren<QPushButton*>()) {
                captions << button->text();
            }
            captions.sort();
            EXPECT_EQ(captions.join(u' '), one.buttons) << one.style;
            EXPECT_EQ(box.defaultButton()->text(), one.preset) << one.style;
            press(one.key, one.key == Qt::Key_Y ? Qt::AltModifier : Qt::NoModifier);
        });
        EXPECT_EQ(MsgBox(u"<b>［'］！"_s, one.style), one.result) << one.style;
    }
}

TEST(OwnWords, StandInForThoseOfTheToolkit) {
    EXPECT_EQ(QCoreApplication::translate("QFileSystemModel", "Size"), u"大小"_s);
}

TEST_F(BoxTest, LongWordsAreShownWhole) {
    for (const int sentences : {1, 2, 9}) {
        whenUp<QMessageBox>([](QMessageBox& box) {
            auto* words = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
            EXPECT_GE(words->height(), words->wordWrap() ? words->heightForWidth(words->width()) : 1);
            EXPECT_TRUE(words->wordWrap() || words->width() >= words->sizeHint().width());
            press(Qt::Key_Return);
        });
        MsgBox(u"没有找到可以打开工作簿的程序，请先保存为文件！"_s.repeated(sentences), vbExclamation);
    }
}

TEST_F(BoxTest, InputBoxGivesNothingWhenCancelled) {
    whenUp<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.textValue(), u"旧"_s);
        EXPECT_GT(dialog.width(), dialog.fontMetrics().horizontalAdvance(titleText()) + titleBarParts);
        EXPECT_TRUE(dialog.findChild<QPushButton*>()->icon().isNull()) << "unlike the buttons of the message boxes";
        retype(dialog.findChild<QLineEdit*>(), u"十二个字的说明太长了啊"_s);
        dialog.accept();
    });
    EXPECT_EQ(InputBox(u"说明："_s, titleText(), u"旧"_s, 5), u"十二个字的"_s);
    whenUp<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(InputBox(u"说明："_s, titleText(), u"旧"_s), QString());
}

}  // namespace
