#include "platform/database/writeshape.h"

#include <algorithm>

#include "platform/database/statement.h"

namespace db {

namespace {

bool is(const Token& token, const char* word) {
    return token.is(QLatin1String(word));
}

int depthOf(const Token& token) {
    return is(token, "(") ? 1 : is(token, ")") ? -1 : 0;
}

/// Reads the tokens of one write from left to right.
class Reader {
  public:
    explicit Reader(const QString& statement) : statement_(statement), tokens_(Tokens(statement)) {
        if (!tokens_.empty() && is(tokens_.back(), ";"))
            tokens_.pop_back();
    }

    [[nodiscard]] bool atEnd() const { return at_ == tokens_.size(); }
    [[nodiscard]] bool standsAt(const char* word) const { return !atEnd() && is(tokens_[at_], word); }

    bool take(const char* word) {
        const bool here = standsAt(word);
        at_ += here ? 1 : 0;
        return here;
    }

    /// Takes a name with its owners and returns its last part. Returns an empty text when no name stands here.
    QString takeName() {
        if (atEnd() || !tokens_[at_].isName())
            return {};
        QString name = tokens_[at_++].name();
        while (standsAt(".") && at_ + 1 < tokens_.size() && tokens_[at_ + 1].isName()) {
            name = tokens_[at_ + 1].name();
            at_ += 2;
        }
        return name;
    }

    /// Takes one value, up to a comma, a closing bracket, Where or From.
    WriteShape::Written takeValue() {
        const std::size_t first = at_;
        for (int depth = 0; !atEnd(); ++at_) {
            if (depth == 0 && (is(tokens_[at_], ",") || is(tokens_[at_], ")") || endsValues(tokens_[at_])))
                break;
            depth += depthOf(tokens_[at_]);
        }
        return writtenIn(first);
    }

    /// Returns how many ? stand before the next token.
    [[nodiscard]] std::size_t placesBefore() const { return placesBefore(at_); }

    [[nodiscard]] qsizetype offset() const { return offsetOf(tokens_[at_]); }

    /// Returns the statement from one token on.
    [[nodiscard]] QString textFrom(std::size_t token) const { return textOf(token, tokens_.size()); }
    [[nodiscard]] QString textOf(std::size_t first, std::size_t end) const {
        if (first == end)
            return {};
        const qsizetype start = offsetOf(tokens_[first]);
        return statement_.sliced(start, offsetOf(tokens_[end - 1]) + tokens_[end - 1].text.size() - start);
    }
    [[nodiscard]] std::size_t position() const { return at_; }

    /// Returns true when a word after which a Select would not read the written rows stands outside brackets.
    [[nodiscard]] bool isLimitedFromHere() const {
        int depth = 0;
        return std::any_of(tokens_.begin() + static_cast<std::ptrdiff_t>(at_), tokens_.end(), [&](const Token& token) {
            depth += depthOf(token);
            return depth == 0 && (is(token, "Output") || is(token, "Option") || is(token, "Current"));
        });
    }

  private:
    static bool endsValues(const Token& token) { return is(token, "Where") || is(token, "From"); }

    [[nodiscard]] qsizetype offsetOf(const Token& token) const { return token.text.data() - statement_.constData(); }

    [[nodiscard]] std::size_t placesBefore(std::size_t end) const {
        return static_cast<std::size_t>(std::count_if(tokens_.begin(),
                                                      tokens_.begin() + static_cast<std::ptrdiff_t>(end),
                                                      [](const Token& token) { return is(token, "?"); }));
    }

    [[nodiscard]] WriteShape::Written writtenIn(std::size_t first) const {
        const bool isNegative =
            at_ - first == 2 && is(tokens_[first], "-") && tokens_[first + 1].kind == Token::Kind::Number;
        if (at_ - first != 1 && !isNegative)
            return {};
        const Token& token = tokens_[at_ - 1];
        if (is(token, "?"))
            return placesBefore(first);
        if (is(token, "Null"))
            return WriteShape::Written(std::in_place_type<Value>);
        if (token.kind == Token::Kind::Text)
            return WriteShape::Written(std::in_place_type<Value>, textIn(token));
        return token.kind == Token::Kind::Number ? numberIn(token, isNegative) : WriteShape::Written();
    }

