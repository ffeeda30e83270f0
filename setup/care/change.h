#pragma once

#include "platform/database/connection.h"

#include <QString>

#include <functional>

namespace talvora {

/// Told in words of long work as it goes.
using Tidings = std::function<void(const QString& step)>;

/// Runs `work` in one transaction that no other session's rows slip into: all of it is done, or nothing.
void changeAsOne(Connection& connection, const std::function<void()>& work);

/// Throws RuntimeError 5 when the table has columns beyond our own: work that writes its rows anew would lose them.
void requireOwnColumns(Connection& connection, const QString& table);

}  // namespace talvora
