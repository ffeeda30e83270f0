#include "tests/support/prompt_script.h"

#include "toolkit/last_resort.h"

#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

const char* nameOf(PromptScript::Kind kind) {
    switch (kind) {
        case PromptScript::Kind::Message:
            return "message box";
        case PromptScript::Kind::Input:
            return "input box";
        case PromptScript::Kind::OpenFile:
            return "open file picker";
        case PromptScript::Kind::SaveFile:
            return "save file picker";
    }
    return "prompt";
}

// A handler cannot go on without an answer; the end of the program takes it, and every window, out of the way.
[[noreturn]] void refuse(PromptScript::Kind kind, const QString& text) {
    ADD_FAILURE() << "No answer was given for the " << nameOf(kind) << " \"" << text.toStdString() << '"';
    endProgram(ProgramEnd::Failed);
}

class Refusal : public Prompter {
 public:
    MsgBoxResult message(const QString& text, int, const QString&) override {
        refuse(PromptScript::Kind::Message, text);
    }
    QString input(const QString& prompt, const QString&, const QString&, int) override {
        refuse(PromptScript::Kind::Input, prompt);
    }
    QString openFile(const QString& title, const QString&, const QString&) override {
        refuse(PromptScript::Kind::OpenFile, title);
    }
    QString saveFile(const QString& title, const QString&, const QString&) override {
        refuse(PromptScript::Kind::SaveFile, title);
    }
};

}  // namespace

PromptScript::PromptScript() : before_(setPrompter(this)) {}

PromptScript::~PromptScript() {
    setPrompter(before_);
    EXPECT_EQ(left(), 0U) << "answers that nothing asked for";
}

PromptScript& PromptScript::expect(MsgBoxResult answer, const QString& text) {
    answers_.push_back({Kind::Message, answer, text});
    return *this;
}

PromptScript& PromptScript::expectInput(const QString& answer) {
    answers_.push_back({Kind::Input, vbOK, answer});
    return *this;
}

PromptScript& PromptScript::expectOpenFile(const QString& path) {
    answers_.push_back({Kind::OpenFile, vbOK, path});
    return *this;
}

PromptScript& PromptScript::expectSaveFile(const QString& path) {
    answers_.push_back({Kind::SaveFile, vbOK, path});
    return *this;
}

PromptScript::Answer PromptScript::take(const Shown& shown) {
    shown_.push_back(shown);
    if (answers_.empty() || answers_.front().kind != shown.kind) {
        refuse(shown.kind, shown.text);
    }
    Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

MsgBoxResult PromptScript::message(const QString& text, int style, const QString& title) {
    const Answer answer = take({Kind::Message, title, text, style});
    if (!answer.text.isEmpty()) {
        EXPECT_EQ(text.toStdString(), answer.text.toStdString());
    }
    return answer.button;
}

QString PromptScript::input(const QString& prompt, const QString& title, const QString&, int maxLength) {
    return take({Kind::Input, title, prompt}).text.left(maxLength);
}

QString PromptScript::openFile(const QString& title, const QString&, const QString&) {
    return take({Kind::OpenFile, title, title}).text;
}

QString PromptScript::saveFile(const QString& title, const QString&, const QString&) {
    return take({Kind::SaveFile, title, title}).text;
}

Prompter* refuseEveryPrompt() {
    static Refusal refusal;
    return &refusal;
}

}  // namespace talvora::test
