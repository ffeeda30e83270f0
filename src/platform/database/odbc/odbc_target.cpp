#include "platform/database/odbc/odbc_target.h"

#include "platform/runtime_error.h"

#include <QRegularExpression>

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

/// "key=value;" with the value in braces where it would not stand alone.
QString piece(QLatin1StringView key, const QString& value) {
    if (value.contains(QChar::Null)) {
        throw DatabaseError(0, u"The connection's %1 holds a NUL character"_s.arg(key), u"IM012"_s);
    }
    static const QRegularExpression special(u"[;={}]|^\\s|\\s$"_s);
    if (!value.contains(special)) {
        return key + u'=' + value + u';';
    }
    return key + "={"_L1 + QString(value).replace(u'}', "}}"_L1) + "};"_L1;
}

/// The server as FreeTDS takes it: it knows neither the protocol in front nor the names for this machine, and wants
/// the port apart.
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
        return piece("SERVER"_L1, host + instance);
    }
    if (comma >= 0 && port.toUShort() == 0) {
        throw DatabaseError(0, u"The server's port is no port number: %1"_s.arg(dataSource), u"08001"_s);
    }
    return piece("SERVER"_L1, host) + piece("PORT"_L1, comma < 0 ? u"1433"_s : port);
}

}  // namespace

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
    const QString login =
        piece("UID"_L1, parts.userId) + piece("PWD"_L1, parts.password) + piece("DATABASE"_L1, parts.initialCatalog);
    if (driver == freeTds) {
        return "DRIVER=FreeTDS;"_L1 + freeTdsServer(parts.dataSource) + login +
               "TDS_Version=7.4;ClientCharset=UTF-8;"_L1;
    }
    const QString common = "DRIVER={"_L1 + driver + "};"_L1 + piece("SERVER"_L1, parts.dataSource.trimmed()) + login;
    constexpr int demandsEncryption = 18;
    const int version = microsoftVersion(driver);
    // A server inside an organisation seldom has a certificate that the workstations trust; from version 18 on the
    // driver would refuse such a server unless told not to.
    return common + (version > 0 ? "TrustServerCertificate=yes;"_L1 : ""_L1) +
           (version >= demandsEncryption ? "Encrypt=optional;"_L1 : ""_L1);
}

}  // namespace talvora::odbc
