#pragma once

#include "platform/database/embedded/sql_type.h"

#include <QString>
#include <QStringList>

#include <unordered_map>
#include <vector>

struct sqlite3;

namespace talvora::embedded {

struct CatalogColumn {
    QString name;
    SqlType type;
    bool identity = false;
};

struct CatalogTable {
    QString name;
    std::vector<CatalogColumn> columns;

    /// The column of that name, whatever its case; null when there is none.
    const CatalogColumn* column(const QString& columnName) const;
    /// Whether the engine generates the keys of the table.
    bool generatesKeys() const;
};

/// The tables of one open database with the T-SQL types of their columns, each read when first asked for.
class Catalog {
 public:
    explicit Catalog(sqlite3* database) : database_(database) {}

    /// The table of that name, whatever its case; null when there is none. Valid until clear.
    const CatalogTable* find(const QString& table) const;
    /// The same; DatabaseError 208 when there is none.
    const CatalogTable& table(const QString& name) const;
    /// The names of the columns of each index of the table, in the order of the index.
    std::vector<QStringList> indexes(const CatalogTable& table) const;

    /// To be called when tables came or went.
    void clear();

    /// The table whose inserts give the keys themselves, which the session allows for one at a time; empty for none.
    const QString& takesKeys() const { return takesKeys_; }
    void setTakesKeys(const QString& table) { takesKeys_ = table; }

 private:
    CatalogTable read(const QString& table) const;

    sqlite3* database_;
    QString takesKeys_;
    mutable std::unordered_map<QString, CatalogTable> tables_;  ///< by the name in small letters, those read so far
};

}  // namespace talvora::embedded
