#include "platform/database/embedded/collation.h"
#include "platform/database/embedded/server_error.h"
#include "platform/database/embedded/translator.h"

#include <algorithm>
#include <type_traits>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

bool same(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QString quotedList(const std::vector<QString>& names) {
    QStringList list;
    for (const QString& name : names) {
        list += quoted(name);
    }
    return list.join(u", "_s);
}

QString definition(const ColumnDefinition& column) {
    if (column.identity) {
        // The one form in which SQLite generates keys and never gives one twice.
        return quoted(column.name) + u" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL"_s;
    }
    QString sql = columnSql(column.name, column.type);
    if (column.primaryKey) {
        sql += u" PRIMARY KEY"_s;
    }
    if (column.unique) {
        sql += u" UNIQUE"_s;
    }
    if (column.notNull || column.primaryKey) {
        sql += u" NOT NULL"_s;
    }
    if (!column.defaultText.isEmpty()) {
        sql += u" DEFAULT "_s + column.defaultText;
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
        sql += u" COLLATE "_s + QLatin1StringView(collationName);
    }
    return sql;
}

Translation Translator::translate(const Statement& statement) {
    out_ = {};
    std::visit(
        [this](const auto& tree) {
            using Tree = std::decay_t<decltype(tree)>;
            if constexpr (std::is_same_v<Tree, Query>) {
                if (!tree.parts[0].into.isEmpty()) {
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
            } else {
                dropIndex(tree);
            }
        },
        statement);
    return std::move(out_);
}

void Translator::createTable(const CreateTable& create) {
    if (catalog_.find(create.table)) {
        throw serverError(server_error::ObjectExists,
                          u"There is already an object named '%1' in the database."_s.arg(create.table));
    }
    QString identity;
    QStringList parts;
    for (const ColumnDefinition& column : create.columns) {
        if (column.identity && !identity.isEmpty()) {
            throw serverError(2744, u"Multiple identity columns specified for table '%1'."_s.arg(create.table));
        }
        identity = column.identity ? column.name : identity;
        parts += definition(column);
    }
    for (const KeyDefinition& key : create.keys) {
        const bool alreadyKey = key.columns.size() == 1 && same(key.columns[0], identity);
        if (!alreadyKey) {
            // A generated key is SQLite's primary key even where the schema chose another column for it.
            const QString word = key.primary && identity.isEmpty() ? u"PRIMARY KEY ("_s : u"UNIQUE ("_s;
            parts += word + quotedList(key.columns) + u')';
        }
    }
    const QString word = create.table.startsWith(u'#') ? u"CREATE TEMP TABLE "_s : u"CREATE TABLE "_s;
    out_.definitions.push_back((word + quoted(create.table) + u" ("_s + parts.join(u", "_s) + u')').toUtf8());
}

void Translator::createIndex(const CreateIndex& create) {
    const CatalogTable& table = catalog_.table(create.table);
    QStringList columns;
    for (const auto& column : create.columns) {
        const CatalogColumn* known = table.column(column.name);
        if (!known) {
            throw serverError(1911, u"Column name '%1' does not exist in the target table or view."_s.arg(column.name));
        }
        columns += quoted(known->name) + (column.descending ? u" DESC"_s : QString());
    }
    out_.definitions.push_back(((create.unique ? u"CREATE UNIQUE INDEX "_s : u"CREATE INDEX "_s) +
                                indexName(table.name, create.name) + u" ON "_s + quoted(table.name) + u" ("_s +
                                columns.join(u", "_s) + u')')
                                   .toUtf8());
}

void Translator::dropTable(const DropTable& drop) {
    for (const QString& name : drop.tables) {
        const CatalogTable* table = catalog_.find(name);
        if (!table && !drop.ifExists) {
            throw serverError(server_error::CannotDrop,
                              u"Cannot drop the table '%1', because it does not exist or you "
                              "do not have permission."_s.arg(name));
        }
        out_.definitions.push_back((u"DROP TABLE IF EXISTS "_s + quoted(table ? table->name : name)).toUtf8());
    }
}

void Translator::dropIndex(const DropIndex& drop) {
    const CatalogTable& table = catalog_.table(drop.table);
    out_.definitions.push_back((u"DROP INDEX "_s + indexName(table.name, drop.name)).toUtf8());
}

}  // namespace talvora::embedded
