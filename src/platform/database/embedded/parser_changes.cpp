#include "platform/database/embedded/parser.h"
#include "platform/database/embedded/server_error.h"

namespace talvora::embedded {

using namespace Qt::StringLiterals;

Insert Parser::insert() {
    expectWord("insert"_L1);
    acceptWord("into"_L1);
    Insert insert;
    insert.table = qualifiedName();
    if (acceptSymbol("("_L1)) {
        do {
            insert.columns.push_back(qualifiedName());
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
    update.table = qualifiedName();
    expectWord("set"_L1);
    do {
        Assignment assignment{qualifiedName(), nullptr};
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
    remove.table = qualifiedName();
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
    expectWord("index"_L1);
    return createIndex();
}

CreateTable Parser::createTable() {
    CreateTable table;
    table.table = qualifiedName();
    expectSymbol("("_L1);
    do {
        table.columns.push_back(columnDefinition());
    } while (acceptSymbol(","_L1));
    expectSymbol(")"_L1);
    return table;
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
        column.primaryKey = true;
    } else if (acceptWord("collate"_L1)) {
        // Every text column has the one collation of the engine.
        name();
    } else {
        return false;
    }
    return true;
}

CreateIndex Parser::createIndex() {
    CreateIndex index;
    index.name = name();
    expectWord("on"_L1);
    index.table = qualifiedName();
    expectSymbol("("_L1);
    do {
        index.columns.push_back(name());
    } while (acceptSymbol(","_L1));
    expectSymbol(")"_L1);
    return index;
}

Statement Parser::drop() {
    expectWord("drop"_L1);
    if (acceptWord("index"_L1)) {
        DropIndex index;
        index.name = name();
        expectWord("on"_L1);
        index.table = qualifiedName();
        return index;
    }
    expectWord("table"_L1);
    return DropTable{qualifiedName()};
}

SetIdentityInsert Parser::setIdentityInsert() {
    expectWord("set"_L1);
    expectWord("identity_insert"_L1);
    SetIdentityInsert set{qualifiedName()};
    set.on = acceptWord("on"_L1);
    if (!set.on) {
        expectWord("off"_L1);
    }
    return set;
}

Reseed Parser::reseed() {
    expectWord("dbcc"_L1);
    expectWord("checkident"_L1);
    expectSymbol("("_L1);
    Reseed reseed{qualifiedName()};
    expectSymbol(","_L1);
    expectWord("reseed"_L1);
    expectSymbol(","_L1);
    bool ok = false;
    const QStringView digits = take().text;
    reseed.lastKey = digits.toInt(&ok);
    if (!ok) {
        throw incorrectSyntax(digits);
    }
    expectSymbol(")"_L1);
    return reseed;
}

}  // namespace talvora::embedded
