#include "setup/transfer/progress_line.h"

#include "setup/terminal.h"

#include <QLocale>

namespace talvora {

using namespace Qt::StringLiterals;

ProgressLine::ProgressLine() : onTerminal_(isShown()) {}

ProgressLine::~ProgressLine() {
    if (isOpen_) {
        say({});
    }
}

void ProgressLine::show(const QString& step, qint64 done, qint64 total) {
    constexpr qint64 whole = 100;
    constexpr qint64 part = 10;
    constexpr qint64 milliseconds = 200;
    const qint64 percent = total > 0 ? done * whole / total : 0;
    const bool isNewStep = step != step_;
    const bool isDue =
        onTerminal_ ? percent == whole || sinceShown_.hasExpired(milliseconds) : percent / part != tenth_;
    if (!isNewStep && !isDue) {
        return;
    }
    const QLocale chinese(QLocale::Chinese);
    const auto text =
        total > 0 ? u"%1：%2 / %3 行（%4%）"_s.arg(step, chinese.toString(done), chinese.toString(total)).arg(percent)
                  : step + u"……"_s;
    if (isNewStep && isOpen_) {
        say({});
    }
    if (onTerminal_) {
        sayOver(text);
        isOpen_ = true;
    } else {
        say(text);
    }
    step_ = step;
    tenth_ = percent / part;
    sinceShown_.start();
}

}  // namespace talvora
