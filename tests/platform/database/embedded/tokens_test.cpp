// The tokens of a statement, and their reader.

#include "platform/database/embedded/tokens.h"

#include "tests/platform/database/embedded/practice.h"

namespace {

using db::embedded::Token;
using db::embedded::Tokenise;
using db::embedded::TokenKind;
using db::embedded::TokenReader;

const char* kindName(TokenKind kind) {
    switch (kind) {
        case TokenKind::Word:
            return "word";
        case TokenKind::Name:
            return "name";
        case TokenKind::Text:
            return "text";
        case TokenKind::Number:
            return "number";
        case TokenKind::Operator:
            return "operator";
        case TokenKind::Parameter:
            return "place";
        case TokenKind::End:
            return "end";
    }
    return "";
}

/// The tokens as "kind:text", without the end.
QStringList told(const char* statement) {
    QStringList result;
    const std::vector<Token> tokens = Tokenise(statement);
    EXPECT_EQ(tokens.back().kind, TokenKind::End);
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i)
        result.append(QStringLiteral("%1:%2").arg(kindName(tokens[i].kind), QString::fromStdString(tokens[i].text)));
    return result;
}

int failure(const char* statement) {
    try {
        static_cast<void>(Tokenise(statement));
    } catch (const db::DatabaseError& error) {
        return error.number;
    }
    return 0;
}

TEST(Tokens, EachKindIsToldApart) {
    EXPECT_EQ(told("Select [a], \"b\", 'c', 5 + ?"),
              (QStringList{"word:Select", "name:a", "operator:,", "name:b", "operator:,", "text:c", "operator:,",
                           "number:5", "operator:+", "place:?"}));
    EXPECT_EQ(told(""), QStringList());
    EXPECT_EQ(told(" \t\r\n "), QStringList());
}

TEST(Tokens, AWordHoldsLettersDigitsAndAFewMarks) {
    EXPECT_EQ(told("a1 _b c_d @e @@f #g h$i"),
              (QStringList{"word:a1", "word:_b", "word:c_d", "word:@e", "word:@@f", "word:#g", "word:h$i"}));
    EXPECT_EQ(told("Größe"), QStringList{"word:Größe"});
    EXPECT_EQ(told("a.b"), (QStringList{"word:a", "operator:.", "word:b"}));
    EXPECT_EQ(told("a-b"), (QStringList{"word:a", "operator:-", "word:b"}));
    EXPECT_EQ(told("name"), QStringList{"word:name"});
    EXPECT_EQ(told("N 'x'"), (QStringList{"word:N", "text:x"}));
    EXPECT_EQ(told("zZaA"), QStringList{"word:zZaA"});
}

TEST(Tokens, ANumberHasDigitsAPointAndAPower) {
    EXPECT_EQ(told("12 1.5 .5 5. 0.0"),
              (QStringList{"number:12", "number:1.5", "number:.5", "number:5.", "number:0.0"}));
    EXPECT_EQ(told("1e5 1E-5 1.5e+10"), (QStringList{"number:1e5", "number:1E-5", "number:1.5e+10"}));
    EXPECT_EQ(told("1e"), (QStringList{"number:1", "word:e"}));
    EXPECT_EQ(told("1e-"), (QStringList{"number:1", "word:e", "operator:-"}));
    EXPECT_EQ(told("5 .x"), (QStringList{"number:5", "operator:.", "word:x"}));
    EXPECT_EQ(told("1.2.3"), (QStringList{"number:1.2", "number:.3"}));
    EXPECT_EQ(told("09"), QStringList{"number:09"});
}

TEST(Tokens, OperatorsAreAsLongAsTheyCanBe) {
    EXPECT_EQ(told("<> <= >= != !< !>"),
              (QStringList{"operator:<>", "operator:<=", "operator:>=", "operator:!=", "operator:!<", "operator:!>"}));
    EXPECT_EQ(told("= < > + - * / % & | ^ ~ ( ) , . ;").size(), 17);
    EXPECT_EQ(told("a=-1"), (QStringList{"word:a", "operator:=", "operator:-", "number:1"}));
    EXPECT_EQ(told("<=>"), (QStringList{"operator:<=", "operator:>"}));
    EXPECT_EQ(told("=>"), (QStringList{"operator:=", "operator:>"}));
    EXPECT_EQ(told("()"), (QStringList{"operator:(", "operator:)"}));
    EXPECT_EQ(failure("a ! b"), 102);
    EXPECT_EQ(failure("a : b"), 102);
}

TEST(Tokens, QuotesWithinQuotesAreWrittenTwice) {
    EXPECT_EQ(told("'it''s' '' ''''"), (QStringList{"text:it's", "text:", "text:'"}));
    EXPECT_EQ(told("[a]]b] [a[b]"), (QStringList{"name:a]b", "name:a[b"}));
    EXPECT_EQ(told("\"a\"\"b\" \"a'b\""), (QStringList{"name:a\"b", "name:a'b"}));
    EXPECT_EQ(told("N'x' n'y'"), (QStringList{"text:x", "text:y"}));
    EXPECT_EQ(told("'-- /* ?'"), QStringList{"text:-- /* ?"});
    EXPECT_EQ(failure("'x"), 105);
    EXPECT_EQ(failure("[x"), 105);
    EXPECT_EQ(failure("\"x"), 105);
    EXPECT_EQ(failure("'x''"), 105);
}

