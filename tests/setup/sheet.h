#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace talvora::test {

/// One cell of a Sheet that a test changes: the row counted from 1, below the header.
struct CellChange {
    int row = 1;
    QString column;
    QString text;
};

/// An import file as a table of cells, to be changed by column name and written as CSV.
class Sheet {
 public:
    /// Three questions with three answers of paper "P-1", subtype 责任心 of main type 职业素养, with three bands.
    static Sheet valid();

    void set(const CellChange& change);
    void setHeader(const QString& column, const QString& name);
    void removeColumn(const QString& column);
    /// Copies the last row, which `changes` then make another; their row counts do not matter.
    void appendCopy(const std::vector<CellChange>& changes);
    /// Further rows of another paper: the three of the first with these cells changed in the first of them, and other
    /// question texts.
    void appendPaper(const std::vector<CellChange>& changes);

    /// The CSV text with every cell in quotes.
    QString text(QChar separator = u',') const;
    QByteArray utf8() const { return text().toUtf8(); }

 private:
    qsizetype columnOf(const QString& column) const;

    QStringList header_;
    std::vector<QStringList> rows_;
};

}  // namespace talvora::test
