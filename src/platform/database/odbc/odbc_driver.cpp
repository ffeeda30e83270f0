#include "platform/database/odbc/odbc_driver.h"

#include "platform/database/odbc/odbc_handle.h"
#include "platform/database/odbc/odbc_rows.h"
#include "platform/database/odbc/odbc_target.h"
#include "platform/database/server/server_session.h"

#include <cstdint>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

using odbc::Handle;

/// A number where the API takes a pointer.
SQLPOINTER asPointer(std::uintptr_t number) {
    return reinterpret_cast<SQLPOINTER>(number);
}

class OdbcDriver final : public Driver {
 public:
    OdbcDriver(const QString& driverConnectionString, int timeoutSeconds)
        : connection_(SQL_HANDLE_DBC, environment_), timeoutSeconds_(timeoutSeconds) {
        constexpr std::uintptr_t loginSeconds = 15;
        // A driver without a login time-out connects without one.
        SQLSetConnectAttrW(connection_.get(), SQL_ATTR_LOGIN_TIMEOUT, asPointer(loginSeconds), 0);
        SQLSMALLINT length = 0;
        connection_.check(SQLDriverConnectW(connection_.get(), nullptr, odbc::wide(driverConnectionString),
                                            static_cast<SQLSMALLINT>(driverConnectionString.size()), nullptr, 0,
                                            &length, SQL_DRIVER_NOPROMPT));
    }

    ~OdbcDriver() override { SQLDisconnect(connection_.get()); }

    Recordset execute(const QString& statement) override {
        const Handle handle(SQL_HANDLE_STMT, connection_);
        send(handle, statement);
        return odbc::readResults(handle);
    }

    std::vector<Recordset> executeTogether(const QStringList& statements) override {
        const Handle handle(SQL_HANDLE_STMT, connection_);
        send(handle, statements.join(u'\n'));
        return odbc::readAllResults(handle);
    }
    // Transactions go as statements, and the driver stays in the autocommit mode that it starts in. Its own way of
    // ending one would leave it astray once the server has rolled a transaction back by itself, as it does for a
    // failing conversion or a deadlock: FreeTDS then believes itself in a transaction for good, and begins no other.
    void beginTransaction() override { execute(u"begin transaction"_s); }
    void commitTransaction() override { execute(u"commit transaction"_s); }
    void rollbackTransaction() override { execute(u"rollback transaction"_s); }

 private:
    void send(const Handle& handle, const QString& statement) {
        // Both are passed over by a driver that does not know them. The text goes to the server as it stands: a
        // brace in it is no escape.
        SQLSetStmtAttrW(handle.get(), SQL_ATTR_QUERY_TIMEOUT, asPointer(static_cast<std::uintptr_t>(timeoutSeconds_)),
                        0);
        SQLSetStmtAttrW(handle.get(), SQL_ATTR_NOSCAN, asPointer(SQL_NOSCAN_ON), 0);
        handle.check(SQLExecDirectW(handle.get(), odbc::wide(statement), static_cast<SQLINTEGER>(statement.size())));
    }

    Handle environment_;
    Handle connection_;
    int timeoutSeconds_;
};

}  // namespace

std::unique_ptr<Driver> openOdbc(const ConnectionParts& parts, int timeoutSeconds) {
    const QString driver = odbc::bestDriver(odbc::installedDrivers());
    if (driver.isEmpty()) {
        throw DatabaseError(0, u"本机没有安装 SQL Server 的 ODBC 驱动程序，请先安装“ODBC Driver 18 for SQL Server”！"_s,
                            u"IM002"_s);
    }
    const QString target = odbc::driverConnectionString(driver, parts);
    const auto open = [target, timeoutSeconds] { return openOdbcWith(target, timeoutSeconds); };
    return std::make_unique<ServerSession>(open, parts.dataSource, timeoutSeconds);
}

std::unique_ptr<Driver> openOdbcWith(const QString& driverConnectionString, int timeoutSeconds) {
    return std::make_unique<OdbcDriver>(driverConnectionString, timeoutSeconds);
}

}  // namespace talvora
