#include "toolkit/controls/memo.h"

#include <QKeyEvent>
#include <QTextBlock>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

Memo::Memo(QWidget* parent) : QPlainTextEdit(parent) {
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int place, int, int added) { changedUpTo_ = place + added; });
    connect(this, &QPlainTextEdit::textChanged, this, &Memo::cutSurplus);
}

void Memo::setText(const QString& text) {
    setPlainText(maxLength_ > 0 ? text.left(maxLength_) : text);
}

// The surplus goes from the end of what came in, not from the end of the text that stood there before.
void Memo::cutSurplus() {
    const int length = document()->characterCount() - 1;  // without the mark at the end of the last line
    const int surplus = length - maxLength_;
    if (maxLength_ <= 0 || surplus <= 0) {
        return;
    }
    QTextCursor cut(document());
    cut.setPosition(std::min(changedUpTo_, length));
    cut.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, surplus);
    cut.removeSelectedText();
}

void Memo::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
        QPlainTextEdit::keyPressEvent(event);
    } else if (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) {
        insertPlainText(u"\n"_s);
        ensureCursorVisible();
    } else {
        focusNextChild();
    }
}

}  // namespace talvora
