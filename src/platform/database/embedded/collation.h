#pragma once

#include <QStringView>

struct sqlite3;

namespace talvora::embedded {

/// The name of the one collation of the engine. Comparison and order of text go without regard to case, to full or
/// half width and to blanks at the end; Chinese characters sort by sound, behind everything else.
inline constexpr const char* collationName = "chinese_ci_as";

/// `c` with case and width taken away: 'Ａ', 'ａ' and 'A' are all 'a'.
char16_t folded(char16_t c);

/// Negative, 0 or positive, as `left` sorts before, with or behind `right`. A total order.
int compareText(QStringView left, QStringView right);
/// The same for two characters.
int compareCharacters(char16_t left, char16_t right);

/// A number for the order of Chinese characters that this machine's collation data give. An index built under another
/// order must be built anew.
int orderFingerprint();

void registerCollation(sqlite3* database);

}  // namespace talvora::embedded
