#include "platform/database/statement.h"

#include <algorithm>
#include <array>

#include "platform/database/error.h"

namespace db {

namespace {

bool isWordStart(QChar c) {
    return c.isLetter() || c == QLatin1Char('_') || c == QLatin1Char('@') || c == QLatin1Char('#');
}

bool isWordPart(QChar c) {
    return isWordStart(c) || c.isDigit() || c == QLatin1Char('$') || c.isSurrogate();
}

/// Reads a statement from left to right.
class Scanner {
  public:
    explicit Scanner(const QString& statement) : statement_(statement) {}

    bool next(Token& token) {
        skipBlanks();
        if (at_ >= statement_.size())
            return false;
        const qsizetype start = at_;
        token.kind = advance();
        token.text = QStringView(statement_).sliced(start, at_ - start);
        return true;
    }

  private:
    [[nodiscard]] QChar peek(qsizetype ahead = 0) const {
        return at_ + ahead < statement_.size() ? statement_[at_ + ahead] : QChar();
    }

    void skipBlanks() {
        while (at_ < statement_.size()) {
            if (peek().isSpace())
                ++at_;
            else if (peek() == QLatin1Char('-') && peek(1) == QLatin1Char('-'))
                skipTo(QStringLiteral("\n"));
            else if (peek() == QLatin1Char('/') && peek(1) == QLatin1Char('*'))
                skipRemark();
            else
                return;
        }
    }

    // A remark may hold others, as on a server.
    void skipRemark() {
        int depth = 0;
        do {
            const QStringView mark =
                QStringView(statement_).sliced(at_, std::min<qsizetype>(2, statement_.size() - at_));
            const bool opens = mark == QLatin1String("/*");
            const bool closes = mark == QLatin1String("*/");
            depth += opens ? 1 : closes ? -1 : 0;
            at_ += opens || closes ? 2 : 1;
        } while (depth > 0 && at_ < statement_.size());
    }

    void skipTo(const QString& end) {
        const qsizetype found = statement_.indexOf(end, at_ + 2);
        at_ = found < 0 ? statement_.size() : found + end.size();
    }

    Token::Kind advance() {
        const QChar c = peek();
        if (c == QLatin1Char('\'') ||
            ((c == QLatin1Char('N') || c == QLatin1Char('n')) && peek(1) == QLatin1Char('\'')))
            return quoted(Token::Kind::Text, c == QLatin1Char('\'') ? 1 : 2, QLatin1Char('\''));
        if (c == QLatin1Char('['))
            return quoted(Token::Kind::Name, 1, QLatin1Char(']'));
        if (c == QLatin1Char('"'))
            return quoted(Token::Kind::Name, 1, QLatin1Char('"'));
        if (isWordStart(c) || c.isSurrogate()) {
            while (isWordPart(peek()))
                ++at_;
            return Token::Kind::Word;
        }
        if (c.isDigit()) {
            while (peek().isLetterOrNumber() || peek() == QLatin1Char('.'))
                ++at_;
            return Token::Kind::Number;
        }
        ++at_;
        return Token::Kind::Symbol;
    }

    /// Moves past a text that `end` closes. A doubled `end` inside stands for itself.
    Token::Kind quoted(Token::Kind kind, int opening, QChar end) {
        const qsizetype start = at_ + opening;
        for (at_ = start; at_ < statement_.size(); ++at_) {
            if (peek() != end)
                continue;
            if (peek(1) != end) {
                ++at_;
                return kind;
            }
            ++at_;
        }
        throw DatabaseError(
            105,
            QStringLiteral("Unclosed quotation mark after the character string '%1'.").arg(statement_.sliced(start)),
            statement_, QStringLiteral("42000"));
    }

