#include "platform/database/embedded/expression.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/database/embedded/names.h"
#include "platform/database/embedded/select.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

Expression condition(std::string sql) {
    return {.sql = std::move(sql), .kind = Kind::Bit, .condition = true};
}

void requireValue(const Context& context, const Expression& expression) {
    if (expression.condition)
        context.in.fail();
}

void requireCondition(const Context& context, const Expression& expression) {
    if (!expression.condition)
        throw DatabaseError(
            4145,
            QStringLiteral(
                "An expression of non-boolean type specified in a context where a condition is expected, near '%1'.")
                .arg(ToQt(context.in.peek().text)));
}

/// SQLite divides by zero to null, and cuts both operands of a remainder to whole numbers. Where neither can happen,
/// its own operator stays.
Expression quotient(const std::string& op, const Expression& a, const Expression& b, Kind kind) {
    const bool nonZero = b.form == Expression::Form::Number && b.name.find_first_of("123456789") != std::string::npos;
    const bool whole = kind == Kind::Integer;
    if (nonZero && (op == "/" || whole) && b.name.front() != '-')
        return {.sql = "(" + a.sql + " " + op + " " + b.sql + ")", .kind = kind};
    const std::string function = op == "/" ? "svs_divide(" : "svs_modulo(";
    return {.sql = function + a.sql + ", " + b.sql + ")", .kind = kind};
}

Expression arithmetic(const std::string& op, const Expression& left, const Expression& right) {
    Expression a = left;
    Expression b = right;
    if (op == "-" && left.kind == Kind::DateTime && (right.kind == Kind::DateTime || right.kind == Kind::Text))
        return {.sql = "svs_date_minus(" + left.sql + ", " + right.sql + ")", .kind = Kind::DateTime};
    if (op == "-" && left.kind == Kind::DateTime)
        return {.sql = "svs_date_plus(" + left.sql + ", -(" + right.sql + "))", .kind = Kind::DateTime};
    // A text beside a number becomes a number, as MakeComparable converts it.
    Expression zero{.sql = "0", .kind = CommonKind(Kind::Integer, CommonKind(a.kind, b.kind))};
    if (a.kind == Kind::Text)
        MakeComparable(a, zero);
    if (b.kind == Kind::Text)
        MakeComparable(b, zero);
    const bool unknown = a.kind == Kind::Unknown || b.kind == Kind::Unknown;
    const Kind kind = unknown ? Kind::Unknown : CommonKind(Kind::Integer, CommonKind(a.kind, b.kind));
    if (op == "^")
        return {.sql = "((" + a.sql + " | " + b.sql + ") - (" + a.sql + " & " + b.sql + "))", .kind = kind};
    if (op == "/" || op == "%")
        return quotient(op, a, b, kind);
    Expression result{.sql = "(" + a.sql + " " + op + " " + b.sql + ")", .kind = kind};
    return op == "-" || op == "*" ? CheckedWhole(std::move(result), a, b) : result;
}

Expression readUnary(Context& context) {
    TokenReader& in = context.in;
    if (in.acceptOperator("+"))
        return readUnary(context);
    const bool minus = in.atOperator("-");
    if (!minus && !in.atOperator("~"))
        return ReadPrimary(context);
    in.next();
    Expression operand = readUnary(context);
    requireValue(context, operand);
    if (minus && operand.form == Expression::Form::Number && operand.name.front() != '-') {
        operand.name.insert(0, 1, '-');
        operand.sql = operand.name;
        return operand;
    }
    if (operand.kind == Kind::Text)
        throw DatabaseError(8117, QStringLiteral("Operand data type nvarchar is invalid for minus operator."));
    // The blank keeps two minus signs from beginning a comment.
    return {.sql = std::string(minus ? "(- " : "(~ ") + operand.sql + ")", .kind = operand.kind, .type = operand.type};
}

Expression readProduct(Context& context) {
    Expression left = readUnary(context);
    while (context.in.atOperator("*") || context.in.atOperator("/") || context.in.atOperator("%")) {
        const std::string op = context.in.next().text;
        const Expression right = readUnary(context);
        requireValue(context, left);
        requireValue(context, right);
        left = arithmetic(op, left, right);
    }
    return left;
}

/// Converts the left operand alone, because each value that it is compared with may raise its kind.
void makeHigher(Expression& left, Expression right) {
    MakeComparable(left, right);
}

Expression readIn(Context& context, Expression left, bool negated) {
    TokenReader& in = context.in;
    in.expectOperator("(");
    if (in.atWord("select"))
        return condition(Collated(left) + (negated ? " NOT IN (" : " IN (") + ReadInnerSelect(context).sql + ")");
    std::vector<Expression> items;
    do {
        items.push_back(ReadExpression(context));
        makeHigher(left, items.back());
    } while (in.acceptOperator(","));
    in.expectOperator(")");
    std::string list;
    for (Expression& item : items) {
        MakeComparable(left, item);
        AppendToList(list, item.sql);
    }
    // In compares with the collation of what stands before it.
    return condition(Collated(left) + (negated ? " NOT IN (" : " IN (") + list + ")");
}

