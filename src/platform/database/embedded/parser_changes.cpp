#include "platform/database/embedded/parser.h"
#include "platform/database/embedded/server_error.h"

namespace talvora::embedded {

using namespace Qt::StringLiterals;

Insert Parser::insert() {
    expectWord("insert"_L1);
    acceptWord("into"_L1);
    Insert insert;
    insert.table = tableName();
    if (acceptSymbol("("_L1)) {
        do {
            insert.columns.push_back(tableName());
        } while (acceptSymbol(","_L1));
        expectSymbol(")"_L1);
    }
    if (isWord("select"_L1)) {
        insert.query = std::make_unique<Query>(query());
        return insert;
    }
    expectWord("values"_L1);
    do {
        expectSymbol("("_L1);
        insert.rows.push_back(list());
        expectSymbol(")"_L1);
    } while (acceptSymbol(","_L1));
    return insert;
}

Update Parser::update() {
    expectWord("update"_L1);
    Update update;
    update.table = tableName();
    expectWord("set"_L1);
    do {
        // A column may be set under its table's name, which need not be looked at: only one table is updated.
        Assignment assignment{tableName(), nullptr};
        expectSymbol("="_L1);
        assignment.value = sum();
        update.assignments.push_back(std::move(assignment));
    } while (acceptSymbol(","_L1));
    if (acceptWord("from"_L1)) {
        update.from = sources();
    }
    if (acceptWord("where"_L1)) {
        update.where = expression();
    }
    return update;
}

Delete Parser::remove() {
    expectWord("delete"_L1);
    acceptWord("from"_L1);
    Delete remove;
    remove.table = tableName();
    if (acceptWord("where"_L1)) {
        remove.where = expression();
    }
    return remove;
}

Statement Parser::create() {
    expectWord("create"_L1);
    if (acceptWord("table"_L1)) {
        return createTable();
    }
    const bool unique = acceptWord("unique"_L1);
    if (!acceptWord("clustered"_L1)) {
        acceptWord("nonclustered"_L1);
    }
    expectWord("index"_L1);
    return createIndex(unique);
}

CreateTable Parser::createTable() {
    CreateTable table;
    table.table = tableName();
    expectSymbol("("_L1);
    do {
        if (!tableKey(table)) {
            table.columns.push_back(columnDefinition());
        }
    } while (acceptSymbol(","_L1));
    expectSymbol(")"_L1);
    return table;
}

bool Parser::tableKey(CreateTable& table) {
    const bool named = acceptWord("constraint"_L1);
    if (named) {
        name();
    }
    if (!isWord("primary"_L1) && !isWord("unique"_L1)) {
        if (named) {
            throw incorrectSyntax(peek().text);
        }
        return false;
    }
    KeyDefinition key;
    key.primary = acceptWord("primary"_L1);
    if (key.primary) {
        expectWord("key"_L1);
    } else {
        expectWord("unique"_L1);
    }
    if (!acceptWord("clustered"_L1)) {
        acceptWord("nonclustered"_L1);
    }
    for (const auto& column : keyColumns()) {
        key.columns.push_back(column.name);
    }
    table.keys.push_back(std::move(key));
    return true;
}

std::vector<CreateIndex::Column> Parser::keyColumns() {
    std::vector<CreateIndex::Column> columns;
    expectSymbol("("_L1);
    do {
        CreateIndex::Column column{name(), false};
        column.descending = acceptWord("desc"_L1);
        if (!column.descending) {
            acceptWord("asc"_L1);
        }
        columns.push_back(std::move(column));
    } while (acceptSymbol(","_L1));
    expectSymbol(")"_L1);
    return columns;
}

ColumnDefinition Parser::columnDefinition() {
    ColumnDefinition column;
    column.name = name();
    constexpr int unsizedLength = 1;
    column.type = dataType(unsizedLength);
    while (columnOption(column)) {
    }
    return column;
}

bool Parser::columnOption(ColumnDefinition& column) {
    if (acceptWord("constraint"_L1)) {
        name();
    }
    if (acceptWord("not"_L1)) {
        expectWord("null"_L1);
        column.notNull = true;
    } else if (acceptWord("null"_L1)) {
        column.notNull = false;
    } else if (acceptWord("identity"_L1)) {
        if (acceptSymbol("("_L1)) {
            // Keys start at 1 and rise by 1 whatever stands here; every table of the schema says so anyhow.
            const bool usual = peek().text == "1"_L1 && isSymbol(","_L1, 1) && peek(2).text == "1"_L1;
            if (!usual) {
                throw incorrectSyntax(peek().text);
            }
            structuralNumber();
            take();
            structuralNumber();
            expectSymbol(")"_L1);
        }
        column.identity = true;
    } else if (acceptWord("primary"_L1)) {
        expectWord("key"_L1);
        if (!acceptWord("clustered"_L1)) {
            acceptWord("nonclustered"_L1);
        }
        column.primaryKey = true;
    } else if (acceptWord("unique"_L1)) {
        column.unique = true;
    } else if (acceptWord("collate"_L1)) {
        // Every text column has the one collation of the engine.
        name();
    } else if (acceptWord("default"_L1)) {
        column.defaultText = defaultText();
    } else {
        return false;
    }
    return true;
}

QString Parser::defaultText() {
    if (acceptSymbol("("_L1)) {
        const QString inner = defaultText();
        expectSymbol(")"_L1);
        return inner;
    }
    if (acceptWord("null"_L1)) {
        return u"null"_s;
    }
    const bool negative = acceptSymbol("-"_L1);
    const Token& token = peek();
    if (token.literal < 0) {
        throw incorrectSyntax(token.text);
    }
    structuralNumber();
    if (token.kind == TokenKind::Text) {
        return u'\'' + token.text.toString() + u'\'';
    }
    return (negative ? u"-"_s : QString()) + token.text.toString();
}

CreateIndex Parser::createIndex(bool unique) {
    CreateIndex index;
    index.unique = unique;
    index.name = name();
    expectWord("on"_L1);
    index.table = tableName();
    index.columns = keyColumns();
    return index;
}

Statement Parser::drop() {
    expectWord("drop"_L1);
    if (acceptWord("index"_L1)) {
        DropIndex index;
        index.name = name();
        if (acceptSymbol("."_L1)) {
            index.table = index.name;
            index.name = name();
        } else {
            expectWord("on"_L1);
            index.table = tableName();
        }
        return index;
    }
    expectWord("table"_L1);
    DropTable table;
    if (acceptWord("if"_L1)) {
        expectWord("exists"_L1);
        table.ifExists = true;
    }
    do {
        table.tables.push_back(tableName());
    } while (acceptSymbol(","_L1));
    return table;
}

}  // namespace talvora::embedded
