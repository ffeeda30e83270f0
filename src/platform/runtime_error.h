#pragma once

#include <QString>

#include <exception>

namespace talvora {

/// The numbers of the run-time errors that the program itself raises, as its users know them from the error box.
namespace errors {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyExists = 58;
inline constexpr int PathAccess = 75;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int InvalidPropertyValue = 380;
inline constexpr int AlreadyDisplayed = 400;
inline constexpr int DuplicateKey = 457;
inline constexpr int NoCurrentRow = 3021;
inline constexpr int NoSuchField = 3265;
inline constexpr int ConnectionClosed = 3704;
}  // namespace errors

/// The one exception type of the program: a number and the words that the error box shows.
class RuntimeError : public std::exception {
 public:
    explicit RuntimeError(int number);
    RuntimeError(int number, const QString& description);

    int number() const { return number_; }
    const QString& description() const { return description_; }
    const char* what() const noexcept override { return what_.constData(); }

 private:
    int number_;
    QString description_;
    QByteArray what_;
};

/// A statement or a connection attempt that the database refused. `number` is the server's own
/// (database/server_errors.h lists them) and the description its words; `sqlState` tells the kind in the terms of ODBC
/// ("08S01" a lost link, "HYT00" a time-out).
class DatabaseError : public RuntimeError {
 public:
    DatabaseError(int number, const QString& description, const QString& sqlState);

    const QString& sqlState() const { return sqlState_; }

 private:
    QString sqlState_;
};

}  // namespace talvora
