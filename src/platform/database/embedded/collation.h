#pragma once

#include <QStringView>

struct sqlite3;

namespace talvora::embedded {

/// The name of the one collation of the engine. Comparison and order of text go without regard to case, to full or
/// half width and to blanks at the end; signs sort before digits, digits before letters, and those before Chinese
/// characters, which sort by sound.
inline constexpr const char* collationName = "chinese_ci_as";

/// `c` with case and width taken away: 'Ａ', 'ａ' and 'A' are all 'a'.
char16_t folded(char16_t c);

/// Negative, 0 or positive, as `left` sorts before, with or behind `right`. A total order.
int compareText(QStringView left, QStringView right);
/// The same for two characters.
int compareCharacters(char16_t left, char16_t right);

/// A number for the order of text: of Chinese characters as this machine's collation data give it, and of all others as
/// this program has it. An index built under another order must be built anew.
int orderFingerprint();

void registerCollation(sqlite3* database);

}  // namespace talvora::embedded