    static QString textIn(const Token& token) {
        const qsizetype opening = token.text.front() == u'\'' ? 1 : 2;  // N'...'
        return token.text.sliced(opening, token.text.size() - opening - 1)
            .toString()
            .replace(QLatin1String("''"), QLatin1String("'"));
    }

    static WriteShape::Written numberIn(const Token& token, bool isNegative) {
        WriteShape::Written written;
        bool isWhole = false;
        const qint64 whole = token.text.toLongLong(&isWhole);
        bool isNumber = false;
        const double number = token.text.toDouble(&isNumber);
        if (isWhole)
            written.emplace<Value>(isNegative ? -whole : whole);
        else if (isNumber)
            written.emplace<Value>(isNegative ? -number : number);
        return written;
    }

    const QString& statement_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
};

using Shape = std::optional<WriteShape>;

/// Reads what stands behind the table of a Delete and behind the assignments of an Update.
Shape withCondition(Reader& in, WriteShape shape) {
    if (in.isLimitedFromHere())
        return {};
    shape.placesBefore = in.placesBefore();
    if (in.atEnd())
        return shape;
    if (!in.take("Where") || in.atEnd())
        return {};
    shape.condition = in.textFrom(in.position());
    return shape;
}

Shape shapeOfUpdate(Reader& in, WriteShape shape) {
    if (!in.take("Set"))
        return {};
    do {
        WriteShape::Assignment assignment{in.takeName(), {}};
        if (assignment.column.isEmpty() || !in.take("="))
            return {};
        assignment.value = in.takeValue();
        shape.assignments.push_back(std::move(assignment));
    } while (in.take(","));
    return withCondition(in, std::move(shape));
}

/// Takes one row of Values in its brackets. Returns nothing when it is not complete.
std::optional<std::vector<WriteShape::Written>> takeRow(Reader& in) {
    std::vector<WriteShape::Written> row;
    if (!in.take("("))
        return {};
    do
        row.push_back(in.takeValue());
    while (in.take(","));
    return in.take(")") ? std::optional(std::move(row)) : std::nullopt;
}

Shape shapeOfInsert(Reader& in, WriteShape shape) {
    if (in.take("(")) {
        do
            shape.columns << in.takeName();
        while (in.take(","));
        if (!in.take(")"))
            return {};
    }
    if (in.isLimitedFromHere() || in.atEnd())
        return {};
    shape.valuesAt = in.offset();
    if (in.standsAt("Select"))
        return shape;
    if (!in.take("Values"))
        return {};
    do {
        auto row = takeRow(in);
        if (!row)
            return {};
        shape.rows.push_back(std::move(*row));
    } while (in.take(","));
    return in.atEnd() ? Shape(std::move(shape)) : std::nullopt;
}

}  // namespace

std::optional<WriteShape> ShapeOfWrite(const QString& statement) {
    Reader in(statement);
    WriteShape shape;
    if (in.take("Update"))
        shape.verb = WriteShape::Verb::Update;
    else if (in.take("Delete"))
        shape.verb = WriteShape::Verb::Delete;
    else if (!in.take("Insert"))
        return {};
    in.take(shape.verb == WriteShape::Verb::Insert ? "Into" : "From");
    const std::size_t first = in.position();
    if (in.takeName().isEmpty())
        return {};
    shape.table = in.textOf(first, in.position());
    switch (shape.verb) {
        case WriteShape::Verb::Update:
            return shapeOfUpdate(in, std::move(shape));
        case WriteShape::Verb::Delete:
            return withCondition(in, std::move(shape));
        case WriteShape::Verb::Insert:
            break;
    }
    return shapeOfInsert(in, std::move(shape));
}

}  // namespace db