Expression readBetween(Context& context, Expression left, bool negated) {
    Expression low = ReadOperand(context);
    context.in.expectWord("and");
    Expression high = ReadOperand(context);
    requireValue(context, low);
    requireValue(context, high);
    Expression aboveLow = left;
    Expression belowHigh = std::move(left);
    MakeComparable(aboveLow, low);
    MakeComparable(belowHigh, high);
    // Each end is a comparison of its own, in whatever kind that needs.
    const std::string sql = aboveLow.sql == belowHigh.sql
                                ? aboveLow.sql + " BETWEEN " + low.sql + " AND " + high.sql
                                : aboveLow.sql + " >= " + low.sql + " AND " + belowHigh.sql + " <= " + high.sql;
    return condition((negated ? "NOT (" : "(") + sql + ")");
}

Expression readLike(Context& context, Expression left, bool negated) {
    const Expression pattern = ReadOperand(context);
    requireValue(context, pattern);
    std::string escape;
    if (context.in.acceptWord("escape")) {
        if (context.in.peek().kind != TokenKind::Text)
            context.in.fail();
        escape = context.in.next().text;
    }
    return Like(context, std::move(left), pattern, escape, negated);
}

Expression readIsNull(Context& context, const Expression& left) {
    const bool negated = context.in.acceptWord("not");
    context.in.expectWord("null");
    return condition(left.sql + (negated ? " IS NOT NULL" : " IS NULL"));
}

std::string comparisonAhead(const TokenReader& in) {
    static constexpr std::array<std::string_view, 9> operators = {"=", "<>", "!=", "<", ">", "<=", ">=", "!<", "!>"};
    const Token& token = in.peek();
    if (token.kind != TokenKind::Operator ||
        std::find(operators.begin(), operators.end(), token.text) == operators.end())
        return {};
    return token.text == "!<" ? ">=" : token.text == "!>" ? "<=" : token.text;
}

Expression readComparison(Context& context) {
    TokenReader& in = context.in;
    Expression left = ReadOperand(context);
    if (left.condition)
        return left;
    if (const std::string op = comparisonAhead(in); !op.empty()) {
        in.next();
        Expression right = ReadOperand(context);
        requireValue(context, right);
        MakeComparable(left, right);
        return condition(left.sql + " " + op + " " + right.sql);
    }
    if (in.acceptWord("is"))
        return readIsNull(context, left);
    const bool negated = in.atWord("not") && (in.atWord("like", 1) || in.atWord("between", 1) || in.atWord("in", 1));
    if (negated)
        in.next();
    if (in.acceptWord("like"))
        return readLike(context, std::move(left), negated);
    if (in.acceptWord("between"))
        return readBetween(context, std::move(left), negated);
    if (in.acceptWord("in"))
        return readIn(context, std::move(left), negated);
    return left;
}

Expression readNot(Context& context) {
    if (!context.in.acceptWord("not"))
        return readComparison(context);
    const bool outer = std::exchange(context.negated, true);
    const Expression operand = readNot(context);
    context.negated = outer;
    requireCondition(context, operand);
    return condition("NOT (" + operand.sql + ")");
}

Expression readAnd(Context& context) {
    Expression left = readNot(context);
    while (context.in.atWord("and")) {
        requireCondition(context, left);
        context.in.next();
        const Expression right = readNot(context);
        requireCondition(context, right);
        left = condition(left.sql + " AND " + right.sql);
    }
    return left;
}

Expression readOr(Context& context) {
    Expression left = readAnd(context);
    while (context.in.atWord("or")) {
        requireCondition(context, left);
        context.in.next();
        const Expression right = readAnd(context);
        requireCondition(context, right);
        left = condition(left.sql + " OR " + right.sql);
    }
    return left;
}

}  // namespace

Expression ReadOperand(Context& context) {
    static constexpr std::string_view operators = "+-&|^";
    Expression left = readProduct(context);
    for (;;) {
        const Token& token = context.in.peek();
        if (token.kind != TokenKind::Operator || token.text.size() != 1 ||
            operators.find(token.text[0]) == std::string_view::npos)
            return left;
        const std::string op = context.in.next().text;
        Expression right = readProduct(context);
        requireValue(context, left);
        requireValue(context, right);
        left = op == "+" ? Plus(std::move(left), std::move(right)) : arithmetic(op, left, right);
    }
}

Expression ReadAny(Context& context) {
    return readOr(context);
}

Expression ReadExpression(Context& context) {
    Expression expression = readOr(context);
    requireValue(context, expression);
    return expression;
}

Expression ReadCondition(Context& context) {
    Expression expression = readOr(context);
    requireCondition(context, expression);
    return expression;
}

}  // namespace db::embedded
