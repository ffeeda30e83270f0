#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace talvora::test {

/// An import file as a table of cells, written as CSV. Changes to it stand in one text, "1 状态=建立中|2 题目=" for
/// instance: row, column and new content of each cell.
class Sheet {
 public:
    /// Three questions with three answers of paper "P-1", subtype 责任心 of main type 职业素养, with three bands.
    explicit Sheet(const QString& changes = {});

    /// Adds the three rows of another paper, which are those of the first with these changes.
    Sheet& appendPaper(const QString& changes);
    void removeColumn(const QString& column);

    /// The CSV text with every cell in quotes.
    QString text(QChar separator = u',') const;
    QByteArray utf8() const { return text().toUtf8(); }

 private:
    void change(std::size_t firstRow, const QString& changes);

    QStringList header_;
    std::vector<QStringList> rows_;
};

}  // namespace talvora::test
