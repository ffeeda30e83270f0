#include "platform/database/embedded/tokens.h"

#include "platform/database/embedded/server_error.h"

#include <QSet>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t integerMark = 1;
constexpr char16_t decimalMark = 2;
constexpr char16_t textMark = 3;

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool isNameStart(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' || c == u'#' || c == u'@' ||
           (c >= 0x80 && QChar::isLetter(c));
}
bool isNamePart(char16_t c) {
    return isNameStart(c) || isDigit(c) || c == u'$';
}
bool isBlank(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == 0xA0 || c == 0x3000;
}

/// As on the server, digits past 32 bits are a decimal number.
bool fitsWhole(QStringView digits) {
    constexpr qsizetype surely = 9;
    bool ok = true;
    const int value = digits.size() <= surely ? 0 : digits.toInt(&ok);
    return ok && value >= 0;
}

class Reader {
 public:
    Reader(QStringView text, Tokens& out) : text_(text), out_(out) {
        out_.tokens.clear();
        out_.literals.clear();
        out_.shape.resize(0);
        out_.shape.reserve(text.size());
    }

    void read() {
        while (pos_ < text_.size()) {
            readOne();
        }
        copyShape(text_.size());
        out_.tokens.push_back({});
    }

 private:
    char16_t at(qsizetype pos) const { return pos < text_.size() ? text_[pos].unicode() : u'\0'; }

    void readOne() {
        const char16_t c = at(pos_);
        const char16_t next = at(pos_ + 1);
        if (isBlank(c)) {
            ++pos_;
        } else if (c == u'\'') {
            readText(pos_);
        } else if ((c == u'N' || c == u'n') && next == u'\'') {
            const qsizetype begin = pos_++;
            readText(begin);
        } else if (isDigit(c) || (c == u'.' && isDigit(next))) {
            readNumber();
        } else if (isNameStart(c)) {
            readWord();
        } else if (c == u'[' || c == u'"') {
            readQuotedName(c == u'[' ? u']' : u'"');
        } else if (c == u'-' && next == u'-') {
            skipLine();
        } else if (c == u'/' && next == u'*') {
            skipComment();
        } else {
            readSymbol(c, next);
        }
    }

    void copyShape(qsizetype until) {
        out_.shape.append(text_.sliced(copied_, until - copied_));
        copied_ = until;
    }

    void addLiteral(qsizetype begin, Literal literal, char16_t mark) {
        copyShape(begin);
        copied_ = pos_;
        out_.shape.append(QChar(mark));
        out_.tokens.push_back({literal.kind, literal.text, static_cast<int>(out_.literals.size())});
        out_.literals.push_back(literal);
    }

    /// The end of what began behind `begin` and closes with `mark`, a doubled mark being content; -1 for no end.
    qsizetype closing(qsizetype begin, char16_t mark, bool& doubled) const {
        for (qsizetype i = begin; i < text_.size(); ++i) {
            if (text_[i] == mark) {
                if (at(i + 1) != mark) {
                    return i;
                }
                doubled = true;
                ++i;
            }
        }
        return -1;
    }

    void readText(qsizetype begin) {
        Literal literal{TokenKind::Text, {}, false};
        const qsizetype end = closing(pos_ + 1, u'\'', literal.doubled);
        if (end < 0) {
            constexpr qsizetype shown = 60;
            throw serverError(server_error::UnclosedQuote, {text_.sliced(pos_ + 1).left(shown).toString()});
        }
        literal.text = text_.sliced(pos_ + 1, end - pos_ - 1);
        pos_ = end + 1;
        addLiteral(begin, literal, textMark);
    }

    void readQuotedName(char16_t mark) {
        bool doubled = false;
        const qsizetype end = closing(pos_ + 1, mark, doubled);
        if (end <= pos_ + 1) {
            throw incorrectSyntax(text_.sliced(pos_));
        }
        out_.tokens.push_back({TokenKind::QuotedName, text_.sliced(pos_ + 1, end - pos_ - 1), -1});
        pos_ = end + 1;
    }

