#pragma once

#include "platform/database/odbc/odbc_api.h"
#include "platform/runtime_error.h"

namespace talvora::odbc {

/// An ODBC handle, freed with the object. It must outlive the handles that were made from it.
class Handle {
 public:
    /// An environment, for ODBC 3. Throws DatabaseError.
    Handle();
    /// A connection (SQL_HANDLE_DBC) or statement (SQL_HANDLE_STMT) of `parent`. Throws DatabaseError.
    Handle(SQLSMALLINT type, const Handle& parent);
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle();

    SQLHANDLE get() const { return handle_; }

    /// What the driver says about the call on this handle that has just failed: the words of all its records, without
    /// the names of drivers in front; the number is the first that a record bears. Mere warnings are left out where
    /// there is an error beside them. The state of a lost link is 08S01, whatever the driver says.
    DatabaseError failure() const;

    /// Throws `failure` unless `result` is a success. SQL_NO_DATA is one: it is how a statement answers that
    /// returns no rows.
    void check(SQLRETURN result) const;

 private:
    bool isLinkLost() const;

    SQLSMALLINT type_;
    const Handle* parent_;
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// `message` without the bracketed names of driver manager, driver and server that stand in front of the words.
QString plainMessage(const QString& message);

}  // namespace talvora::odbc
