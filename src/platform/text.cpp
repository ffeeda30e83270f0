#include "platform/text.h"

#include "platform/runtime_error.h"

namespace talvora {

QString trimBlanks(const QString& text) {
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == u' ') {
        ++begin;
    }
    while (end > begin && text[end - 1] == u' ') {
        --end;
    }
    if (begin == 0 && end == text.size()) {
        return text;
    }
    return text.sliced(begin, end - begin);
}

QString rightOf(const QString& text, qsizetype count) {
    if (count < 0) {
        throw RuntimeError(errors::InvalidCall);
    }
    return text.right(count);
}

QString dropLeft(const QString& text, qsizetype count) {
    return text.mid(count);
}

}  // namespace talvora
