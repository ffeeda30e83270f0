#pragma once

#include "platform/database/embedded/translator.h"
#include "platform/database/recordset.h"

struct sqlite3_stmt;

namespace talvora::embedded {

/// Binds the literals of a statement to their parameters, each converted as T-SQL converts a literal. The texts are
/// not copied: the literals must outlive the run. Throws DatabaseError for one that cannot be converted.
void bindParameters(sqlite3_stmt* statement, const std::vector<Parameter>& parameters,
                    const std::vector<Literal>& literals);

/// Appends one cell of the current row of `statement` to `rows`.
void addCell(Recordset& rows, sqlite3_stmt* statement, int column);

}  // namespace talvora::embedded