    void readNumber() {
        const qsizetype begin = pos_;
        skipDigits();
        bool whole = true;
        if (at(pos_) == u'.') {
            whole = false;
            ++pos_;
            skipDigits();
        }
        const qsizetype sign = (at(pos_ + 1) == u'+' || at(pos_ + 1) == u'-') ? 1 : 0;
        if ((at(pos_) == u'e' || at(pos_) == u'E') && isDigit(at(pos_ + 1 + sign))) {
            whole = false;
            pos_ += 1 + sign;
            skipDigits();
        }
        const QStringView digits = text_.sliced(begin, pos_ - begin);
        whole = whole && fitsWhole(digits);
        const TokenKind kind = whole ? TokenKind::Integer : TokenKind::Decimal;
        addLiteral(begin, {kind, digits, false}, whole ? integerMark : decimalMark);
    }

    void skipDigits() {
        while (isDigit(at(pos_))) {
            ++pos_;
        }
    }

    void readWord() {
        const qsizetype begin = pos_;
        while (pos_ < text_.size() && isNamePart(at(pos_))) {
            ++pos_;
        }
        out_.tokens.push_back({TokenKind::Word, text_.sliced(begin, pos_ - begin), -1});
    }

    void skipLine() {
        const qsizetype end = text_.indexOf(u'\n', pos_);
        pos_ = end < 0 ? text_.size() : end;
    }

    void skipComment() {
        const qsizetype begin = pos_;
        int depth = 0;
        do {
            if (pos_ >= text_.size()) {
                throw serverError(server_error::UnclosedComment);
            }
            if (at(pos_) == u'/' && at(pos_ + 1) == u'*') {
                ++depth;
                pos_ += 2;
            } else if (at(pos_) == u'*' && at(pos_ + 1) == u'/') {
                --depth;
                pos_ += 2;
            } else {
                ++pos_;
            }
        } while (depth > 0 || pos_ == begin);
    }

    void readSymbol(char16_t c, char16_t next) {
        if (!u"()+-*/%,.=<>!;"_s.contains(QChar(c))) {
            throw incorrectSyntax(text_.sliced(pos_, 1));
        }
        const bool paired = (c == u'<' && (next == u'=' || next == u'>')) || (c == u'>' && next == u'=') ||
                            (c == u'!' && (next == u'=' || next == u'<' || next == u'>'));
        const qsizetype length = paired ? 2 : 1;
        out_.tokens.push_back({TokenKind::Symbol, text_.sliced(pos_, length), -1});
        pos_ += length;
    }

    QStringView text_;
    Tokens& out_;
    qsizetype pos_ = 0;
    qsizetype copied_ = 0;
};

}  // namespace

QString Literal::content() const {
    QString content = text.toString();
    if (doubled) {
        content.replace("''"_L1, "'"_L1);
    }
    return content;
}

void tokenise(QStringView statement, Tokens& out) {
    Reader(statement, out).read();
}

bool isReserved(QStringView word) {
    static const QSet<QString> reserved = {
        u"add"_s,        u"all"_s,        u"alter"_s,    u"and"_s,     u"any"_s,     u"as"_s,      u"asc"_s,
        u"begin"_s,      u"between"_s,    u"by"_s,       u"case"_s,    u"check"_s,   u"collate"_s, u"column"_s,
        u"commit"_s,     u"constraint"_s, u"create"_s,   u"cross"_s,   u"default"_s, u"delete"_s,  u"desc"_s,
        u"distinct"_s,   u"drop"_s,       u"else"_s,     u"end"_s,     u"escape"_s,  u"except"_s,  u"exec"_s,
        u"execute"_s,    u"exists"_s,     u"for"_s,      u"foreign"_s, u"from"_s,    u"full"_s,    u"group"_s,
        u"having"_s,     u"identity"_s,   u"if"_s,       u"in"_s,      u"index"_s,   u"inner"_s,   u"insert"_s,
        u"intersect"_s,  u"into"_s,       u"is"_s,       u"join"_s,    u"key"_s,     u"left"_s,    u"like"_s,
        u"not"_s,        u"null"_s,       u"on"_s,       u"or"_s,      u"order"_s,   u"outer"_s,   u"primary"_s,
        u"references"_s, u"right"_s,      u"rollback"_s, u"select"_s,  u"set"_s,     u"some"_s,    u"table"_s,
        u"then"_s,       u"top"_s,        u"truncate"_s, u"union"_s,   u"unique"_s,  u"update"_s,  u"values"_s,
        u"when"_s,       u"where"_s,      u"while"_s,    u"with"_s,
    };
    constexpr qsizetype longest = 10;
    return word.size() <= longest && reserved.contains(word.toString().toLower());
}

}  // namespace talvora::embedded
