#pragma once

#include "toolkit/prompts.h"

#include <QString>

#include <deque>
#include <vector>

namespace talvora::test {

/// Answers the prompts of one scenario from a queue and keeps what was shown. A prompt that finds no answer, or one of
/// another kind, fails the test and ends the program under test; so do answers left over at the end. Scripts nest: the
/// innermost is asked.
///
///     PromptScript script;
///     script.expect(vbYes);
///     click(w.ui->cmdDelete);
///     EXPECT_EQ(script.last().text, u"…"_s);
class PromptScript : public Prompter {
 public:
    enum class Kind { Message, Input, OpenFile, SaveFile };
    struct Shown {
        Kind kind = Kind::Message;
        QString title;
        QString text;
        int style = 0;  ///< of a message
    };

    PromptScript();
    ~PromptScript() override;

    /// The next message is answered by `answer`; with `text`, it must say exactly this.
    PromptScript& expect(MsgBoxResult answer = vbOK, const QString& text = {});
    /// The next input box is answered by `answer` (empty: cancelled).
    PromptScript& expectInput(const QString& answer);
    PromptScript& expectOpenFile(const QString& path);
    PromptScript& expectSaveFile(const QString& path);

    /// What was shown so far, in order.
    const std::vector<Shown>& shown() const { return shown_; }
    /// The last one shown; an empty one when there was none.
    Shown last() const { return shown_.empty() ? Shown() : shown_.back(); }
    /// The answers not asked for yet.
    std::size_t left() const { return answers_.size(); }

    MsgBoxResult message(const QString& text, int style, const QString& title) override;
    QString input(const QString& prompt, const QString& title, const QString& preset, int maxLength) override;
    QString openFile(const QString& title, const QString& directory, const QString& filter) override;
    QString saveFile(const QString& title, const QString& path, const QString& filter) override;

 private:
    struct Answer {
        Kind kind = Kind::Message;
        MsgBoxResult button = vbOK;
        QString text;  ///< the words that a message must have, or what an input box or file picker gives
    };
    Answer take(const Shown& shown);

    Prompter* before_;
    std::deque<Answer> answers_;
    std::vector<Shown> shown_;
};

/// In charge where no script is: every prompt fails the test.
Prompter* refuseEveryPrompt();

}  // namespace talvora::test
