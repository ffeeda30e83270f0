#include "platform/database/embedded/catalog.h"

#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/statement.h"

#include <QByteArray>

#include <algorithm>
#include <utility>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

QByteArray textSql(QString text) {
    text.replace(u'\'', u"''"_s);
    return (u'\'' + text + u'\'').toUtf8();
}

}  // namespace

const CatalogColumn* CatalogTable::column(const QString& columnName) const {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const CatalogColumn& column) {
        return column.name.compare(columnName, Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? nullptr : &*found;
}

bool CatalogTable::generatesKeys() const {
    return std::any_of(columns.begin(), columns.end(), [](const CatalogColumn& column) { return column.identity; });
}

const CatalogTable* Catalog::find(const QString& table) const {
    const QString key = table.toLower();
    auto found = tables_.find(key);
    if (found == tables_.end()) {
        CatalogTable known = read(table);
        if (known.columns.empty()) {
            return nullptr;
        }
        found = tables_.emplace(key, std::move(known)).first;
    }
    return &found->second;
}

const CatalogTable& Catalog::table(const QString& name) const {
    const CatalogTable* found = find(name);
    if (!found) {
        throw serverError(server_error::InvalidObject, {name});
    }
    return *found;
}

void Catalog::clear() {
    tables_.clear();
}

CatalogTable Catalog::read(const QString& table) const {
    const QByteArray schema = table.startsWith(u'#') ? "temp" : "main";
    SqliteStatement rows(database_, "SELECT t.name, c.name, c.type FROM " + schema +
                                        ".sqlite_schema t, pragma_table_info(t.name, '" + schema +
                                        "') c WHERE t.type = 'table' AND t.name = " + textSql(table) +
                                        " COLLATE NOCASE AND t.name NOT LIKE 'sqlite!_%' ESCAPE '!'");
    CatalogTable known;
    while (rows.step()) {
        known.name = rows.text(0);
        const QString declared = rows.text(2);
        // Only a key that the engine generates is declared by this word in capitals.
        known.columns.push_back({rows.text(1), declaredType(declared), declared == "INTEGER"_L1});
    }
    return known;
}

std::vector<QStringList> Catalog::indexes(const CatalogTable& table) const {
    SqliteStatement rows(database_,
                         "SELECT c.name, c.seqno FROM main.sqlite_schema i, pragma_index_info(i.name) c "
                         "WHERE i.type = 'index' AND i.tbl_name = " +
                             textSql(table.name) + " ORDER BY i.name, c.seqno");
    std::vector<QStringList> known;
    while (rows.step()) {
        if (rows.whole(1) == 0) {
            known.emplace_back();
        }
        known.back() += rows.text(0);
    }
    return known;
}

}  // namespace talvora::embedded
