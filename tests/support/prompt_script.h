#pragma once

#include "toolkit/forms/prompts.h"

#include <QString>

#include <deque>
#include <string_view>
#include <vector>

namespace talvora::test {

/// Answers the prompts of one scenario from a queue and keeps what was shown. A prompt that finds no answer, or one of
/// another kind, fails the test and ends the program under test; answers left over at the end fail it. Scripts nest:
/// the innermost is asked.
class PromptScript : public Prompter {
 public:
    struct Shown {
        QString title;
        QString text;
        int style = 0;  ///< of a message
    };

    PromptScript() : before_(setPrompter(this)) {}
    ~PromptScript() override;

    /// The next message is answered by `answer`; with `text`, it must say exactly this.
    PromptScript& expect(MsgBoxResult answer = vbOK, const QString& text = {}) { return push({Message, text, answer}); }
    /// The next input box or file picker is answered by this text; empty: cancelled.
    PromptScript& expectInput(const QString& answer) { return push({Input, answer}); }
    PromptScript& expectOpenFile(const QString& path) { return push({OpenFile, path}); }
    PromptScript& expectSaveFile(const QString& path) { return push({SaveFile, path}); }

    /// What was shown so far, in order.
    const std::vector<Shown>& shown() const { return shown_; }
    /// The last one shown; an empty one when there was none.
    Shown last() const { return shown_.empty() ? Shown() : shown_.back(); }

    MsgBoxResult message(const QString& text, int style, const QString& title) override;
    QString input(const QString& prompt, const QString& title, const QString& preset, int maxLength) override;
    QString openFile(const QString& title, const QString& directory, const QString& filter) override;
    QString saveFile(const QString& title, const QString& path, const QString& filter) override;

 private:
    static constexpr std::string_view Message = "message box";
    static constexpr std::string_view Input = "input box";
    static constexpr std::string_view OpenFile = "open file picker";
    static constexpr std::string_view SaveFile = "save file picker";

    struct Answer {
        std::string_view kind;
        QString text;  ///< the words that a message must have, or what an input box or file picker gives
        MsgBoxResult button = vbOK;
    };
    PromptScript& push(const Answer& answer);
    Answer take(std::string_view kind, const Shown& shown);

    Prompter* before_;
    std::deque<Answer> answers_;
    std::vector<Shown> shown_;
};

}  // namespace talvora::test
