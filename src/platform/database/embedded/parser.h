#pragma once

#include "platform/database/embedded/syntax.h"

#include <QLatin1StringView>

namespace talvora::embedded {

/// Reads the tokens of one T-SQL statement into its tree. Every syntax fault, and everything of T-SQL that is not
/// known here, is a DatabaseError that names the token.
class Parser {
 public:
    explicit Parser(const Tokens& tokens) : tokens_(tokens) {}

    Statement parse();

    /// The literals that went into the structure of the statement (top 5, nvarchar(20)): a translation
    /// holds for other statements of the shape only when these are the same.
    const std::vector<int>& structural() const { return structural_; }

 private:
    // the tokens
    const Token& peek(std::size_t ahead = 0) const;
    const Token& take();
    bool isWord(QLatin1StringView word, std::size_t ahead = 0) const;
    bool isSymbol(QLatin1StringView symbol, std::size_t ahead = 0) const;
    bool acceptWord(QLatin1StringView word);
    bool acceptSymbol(QLatin1StringView symbol);
    void expectWord(QLatin1StringView word);
    void expectSymbol(QLatin1StringView symbol);
    bool atName() const;
    QString name();
    /// The name of a table, or of a column of the one table that is changed. What stands in front of it says nothing: a
    /// file holds one schema.
    QString qualifiedName();
    QString optionalAlias();
    int structuralNumber();
    SqlType dataType(int unsizedLength);

    // expressions, from the loosest binding to the tightest
    ExpressionPtr expression();
    ExpressionPtr conjunction();
    ExpressionPtr predicate();
    ExpressionPtr inList(ExpressionPtr left, bool negated);
    ExpressionPtr sum();
    ExpressionPtr term();
    ExpressionPtr factor();
    ExpressionPtr primary();
    ExpressionPtr literal();
    ExpressionPtr bracketed();
    ExpressionPtr columnOrCall();
    ExpressionPtr call();
    ExpressionPtr caseOf();
    ExpressionPtr castTo();
    ExpressionPtr make(Form form, ExpressionPtr first = nullptr, ExpressionPtr second = nullptr);
    void adopt(Expression& parent, ExpressionPtr child) const;
    std::vector<ExpressionPtr> list();

    // queries
    Query query();
    Select select();
    SelectItem selectItem();
    std::vector<Source> sources();
    Source source();
    std::vector<OrderItem> ordering();

    // changes and definitions
    Insert insert();
    Update update();
    Delete remove();
    Statement create();
    CreateTable createTable();
    CreateIndex createIndex();
    Statement drop();
    SetIdentityInsert setIdentityInsert();
    Reseed reseed();
    ColumnDefinition columnDefinition();
    bool columnOption(ColumnDefinition& column);

    /// Bounds the recursion, so that no statement can exhaust the stack.
    class Nesting {
     public:
        explicit Nesting(Parser& parser);
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;
        ~Nesting() { --parser_.depth_; }

     private:
        Parser& parser_;
    };

    const Tokens& tokens_;
    std::size_t next_ = 0;
    int depth_ = 0;
    std::vector<int> structural_;
};

}  // namespace talvora::embedded
