#include "platform/text_store.h"

#include <QString>

#include <algorithm>

namespace talvora {

namespace {

constexpr qsizetype BlockSize = 1 << 20;

}  // namespace

const char* TextStore::add(QStringView text) {
    if (text.contains(u'\0')) {
        return add(text.toString().remove(QChar(u'\0')));
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
