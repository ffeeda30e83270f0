#include "spreadsheet/text_store.h"

#include <QString>

#include <algorithm>

namespace talvora {

namespace {

constexpr qsizetype BlockSize = 1 << 20;

bool isNoText(QChar character) {
    return character == u'\0' || character.unicode() >= 0xFFFE;
}

}  // namespace

const char* TextStore::add(QStringView text) {
    if (std::any_of(text.begin(), text.end(), isNoText)) {
        return add(text.toString().removeIf(isNoText));
    }
    const qsizetype room = encoder_.requiredSpace(text.size()) + 1;
    if (room > left_) {
        left_ = std::max(room, BlockSize);
        blocks_.push_back(std::make_unique<char[]>(static_cast<std::size_t>(left_)));
        next_ = blocks_.back().get();
    }
    char* start = next_;
    char* end = encoder_.appendToBuffer(start, text);
    *end++ = '\0';
    next_ = end;
    left_ -= end - start;
    bytes_ += end - start;
    return start;
}

}  // namespace talvora
