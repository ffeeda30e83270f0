#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace talvora {

/// The name of a column, as a literal. That it is a literal lets a recordset remember by its address which column
/// it stands for, so that reading a field by name costs no more than reading it by number.
class FieldName {
 public:
    consteval FieldName(const char* name) : name_(name) {}  // NOLINT(google-explicit-constructor): reads as a literal
    const char* get() const { return name_; }

 private:
    const char* name_;
};

class Recordset;

/// One row of a recordset: a light handle, valid as long as the recordset.
/// Names go without regard to case; one that is not there is RuntimeError 3265.
class Row {
 public:
    bool isNull(FieldName name) const;

    /// The value as text without the blanks at its ends; NULL is empty text.
    QString text(FieldName name) const;
    /// The value as text with its blanks; NULL is empty text.
    QString rawText(FieldName name) const;

    /// The value as a whole number, rounded half to even as its text spells it. NULL is RuntimeError 94, text that is
    /// no number 13, a number past the width 6.
    qint16 number16(FieldName name) const;
    qint32 number32(FieldName name) const;
    /// The same with 0 for NULL.
    qint16 number16Or0(FieldName name) const;
    qint32 number32Or0(FieldName name) const;

    /// The same by position, counted from 0, for a statement whose column has no name.
    bool isNull(int column) const;
    QString text(int column) const;
    qint32 number32(int column) const;
    /// The value as it is written in a statement, with all its digits and blanks: null, a number, or N'text'.
    QString literal(int column) const;

 private:
    friend class Recordset;
    Row(const Recordset* rows, int index) : rows_(rows), index_(index) {}

    const Recordset* rows_;
    int index_;
};

/// The rows of one statement, all on the client.
class Recordset {
 public:
    Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    int RecordCount() const;
    int FieldCount() const;

    /// Row `index`, counted from 0; RuntimeError 3021 when there is none.
    Row row(int index) const;
    /// The first row; RuntimeError 3021 when there is none.
    Row first() const { return row(0); }

    class Iterator {
     public:
        Iterator(const Recordset* rows, int index) : rows_(rows), index_(index) {}
        Row operator*() const { return rows_->row(index_); }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return index_ != other.index_; }

     private:
        const Recordset* rows_;
        int index_;
    };
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, RecordCount()}; }

    /// For the drivers: the columns first, then cell by cell, row by row.
    void addColumn(const QString& name);
    void addNull();
    void addWhole(qint64 value);
    void addReal(double value);
    void addText(const char16_t* text, qsizetype length);

 private:
    friend class Row;
    enum class Kind : quint32 { Null, Whole, Real, Text };
    struct Cell {
        Kind kind;
        quint32 length;
        union {
            qint64 whole;
            double real;
            quint64 offset;
        };
    };
    struct Column;

    int columnOf(FieldName name) const;
    const Cell& cell(int row, int column) const;
    QString textOf(const Cell& cell, int column) const;
    double number(int row, int column) const;

    std::vector<Cell> cells_;
    std::vector<char16_t> characters_;
    std::vector<Column> columns_;
    // A memory from a literal's address to its column. Two names that fall on one slot take neighbouring ones, so that
    // a loop over many rows looks each name up once.
    struct Known {
        const char* name = nullptr;
        int column = 0;
    };
    static constexpr std::size_t knownSlots = 64;
    mutable std::array<Known, knownSlots> known_{};
};

}  // namespace talvora
