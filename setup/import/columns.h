#pragma once

#include "setup/import/csv.h"
#include "testbank/cquestion.h"

#include <array>

namespace talvora {

/// The columns of an import file. Those of a band and of an answer follow each other, see bandColumn, answerColumn.
enum class Column {
    MainType,
    Subtype,
    SubtypeNote,
    Number,
    Minutes,
    PaperNote,
    State,
    Author,
    Auditing,
    Approver,
    WriteDate,
    AuditingDate,
    ApproverDate,
    Band,
    Question = Band + 4 * 4,
    Answer,
    Count = Answer + 2 * mostAnswerAmount,
};
enum class BandPart { Lower, Upper, Word, Explanation };
enum class AnswerPart { Text, Score };

inline constexpr int bandCount = 4;
inline constexpr int answerCount = mostAnswerAmount;

/// The column of a part of band `number`, counted from 1.
constexpr Column bandColumn(int number, BandPart part) {
    return static_cast<Column>(static_cast<int>(Column::Band) + 4 * (number - 1) + static_cast<int>(part));
}

/// The column of a part of answer `number`, counted from 1 for A.
constexpr Column answerColumn(int number, AnswerPart part) {
    return static_cast<Column>(static_cast<int>(Column::Answer) + 2 * (number - 1) + static_cast<int>(part));
}

/// The name of a column as the header line gives it.
QString columnName(Column column);

/// The columns of an import file in their usual order, as a header line.
QString headerLine();

/// One line of the file, its cells put to their columns.
class ImportRow {
 public:
    explicit ImportRow(int line) : line_(line) {}

    int line() const { return line_; }
    const QString& operator[](Column column) const { return cells_[static_cast<std::size_t>(column)]; }
    QString& operator[](Column column) { return cells_[static_cast<std::size_t>(column)]; }

 private:
    int line_;
    std::array<QString, static_cast<std::size_t>(Column::Count)> cells_;
};

/// Puts the cells of all records behind the first to the columns that the first names. Cells lose the blanks at their
/// ends. Faults: an unknown, doubled or missing column, a cell past the last column, a text that is too long for the
/// database or holds what it cannot keep.
std::vector<ImportRow> importRows(const std::vector<CsvRecord>& records, ImportFaults& faults);

}  // namespace talvora
