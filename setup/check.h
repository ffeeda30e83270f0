#pragma once

#include "platform/database/connection.h"

#include <QString>

#include <vector>

namespace talvora {

/// One finding of the check, in words for the user.
struct CheckItem {
    bool isGood = false;
    QString text;
    bool isWarning = false;  ///< good as yet, but an end is near
};

/// Whether the database has all that the program rests on: tables and columns, catalogue rows, options, the system role
/// and the system user, and a collation that minds neither case nor width. And how far it is
/// from its ends: the keys that the client takes, and the answers of one paper that a server rescores in time. Writes
/// nothing. A failing statement becomes
/// a finding.
std::vector<CheckItem> checkDatabase(Connection& connection);

/// The findings as lines for the user, with the verdict at the end.
QString checkText(const std::vector<CheckItem>& items);

/// Whether every finding is good.
bool isComplete(const std::vector<CheckItem>& items);

}  // namespace talvora
