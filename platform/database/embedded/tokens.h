#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace db::embedded {

enum class TokenKind {
    Word,  ///< A name or a keyword.
    Name,  ///< A name in brackets or double quotes, never a keyword.
    Text,  ///< A literal in single quotes.
    Number,
    Operator,   ///< Also commas, points, parentheses and semicolons.
    Parameter,  ///< The place ? of a bound value.
    End,
};

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;  ///< Without quotes or brackets; doubled ones inside are single.
    int place = 0;     ///< The place of a parameter: 1 for the first in the statement.
};

/// Cuts a statement into tokens, of which the last is End. Comments are left out. Throws DatabaseError 105 for a quote
/// or bracket that is not closed, 113 for a comment that is not closed and 102 for a character that begins no token.
std::vector<Token> Tokenise(std::string_view statement);

/// Reads the tokens of one statement in turn.
class TokenReader {
  public:
    explicit TokenReader(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
    [[nodiscard]] bool atWord(std::string_view word, std::size_t ahead = 0) const;
    [[nodiscard]] bool atOperator(std::string_view op, std::size_t ahead = 0) const;
    [[nodiscard]] bool atEnd() const { return peek().kind == TokenKind::End; }

    Token next();
    /// Takes the next token if it is the one asked for, and returns whether it was.
    bool acceptWord(std::string_view word);
    bool acceptOperator(std::string_view op);
    /// Takes the token asked for. Throws 102 for any other.
    void expectWord(std::string_view word);
    void expectOperator(std::string_view op);
    /// Takes a name, in quotes or without. Throws 102 for anything else, also for a reserved word without quotes.
    std::string expectName();
    [[nodiscard]] bool atName() const;
    /// Moves past the parenthesis that closes the one just taken.
    void skipParentheses();

    /// Throws 102 "Incorrect syntax near ..." for the next token.
    [[noreturn]] void fail() const;

    [[nodiscard]] std::size_t position() const { return position_; }
    void moveTo(std::size_t position) { position_ = position; }

  private:
    std::vector<Token> tokens_;
    std::size_t position_ = 0;
};

}  // namespace db::embedded
