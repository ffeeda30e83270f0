#pragma once

#include "platform/title.h"

#include <QString>

namespace talvora {

/// The parts of a message box's style: one set of buttons, one icon and one default, added up.
enum MsgBoxStyle : int {
    vbOKOnly = 0,
    vbOKCancel = 1,
    vbYesNoCancel = 3,
    vbYesNo = 4,
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64,
    vbDefaultButton1 = 0,
    vbDefaultButton2 = 256,
    vbDefaultButton3 = 512,
};

/// The confirmation of a deletion: yes and no, a question icon, No as the default (292).
inline constexpr int ConfirmStyle = vbYesNo + vbQuestion + vbDefaultButton2;

/// What a message box answers.
enum MsgBoxResult : int { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };

/// Shows `text` as it stands, modally, with the buttons and the icon of `style`, and gives the button pressed.
/// Closing the box counts as its cancelling button.
MsgBoxResult MsgBox(const QString& text, int style = vbOKOnly, const QString& title = titleText());

/// Asks for one line of text, at most `maxLength` characters. Empty when the user cancelled or left it empty.
QString InputBox(const QString& prompt, const QString& title = titleText(), const QString& preset = {},
                 int maxLength = 255);

/// The file pickers. `filter` is "Words (*.ext);;Words (*.ext)". The path chosen, empty when the user cancelled.
/// saveFileName has asked before it gives the name of a file that exists.
QString openFileName(const QString& title, const QString& directory, const QString& filter);
QString saveFileName(const QString& title, const QString& path, const QString& filter);

/// The one seam behind the functions above: whoever answers them. The program keeps the one that shows boxes.
class Prompter {
 public:
    virtual ~Prompter() = default;

    virtual MsgBoxResult message(const QString& text, int style, const QString& title) = 0;
    virtual QString input(const QString& prompt, const QString& title, const QString& preset, int maxLength) = 0;
    virtual QString openFile(const QString& title, const QString& directory, const QString& filter) = 0;
    virtual QString saveFile(const QString& title, const QString& path, const QString& filter) = 0;
};

/// Puts `prompter` (not owned; nullptr for the boxes on the screen) in charge and gives the one before it.
Prompter* setPrompter(Prompter* prompter);

}  // namespace talvora
