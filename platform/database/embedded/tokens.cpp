#include "platform/database/embedded/tokens.h"

#include <algorithm>
#include <array>

#include "platform/database/embedded/names.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool startsWord(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '@' || c == '#' ||
           static_cast<unsigned char>(c) >= 0x80;
}

[[noreturn]] void failNear(std::string_view text) {
    throw DatabaseError(102, QStringLiteral("Incorrect syntax near '%1'.").arg(ToQt(text)));
}

class Cutter {
  public:
    explicit Cutter(std::string_view statement) : text_(statement) {}

    std::vector<Token> run() {
        while (skipToToken())
            tokens_.push_back(take());
        tokens_.push_back({});
        return std::move(tokens_);
    }

  private:
    [[nodiscard]] char at(std::size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }

    bool skipToToken() {
        while (at_ < text_.size()) {
            if (static_cast<unsigned char>(at()) <= ' ')
                ++at_;
            else if (at() == '-' && at(1) == '-')
                at_ = std::min(text_.find('\n', at_), text_.size());
            else if (at() == '/' && at(1) == '*')
                skipComment();
            else
                return true;
        }
        return false;
    }

    /// A comment may contain comments.
    void skipComment() {
        int depth = 0;
        do {
            const std::string_view mark = text_.substr(at_, 2);
            if (mark.empty())
                throw DatabaseError(113, QStringLiteral("Missing end comment mark '*/'."));
            const bool opens = mark == "/*";
            const bool closes = mark == "*/";
            depth += opens ? 1 : closes ? -1 : 0;
            at_ += opens || closes ? 2 : 1;
        } while (depth > 0);
    }

    Token take() {
        const char c = at();
        if (c == '\'')
            return takeQuoted(TokenKind::Text, '\'');
        if ((c == 'N' || c == 'n') && at(1) == '\'') {
            ++at_;
            return takeQuoted(TokenKind::Text, '\'');
        }
        if (c == '[')
            return takeQuoted(TokenKind::Name, ']');
        if (c == '"')
            return takeQuoted(TokenKind::Name, '"');
        if (isDigit(c) || (c == '.' && isDigit(at(1))))
            return takeNumber();
        if (startsWord(c))
            return takeWord();
        if (c == '?') {
            ++at_;
            return {TokenKind::Parameter, "?", ++places_};
        }
        return takeOperator();
    }

    Token takeQuoted(TokenKind kind, char close) {
        const std::size_t start = ++at_;
        std::string value;
        for (;; ++at_) {
            if (at_ >= text_.size()) {
                const auto rest = QString::fromUtf8(text_.data() + start, static_cast<qsizetype>(text_.size() - start));
                throw DatabaseError(
                    105, QStringLiteral("Unclosed quotation mark after the character string '%1'.").arg(rest));
            }
            if (at() == close) {
                if (at(1) != close)
                    break;
                ++at_;
            }
            value.push_back(at());
        }
        ++at_;
        return {kind, std::move(value)};
    }

    Token takeNumber() {
        const std::size_t start = at_;
        const auto digits = [this] {
            while (isDigit(at()))
                ++at_;
        };
        digits();
        // A binary literal would otherwise be a 0 with a name.
        if (at_ - start == 1 && text_[start] == '0' && (at() == 'x' || at() == 'X'))
            failNear(text_.substr(start, 2));
        if (at() == '.') {
            ++at_;
            digits();
        }
        if ((at() == 'e' || at() == 'E') && (isDigit(at(1)) || ((at(1) == '-' || at(1) == '+') && isDigit(at(2))))) {
            at_ += 2;
            digits();
        }
        return {TokenKind::Number, std::string(text_.substr(start, at_ - start))};
    }

    Token takeWord() {
        const std::size_t start = at_;
        while (at_ < text_.size() && (startsWord(at()) || isDigit(at()) || at() == '$'))
            ++at_;
        return {TokenKind::Word, std::string(text_.substr(start, at_ - start))};
    }

    Token takeOperator() {
        static constexpr std::array<std::string_view, 6> pairs = {"<>", "<=", ">=", "!=", "!<", "!>"};
        const std::string_view two = text_.substr(at_, 2);
        const std::size_t length = std::find(pairs.begin(), pairs.end(), two) != pairs.end() ? 2 : 1;
        const std::string_view op = text_.substr(at_, length);
        if (length == 1 && std::string_view("=<>+-*/%&|^~(),.;").find(op[0]) == std::string_view::npos)
            failNear(op);
        at_ += length;
        return {TokenKind::Operator, std::string(op)};
    }

    std::string_view text_;
    std::size_t at_ = 0;
    int places_ = 0;
    std::vector<Token> tokens_;
};

/// Words that end or join the parts of a statement, so that they cannot be a name without brackets.
bool isReserved(std::string_view word) {
    static constexpr std::array<std::string_view, 71> reserved = {
        "add",    "all",      "alter",  "and",       "as",         "asc",    "begin",    "between", "by",
        "case",   "check",    "column", "commit",    "constraint", "create", "cross",    "default", "delete",
        "desc",   "distinct", "drop",   "else",      "end",        "escape", "except",   "exec",    "execute",
        "exists", "foreign",  "from",   "full",      "group",      "having", "identity", "if",      "in",
        "index",  "inner",    "insert", "intersect", "into",       "is",     "join",     "key",     "left",
        "like",   "not",      "null",   "on",        "or",         "order",  "outer",    "primary", "references",
        "right",  "rollback", "select", "set",       "some",       "table",  "then",     "top",     "truncate",
        "union",  "unique",   "update", "values",    "view",       "when",   "where",    "with"};
    const std::string lower = LowerName(word);
    return std::find(reserved.begin(), reserved.end(), lower) != reserved.end();
}

}  // namespace

std::vector<Token> Tokenise(std::string_view statement) {
    return Cutter(statement).run();
}

const Token& TokenReader::peek(std::size_t ahead) const {
    return tokens_[std::min(position_ + ahead, tokens_.size() - 1)];
}

bool TokenReader::atWord(std::string_view word, std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Word && SameName(token.text, word);
}

bool TokenReader::atOperator(std::string_view op, std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Operator && token.text == op;
}

Token TokenReader::next() {
    Token token = peek();
    if (token.kind != TokenKind::End)
        ++position_;
    return token;
}

bool TokenReader::acceptWord(std::string_view word) {
    if (!atWord(word))
        return false;
    ++position_;
    return true;
}

bool TokenReader::acceptOperator(std::string_view op) {
    if (!atOperator(op))
        return false;
    ++position_;
    return true;
}

void TokenReader::expectWord(std::string_view word) {
    if (!acceptWord(word))
        fail();
}

void TokenReader::expectOperator(std::string_view op) {
    if (!acceptOperator(op))
        fail();
}

bool TokenReader::atName() const {
    return peek().kind == TokenKind::Name || (peek().kind == TokenKind::Word && !isReserved(peek().text));
}

std::string TokenReader::expectName() {
    if (!atName())
        fail();
    return next().text;
}

void TokenReader::skipParentheses() {
    for (int depth = 1; depth > 0; next()) {
        if (atEnd())
            fail();
        if (atOperator("("))
            ++depth;
        else if (atOperator(")"))
            --depth;
    }
}

void TokenReader::fail() const {
    // The server names the last token where the statement breaks off.
    const bool ended = atEnd() && position_ > 0;
    failNear(ended ? tokens_[position_ - 1].text : peek().text);
}

}  // namespace db::embedded
