#include "platform/database/odbc/odbc_handle.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace talvora::odbc {

using namespace Qt::StringLiterals;

namespace {

struct Record {
    QString state;
    int number = 0;
    QString words;
};

std::optional<Record> readRecord(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT index) {
    constexpr std::size_t stateSize = 6;
    constexpr SQLSMALLINT firstGuess = 512;
    std::array<SQLWCHAR, stateSize> state{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    std::vector<SQLWCHAR> words(firstGuess);
    const auto read = [&] {
        return SQLGetDiagRecW(type, handle, index, state.data(), &number, words.data(),
                              static_cast<SQLSMALLINT>(words.size()), &length);
    };
    SQLRETURN result = read();
    if (result == SQL_SUCCESS_WITH_INFO && length >= static_cast<SQLSMALLINT>(words.size())) {
        words.resize(static_cast<std::size_t>(length) + 1);
        result = read();
    }
    if (!SQL_SUCCEEDED(result)) {
        return std::nullopt;
    }
    const auto given = std::min(static_cast<qsizetype>(length), static_cast<qsizetype>(words.size()) - 1);
    return Record{fromWide(state.data(), stateSize - 1), number, plainMessage(fromWide(words.data(), given))};
}

bool isWarning(const Record& record) {
    return record.state.startsWith("01"_L1);
}

}  // namespace

Handle::Handle() : type_(SQL_HANDLE_ENV), parent_(nullptr) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle_))) {
        throw DatabaseError(0, u"本机的 ODBC 不能使用，请先安装 ODBC 驱动程序管理器！"_s, u"HY001"_s);
    }
    // The API takes this number in the place of a pointer.
    SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(std::uintptr_t{SQL_OV_ODBC3}), 0);
}

Handle::Handle(SQLSMALLINT type, const Handle& parent) : type_(type), parent_(&parent) {
    parent.check(SQLAllocHandle(type, parent.get(), &handle_));
}

Handle::~Handle() {
    SQLFreeHandle(type_, handle_);
}

DatabaseError Handle::failure() const {
    std::vector<Record> records;
    SQLSMALLINT index = 1;
    while (const auto record = readRecord(type_, handle_, index++)) {
        records.push_back(*record);
    }
    if (!std::all_of(records.begin(), records.end(), isWarning)) {
        std::erase_if(records, isWarning);
    }
    if (records.empty()) {
        records.push_back({u"HY000"_s, 0, u"ODBC 驱动程序没有说明原因。"_s});
    }
    QStringList words;
    int number = 0;
    for (const Record& record : records) {
        words << record.words;
        number = number != 0 ? number : record.number;
    }
    words.removeDuplicates();
    const QString state = isLinkLost() ? u"08S01"_s : isWarning(records.front()) ? u"HY000"_s : records.front().state;
    return {number, words.join(u'\n'), state};
}

bool Handle::isLinkLost() const {
    if (type_ == SQL_HANDLE_STMT) {
        return parent_->isLinkLost();
    }
    SQLUINTEGER dead = SQL_CD_FALSE;
    return type_ == SQL_HANDLE_DBC &&
           SQL_SUCCEEDED(SQLGetConnectAttrW(handle_, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr)) &&
           dead == SQL_CD_TRUE;
}

void Handle::check(SQLRETURN result) const {
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
        throw failure();
    }
}

QString plainMessage(const QString& message) {
    qsizetype start = 0;
    while (start < message.size() && message[start] == u'[') {
        const qsizetype end = message.indexOf(u']', start);
        if (end < 0) {
            break;
        }
        start = end + 1;
    }
    return message.sliced(start).trimmed();
}

}  // namespace talvora::odbc
