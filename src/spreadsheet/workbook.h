#pragma once

#include "spreadsheet/text_store.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace talvora {

/// A block of cells of a sheet, both ends included, rows and columns numbered from 1.
struct CellRange {
    int row = 0;
    int column = 0;
    int row2 = 0;
    int column2 = 0;

    bool contains(int atRow, int atColumn) const {
        return atRow >= row && atRow <= row2 && atColumn >= column && atColumn <= column2;
    }
};

/// How a cell looks.
struct CellFormat {
    quint8 size = 11;  ///< of the font, in points
    bool bold : 1 = false;
    bool shaded : 1 = false;  ///< grey ground
    bool boxed : 1 = false;   ///< thin lines on all four sides
    bool left : 1 = false;    ///< texts and numbers alike; else texts stand left and numbers right
    bool middle : 1 = false;  ///< centred in height, else at the bottom
    bool text : 1 = false;    ///< what is typed into the cell stays text, as with a leading '

    bool operator==(const CellFormat&) const = default;
};

/// A cell: a text in UTF-8, a number, or nothing.
struct Cell {
    enum class Kind : quint8 { Empty, Text, Number };

    union {
        const char* text = nullptr;
        double number;
    };
    CellFormat format;
    Kind kind = Kind::Empty;
    bool merged = false;
};

/// Rows that belong together on a page, and the one among them that is repeated where they go on over a page.
struct RowBlock {
    int first = 0;
    int last = 0;
    int headRow = 0;  ///< 0 for none
};

/// The last row and column that the format .xlsx knows.
inline constexpr int MaxSheetRow = 1'048'576;
inline constexpr int MaxSheetColumn = 16'384;

/// A spreadsheet of one sheet, filled by the operations of a spreadsheet program: cells are set by row and column,
/// looks are given to the current selection. It holds 100,000 rows of 16 cells in about 40 bytes a cell.
///
/// What a spreadsheet program refuses is RuntimeError 1004: a cell outside the sheet, a text of over 32,767
/// characters, an address that is none.
class Workbook {
 public:
    static constexpr int Refused = 1004;

    /// Writes a cell. A leading ' makes what follows a text, and is not part of it; otherwise a text that spells a
    /// number becomes one if the sheet shows it with the same characters. So "007", an identity number and a date
    /// stay as they are.
    void SetCell(int row, int column, const QString& value);
    void SetCell(int row, int column, double value);

    /// Selects a block of cells, told by numbers or as "A2" or "A2:C5". The selection stays when that is none.
    void SelectRange(const CellRange& cells);
    void SelectRange(const QString& address);
    void SetFont(bool bold, int points);
    void Shade();
    void Box();
    /// Makes the selection one cell, with the content of its first. What it overlaps is RuntimeError 1004.
    void Merge();
    void AlignLeft();
    void AlignMiddle();

    /// How the sheet goes on paper: a row that stands on top of each page, or rows that share one if they fit.
    void RepeatRow(int row) { repeatedRow_ = row; }
    void KeepTogether(const RowBlock& block) { blocks_.push_back(block); }

    /// The last row and column that hold anything, a look included. 0 for an empty sheet.
    int rows() const { return static_cast<int>(rows_.size()); }
    int columns() const { return columns_; }

    /// The bytes of all texts, those that were written over included.
    qsizetype textBytes() const { return texts_.bytes(); }

    /// A plain empty cell outside the sheet. Stays in place until the sheet is written to.
    const Cell& cell(int row, int column) const;
    /// What a cell shows.
    QString text(int row, int column) const;
    /// The cell's text in UTF-8, nullptr when it holds a number or nothing.
    const char* utf8(int row, int column) const;
    std::optional<double> number(int row, int column) const;
    bool isEmpty(int row, int column) const { return cell(row, column).kind == Cell::Kind::Empty; }
    CellFormat format(int row, int column) const { return cell(row, column).format; }

    const std::vector<CellRange>& merges() const { return merges_; }
    /// The merged cell that covers this one, or the cell itself.
    CellRange mergeAt(int row, int column) const;
    const CellRange& selection() const { return selection_; }
    int repeatedRow() const { return repeatedRow_; }
    const std::vector<RowBlock>& blocks() const { return blocks_; }

 private:
    Cell& at(int row, int column);
    template <class Change>
    void changeSelected(Change change);

    std::vector<std::vector<Cell>> rows_;
    int columns_ = 0;
    TextStore texts_;
    std::vector<CellRange> merges_;
    QHash<int, std::vector<int>> mergesOfRow_;  ///< by each row that a merged cell touches
    CellRange selection_{1, 1, 1, 1};
    int repeatedRow_ = 0;
    std::vector<RowBlock> blocks_;
};

}  // namespace talvora
