#pragma once

#include "platform/database/odbc/odbc_handle.h"
#include "platform/database/recordset.h"

#include <vector>

namespace talvora::odbc {

/// Walks all results of the statement that has just run on `statement` and brings the rows of the first that has
/// columns. Whole numbers and bits become whole cells, every kind of number with a fraction a real one, dates and
/// moments the text "yyyy-mm-dd" or "yyyy-mm-dd hh:mm:ss", all else text.
/// Throws DatabaseError, also when a later result is a failure.
Recordset readResults(const Handle& statement);

/// The same for several selects sent together: the rows of each result that has columns.
std::vector<Recordset> readAllResults(const Handle& statement);

}  // namespace talvora::odbc
