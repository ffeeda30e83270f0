#pragma once

#include "toolkit/grid/flexgrid.h"

namespace talvora {

/// The weights of a model, worked out of the scores that stand in the editor's grid (see solution_grid.h) and written
/// into it. Nothing here is called but by the commands that are to change a weight: all other weights stay as they are.

/// The sum of the dimensions' scores. A score that is no number counts as 0.
double SumDimensionScores(const FlexGrid& grid);

/// The sum of the element scores on the rows of the dimension with this code of three digits.
double SumElementScores(const FlexGrid& grid, const QString& code);

/// Writes the weight of every dimension: its share of the scores' sum.
void weighDimensions(FlexGrid& grid);

/// Writes the weights of elements: their shares of their dimension's weight as that stands in the grid, rounded. They
/// are those of the rows whose text in column `by` begins with `code`.
void weighElements(FlexGrid& grid, const QString& code, int by);

}  // namespace talvora
