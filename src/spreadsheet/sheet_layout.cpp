#include "spreadsheet/sheet_layout.h"

#include <algorithm>
#include <numeric>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// A digit and a Chinese character of 11 points in the widest of the fonts that spreadsheet programs take for them.
constexpr int NarrowWidth = 8;
constexpr int WideWidth = 15;
constexpr int MinWidth = 40;
constexpr int MaxWidth = 400;
// Down to this a column gives way so that the sheet goes on a page.
constexpr int GivingWidth = 112;
constexpr int WidthStep = 8;
// What A4 across bears at two thirds of the size.
constexpr int BearableWidth = 1600;
// Of a text that is broken into lines; the Chinese fonts want more room than the Latin ones.
constexpr int LineHeight = 23;
// The highest row of a spreadsheet.
constexpr int MaxHeight = 545;

struct TextMeasure {
    int width = 0;  ///< of the longest line
    int lines = 1;  ///< when broken at the width given
};

// Lines are broken at any character; a space for one more is left for what keeps words together.
TextMeasure measure(const char* text, int size, int breakAt = MaxSheetColumn * MaxWidth) {
    constexpr unsigned char firstWideLead = 0xE0;
    constexpr unsigned char firstLead = 0xC0;
    constexpr unsigned char firstFollowing = 0x80;
    constexpr int standardSize = 11;
    TextMeasure result;
    int line = 0;
    const int narrow = NarrowWidth * size / standardSize;
    const int wide = WideWidth * size / standardSize;
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (byte == '\n') {
            ++result.lines;
            line = 0;
            continue;
        }
        if (byte >= firstFollowing && byte < firstLead) {
            continue;
        }
        const int step = byte >= firstWideLead ? wide : narrow;
        if (line + step > breakAt) {
            ++result.lines;
            line = 0;
        }
        line += step;
        result.width = std::max(result.width, line);
    }
    return result;
}

// What a text of this width takes in a cell. Digits of some fonts are a fraction of a pixel wider.
int roomFor(int width) {
    constexpr int fraction = 24;
    return width > 0 ? width + width / fraction + 2 * SheetLayout::CellPadding : 0;
}

TextMeasure measureCell(const Workbook& workbook, int row, int column) {
    const Cell& cell = workbook.cell(row, column);
    switch (cell.kind) {
        case Cell::Kind::Text:
            return measure(cell.text, cell.format.size);
        case Cell::Kind::Number:
            return {static_cast<int>(workbook.text(row, column).size()) * NarrowWidth, 1};
        case Cell::Kind::Empty:
            break;
    }
    return {};
}

}  // namespace

SheetLayout::SheetLayout(const Workbook& workbook)
    : widths_(static_cast<std::size_t>(workbook.columns()), DefaultWidth),
      heights_(static_cast<std::size_t>(workbook.rows()), DefaultHeight),
      mayBreak_(static_cast<std::size_t>(workbook.columns()), false) {
    fitColumns(workbook);
    fitRows(workbook);
}

void SheetLayout::fitColumns(const Workbook& workbook) {
    std::vector<int> natural(widths_.size(), 0);
    for (int row = 1; row <= workbook.rows(); ++row) {
        for (int column = 1; column <= workbook.columns(); ++column) {
            if (!workbook.cell(row, column).format.boxed) {
                continue;
            }
            const auto at = static_cast<std::size_t>(column - 1);
            const TextMeasure text = measureCell(workbook, row, column);
            mayBreak_[at] = mayBreak_[at] || text.lines > 1;
            if (const int width = roomFor(text.width); width > natural[at]) {
                // A text over several columns asks each for its share.
                const CellRange cells = workbook.mergeAt(row, column);
                const int columns = cells.column2 - cells.column + 1;
                for (int each = cells.column; each <= cells.column2; ++each) {
                    int& widest = natural[static_cast<std::size_t>(each - 1)];
                    widest = std::max(widest, (width + columns - 1) / columns);
                }
            }
        }
    }
    shareWidth(natural);
}

void SheetLayout::shareWidth(const std::vector<int>& natural) {
    int limit = MaxWidth + WidthStep;
    int sum = 0;
    do {
        limit -= WidthStep;
        sum = 0;
        for (std::size_t at = 0; at < natural.size(); ++at) {
            widths_[at] = natural[at] == 0 ? DefaultWidth : std::clamp(natural[at], MinWidth, limit);
            sum += widths_[at];
        }
    } while (sum > BearableWidth && limit > GivingWidth);
    for (std::size_t at = 0; at < natural.size(); ++at) {
        mayBreak_[at] = mayBreak_[at] || natural[at] > widths_[at];
    }
}

void SheetLayout::fitRows(const Workbook& workbook) {
    for (int row = 1; row <= workbook.rows(); ++row) {
        int& height = heights_[static_cast<std::size_t>(row - 1)];
        for (int column = 1; column <= workbook.columns(); ++column) {
            const Cell& cell = workbook.cell(row, column);
            if (cell.kind == Cell::Kind::Empty) {
                continue;
            }
            constexpr int pixelsForPoint = 2;
            height = std::max(height, cell.format.size * pixelsForPoint - 2);
            if (wraps(workbook, row, column)) {
                const int room = widthOf(workbook.mergeAt(row, column)) - 2 * CellPadding - NarrowWidth;
                const int lines = measure(cell.text, cell.format.size, room).lines;
                height = std::clamp(lines * LineHeight, height, MaxHeight);
            }
        }
    }
}

