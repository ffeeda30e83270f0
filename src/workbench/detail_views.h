#pragma once

#include "toolkit/grid/flexgrid.h"

#include <QString>

namespace talvora {

/// Fills the detail pane for the row that is current in the module's list: the questions of a paper ("testingtype"),
/// or every paper of a test with its answers ("testing"). Other modules, a list without a current row, and a type
/// instead of a paper leave the pane empty. A failing statement's error goes to the caller; so does RuntimeError 6 for
/// a test whose number has more than 16 bits.
void FillDetailGrid(const QString& module, const FlexGrid& list, FlexGrid& detail);

}  // namespace talvora
