#pragma once

#include <QtGlobal>

namespace talvora {

/// Where a text stands in its cell, across and down. The numbers are those that lists are set up with.
enum class GridAlign : qint8 {
    LeftTop = 0,
    LeftCenter = 1,
    LeftBottom = 2,
    CenterTop = 3,
    CenterCenter = 4,
    CenterBottom = 5,
    RightTop = 6,
    RightCenter = 7,
    RightBottom = 8,
};

/// What a column's texts stand for: plain text, or a truth value that is shown as a check box.
enum class GridDataType : qint8 { Text = 0, Boolean = 11 };

/// Whether an outline is drawn: not at all, or as a tree with lines and leaves.
enum class GridOutlineBar : qint8 { None = 0, CompleteLeaf = 4 };

/// Whether equal neighbours are drawn as one cell: not at all, or wherever they are equal. Only columns marked by
/// setMergeCol and header rows marked by setMergeRow take part, and empty cells never merge.
enum class GridMerge : qint8 { Never = 0, Free = 1 };

/// A block of cells, both ends included, in grid row and column numbers.
struct GridRange {
    int row = 0;
    int col = 0;
    int row2 = 0;
    int col2 = 0;
};

}  // namespace talvora
