#pragma once

/// The numbers of SQL Server's errors that the program knows. The embedded engine raises its own under them, so that
/// one number means the same on both engines.
namespace talvora::server_error {
inline constexpr int Timeout = -2;
inline constexpr int NotReached = 53;
inline constexpr int IncorrectSyntax = 102;
inline constexpr int UnclosedQuote = 105;
inline constexpr int UnknownPrefix = 107;
inline constexpr int FewerValuesThanColumns = 109;
inline constexpr int MoreValuesThanColumns = 110;
inline constexpr int UnclosedComment = 113;
inline constexpr int SubqueryColumns = 116;
inline constexpr int KeywordSyntax = 156;
inline constexpr int ArgumentCount = 174;
inline constexpr int NestedTooDeeply = 191;
inline constexpr int UnknownFunction = 195;
inline constexpr int InvalidColumn = 207;
inline constexpr int InvalidObject = 208;
inline constexpr int AmbiguousColumn = 209;
inline constexpr int InvalidDate = 241;
inline constexpr int ConversionFailed = 245;
inline constexpr int ConversionOverflow = 248;
inline constexpr int NoTableToSelectFrom = 263;
inline constexpr int ColumnSetTwice = 264;
inline constexpr int NullNotAllowed = 515;
inline constexpr int InvalidLength = 536;
inline constexpr int InvalidLengthLeftRight = 537;
inline constexpr int ExplicitIdentity = 544;
inline constexpr int MissingIdentity = 545;
inline constexpr int OutOfMemory = 701;
inline constexpr int FileAccess = 823;
inline constexpr int DamagedFile = 824;
inline constexpr int NamelessColumn = 1038;
inline constexpr int DiskFull = 1105;
inline constexpr int LockTimeout = 1222;
inline constexpr int NoColumnToIndex = 1911;
inline constexpr int IndexExists = 1913;
inline constexpr int DuplicateIndexKey = 2601;
inline constexpr int DuplicateKey = 2627;
inline constexpr int ObjectExists = 2714;
inline constexpr int UnknownType = 2715;
inline constexpr int SecondIdentity = 2744;
inline constexpr int CannotDrop = 3701;
inline constexpr int NothingToCommit = 3902;
inline constexpr int NothingToRollBack = 3903;
inline constexpr int ReadOnlyDatabase = 3906;
inline constexpr int CannotOpenDatabase = 4060;
inline constexpr int UnboundName = 4104;
inline constexpr int NoCondition = 4145;
inline constexpr int NoDatabaseFile = 5172;
inline constexpr int UpdatedIdentity = 8102;
inline constexpr int NoIdentityColumn = 8106;
inline constexpr int OtherIdentityInsert = 8107;
inline constexpr int RealConversion = 8114;
inline constexpr int ArithmeticOverflow = 8115;
inline constexpr int InvalidOperand = 8117;
inline constexpr int TextTruncated = 8152;
inline constexpr int NamelessDerivedColumn = 8155;
inline constexpr int LinkLost = 10054;
inline constexpr int TooManyRows = 10738;
inline constexpr int LoginFailed = 18456;
}  // namespace talvora::server_error