    const QString& statement_;
    qsizetype at_ = 0;
};

using Cursor = std::vector<Token>::const_iterator;

bool isAny(const Token& token, std::initializer_list<const char*> words) {
    return std::any_of(words.begin(), words.end(), [&](const char* word) { return token.is(QLatin1String(word)); });
}

/// Reads "owner.table", moves past it and returns the table alone.
QString takeTable(Cursor& at, Cursor end) {
    if (at == end || !at->isName())
        return {};
    QString name = at->name();
    ++at;
    while (at != end && at->is(QLatin1String("."))) {
        ++at;
        if (at != end && at->isName())
            name = (at++)->name();
    }
    return name;
}

void skipTop(Cursor& at, Cursor end) {
    if (at == end || !at->is(QLatin1String("Top")))
        return;
    ++at;
    if (at != end && at->is(QLatin1String("("))) {
        while (at != end && !at->is(QLatin1String(")")))
            ++at;
    }
    if (at != end)
        ++at;
}

/// Moves past the bracket that closes the one at `at`.
void skipBrackets(Cursor& at, Cursor end) {
    int depth = 0;
    for (; at != end; ++at) {
        depth += at->is(QLatin1String("(")) ? 1 : 0;
        depth -= at->is(QLatin1String(")")) ? 1 : 0;
        if (depth == 0) {
            ++at;
            return;
        }
    }
}

QString takeAlias(Cursor& at, Cursor end) {
    if (at != end && at->is(QLatin1String("As")))
        ++at;
    if (at == end || !at->isName() ||
        isAny(*at, {"Inner", "Left", "Right", "Full", "Cross", "Outer", "Join", "On", "Where", "Order", "Group",
                    "Having", "Union", "With", "Set", "For"}))
        return {};
    return (at++)->name();
}

/// Reads the tables between From and Where.
std::vector<SelectShape::Source> takeSources(Cursor& at, Cursor end) {
    std::vector<SelectShape::Source> sources;
    bool expected = true;
    int depth = 0;
    while (at != end && !(depth == 0 && isAny(*at, {"Where", "Order", "Group", "Having", "Union", "Set", ";"}))) {
        if (expected && at->is(QLatin1String("(")) && at + 1 != end && (at + 1)->is(QLatin1String("Select"))) {
            skipBrackets(at, end);
            sources.push_back({{}, takeAlias(at, end)});
            expected = false;
        } else if (expected && at->isName()) {
            const QString table = takeTable(at, end);
            sources.push_back({table, takeAlias(at, end)});
            expected = false;
        } else {
            depth += at->is(QLatin1String("(")) ? 1 : 0;
            depth -= at->is(QLatin1String(")")) ? 1 : 0;
            expected = expected || at->is(QLatin1String("Join")) || (depth == 0 && at->is(QLatin1String(",")));
            ++at;
        }
    }
    return sources;
}

SelectShape::Item itemOf(Cursor first, Cursor last) {
    const auto count = last - first;
    if (count == 1 && first->is(QLatin1String("*")))
        return {{}, true};
    if (count < 3 || !first->isName() || !(first + 1)->is(QLatin1String(".")))
        return {};
    Cursor at = first;
    while (last - at > 4 && (at + 3)->is(QLatin1String(".")))
        at += 2;  // Skips an owner before the table.
    const QString table = at->name();
    at += 2;
    if (at->is(QLatin1String("*")))
        return {table, true};
    ++at;
    const bool plain = at == last || at->is(QLatin1String("As")) || (at + 1 == last && at->isName());
    return plain ? SelectShape::Item{table, false} : SelectShape::Item{};
}

std::vector<SelectShape::Item> takeItems(Cursor& at, Cursor end) {
    std::vector<SelectShape::Item> items;
    int depth = 0;
    Cursor start = at;
    for (; at != end; ++at) {
        depth += at->is(QLatin1String("(")) ? 1 : 0;
        depth -= at->is(QLatin1String(")")) ? 1 : 0;
        if (depth > 0 || !(at->is(QLatin1String(",")) || at->is(QLatin1String("From"))))
            continue;
        items.push_back(itemOf(start, at));
        start = at + 1;
        if (at->is(QLatin1String("From")))
            return items;
    }
    items.push_back(itemOf(start, end));
    return items;
}

/// Returns the table of "Update a Set ... From table a" or "Delete a From table a", where `a` is the name of a source.
QString resolved(const QString& name, Cursor at, Cursor end) {
    while (at != end && !at->is(QLatin1String("From")))
        ++at;
    if (at == end)
        return name;
    for (const SelectShape::Source& source : takeSources(++at, end)) {
        if (!source.table.isEmpty() && source.alias.compare(name, Qt::CaseInsensitive) == 0)
            return source.table;
    }
    return name;
}

/// Returns the table of "Create Table t", "Drop Table t" or "Create Unique Index i On t".
QString schemaTable(Cursor at, Cursor end) {
    const bool hangsOnTable = std::any_of(at, end, [](const Token& token) {
        return isAny(token, {"Index", "Trigger"});
    });
    const QLatin1String before(hangsOnTable ? "On" : "Table");
    at = std::find_if(at, end, [&](const Token& token) { return token.is(before); });
    if (at == end)
        return {};
    return takeTable(++at, end);
}

}  // namespace

bool Token::is(QLatin1String word) const {
    return (kind == Kind::Word || kind == Kind::Symbol) && text.compare(word, Qt::CaseInsensitive) == 0;
}

QString Token::name() const {
    if (kind != Kind::Name)
        return text.toString();
    const QChar closing = text.back();
    return text.sliced(1, text.size() - 2).toString().replace(QString(2, closing), QString(closing));
}

std::vector<Token> Tokens(const QString& statement) {
    std::vector<Token> tokens;
    tokens.reserve(static_cast<std::size_t>(statement.size() / 5 + 8));
    Scanner scanner(statement);
    Token token{};
    while (scanner.next(token))
        tokens.push_back(token);
    return tokens;
}

void RequireOneStatement(const QString& statement) {
    Scanner scanner(statement);
    Token token{};
    bool ended = false;
    while (scanner.next(token)) {
        if (ended)
            throw DatabaseError(102, QStringLiteral("Incorrect syntax near '%1'.").arg(token.text), statement,
                                QStringLiteral("42000"));
        ended = token.is(QLatin1String(";"));
    }
}

std::optional<QString> WrittenTable(const QString& statement) {
    const std::vector<Token> tokens = Tokens(statement);
    Cursor at = tokens.begin();
    const Cursor end = tokens.end();
    if (at == end)
        return std::nullopt;
    const Token verb = *at++;
    if (isAny(verb, {"Create", "Drop", "Alter", "Truncate"}))
        return schemaTable(at, end);
    if (!isAny(verb, {"Insert", "Update", "Delete"}))
        return std::nullopt;
    skipTop(at, end);
    if (at != end && isAny(*at, {"Into", "From"}))
        ++at;
    const QString table = takeTable(at, end);
    return verb.is(QLatin1String("Insert")) ? table : resolved(table, at, end);
}

bool Names(const QString& statement, const QString& name) {
    const std::vector<Token> tokens = Tokens(statement);
    return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) {
        return token.isName() && token.name().compare(name, Qt::CaseInsensitive) == 0;
    });
}

