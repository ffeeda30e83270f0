#include "platform/database/embedded/catalog.h"

#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/statement.h"

#include <QByteArray>

#include <algorithm>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

const CatalogColumn* CatalogTable::column(const QString& columnName) const {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const CatalogColumn& column) {
        return column.name.compare(columnName, Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? nullptr : &*found;
}

const CatalogTable* Catalog::find(const QString& table) const {
    load();
    const auto found = tables_.constFind(table.toCaseFolded());
    return found == tables_.cend() ? nullptr : &*found;
}

const CatalogTable& Catalog::table(const QString& name) const {
    const CatalogTable* found = find(name);
    if (!found) {
        throw serverError(server_error::InvalidObject, u"Invalid object name '%1'."_s.arg(name));
    }
    return *found;
}

void Catalog::clear() {
    tables_.clear();
    loaded_ = false;
}

void Catalog::load() const {
    if (loaded_) {
        return;
    }
    loadColumns("main");
    loadColumns("temp");
    loadIndexes();
    loaded_ = true;
}

void Catalog::loadColumns(const QByteArray& schema) const {
    SqliteStatement rows(database_, "SELECT t.name, c.name, c.type FROM " + schema +
                                        ".sqlite_schema t, pragma_table_info(t.name, '" + schema +
                                        "') c WHERE t.type = 'table' AND t.name NOT LIKE 'sqlite!_%' ESCAPE '!'");
    while (rows.step()) {
        const QString name = rows.text(0);
        const QString declared = rows.text(2);
        CatalogTable& table = tables_[name.toCaseFolded()];
        table.name = name;
        // Only a key that the engine generates is declared by this word in capitals.
        table.columns.push_back({rows.text(1), declaredType(declared), declared == "INTEGER"_L1});
    }
}

void Catalog::loadIndexes() const {
    SqliteStatement rows(database_,
                         "SELECT i.tbl_name, c.name, c.seqno FROM main.sqlite_schema i, "
                         "pragma_index_info(i.name) c WHERE i.type = 'index' ORDER BY i.name, c.seqno");
    while (rows.step()) {
        auto& indexes = tables_[rows.text(0).toCaseFolded()].indexes;
        if (rows.whole(2) == 0) {
            indexes.emplace_back();
        }
        indexes.back() += rows.text(1);
    }
}

}  // namespace talvora::embedded
