#include "platform/database/embedded/parser.h"
#include "platform/database/embedded/server_error.h"

#include <algorithm>
#include <array>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

void Parser::adopt(Expression& parent, ExpressionPtr child) const {
    // Long chains (a+b+c+…) nest without any recursion of the parser, but what reads the tree later does recurse.
    constexpr int deepest = 600;
    parent.depth = std::max(parent.depth, child->depth + 1);
    if (parent.depth > deepest) {
        throw serverError(server_error::NestedTooDeeply);
    }
    parent.args.push_back(std::move(child));
}

ExpressionPtr Parser::make(Form form, ExpressionPtr first, ExpressionPtr second) {
    auto made = std::make_unique<Expression>();
    made->form = form;
    made->near = first ? first->near : peek().text;
    if (first) {
        adopt(*made, std::move(first));
    }
    if (second) {
        adopt(*made, std::move(second));
    }
    return made;
}

std::vector<ExpressionPtr> Parser::list() {
    std::vector<ExpressionPtr> items;
    do {
        items.push_back(expression());
    } while (acceptSymbol(","_L1));
    return items;
}

ExpressionPtr Parser::expression() {
    const Nesting nesting(*this);
    ExpressionPtr left = conjunction();
    if (!isWord("or"_L1)) {
        return left;
    }
    ExpressionPtr either = make(Form::Or, std::move(left));
    while (acceptWord("or"_L1)) {
        adopt(*either, conjunction());
    }
    return either;
}

ExpressionPtr Parser::conjunction() {
    ExpressionPtr left = predicate();
    if (!isWord("and"_L1)) {
        return left;
    }
    ExpressionPtr both = make(Form::And, std::move(left));
    while (acceptWord("and"_L1)) {
        adopt(*both, predicate());
    }
    return both;
}

ExpressionPtr Parser::predicate() {
    ExpressionPtr left = sum();
    static constexpr std::array operators = {"="_L1, "<>"_L1, "<="_L1, ">="_L1, "<"_L1, ">"_L1};
    for (const auto& symbol : operators) {
        if (acceptSymbol(symbol)) {
            ExpressionPtr compare = make(Form::Compare, std::move(left), sum());
            compare->name = symbol;
            return compare;
        }
    }
    if (acceptWord("is"_L1)) {
        ExpressionPtr isNull = make(Form::IsNull, std::move(left));
        isNull->negated = acceptWord("not"_L1);
        expectWord("null"_L1);
        return isNull;
    }
    if (acceptWord("like"_L1)) {
        return make(Form::Like, std::move(left), sum());
    }
    const bool negated = isWord("not"_L1) && isWord("in"_L1, 1);
    if (negated) {
        take();
    }
    return acceptWord("in"_L1) ? inList(std::move(left), negated) : std::move(left);
}

ExpressionPtr Parser::inList(ExpressionPtr left, bool negated) {
    ExpressionPtr made = make(Form::In, std::move(left));
    made->negated = negated;
    expectSymbol("("_L1);
    if (isWord("select"_L1)) {
        made->query = std::make_unique<Query>(query());
    } else {
        do {
            adopt(*made, sum());
        } while (acceptSymbol(","_L1));
    }
    expectSymbol(")"_L1);
    return made;
}

ExpressionPtr Parser::sum() {
    ExpressionPtr left = term();
    while (isSymbol("+"_L1) || isSymbol("-"_L1)) {
        const QString symbol = take().text.toString();
        left = make(Form::Arithmetic, std::move(left), term());
        left->name = symbol;
    }
    return left;
}

ExpressionPtr Parser::term() {
    ExpressionPtr left = factor();
    while (isSymbol("*"_L1)) {
        const QString symbol = take().text.toString();
        left = make(Form::Arithmetic, std::move(left), factor());
        left->name = symbol;
    }
    return left;
}

ExpressionPtr Parser::factor() {
    const Nesting nesting(*this);
    if (acceptSymbol("+"_L1)) {
        return factor();
    }
    if (!acceptSymbol("-"_L1)) {
        return primary();
    }
    ExpressionPtr operand = factor();
    if (operand->form == Form::Literal && operand->literalKind != TokenKind::Text) {
        operand->negative = !operand->negative;
        return operand;
    }
    ExpressionPtr minus = make(Form::Arithmetic, std::move(operand));
    minus->name = u"-"_s;
    return minus;
}

ExpressionPtr Parser::primary() {
    if (peek().literal >= 0) {
        return literal();
    }
    if (isSymbol("("_L1)) {
        return bracketed();
    }
    if (isWord("null"_L1)) {
        ExpressionPtr null = make(Form::Null);
        take();
        return null;
    }
    if (isWord("case"_L1)) {
        return caseOf();
    }
    if (isWord("cast"_L1) && isSymbol("("_L1, 1)) {
        return castTo();
    }
    return columnOrCall();
}

ExpressionPtr Parser::literal() {
    ExpressionPtr made = make(Form::Literal);
    const Token& token = take();
    made->literal = token.literal;
    made->literalKind = token.kind;
    return made;
}

ExpressionPtr Parser::bracketed() {
    const QStringView near = take().text;
    ExpressionPtr inner = expression();
    inner->near = near;
    expectSymbol(")"_L1);
    return inner;
}

ExpressionPtr Parser::columnOrCall() {
    // left and right are reserved words and names of functions at once.
    const bool reservedFunction = isWord("left"_L1) || isWord("right"_L1);
    if (isSymbol("("_L1, 1) && (atName() || reservedFunction)) {
        return call();
    }
    ExpressionPtr column = make(Form::Column);
    column->name = name();
    while (acceptSymbol("."_L1)) {
        column->qualifier = column->name;
        column->name = name();
    }
    return column;
}

ExpressionPtr Parser::call() {
    ExpressionPtr call = make(Form::Call);
    call->name = take().text.toString().toLower();
    expectSymbol("("_L1);
    if (acceptSymbol(")"_L1)) {
        return call;
    }
    if (acceptSymbol("*"_L1)) {
        call->starred = true;
    } else {
        do {
            adopt(*call, sum());
        } while (acceptSymbol(","_L1));
    }
    expectSymbol(")"_L1);
    return call;
}

ExpressionPtr Parser::caseOf() {
    ExpressionPtr made = make(Form::Case);
    take();
    if (!isWord("when"_L1)) {
        made->hasOperand = true;
        adopt(*made, sum());
    }
    if (!isWord("when"_L1)) {
        throw incorrectSyntax(peek().text);
    }
    while (acceptWord("when"_L1)) {
        adopt(*made, made->hasOperand ? sum() : expression());
        expectWord("then"_L1);
        adopt(*made, sum());
    }
    if (acceptWord("else"_L1)) {
        made->hasElse = true;
        adopt(*made, sum());
    }
    expectWord("end"_L1);
    return made;
}

ExpressionPtr Parser::castTo() {
    ExpressionPtr made = make(Form::Cast);
    // A cast to a text type without a length keeps thirty characters.
    constexpr int castLength = 30;
    take();
    expectSymbol("("_L1);
    adopt(*made, sum());
    expectWord("as"_L1);
    made->type = dataType(castLength);
    expectSymbol(")"_L1);
    return made;
}

}  // namespace talvora::embedded
