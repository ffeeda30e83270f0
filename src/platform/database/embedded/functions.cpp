#include "platform/database/embedded/functions.h"

#include "platform/database/embedded/collation.h"
#include "platform/database/embedded/conversion.h"
#include "platform/database/embedded/pattern.h"
#include "platform/database/embedded/server_error.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

/// The arguments and the result of one call.
class Call {
 public:
    Call(sqlite3_context* context, sqlite3_value** values) : context_(context), values_(values) {}

    QStringView text(int i) const {
        const auto* data = static_cast<const char16_t*>(sqlite3_value_text16(values_[i]));
        return {data, sqlite3_value_bytes16(values_[i]) / static_cast<int>(sizeof(char16_t))};
    }
    qint64 whole(int i) const { return sqlite3_value_int64(values_[i]); }
    double real(int i) const { return sqlite3_value_double(values_[i]); }
    int type(int i) const { return sqlite3_value_type(values_[i]); }

    void giveText(QStringView text) const {
        sqlite3_result_text16(context_, text.utf16(), static_cast<int>(text.size() * sizeof(char16_t)),
                              SQLITE_TRANSIENT);
    }
    void giveWhole(qint64 value) const { sqlite3_result_int64(context_, value); }
    void giveReal(double value) const { sqlite3_result_double(context_, value); }

 private:
    sqlite3_context* context_;
    sqlite3_value** values_;
};

QStringView withoutTrailingBlanks(QStringView text) {
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

void len(const Call& call) {
    call.giveWhole(withoutTrailingBlanks(call.text(0)).size());
}

qint64 lengthArgument(const Call& call, int i, int error) {
    const qint64 length = call.whole(i);
    if (length < 0) {
        throw serverError(error);
    }
    return length;
}

void left(const Call& call) {
    const qint64 length = lengthArgument(call, 1, server_error::InvalidLengthLeftRight);
    const QStringView text = call.text(0);
    call.giveText(text.left(std::min<qint64>(length, text.size())));
}

void right(const Call& call) {
    const qint64 length = lengthArgument(call, 1, server_error::InvalidLength);
    const QStringView text = call.text(0);
    call.giveText(text.right(std::min<qint64>(length, text.size())));
}

void patindex(const Call& call) {
    call.giveWhole(patternIndex(call.text(1), call.text(0)));
}

void like(const Call& call) {
    call.giveWhole(matchesPattern(call.text(0), call.text(1)) ? 1 : 0);
}

template <Kind kind>
void toWhole(const Call& call) {
    if (call.type(0) == SQLITE_INTEGER) {
        call.giveWhole(wholeFromWhole(call.whole(0), kind));
    } else if (call.type(0) == SQLITE_FLOAT) {
        call.giveWhole(wholeFromReal(call.real(0), kind));
    } else {
        call.giveWhole(wholeFromText(call.text(0), kind));
    }
}

void toReal(const Call& call) {
    call.giveReal(call.type(0) == SQLITE_TEXT ? realFromText(call.text(0)) : call.real(0));
}

void toDateTime(const Call& call) {
    if (call.type(0) != SQLITE_TEXT) {
        throw serverError(server_error::InvalidDate);
    }
    call.giveText(dateTimeFromText(call.text(0)));
}

void toText(const Call& call) {
    if (call.type(0) == SQLITE_FLOAT) {
        call.giveText(textFromReal(call.real(0)));
    } else {
        call.giveText(call.text(0));
    }
}

void cut(const Call& call) {
    const QStringView text = call.text(0);
    call.giveText(text.left(std::min<qint64>(call.whole(1), text.size())));
}

void fit(const Call& call) {
    call.giveText(fitted(call.text(0), static_cast<int>(call.whole(1))));
}

/// Runs one function: NULL where an argument is NULL, and an error of T-SQL left for the driver.
template <void (*function)(const Call&), int count>
void run(sqlite3_context* context, int /*given*/, sqlite3_value** values) {
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(values[i]) == SQLITE_NULL) {
            sqlite3_result_null(context);
            return;
        }
    }
    try {
        function(Call(context, values));
    } catch (const DatabaseError& error) {
        static_cast<PendingError*>(sqlite3_user_data(context))->emplace(error);
        sqlite3_result_error(context, error.what(), -1);
    }
}

struct Function {
    const char* name;
    int arguments;
    void (*run)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array functionTable = {
    Function{"tsql_len", 1, run<len, 1>},
    Function{"tsql_left", 2, run<left, 2>},
    Function{"tsql_right", 2, run<right, 2>},
    Function{"tsql_patindex", 2, run<patindex, 2>},
    Function{"tsql_like", 2, run<like, 2>},
    Function{"tsql_bit", 1, run<toWhole<Kind::Bit>, 1>},
    Function{"tsql_smallint", 1, run<toWhole<Kind::SmallInt>, 1>},
    Function{"tsql_int", 1, run<toWhole<Kind::Int>, 1>},
    Function{"tsql_bigint", 1, run<toWhole<Kind::BigInt>, 1>},
    Function{"tsql_float", 1, run<toReal, 1>},
    Function{"tsql_datetime", 1, run<toDateTime, 1>},
    Function{"tsql_nvarchar", 1, run<toText, 1>},
    Function{"tsql_cut", 2, run<cut, 2>},
    Function{"tsql_fit", 2, run<fit, 2>},
};

}  // namespace

void registerFunctions(sqlite3* database, PendingError* pending) {
    constexpr int flags = SQLITE_UTF16 | SQLITE_DETERMINISTIC;
    for (const Function& function : functionTable) {
        sqlite3_create_function_v2(database, function.name, function.arguments, flags, pending, function.run, nullptr,
                                   nullptr, nullptr);
    }
}

}  // namespace talvora::embedded
