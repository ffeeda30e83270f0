#include "platform/database/odbc/odbc_target.h"

#include "platform/database/odbc/odbc_handle.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace talvora::odbc {

using namespace Qt::StringLiterals;

namespace {

constexpr auto freeTds = "FreeTDS"_L1;
constexpr auto oldMicrosoft = "SQL Server"_L1;

/// The number of "ODBC Driver NN for SQL Server", 0 for every other driver.
int microsoftVersion(const QString& driver) {
    static const QRegularExpression form(u"^ODBC Driver (\\d+) for SQL Server$"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    return form.match(driver).captured(1).toInt();
}

void refuse(QLatin1StringView key, const QString& what) {
    const QString part = key == "UID"_L1        ? u"登录名"_s
                         : key == "PWD"_L1      ? u"密码"_s
                         : key == "DATABASE"_L1 ? u"数据库"_s
                                                : u"服务器"_s;
    throw DatabaseError(0, u"［%1］中不可有%2，请更改！"_s.arg(part, what), u"IM012"_s);
}

/// "key=value;", the value in braces where it would not stand alone.
QString piece(QLatin1StringView key, const QString& value) {
    if (value.contains(QChar::Null)) {
        refuse(key, u"空字符"_s);
    }
    static const QRegularExpression special(u"[;={}]|^\\s|\\s$"_s);
    if (!value.contains(special)) {
        return key + u'=' + value + u';';
    }
    return key + "={"_L1 + QString(value).replace(u'}', "}}"_L1) + "};"_L1;
}

/// The same for FreeTDS, which takes a brace inside the value as it stands: a doubled one would become part of a
/// password. What it cannot be told at all is refused, so that the reason is seen.
QString freeTdsPiece(QLatin1StringView key, const QString& value) {
    static const QRegularExpression special(u"^[{\\s]|;|\\s$"_s);
    const bool braced = value.contains(special);
    if (value.contains(QChar::Null)) {
        refuse(key, u"空字符"_s);
    }
    if (braced && value.contains("};"_L1)) {
        refuse(key, u"字样“};”"_s);
    }
    return braced ? key + "={"_L1 + value + "};"_L1 : key + u'=' + value + u';';
}

/// The server as FreeTDS takes it: it knows neither the protocol in front nor the names for this machine, and wants
/// the port apart. Throws DatabaseError when that is no port.
QString freeTdsServer(const QString& dataSource) {
    QString server = dataSource.trimmed();
    if (server.startsWith("tcp:"_L1, Qt::CaseInsensitive)) {
        server.remove(0, 4);
    }
    const qsizetype comma = server.indexOf(u',');
    const QString port = comma < 0 ? QString() : server.sliced(comma + 1).trimmed();
    QString host = comma < 0 ? server : server.first(comma).trimmed();
    const qsizetype backslash = host.indexOf(u'\\');
    QString instance = backslash < 0 ? QString() : host.sliced(backslash);
    host = backslash < 0 ? host : host.first(backslash);
    if (host == "."_L1 || host.compare("(local)"_L1, Qt::CaseInsensitive) == 0) {
        host = u"localhost"_s;
    }
    if (comma < 0 && !instance.isEmpty()) {
        // The instance's port is asked from the server's browser service.
        return freeTdsPiece("SERVER"_L1, host + instance);
    }
    if (comma >= 0 && port.toUShort() == 0) {
        throw DatabaseError(0, u"［服务器］%1 中的端口不是端口号，请写作 主机,端口！"_s.arg(dataSource), u"08001"_s);
    }
    return freeTdsPiece("SERVER"_L1, host) + freeTdsPiece("PORT"_L1, comma < 0 ? u"1433"_s : port);
}

}  // namespace

QStringList installedDrivers() {
    constexpr SQLSMALLINT longest = 256;
    const Handle environment;
    QStringList names;
    std::array<SQLWCHAR, longest> name{};
    std::array<SQLWCHAR, longest> attributes{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT attributesLength = 0;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    while (SQL_SUCCEEDED(SQLDriversW(environment.get(), direction, name.data(), longest, &nameLength, attributes.data(),
                                     longest, &attributesLength))) {
        names << fromWide(name.data(), std::min<qsizetype>(nameLength, longest - 1));
        direction = SQL_FETCH_NEXT;
    }
    return names;
}

QString bestDriver(const QStringList& installed) {
    QString best;
    const auto rank = [](const QString& driver) {
        constexpr int freeTdsRank = 2;
        if (const int version = microsoftVersion(driver); version > 0) {
            return freeTdsRank + version;
        }
        return driver == freeTds ? freeTdsRank : driver == oldMicrosoft ? 1 : 0;
    };
    for (const QString& driver : installed) {
        if (rank(driver) > rank(best)) {
            best = driver;
        }
    }
    return best;
}

QString driverConnectionString(const QString& driver, const ConnectionParts& parts) {
    if (driver == freeTds) {
        return "DRIVER=FreeTDS;"_L1 + freeTdsServer(parts.dataSource) + freeTdsPiece("UID"_L1, parts.userId) +
               freeTdsPiece("PWD"_L1, parts.password) + freeTdsPiece("DATABASE"_L1, parts.initialCatalog) +
               "TDS_Version=7.4;ClientCharset=UTF-8;"_L1;
    }
    QString text = "DRIVER={"_L1 + driver + "};"_L1 + piece("SERVER"_L1, parts.dataSource.trimmed()) +
                   piece("UID"_L1, parts.userId) + piece("PWD"_L1, parts.password) +
                   piece("DATABASE"_L1, parts.initialCatalog);
    // A server inside an organisation seldom has a certificate that the workstations trust; from version 18 on the
    // driver would refuse such a server unless told not to.
    constexpr int demandsEncryption = 18;
    if (const int version = microsoftVersion(driver); version > 0) {
        text += "TrustServerCertificate=yes;"_L1;
        text += version >= demandsEncryption ? "Encrypt=optional;"_L1 : ""_L1;
    }
    return text;
}

}  // namespace talvora::odbc
