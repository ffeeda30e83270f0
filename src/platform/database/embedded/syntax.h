#pragma once

#include "platform/database/embedded/sql_type.h"
#include "platform/database/embedded/tokens.h"

#include <QString>

#include <memory>
#include <variant>
#include <vector>

// What the parser reads out of a T-SQL statement: plain trees, without any knowledge of the tables.
namespace talvora::embedded {

struct Query;
struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

enum class Form : quint8 {
    // values
    Literal,
    Null,
    Column,
    Arithmetic,  ///< name is one of + - *; with one operand the minus in front of it
    Call,        ///< name is the function; starred for count(*)
    Case,        ///< [operand], when, then, when, then, …, [else]
    Cast,        ///< to `type`
    // conditions
    And,
    Or,
    Compare,  ///< name is the operator
    Like,     ///< value, pattern
    In,       ///< value, then a list or `query`
    IsNull,
};

struct Expression {
    Form form = Form::Null;
    QStringView near;  ///< the token it began with, for messages
    QString name;
    QString qualifier;  ///< of a column: the table or alias in front of it
    std::vector<ExpressionPtr> args;
    std::unique_ptr<Query> query;
    SqlType type;
    TokenKind literalKind = TokenKind::Integer;
    int literal = -1;
    int depth = 1;
    bool negative = false;  ///< of a literal: a minus stood in front
    bool negated = false;   ///< not in, is not null
    bool starred = false;
    bool hasOperand = false;  ///< of a case: `case x when`, not `case when`
    bool hasElse = false;
};

struct Source {
    QString table;  ///< empty for a derived table
    QString alias;  ///< empty when none was given
    std::unique_ptr<Query> derived;
};

struct SelectItem {
    ExpressionPtr value;  ///< none for a star
    QString alias;
    QString starOf;  ///< the table in front of the star
};

struct Select {
    bool distinct = false;
    int top = -1;  ///< rows; -1 for all
    std::vector<SelectItem> items;
    QString into;
    std::vector<Source> from;
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
};

struct OrderItem {
    ExpressionPtr value;
    bool descending = false;
};

struct Query {
    Select select;
    std::vector<OrderItem> order;
};

struct Insert {
    QString table;
    std::vector<QString> columns;
    std::vector<std::vector<ExpressionPtr>> rows;
    std::unique_ptr<Query> query;
};

struct Assignment {
    QString column;
    ExpressionPtr value;
};

struct Update {
    QString table;
    std::vector<Assignment> assignments;
    std::vector<Source> from;
    ExpressionPtr where;
};

struct Delete {
    QString table;
    ExpressionPtr where;
};

struct ColumnDefinition {
    QString name;
    SqlType type;
    bool identity = false;
    bool notNull = false;
    bool primaryKey = false;
};

struct CreateTable {
    QString table;
    std::vector<ColumnDefinition> columns;
};

struct CreateIndex {
    QString name;
    QString table;
    std::vector<QString> columns;
};

struct DropTable {
    QString table;
};

struct DropIndex {
    QString name;
    QString table;
};

/// `set identity_insert t on`: from now on inserts give the keys of the table themselves.
struct SetIdentityInsert {
    QString table;
    bool on = false;
};

/// `dbcc checkident (t, reseed, n)`: the next generated key of the table is n + 1.
struct Reseed {
    QString table;
    qint32 lastKey = 0;
};

using Statement = std::variant<Query, Insert, Update, Delete, CreateTable, CreateIndex, DropTable, DropIndex,
                               SetIdentityInsert, Reseed>;

}  // namespace talvora::embedded