TEST(Tokens, RemarksFallAway) {
    EXPECT_EQ(told("a -- b\nc"), (QStringList{"word:a", "word:c"}));
    EXPECT_EQ(told("a -- b"), QStringList{"word:a"});
    EXPECT_EQ(told("a /* b */ c"), (QStringList{"word:a", "word:c"}));
    EXPECT_EQ(told("a/**/c"), (QStringList{"word:a", "word:c"}));
    EXPECT_EQ(told("a /* b /* c */ d */ e"), (QStringList{"word:a", "word:e"}));
    EXPECT_EQ(told("a - - b"), (QStringList{"word:a", "operator:-", "operator:-", "word:b"}));
    EXPECT_EQ(told("a / * b"), (QStringList{"word:a", "operator:/", "operator:*", "word:b"}));
    EXPECT_EQ(failure("a /* b"), 113);
    EXPECT_EQ(failure("a /* b *"), 113);
    EXPECT_EQ(failure("a /*/"), 113);
}

TEST(Tokens, PlacesAreNumbered) {
    const std::vector<Token> tokens = Tokenise("? '?' [?] ? -- ?\n?");
    std::vector<int> places;
    for (const Token& token : tokens)
        if (token.kind == TokenKind::Parameter)
            places.push_back(token.place);
    EXPECT_EQ(places, (std::vector<int>{1, 2, 3}));
}

TEST(Tokens, TheReaderTakesWhatIsAskedFor) {
    TokenReader in(Tokenise("Select [top] From a"));
    EXPECT_TRUE(in.atWord("SELECT"));
    EXPECT_FALSE(in.atWord("selec"));
    EXPECT_FALSE(in.acceptWord("from"));
    EXPECT_TRUE(in.acceptWord("select"));
    EXPECT_FALSE(in.atWord("top"));
    EXPECT_TRUE(in.atName());
    EXPECT_TRUE(in.atWord("from", 1));
    EXPECT_EQ(in.expectName(), "top");
    EXPECT_FALSE(in.atName());
    EXPECT_THROW(in.expectName(), db::DatabaseError);
    in.expectWord("from");
    EXPECT_EQ(in.next().text, "a");
    EXPECT_TRUE(in.atEnd());
    EXPECT_EQ(in.next().kind, TokenKind::End);
    EXPECT_TRUE(in.atEnd());
}

TEST(Tokens, TheReaderGoesBackToAPosition) {
    TokenReader in(Tokenise("a , b"));
    const std::size_t start = in.position();
    in.next();
    EXPECT_TRUE(in.acceptOperator(","));
    EXPECT_FALSE(in.acceptOperator(","));
    in.moveTo(start);
    EXPECT_EQ(in.peek().text, "a");
    EXPECT_EQ(in.peek(2).text, "b");
    EXPECT_EQ(in.peek(99).kind, TokenKind::End);
}

TEST(Tokens, TheReaderPassesOverParentheses) {
    TokenReader in(Tokenise("( a ( b ) c ) d"));
    in.expectOperator("(");
    in.skipParentheses();
    EXPECT_EQ(in.peek().text, "d");
    TokenReader open(Tokenise("( a ( b )"));
    open.expectOperator("(");
    EXPECT_THROW(open.skipParentheses(), db::DatabaseError);
}

TEST(Tokens, AFaultNamesTheTokenAheadOrTheLastOne) {
    const auto sentence = [](TokenReader& in) {
        try {
            in.fail();
        } catch (const db::DatabaseError& error) {
            return error.description;
        }
    };
    TokenReader in(Tokenise("alpha beta"));
    EXPECT_EQ(sentence(in), "Incorrect syntax near 'alpha'.");
    in.next();
    EXPECT_EQ(sentence(in), "Incorrect syntax near 'beta'.");
    in.next();
    EXPECT_EQ(sentence(in), "Incorrect syntax near 'beta'.");
    TokenReader empty(Tokenise(""));
    EXPECT_EQ(sentence(empty), "Incorrect syntax near ''.");
}

TEST(Tokens, EveryReservedWordNeedsBracketsToBeAName) {
    for (const char* word :
         {"add",    "all",      "alter",  "and",       "as",         "asc",    "begin",    "between", "by",
          "case",   "check",    "column", "commit",    "constraint", "create", "cross",    "default", "delete",
          "desc",   "distinct", "drop",   "else",      "end",        "escape", "except",   "exec",    "execute",
          "exists", "foreign",  "from",   "full",      "group",      "having", "identity", "if",      "in",
          "index",  "inner",    "insert", "intersect", "into",       "is",     "join",     "key",     "left",
          "like",   "not",      "null",   "on",        "or",         "order",  "outer",    "primary", "references",
          "right",  "rollback", "select", "set",       "some",       "table",  "then",     "top",     "truncate",
          "union",  "unique",   "update", "values",    "view",       "when",   "where",    "with"}) {
        EXPECT_FALSE(TokenReader(Tokenise(word)).atName()) << word;
        EXPECT_FALSE(TokenReader(Tokenise(QByteArray(word).toUpper().toStdString())).atName()) << word;
        EXPECT_TRUE(TokenReader(Tokenise(std::string("[").append(word).append("]"))).atName()) << word;
    }
    for (const char* word : {"name", "date", "day", "header", "selected", "orders", "x"})
        EXPECT_TRUE(TokenReader(Tokenise(word)).atName()) << word;
}

}  // namespace