int SheetLayout::columnWidth(int column) const {
    const auto at = static_cast<std::size_t>(column - 1);
    return at < widths_.size() ? widths_[at] : DefaultWidth;
}

int SheetLayout::rowHeight(int row) const {
    const auto at = static_cast<std::size_t>(row - 1);
    return at < heights_.size() ? heights_[at] : DefaultHeight;
}

int SheetLayout::width() const {
    return std::accumulate(widths_.begin(), widths_.end(), 0);
}

int SheetLayout::widthOf(const CellRange& cells) const {
    int width = 0;
    for (int column = cells.column; column <= cells.column2; ++column) {
        width += columnWidth(column);
    }
    return width;
}

int SheetLayout::heightOf(const CellRange& cells) const {
    int height = 0;
    for (int row = cells.row; row <= cells.row2; ++row) {
        height += rowHeight(row);
    }
    return height;
}

bool SheetLayout::wraps(const Workbook& workbook, int row, int column) const {
    const auto at = static_cast<std::size_t>(column - 1);
    if (at >= mayBreak_.size() || !mayBreak_[at]) {
        return false;
    }
    const Cell& cell = workbook.cell(row, column);
    if (cell.kind != Cell::Kind::Text || !cell.format.boxed) {
        return false;
    }
    const TextMeasure text = measure(cell.text, cell.format.size);
    return text.lines > 1 || roomFor(text.width) > widthOf(workbook.mergeAt(row, column));
}

SheetPaper sheetPaper(const SheetLayout& layout) {
    constexpr double shortSide = 210;
    constexpr double longSide = 297;
    const auto room = [](double side) { return (side - 2 * SheetPaper::MarginMillimetres) * PixelsForMillimetre; };
    SheetPaper paper;
    paper.landscape = layout.width() > room(shortSide);
    const double width = room(paper.landscape ? longSide : shortSide);
    const double height =
        room(paper.landscape ? shortSide : longSide) - SheetPaper::FooterMillimetres * PixelsForMillimetre;
    paper.scale = layout.width() > width ? width / layout.width() : 1;
    paper.pageHeight = height / paper.scale;
    return paper;
}

QString pageWords(const QString& page, const QString& pages) {
    return u"第 %1 页，共 %2 页"_s.arg(page, pages);
}

namespace {

// Breaks a sheet into pages from its first row on.
class Pager {
 public:
    Pager(const Workbook& workbook, const SheetLayout& layout, double height)
        : workbook_(workbook), layout_(layout), height_(height) {}

    std::vector<SheetPage> pages() {
        const auto& blocks = workbook_.blocks();
        auto block = blocks.begin();
        for (int row = 1; row <= workbook_.rows(); ++row) {
            while (block != blocks.end() && block->last < row) {
                ++block;
            }
            const bool within = block != blocks.end() && block->first <= row;
            const double wanted = within && block->first == row ? wantedBy(*block) : layout_.rowHeight(row);
            if (page_.first > 0 && taken_ + wanted > height_ &&
                (hasBlock_ || taken_ + layout_.rowHeight(row) > height_)) {
                close();
            }
            if (page_.first == 0) {
                if (!within && isEmpty(row)) {
                    continue;
                }
                open(row, within ? block->headRow : 0);
            }
            hasBlock_ = hasBlock_ || within;
            taken_ += layout_.rowHeight(row);
            page_.last = row;
        }
        close();
        return pages_;
    }

 private:
    void open(int row, int headOfBlock) {
        const int head = headOfBlock > 0 ? headOfBlock : workbook_.repeatedRow();
        page_ = {row, row, head > 0 && head < row ? head : 0};
        taken_ = page_.headRow > 0 ? layout_.rowHeight(page_.headRow) : 0;
    }
    void close() {
        if (page_.first > 0) {
            pages_.push_back(page_);
        }
        page_ = {};
        hasBlock_ = false;
    }
    // The room that a block wants to begin on a page: all of it, or that of its first rows if it is longer than a page.
    double wantedBy(const RowBlock& block) const {
        const double whole = layout_.heightOf({block.first, 1, block.last, 1});
        const int start = std::min(block.last, std::max(block.first, block.headRow) + 2);
        return whole <= height_ ? whole : layout_.heightOf({block.first, 1, start, 1});
    }
    bool isEmpty(int row) const {
        for (int column = 1; column <= workbook_.columns(); ++column) {
            if (!workbook_.isEmpty(row, column)) {
                return false;
            }
        }
        return true;
    }

    const Workbook& workbook_;
    const SheetLayout& layout_;
    double height_;
    double taken_ = 0;
    bool hasBlock_ = false;  // a title alone on a page would look lost
    SheetPage page_;
    std::vector<SheetPage> pages_;
};

}  // namespace

std::vector<SheetPage> sheetPages(const Workbook& workbook, const SheetLayout& layout, double height) {
    return Pager(workbook, layout, height).pages();
}

}  // namespace talvora
