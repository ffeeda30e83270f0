#include "tests/support/prompt_script.h"

#include "toolkit/application/last_resort.h"

#include <gtest/gtest.h>

namespace talvora::test {

PromptScript::~PromptScript() {
    setPrompter(before_);
    EXPECT_EQ(answers_.size(), 0U) << "answers that nothing asked for";
}

PromptScript& PromptScript::push(const Answer& answer) {
    answers_.push_back(answer);
    return *this;
}

PromptScript::Answer PromptScript::take(std::string_view kind, const Shown& shown) {
    shown_.push_back(shown);
    if (answers_.empty() || answers_.front().kind != kind) {
        ADD_FAILURE() << "No answer was given for the " << kind << " \"" << shown.text.toStdString() << '"';
        // A handler cannot go on without an answer; the end of the program takes it, and every window, out of the way.
        endProgram(ProgramEnd::Failed);
    }
    const Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

MsgBoxResult PromptScript::message(const QString& text, int style, const QString& title) {
    const Answer answer = take(Message, {title, text, style});
    if (!answer.text.isEmpty()) {
        EXPECT_EQ(text.toStdString(), answer.text.toStdString());
    }
    return answer.button;
}

QString PromptScript::input(const QString& prompt, const QString& title, const QString&, int maxLength) {
    return take(Input, {title, prompt}).text.left(maxLength);
}

QString PromptScript::openFile(const QString& title, const QString&, const QString&) {
    return take(OpenFile, {title, title}).text;
}

QString PromptScript::saveFile(const QString& title, const QString&, const QString&) {
    return take(SaveFile, {title, title}).text;
}

}  // namespace talvora::test
