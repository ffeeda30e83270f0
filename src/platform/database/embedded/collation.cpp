#include "platform/database/embedded/collation.h"

#include <QChar>
#include <QCollator>
#include <QLocale>
#include <QSysInfo>
#include <QtEndian>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>

namespace talvora::embedded {

namespace {

constexpr char16_t ideographicBlank = 0x3000;

/// The signs ￠￡￢￣￤￥￦ in usual width.
constexpr char16_t wideSignsFirst = 0xFFE0;
constexpr std::u16string_view wideSigns = u"\u00A2\u00A3\u00AC\u00AF\u00A6\u00A5\u20A9";

struct Range {
    char16_t first;
    char16_t last;
};
// Unified ideographs, extension A, compatibility ideographs.
constexpr std::array hanRanges = {Range{0x3400, 0x4DBF}, Range{0x4E00, 0x9FFF}, Range{0xF900, 0xFAFF}};

bool isHan(char16_t c) {
    return std::any_of(hanRanges.begin(), hanRanges.end(),
                       [c](const Range& range) { return c >= range.first && c <= range.last; });
}

/// What orders a Chinese character by its sound. Keys are made as their characters turn up: all of them at once would
/// hold up the start by a tenth of a second. Sessions may live in several threads.
const QCollatorSortKey& soundOf(char16_t c) {
    thread_local const QCollator collator(QLocale(QLocale::Chinese, QLocale::China));
    thread_local std::unordered_map<char16_t, QCollatorSortKey> keys;
    const auto known = keys.find(c);
    return (known != keys.end() ? known : keys.emplace(c, collator.sortKey(QString(QChar(c)))).first)->second;
}

/// The sets of characters in their order.
enum class Group { Sign, Digit, Letter, Han };

Group groupOf(char16_t c) {
    if (isHan(c)) {
        return Group::Han;
    }
    if (QChar::isDigit(c)) {
        return Group::Digit;
    }
    return QChar::isLetter(c) || QChar::isSurrogate(c) ? Group::Letter : Group::Sign;
}

/// Orders two folded characters that differ.
int orderOf(char16_t left, char16_t right) {
    const Group group = groupOf(left);
    if (const Group other = groupOf(right); group != other) {
        return group < other ? -1 : 1;
    }
    const int order = group == Group::Han ? soundOf(left).compare(soundOf(right)) : 0;
    return order != 0 ? order : static_cast<int>(left) - static_cast<int>(right);
}

/// Texts as they lie in SQLite's pages, which keep no alignment.
struct RawText {
    const char* data;
    int size;

    char16_t operator[](int i) const { return qFromUnaligned<char16_t>(data + i * unit); }
    static constexpr int unit = sizeof(char16_t);
};

/// How many characters both texts begin with to the letter, or somewhat fewer: keys of one index often share a long
/// beginning, so it is passed over four characters at a time.
int sharedBeginning(const RawText& a, const RawText& b, int common) {
    constexpr int stride = sizeof(quint64) / sizeof(char16_t);
    int i = 0;
    while (i + stride <= common &&
           qFromUnaligned<quint64>(a.data + i * RawText::unit) == qFromUnaligned<quint64>(b.data + i * RawText::unit)) {
        i += stride;
    }
    return i;
}

int compareRaw(const RawText& a, const RawText& b) {
    const int common = std::min(a.size, b.size);
    for (int i = sharedBeginning(a, b, common); i < common; ++i) {
        const char16_t x = a[i];
        const char16_t y = b[i];
        if (x == y) {
            continue;
        }
        if (const int order = compareCharacters(x, y); order != 0) {
            return order;
        }
    }
    // The shorter text counts as filled up with blanks.
    const RawText& longer = a.size > common ? a : b;
    const int sign = a.size > common ? 1 : -1;
    for (int i = common; i < longer.size; ++i) {
        const char16_t rest = folded(longer[i]);
        if (rest != u' ') {
            return sign * orderOf(rest, u' ');
        }
    }
    return 0;
}

int compareStored(void* /*context*/, int leftBytes, const void* left, int rightBytes, const void* right) {
    return compareRaw({static_cast<const char*>(left), leftBytes / RawText::unit},
                      {static_cast<const char*>(right), rightBytes / RawText::unit});
}

}  // namespace

// Letters of one case and signs of one width. Hiragana and katakana stay apart, and so do the widths of katakana:
// Chinese texts have neither.
char16_t folded(char16_t c) {
    constexpr char16_t fullWidthFirst = 0xFF01;
    constexpr char16_t fullWidthLast = 0xFF5E;
    constexpr char16_t widthDistance = 0xFEE0;
    constexpr char16_t asciiLast = 0x7F;
    // What most comparisons meet.
    if (c <= asciiLast) {
        return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + u'a' - u'A') : c;
    }
    if (isHan(c) || QChar::isSurrogate(c)) {
        return c;
    }
    if (c >= fullWidthFirst && c <= fullWidthLast) {
        c = static_cast<char16_t>(c - widthDistance);
    } else if (c >= wideSignsFirst && c < wideSignsFirst + wideSigns.size()) {
        c = wideSigns[c - wideSignsFirst];
    } else if (c == ideographicBlank) {
        c = u' ';
    }
    return QChar(c).toCaseFolded().unicode();
}

int compareCharacters(char16_t left, char16_t right) {
    const char16_t a = folded(left);
    const char16_t b = folded(right);
    return a == b ? 0 : orderOf(a, b);
}

int compareText(QStringView left, QStringView right) {
    const auto raw = [](QStringView text) {
        return RawText{reinterpret_cast<const char*>(text.utf16()), static_cast<int>(text.size())};
    };
    return compareRaw(raw(left), raw(right));
}

int orderFingerprint() {
    static const int fingerprint = [] {
        const QCollator collator(QLocale(QLocale::Chinese, QLocale::China));
        // Every 61st character: enough to notice another order, cheap enough for every start.
        constexpr char16_t first = 0x4E00;
        constexpr char16_t last = 0x9FA0;
        constexpr int stride = 61;
        constexpr quint32 factor = 16777619;
        // The start stands for the order of all other characters. Whoever changes that changes the start.
        quint32 hash = 2166136262U;
        QString previous(QChar{first});
        for (int c = first + stride; c <= last; c += stride) {
            const QString next(QChar{static_cast<char16_t>(c)});
            hash = (hash ^ (collator.compare(previous, next) < 0 ? 1U : 2U)) * factor;
            previous = next;
        }
        return static_cast<int>(hash >> 1) | 1;
    }();
    return fingerprint;
}

void registerCollation(sqlite3* database) {
    // Exactly the encoding of the files: with any other, SQLite would copy both texts before each comparison.
    constexpr int encoding = QSysInfo::ByteOrder == QSysInfo::LittleEndian ? SQLITE_UTF16LE : SQLITE_UTF16BE;
    sqlite3_create_collation_v2(database, collationName, encoding, nullptr, compareStored, nullptr);
}

}  // namespace talvora::embedded
