#include "models/line_text.h"

#include "platform/text.h"

namespace talvora {

QString lineText(const QString& code, const QString& name) {
    return code + u' ' + name;
}

std::shared_ptr<cDimension> lineOf(const QString& text, qsizetype codeDigits, const QString& score) {
    auto line = std::make_shared<cDimension>();
    line->TypeCode = text.left(codeDigits);
    line->TypeName = dropLeft(text, codeDigits + 1);
    line->Score = score;
    return line;
}

}  // namespace talvora
