#include "platform/database/embedded/parser.h"

#include "platform/database/embedded/server_error.h"

#include <algorithm>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

Parser::Nesting::Nesting(Parser& parser) : parser_(parser) {
    constexpr int deepest = 150;
    if (++parser_.depth_ > deepest) {
        --parser_.depth_;
        throw serverError(server_error::NestedTooDeeply);
    }
}

Statement Parser::parse() {
    Statement statement;
    if (isWord("select"_L1)) {
        statement = query();
    } else if (isWord("insert"_L1)) {
        statement = insert();
    } else if (isWord("update"_L1)) {
        statement = update();
    } else if (isWord("delete"_L1)) {
        statement = remove();
    } else if (isWord("create"_L1)) {
        statement = create();
    } else if (isWord("drop"_L1)) {
        statement = drop();
    } else if (isWord("set"_L1)) {
        statement = setIdentityInsert();
    } else if (isWord("dbcc"_L1)) {
        statement = reseed();
    } else {
        throw incorrectSyntax(peek().text);
    }
    while (acceptSymbol(";"_L1)) {
    }
    if (peek().kind != TokenKind::End) {
        throw incorrectSyntax(peek().text);
    }
    return statement;
}

const Token& Parser::peek(std::size_t ahead) const {
    const std::size_t last = tokens_.tokens.size() - 1;
    return tokens_.tokens[std::min(next_ + ahead, last)];
}

const Token& Parser::take() {
    const Token& token = peek();
    if (token.kind != TokenKind::End) {
        ++next_;
    }
    return token;
}

bool Parser::isWord(QLatin1StringView word, std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Word && token.text.compare(word, Qt::CaseInsensitive) == 0;
}

bool Parser::isSymbol(QLatin1StringView symbol, std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Symbol && token.text == symbol;
}

bool Parser::acceptWord(QLatin1StringView word) {
    const bool found = isWord(word);
    next_ += found ? 1 : 0;
    return found;
}

bool Parser::acceptSymbol(QLatin1StringView symbol) {
    const bool found = isSymbol(symbol);
    next_ += found ? 1 : 0;
    return found;
}

void Parser::expectWord(QLatin1StringView word) {
    if (!acceptWord(word)) {
        throw incorrectSyntax(peek().text);
    }
}

void Parser::expectSymbol(QLatin1StringView symbol) {
    if (!acceptSymbol(symbol)) {
        throw incorrectSyntax(peek().text);
    }
}

bool Parser::atName() const {
    const Token& token = peek();
    return token.kind == TokenKind::QuotedName || (token.kind == TokenKind::Word && !isReserved(token.text));
}

QString Parser::name() {
    if (!atName()) {
        throw incorrectSyntax(peek().text);
    }
    const Token& token = take();
    QString name = token.text.toString();
    if (token.kind == TokenKind::QuotedName) {
        name.replace("]]"_L1, "]"_L1);
    }
    return name;
}

QString Parser::qualifiedName() {
    QString last = name();
    while (acceptSymbol("."_L1)) {
        last = name();
    }
    return last;
}

QString Parser::optionalAlias() {
    return acceptWord("as"_L1) || atName() ? name() : QString();
}

int Parser::structuralNumber() {
    const int literal = take().literal;
    structural_.push_back(literal);
    return literal;
}

SqlType Parser::dataType(int unsizedLength) {
    const QStringView near = peek().text;
    const QString word = name();
    int length = unsizedLength;
    if (acceptSymbol("("_L1)) {
        if (acceptWord("max"_L1)) {
            length = SqlType::Unlimited;
        } else {
            if (peek().kind != TokenKind::Integer) {
                throw incorrectSyntax(peek().text);
            }
            const QStringView digits = peek().text;
            structuralNumber();
            bool ok = false;
            length = digits.toInt(&ok);
            constexpr int longest = 8000;
            if (!ok || length < 1 || length > longest) {
                throw incorrectSyntax(digits);
            }
            if (acceptSymbol(","_L1)) {
                if (peek().kind != TokenKind::Integer) {
                    throw incorrectSyntax(peek().text);
                }
                structuralNumber();
            }
        }
        expectSymbol(")"_L1);
    }
    const SqlType type = typeNamed(word, length);
    if (type.kind == Kind::Null) {
        throw serverError(server_error::UnknownType, {near.toString()});
    }
    return type;
}

Query Parser::query() {
    const Nesting nesting(*this);
    Query query;
    query.select = select();
    query.order = ordering();
    return query;
}

Select Parser::select() {
    expectWord("select"_L1);
    Select select;
    select.distinct = acceptWord("distinct"_L1);
    if (acceptWord("top"_L1)) {
        if (peek().kind != TokenKind::Integer) {
            throw incorrectSyntax(peek().text);
        }
        const QStringView digits = peek().text;
        structuralNumber();
        bool ok = false;
        select.top = digits.toInt(&ok);
        if (!ok) {
            throw incorrectSyntax(digits);
        }
    }
    do {
        select.items.push_back(selectItem());
    } while (acceptSymbol(","_L1));
    if (acceptWord("into"_L1)) {
        select.into = qualifiedName();
    }
    if (acceptWord("from"_L1)) {
        select.from = sources();
    }
    if (acceptWord("where"_L1)) {
        select.where = expression();
    }
    if (acceptWord("group"_L1)) {
        expectWord("by"_L1);
        select.groupBy = list();
    }
    return select;
}

SelectItem Parser::selectItem() {
    SelectItem item;
    if (acceptSymbol("*"_L1)) {
        return item;
    }
    std::size_t ahead = 0;
    while (isSymbol("."_L1, ahead + 1)) {
        ahead += 2;
    }
    if (ahead > 0 && isSymbol("*"_L1, ahead)) {
        do {
            item.starOf = name();
            take();
        } while (!acceptSymbol("*"_L1));
        return item;
    }
    item.value = expression();
    item.alias = optionalAlias();
    return item;
}

std::vector<Source> Parser::sources() {
    std::vector<Source> sources;
    do {
        sources.push_back(source());
    } while (acceptSymbol(","_L1));
    return sources;
}

Source Parser::source() {
    Source source;
    if (acceptSymbol("("_L1)) {
        source.derived = std::make_unique<Query>(query());
        expectSymbol(")"_L1);
        const QStringView near = peek().text;
        source.alias = optionalAlias();
        if (source.alias.isEmpty()) {
            throw incorrectSyntax(near);
        }
        return source;
    }
    source.table = qualifiedName();
    source.alias = optionalAlias();
    return source;
}

std::vector<OrderItem> Parser::ordering() {
    std::vector<OrderItem> order;
    if (!acceptWord("order"_L1)) {
        return order;
    }
    expectWord("by"_L1);
    do {
        OrderItem item{expression()};
        item.descending = acceptWord("desc"_L1);
        if (!item.descending) {
            acceptWord("asc"_L1);
        }
        order.push_back(std::move(item));
    } while (acceptSymbol(","_L1));
    return order;
}

}  // namespace talvora::embedded
