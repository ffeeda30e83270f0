#pragma once

#include "platform/database/embedded/catalog.h"
#include "platform/database/embedded/syntax.h"

#include <QByteArray>
#include <QMultiHash>
#include <QString>

#include <optional>
#include <vector>

namespace talvora::embedded {

/// `name` as SQLite takes it, whatever characters it holds.
QString quoted(const QString& name);
/// `sql`, which gives a text, under the one collation of the engine.
QString collated(const QString& sql);
/// How a column stands in a create table.
QString columnSql(const QString& name, const SqlType& type);

/// A literal's way into the translated statement: bound as a value of `kind`, so that T-SQL's conversions of literals
/// cost nothing while the statement runs.
struct Parameter {
    int literal = 0;
    Kind kind = Kind::Null;
    int length = SqlType::Unlimited;  ///< of the text column that it goes to
    bool negative = false;

    bool operator==(const Parameter&) const = default;
};

/// A T-SQL statement in SQLite's SQL.
struct Translation {
    std::vector<QByteArray> definitions;  ///< run first, all or none; what they make or drop changes the catalogue
    QByteArray statement;                 ///< empty for a mere definition
    std::vector<Parameter> parameters;
    std::vector<QString> columns;  ///< of the rows it gives; empty when it gives none
    std::vector<int> structural;   ///< literals whose very values the translation rests on
    /// Nothing to run: from now on inserts give the keys of this table themselves (of none when it is empty).
    std::optional<QString> takesKeys;
};

/// Writes SQLite's SQL for one statement. Names are resolved here, against the catalogue: it must be known of every
/// part of an expression whether it is a text (compared in the Chinese collation, joined by +), a number or a date.
class Translator {
 public:
    Translator(const Catalog& catalog, const Tokens& tokens) : catalog_(catalog), tokens_(tokens) {}

    Translation translate(const Statement& statement);

 private:
    struct Column {
        QString name;
        SqlType type;
    };
    /// A table in a from clause, by the name under which its columns are reached, and the name that it has in the
    /// translation where that is another.
    struct Range {
        QString name;
        std::vector<Column> columns;
        QString translatedName;

        QString sqlName() const { return quoted(translatedName.isEmpty() ? name : translatedName); }
    };
    struct Scope {
        std::vector<Range> ranges;
        const Scope* outer = nullptr;
    };
    /// A value on its way: its SQL and its type. A literal has no SQL before it is known what it must become.
    struct Piece {
        QString sql;
        SqlType type;
        bool collated = false;
        const Expression* literal = nullptr;
    };
    struct Rows {
        QString sql;
        std::vector<Column> columns;
    };

    // values (translate_value.cpp, translate_call.cpp)
    Piece value(const Expression& e, const Scope& scope);
    Piece literal(const Expression& e) const;
    Piece column(const Expression& e, const Scope& scope) const;
    Piece arithmetic(const Expression& e, const Scope& scope);
    Piece caseOf(const Expression& e, const Scope& scope);
    Piece castTo(const Expression& e, const Scope& scope);
    Piece call(const Expression& e, const Scope& scope);
    Piece aggregate(const Expression& e, const Scope& scope);
    Piece lastKey(const Expression& e);
    QString parameter(const Expression& literal, SqlType target);
    /// The SQL of `piece` as a value of the kind `target`.
    QString as(const Piece& piece, Kind target);
    /// The same as it goes into a column.
    QString assigned(const Piece& piece, const CatalogColumn& column);

    // conditions (translate_condition.cpp)
    QString condition(const Expression& e, const Scope& scope);
    QString junction(const Expression& e, const Scope& scope);
    QString compare(const Expression& e, const Scope& scope);
    QString comparison(const Piece& left, const QString& symbol, const Piece& right);
    QString inList(const Expression& e, const Scope& scope);
    QString like(const Expression& e, const Scope& scope);

    // queries (translate_query.cpp)
    Rows query(const Query& query, const Scope* outer);
    Rows items(const Select& select, const Scope& scope);
    void star(const SelectItem& item, const Scope& scope, Rows& rows, QStringList& sql) const;
    QString ordering(const std::vector<OrderItem>& order, const Scope& scope);
    QString sources(const std::vector<Source>& sources, Scope& scope);
    QString source(const Source& source, Scope& scope);
    void selectInto(const Query& query);

    // changes (translate_change.cpp)
    void insert(const Insert& insert);
    std::vector<const CatalogColumn*> insertedColumns(const Insert& insert, const CatalogTable& table) const;
    QString insertedQuery(const Query& query, const std::vector<const CatalogColumn*>& columns);
    void update(const Update& update);
    void updateJoined(const Update& update, const CatalogTable& table);
    /// Whether no earlier row of `other`, the last of the scope, matches the updated row too. Of several that do, the
    /// first counts: the same update run again must set the same values again.
    QString isFirstMatch(const Update& update, const QString& other, Scope scope);
    static Range rangeOf(const CatalogTable& table, const QString& name);

    // updates that need not touch every row (translate_rescoring.cpp)
    struct Rescoring;
    bool rescore(const Update& update, const CatalogTable& table);
    bool isRescoring(const Update& update, Rescoring& found) const;
    const CatalogColumn* ownColumn(const Expression& e, const Rescoring& rescoring) const;
    bool bindsByIndex(const Update& update, const Rescoring& rescoring) const;
    bool hasDistinctConstants(const Rescoring& rescoring) const;
    static Scope storedScope(const Rescoring& rescoring);
    QString ownConditions(const Update& update, const Rescoring& rescoring, const Scope& scope);
    QString differentValues(const Rescoring& rescoring, const CatalogColumn& column, const QString& rows) const;
    QStringList namedArms(const Update& update, const Rescoring& rescoring, const QString& other);
    QStringList otherArms(const Update& update, const Rescoring& rescoring, const QString& other);
    void remove(const Delete& remove);

    // definitions (translate_definition.cpp)
    void createTable(const CreateTable& create);
    void createIndex(const CreateIndex& create);
    void dropTable(const DropTable& drop);
    void dropIndex(const DropIndex& drop);
    void setIdentityInsert(const SetIdentityInsert& set);
    void reseed(const Reseed& reseed);
    const CatalogTable& keyedTable(const QString& name) const;
    static QString sequenceName(const CatalogTable& table);

    const Catalog& catalog_;
    const Tokens& tokens_;
    Translation out_;
    QMultiHash<int, int> parametersOf_;  ///< by literal: the same conversion of one literal is bound once
};

}  // namespace talvora::embedded
