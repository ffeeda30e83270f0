#pragma once

#include "results/ctesting.h"
#include "toolkit/grid/flexgrid.h"

#include <QString>

namespace talvora {

/// Fills a list with the records of a module, read afresh: "testingtype", "solution", "testing", "roles", "users" or
/// "position", whatever their case. An unknown module leaves the grid empty. Column 0 of every list is a hidden key,
/// and the grid's tool tip is the legend of its colours. A failing statement's error goes to the caller.
void FillModuleGrid(FlexGrid& fg, const QString& module);

/// The legend that is on a list, as rich text in its colour; empty without one.
QString ColouredLegend(const FlexGrid& fg);

/// Replaces the rows of the list of tests by these, in all of its 17 columns. Competency models are marked.
void FillTestings(FlexGrid& fg, const cTestings& testings);

/// The same with the 11 cells that a saved query shows. They enter the columns from the first on, under titles that
/// are not theirs, which is meant.
void FillSavedQuery(FlexGrid& fg, const cTestings& testings);

}  // namespace talvora
