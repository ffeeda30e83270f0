#pragma once

#include "models/cdimension.h"
#include "toolkit/grid/flexgrid.h"

namespace talvora {

/// The columns of the model editor's grid. Below its two header rows stands a row for each element; a dimension's
/// columns are the same on each of its rows, and a dimension without elements has one row to itself.
namespace solution {

inline constexpr int FirstRow = 2;

inline constexpr int DimensionCol = 0;  ///< three digits, a blank, the name
inline constexpr int DimensionScoreCol = 1;
inline constexpr int DimensionWeightCol = 2;  ///< percentage text, as "33.33%"
inline constexpr int ElementCol = 3;          ///< six digits, a blank, the name
inline constexpr int ElementScoreCol = 4;
inline constexpr int ElementWeightCol = 5;

/// A weight as the grid writes it: 0.3333 is "33.33%", 1 is "100.%", 0 is ".%".
QString percentText(double share);

/// Gives the grid its titles, its merging and no lines.
void setUpGrid(FlexGrid& fg);

/// Fills the empty grid with stored lines in the order of their codes.
void showLines(FlexGrid& fg, const cDimensions& lines);

/// Whether `row` is the first one of a dimension.
bool isFirstRow(const FlexGrid& fg, int row);

/// The three digits of the row's dimension.
QString dimensionCode(const FlexGrid& fg, int row);

/// The three digits of the dimension that a line belongs to.
QString dimensionCodeOf(const cDimension& line);

/// The dimensions in the grid, or both kinds of lines, dimensions first, as the dialogs and the record take them. ID
/// is the grid row, for an element 1000 more. A row without an element makes no line.
cDimensions dimensionLines(const FlexGrid& fg);
cDimensions modelLines(const FlexGrid& fg);

/// The dimension or the element in `row` as a line; the element with empty code and name when there is none.
std::shared_ptr<cDimension> dimensionLine(const FlexGrid& fg, int row);
std::shared_ptr<cDimension> elementLine(const FlexGrid& fg, int row);

/// Adds a dimension at the bottom.
void appendDimension(FlexGrid& fg, const cDimension& line);

/// Writes code, name and score of an element into `row`.
void writeElement(FlexGrid& fg, int row, const cDimension& line);

/// Writes an element into the first free row of its dimension, or into a new one behind the dimension's last, and gives
/// that row. The row that a cursor is on keeps its number.
int placeElement(FlexGrid& fg, const cDimension& line);

/// Removes rows of a dimension: up to three at the bottom of the grid go whole, but of more there, and of several
/// higher up, some stay.
void removeDimension(FlexGrid& fg, const QString& code);

}  // namespace solution
}  // namespace talvora
