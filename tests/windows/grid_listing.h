#pragma once

#include "toolkit/flexgrid.h"

#include <QString>

namespace talvora::test {

/// The rows of a grid as text, one a line: the level of an outline node or "-", the cells parted by "|", and the
/// colour that marks the whole row. Empty cells at its end are left out.
QString listing(const FlexGrid& grid);

/// L or R for each column.
QString alignments(const FlexGrid& grid);

}  // namespace talvora::test
