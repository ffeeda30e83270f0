#pragma once

#include <QStringEncoder>
#include <QStringView>

#include <memory>
#include <vector>

namespace talvora {

/// Keeps many short texts as UTF-8, each ended by a zero, in large blocks. What was stored stays until the store goes.
class TextStore {
 public:
    /// The stored text, without the characters that no XML file bears: zero, U+FFFE and U+FFFF.
    const char* add(QStringView text);

    /// The bytes taken so far.
    qsizetype bytes() const { return bytes_; }

 private:
    std::vector<std::unique_ptr<char[]>> blocks_;
    char* next_ = nullptr;
    qsizetype left_ = 0;
    qsizetype bytes_ = 0;
    QStringEncoder encoder_{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
};

}  // namespace talvora
