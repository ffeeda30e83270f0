#include "toolkit/forms/prompts.h"

#include "toolkit/look/icons.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int ButtonsMask = 0x0f;
constexpr int IconMask = 0xf0;
constexpr int DefaultMask = 0xf00;
constexpr int InputWidth = 360;
constexpr int MessageIconSize = 40;

struct Button {
    QMessageBox::StandardButton button;
    MsgBoxResult result;
    QString caption;
};

std::vector<Button> buttonsOf(int style) {
    const Button ok{QMessageBox::Ok, vbOK, u"确定"_s};
    const Button cancel{QMessageBox::Cancel, vbCancel, u"取消"_s};
    const Button yes{QMessageBox::Yes, vbYes, u"是(&Y)"_s};
    const Button no{QMessageBox::No, vbNo, u"否(&N)"_s};
    switch (style & ButtonsMask) {
        case vbOKCancel:
            return {ok, cancel};
        case vbYesNoCancel:
            return {yes, no, cancel};
        case vbYesNo:
            return {yes, no};
        default:
            return {ok};
    }
}

// How wide a window must be for its title to be read whole beside the icon and the buttons of its title bar.
int widthOfTitle(const QString& title) {
    constexpr int iconAndButtons = 130;
    QFont font = QApplication::font();
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(title) + iconAndButtons;
}

// The icon's kind goes to the platform (its sound, its accessibility role), the picture is ours.
void setIcon(QMessageBox& box, int style) {
    struct Kind {
        int style;
        QMessageBox::Icon icon;
        QString name;
    };
    const std::array kinds{
        Kind{vbCritical, QMessageBox::Critical, u"message-critical"_s},
        Kind{vbQuestion, QMessageBox::Question, u"message-question"_s},
        Kind{vbExclamation, QMessageBox::Warning, u"message-warning"_s},
        Kind{vbInformation, QMessageBox::Information, u"message-information"_s},
    };
    for (const Kind& kind : kinds) {
        if ((style & IconMask) == kind.style) {
            box.setIcon(kind.icon);
            box.setIconPixmap(picture(kind.name, MessageIconSize, box.devicePixelRatioF()));
        }
    }
}

// A box sizes itself by its words alone. Words wider than the title set no limit, so that the box may wrap them.
void widenForTitle(QMessageBox& box) {
    const int width = widthOfTitle(box.windowTitle()) - MessageIconSize;
    auto* words = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    if (words && words->sizeHint().width() < width) {
        words->setMinimumWidth(width);
    }
}

class ScreenPrompter : public Prompter {
 public:
    MsgBoxResult message(const QString& text, int style, const QString& title) override {
        QMessageBox box(QApplication::activeWindow());
        box.setWindowTitle(title);
        box.setTextFormat(Qt::PlainText);
        box.setText(text);
        setIcon(box, style);
        widenForTitle(box);
        const auto buttons = buttonsOf(style);
        for (const Button& button : buttons) {
            box.addButton(button.button)->setText(button.caption);
        }
        const auto preset = static_cast<std::size_t>((style & DefaultMask) / vbDefaultButton2);
        box.setDefaultButton(buttons[preset < buttons.size() ? preset : 0].button);
        // A question of yes and no has no way out: Escape and the close box give its preset answer, not always no.
        if ((style & ButtonsMask) == vbYesNo) {
            box.setEscapeButton(box.defaultButton());
        }
        const int pressed = box.exec();
        for (const Button& button : buttons) {
            if (button.button == pressed) {
                return button.result;
            }
        }
        return buttons.back().result;
    }

    QString input(const QString& prompt, const QString& title, const QString& preset, int maxLength) override {
        QInputDialog dialog(QApplication::activeWindow());
        dialog.setWindowTitle(title);
        dialog.setLabelText(prompt);
        dialog.setTextValue(preset);
        dialog.setOkButtonText(u"确定"_s);
        dialog.setCancelButtonText(u"取消"_s);
        if (auto* line = dialog.findChild<QLineEdit*>()) {
            line->setMaxLength(maxLength);
        }
        dialog.resize(std::max(InputWidth, widthOfTitle(title)), dialog.sizeHint().height());
        return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
    }

    QString openFile(const QString& title, const QString& directory, const QString& filter) override {
        return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, directory, filter);
    }

    QString saveFile(const QString& title, const QString& path, const QString& filter) override {
        QFileDialog dialog(QApplication::activeWindow(), title, path, filter);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.selectFile(path);
        static const QRegularExpression suffix(uR"(\*\.(\w+))"_s);
        dialog.setDefaultSuffix(suffix.match(filter).captured(1));
        return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
    }
};

Prompter*& current() {
    static ScreenPrompter screen;
    static Prompter* prompter = &screen;
    if (!prompter) {
        prompter = &screen;
    }
    return prompter;
}

}  // namespace

MsgBoxResult MsgBox(const QString& text, int style, const QString& title) {
    return current()->message(text, style, title);
}

QString InputBox(const QString& prompt, const QString& title, const QString& preset, int maxLength) {
    return current()->input(prompt, title, preset, maxLength);
}

QString openFileName(const QString& title, const QString& directory, const QString& filter) {
    return current()->openFile(title, directory, filter);
}

QString saveFileName(const QString& title, const QString& path, const QString& filter) {
    return current()->saveFile(title, path, filter);
}

Prompter* setPrompter(Prompter* prompter) {
    return std::exchange(current(), prompter);
}

}  // namespace talvora
