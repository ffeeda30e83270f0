#pragma once

#include "models/solution_grid.h"

namespace talvora::solution {

/// The weights of a model, worked out of the scores that stand in the editor's grid and written into it. Nothing here
/// is called but by the commands that are to change a weight: all other weights stay as they are.

/// The sum of the dimensions' scores. A score that is no number counts as 0.
double SumDimensionScores(const FlexGrid& grid);

/// The sum of the element scores on the rows of the dimension with this code of three digits.
double SumElementScores(const FlexGrid& grid, const QString& code);

/// Writes the weight of every dimension: its share of the scores' sum.
void weighDimensions(FlexGrid& grid);

/// Writes the weights of the elements on the rows of the dimension with this code: their shares of their dimension's
/// weight as that stands in the grid, rounded.
void weighElementsOnRowsOf(FlexGrid& grid, const QString& code);

/// The same for the elements whose own codes begin with this code, whichever dimension's row they stand on.
void weighElementsCodedUnder(FlexGrid& grid, const QString& code);

}  // namespace talvora::solution
