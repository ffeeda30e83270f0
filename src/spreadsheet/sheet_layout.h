#pragma once

#include "spreadsheet/workbook.h"

#include <vector>

namespace talvora {

/// The size of a sheet's pixel: a 96th of an inch.
inline constexpr double PixelsForMillimetre = 96 / 25.4;

/// The measures of a sheet in pixels (see PixelsForMillimetre): columns as wide as their texts, within what a page
/// bears, and rows as high as the texts that are broken into lines. The file, the window and the paper have the same.
class SheetLayout {
 public:
    static constexpr int DefaultWidth = 64;
    static constexpr int DefaultHeight = 20;
    static constexpr int CellPadding = 4;  ///< on the left and the right of a text

    explicit SheetLayout(const Workbook& workbook);

    /// Of any column and row, those that lie behind the last one used too.
    int columnWidth(int column) const;
    int rowHeight(int row) const;
    int width() const;
    /// From the left or upper edge of the first of the columns or rows to the far edge of the last; any, as above.
    int widthOf(const CellRange& cells) const;
    int heightOf(const CellRange& cells) const;
    /// Whether the cell's text is broken into lines. Texts without a box flow over the empty cells beside them.
    bool wraps(const Workbook& workbook, int row, int column) const;

 private:
    void fitColumns(const Workbook& workbook);
    void shareWidth(const std::vector<int>& natural);
    void fitRows(const Workbook& workbook);

    std::vector<int> widths_;
    std::vector<int> heights_;
    // Columns in which a text is wider than its place or has several lines; the texts of the others need no second
    // look.
    std::vector<char> mayBreak_;
};

/// The rows of one page, and the row that stands above them once more (0 for none).
struct SheetPage {
    int first = 0;
    int last = 0;
    int headRow = 0;
};

/// Breaks the sheet into pages of this height. The rows of a block stay on one page if they fit on one.
std::vector<SheetPage> sheetPages(const Workbook& workbook, const SheetLayout& layout, double height);

/// A page of A4 for a sheet: which way it lies, and how much smaller than life the sheet is printed.
struct SheetPaper {
    static constexpr double MarginMillimetres = 12;
    static constexpr double FooterMillimetres = 8;  ///< of the lower margin's upper neighbour, for the page number

    bool landscape = false;
    double scale = 1;       ///< of a pixel, at most 1
    double pageHeight = 0;  ///< the room for rows, in the sheet's pixels
};

SheetPaper sheetPaper(const SheetLayout& layout);

/// What is told of a page's place among the others, on paper and on the screen.
QString pageWords(const QString& page, const QString& pages);

}  // namespace talvora
