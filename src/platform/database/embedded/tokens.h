#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace talvora::embedded {

enum class TokenKind : quint8 { End, Word, QuotedName, Integer, Decimal, Text, Symbol };

/// One token of a statement. `text` is its source; for a quoted name and a text it is what stands between the marks,
/// with doubled marks still doubled.
struct Token {
    TokenKind kind = TokenKind::End;
    QStringView text;
    int literal = -1;  ///< its place among the literals
};

/// A number or text that stands in a statement. `doubled` tells that `text` still holds doubled quotation marks.
struct Literal {
    TokenKind kind = TokenKind::Integer;
    QStringView text;
    bool doubled = false;

    /// The text with its marks undoubled.
    QString content() const;
};

/// A statement taken apart. The views point into the statement, which must outlive them.
struct Tokens {
    std::vector<Token> tokens;  ///< closed by an End token
    std::vector<Literal> literals;
    /// The statement with one mark in place of each literal. Statements of one shape share one translation.
    QString shape;
};

/// Reads `statement` into `out`, whose room is used again. Throws DatabaseError 102, 105 (a text without its closing
/// mark) or 113 (a comment without its end).
void tokenise(QStringView statement, Tokens& out);

/// Whether T-SQL keeps this word for itself: it is no name unless it stands in brackets.
bool isReserved(QStringView word);

}  // namespace talvora::embedded