SelectShape ShapeOfSelect(const QString& statement) {
    SelectShape shape;
    const std::vector<Token> tokens = Tokens(statement);
    Cursor at = tokens.begin();
    const Cursor end = tokens.end();
    if (at == end || !at->is(QLatin1String("Select")))
        return shape;
    ++at;
    if (at != end && isAny(*at, {"Distinct", "All"}))
        shape.grouped = (at++)->is(QLatin1String("Distinct"));
    skipTop(at, end);
    shape.items = takeItems(at, end);
    if (at != end)
        shape.sources = takeSources(++at, end);
    for (int depth = 0; at != end; ++at) {
        depth += at->is(QLatin1String("(")) ? 1 : 0;
        depth -= at->is(QLatin1String(")")) ? 1 : 0;
        shape.grouped = shape.grouped || (depth == 0 && isAny(*at, {"Group", "Having", "Union"}));
    }
    return shape;
}

QString WithServerTexts(const QString& statement) {
    const auto isPlain = [](QStringView text) {
        return std::all_of(text.begin(), text.end(),
                           [](QChar c) { return c.unicode() < 0x80 && c != QLatin1Char('\\'); });
    };
    if (isPlain(statement))
        return statement;
    QString written;
    const QChar* copied = statement.constData();
    for (const Token& token : Tokens(statement)) {
        if (token.kind != Token::Kind::Text || isPlain(token.text))
            continue;
        written += QStringView(copied, token.text.data());
        if (token.text.front() == QLatin1Char('\''))
            written += QLatin1Char('N');
        QString text = token.text.toString();
        text.replace(QLatin1String("\\\n"), QLatin1String("\\' + N'\n"));
        text.replace(QLatin1String("\\\r\n"), QLatin1String("\\' + N'\r\n"));
        written += text;
        copied = token.text.data() + token.text.size();
    }
    return written.append(QStringView(copied, statement.constData() + statement.size()));
}

}  // namespace db
