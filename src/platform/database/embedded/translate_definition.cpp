#include "platform/database/embedded/collation.h"
#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <type_traits>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

QString definition(const ColumnDefinition& column) {
    if (column.identity) {
        // The one form in which SQLite generates keys and never gives one twice.
        return quoted(column.name) + u" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL"_s;
    }
    QString sql = columnSql(column.name, column.type);
    if (column.primaryKey) {
        sql += u" PRIMARY KEY"_s;
    }
    if (column.notNull || column.primaryKey) {
        sql += u" NOT NULL"_s;
    }
    return sql;
}

/// Names of indexes are unique to their table on the server and to the whole file in SQLite.
QString indexName(const QString& table, const QString& index) {
    return quoted(table.toLower() + u'.' + index.toLower());
}

}  // namespace

QString quoted(const QString& name) {
    QString inner = name;
    inner.replace(u'"', u"\"\""_s);
    return u'"' + inner + u'"';
}

QString columnSql(const QString& name, const SqlType& type) {
    QString sql = quoted(name) + u' ' + declaration(type);
    if (type.isText() || type.kind == Kind::Null) {
        sql = collated(sql);
    }
    return sql;
}

QString collated(const QString& sql) {
    return sql + u" COLLATE "_s + QLatin1StringView(collationName);
}

Translation Translator::translate(const Statement& statement) {
    out_ = {};
    std::visit(
        [this](const auto& tree) {
            using Tree = std::decay_t<decltype(tree)>;
            if constexpr (std::is_same_v<Tree, Query>) {
                if (!tree.select.into.isEmpty()) {
                    selectInto(tree);
                    return;
                }
                const Rows rows = query(tree, nullptr);
                out_.statement = rows.sql.toUtf8();
                for (const Column& column : rows.columns) {
                    out_.columns.push_back(column.name.startsWith(u'?') ? QString() : column.name);
                }
            } else if constexpr (std::is_same_v<Tree, Insert>) {
                insert(tree);
            } else if constexpr (std::is_same_v<Tree, Update>) {
                update(tree);
            } else if constexpr (std::is_same_v<Tree, Delete>) {
                remove(tree);
            } else if constexpr (std::is_same_v<Tree, CreateTable>) {
                createTable(tree);
            } else if constexpr (std::is_same_v<Tree, CreateIndex>) {
                createIndex(tree);
            } else if constexpr (std::is_same_v<Tree, DropTable>) {
                dropTable(tree);
            } else if constexpr (std::is_same_v<Tree, DropIndex>) {
                dropIndex(tree);
            } else if constexpr (std::is_same_v<Tree, SetIdentityInsert>) {
                setIdentityInsert(tree);
            } else {
                reseed(tree);
            }
        },
        statement);
    return std::move(out_);
}

void Translator::createTable(const CreateTable& create) {
    if (catalog_.find(create.table)) {
        throw serverError(server_error::ObjectExists, {create.table});
    }
    QString identity;
    QStringList parts;
    for (const ColumnDefinition& column : create.columns) {
        if (column.identity && !identity.isEmpty()) {
            throw serverError(server_error::SecondIdentity, {create.table});
        }
        identity = column.identity ? column.name : identity;
        parts += definition(column);
    }
    const QString word = create.table.startsWith(u'#') ? u"CREATE TEMP TABLE "_s : u"CREATE TABLE "_s;
    out_.definitions.push_back((word + quoted(create.table) + u" ("_s + parts.join(u", "_s) + u')').toUtf8());
}

void Translator::createIndex(const CreateIndex& create) {
    const CatalogTable& table = catalog_.table(create.table);
    QStringList columns;
    for (const QString& column : create.columns) {
        const CatalogColumn* known = table.column(column);
        if (!known) {
            throw serverError(server_error::NoColumnToIndex, {column});
        }
        columns += quoted(known->name);
    }
    out_.definitions.push_back((u"CREATE INDEX "_s + indexName(table.name, create.name) + u" ON "_s +
                                quoted(table.name) + u" ("_s + columns.join(u", "_s) + u')')
                                   .toUtf8());
}

void Translator::dropTable(const DropTable& drop) {
    const CatalogTable* table = catalog_.find(drop.table);
    if (!table) {
        throw serverError(server_error::CannotDrop, {drop.table});
    }
    out_.definitions.push_back((u"DROP TABLE "_s + quoted(table->name)).toUtf8());
}

void Translator::dropIndex(const DropIndex& drop) {
    const CatalogTable& table = catalog_.table(drop.table);
    out_.definitions.push_back((u"DROP INDEX "_s + indexName(table.name, drop.name)).toUtf8());
}

const CatalogTable& Translator::keyedTable(const QString& name) const {
    const CatalogTable& table = catalog_.table(name);
    if (!table.generatesKeys()) {
        throw serverError(server_error::NoIdentityColumn, {table.name});
    }
    return table;
}

void Translator::setIdentityInsert(const SetIdentityInsert& set) {
    const CatalogTable& table = keyedTable(set.table);
    const bool isSet = catalog_.takesKeys() == table.name;
    if (set.on && !isSet && !catalog_.takesKeys().isEmpty()) {
        throw serverError(server_error::OtherIdentityInsert, {catalog_.takesKeys(), table.name});
    }
    out_.takesKeys = set.on ? table.name : isSet ? QString() : catalog_.takesKeys();
}

/// The table's name as a text of SQLite's, by which it knows the last key that it generated for the table.
QString Translator::sequenceName(const CatalogTable& table) {
    QString name = table.name;
    name.replace(u'\'', u"''"_s);
    return u'\'' + name + u'\'';
}

void Translator::reseed(const Reseed& reseed) {
    // A temporary table with keys brings a second table of this name, which would come first.
    const QString name = sequenceName(keyedTable(reseed.table));
    out_.definitions.push_back((u"DELETE FROM main.sqlite_sequence WHERE name = "_s + name).toUtf8());
    out_.definitions.push_back((u"INSERT INTO main.sqlite_sequence (name, seq) VALUES ("_s + name + u", "_s +
                                QString::number(reseed.lastKey) + u')')
                                   .toUtf8());
}

}  // namespace talvora::embedded
