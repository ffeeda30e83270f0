#pragma once

#include <QtGlobal>

#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

#include <QString>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

namespace talvora::odbc {

// Texts go to and from QString as they lie in memory.
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the ODBC driver manager must use UTF-16");

/// `text` for an argument of the ODBC API that is only read; valid as long as `text`.
inline SQLWCHAR* wide(const QString& text) {
    // The API takes its input texts without const.
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(reinterpret_cast<const char16_t*>(text.utf16())));
}

inline QString fromWide(const SQLWCHAR* text, qsizetype length) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text), length);
}

}  // namespace talvora::odbc
