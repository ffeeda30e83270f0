#pragma once

#include "platform/runtime_error.h"

#include <QStringView>

namespace talvora::embedded {

/// The errors of the embedded engine under the numbers and in the words of SQL Server, so that one message means the
/// same on both engines.
namespace server_error {
inline constexpr int Timeout = -2;
inline constexpr int IncorrectSyntax = 102;
inline constexpr int KeywordSyntax = 156;
inline constexpr int NestedTooDeeply = 191;
inline constexpr int InvalidColumn = 207;
inline constexpr int InvalidObject = 208;
inline constexpr int AmbiguousColumn = 209;
inline constexpr int InvalidDate = 241;
inline constexpr int ConversionFailed = 245;
inline constexpr int ConversionOverflow = 248;
inline constexpr int NullNotAllowed = 515;
inline constexpr int InvalidLength = 536;
inline constexpr int InvalidLengthLeftRight = 537;
inline constexpr int ExplicitIdentity = 544;
inline constexpr int LockTimeout = 1222;
inline constexpr int DuplicateIndexKey = 2601;
inline constexpr int DuplicateKey = 2627;
inline constexpr int ObjectExists = 2714;
inline constexpr int CannotDrop = 3701;
inline constexpr int NothingToCommit = 3902;
inline constexpr int NothingToRollBack = 3903;
inline constexpr int CannotOpenDatabase = 4060;
inline constexpr int NoDatabaseFile = 5172;
inline constexpr int UpdatedIdentity = 8102;
inline constexpr int RealConversion = 8114;
inline constexpr int ArithmeticOverflow = 8115;
inline constexpr int TextTruncated = 8152;
}  // namespace server_error

/// 102, or 156 for a keyword, at the token `near`; what the translator does not know ends here too.
DatabaseError incorrectSyntax(QStringView near);
/// An error that says only what it must, with the SQLSTATE that goes with the number.
DatabaseError serverError(int number, const QString& words);

}  // namespace talvora::embedded
