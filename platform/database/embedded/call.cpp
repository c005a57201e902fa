#include <algorithm>
#include <array>
#include <optional>

#include "platform/database/embedded/expression.h"
#include "platform/database/embedded/names.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

enum class Gives { Same, Text, Integer, Real, DateTime };
enum class Takes { Any, Text, Number, DatePart, Rows };

struct KnownFunction {
    std::string_view name;
    std::string_view sqlite;
    std::size_t least;
    std::size_t most;
    Gives gives;
    Takes takes = Takes::Any;
};

// Round keeps its first argument's type, and so do the aggregates. Avg of whole numbers is cut to a whole number.
constexpr auto functions = std::to_array<KnownFunction>({
    {"getdate", "getdate", 0, 0, Gives::DateTime},
    {"len", "len", 1, 1, Gives::Integer, Takes::Text},
    {"day", "day", 1, 1, Gives::Integer},
    {"month", "month", 1, 1, Gives::Integer},
    {"year", "year", 1, 1, Gives::Integer},
    {"datepart", "datepart", 2, 2, Gives::Integer, Takes::DatePart},
    {"datename", "datename", 2, 2, Gives::Text, Takes::DatePart},
    {"dateadd", "dateadd", 3, 3, Gives::DateTime, Takes::DatePart},
    {"datediff", "datediff", 3, 3, Gives::Integer, Takes::DatePart},
    {"isdate", "isdate", 1, 1, Gives::Integer},
    {"upper", "upper", 1, 1, Gives::Text, Takes::Text},
    {"lower", "lower", 1, 1, Gives::Text, Takes::Text},
    {"rtrim", "rtrim", 1, 1, Gives::Text, Takes::Text},
    {"ltrim", "ltrim", 1, 1, Gives::Text, Takes::Text},
    {"trim", "trim", 1, 1, Gives::Text, Takes::Text},
    {"left", "\"left\"", 2, 2, Gives::Text, Takes::Text},
    {"right", "\"right\"", 2, 2, Gives::Text, Takes::Text},
    {"substring", "substring", 3, 3, Gives::Text, Takes::Text},
    {"charindex", "charindex", 2, 3, Gives::Integer, Takes::Text},
    {"patindex", "patindex", 2, 2, Gives::Integer, Takes::Text},
    {"replace", "svs_replace", 3, 3, Gives::Text, Takes::Text},
    {"stuff", "stuff", 4, 4, Gives::Text, Takes::Text},
    {"replicate", "replicate", 2, 2, Gives::Text, Takes::Text},
    {"reverse", "reverse", 1, 1, Gives::Text, Takes::Text},
    {"char", "svs_char", 1, 1, Gives::Text},
    {"nchar", "svs_char", 1, 1, Gives::Text},
    {"ascii", "ascii", 1, 1, Gives::Integer, Takes::Text},
    {"unicode", "ascii", 1, 1, Gives::Integer, Takes::Text},
    {"abs", "abs", 1, 1, Gives::Same, Takes::Number},
    {"sign", "sign", 1, 1, Gives::Same, Takes::Number},
    {"round", "svs_round", 2, 3, Gives::Same, Takes::Number},
    {"power", "svs_power", 2, 2, Gives::Same, Takes::Number},
    {"sqrt", "svs_sqrt", 1, 1, Gives::Real, Takes::Number},
    {"floor", "floor", 1, 1, Gives::Same, Takes::Number},
    {"ceiling", "ceil", 1, 1, Gives::Same, Takes::Number},
    {"isnumeric", "isnumeric", 1, 1, Gives::Integer},
    {"isnull", "coalesce", 2, 2, Gives::Same},
    {"coalesce", "coalesce", 2, 99, Gives::Same},
    {"nullif", "nullif", 2, 2, Gives::Same},
    {"count", "count", 1, 1, Gives::Integer, Takes::Rows},
    {"sum", "sum", 1, 1, Gives::Same, Takes::Rows},
    {"avg", "avg", 1, 1, Gives::Same, Takes::Rows},
    {"min", "min", 1, 1, Gives::Same, Takes::Rows},
    {"max", "max", 1, 1, Gives::Same, Takes::Rows},
    {"scope_identity", "last_insert_rowid", 0, 0, Gives::Integer},
});

const KnownFunction& functionOf(const std::string& name) {
    const auto* found = std::find_if(functions.begin(), functions.end(),
                                     [&](const KnownFunction& each) { return SameName(each.name, name); });
    if (found == functions.end())
        throw DatabaseError(195, QStringLiteral("'%1' is not a recognized built-in function name.").arg(ToQt(name)));
    return *found;
}

/// Turns the bare word that names a part of a date into a text.
Expression readDatePart(Context& context) {
    const Token part = context.in.next();
    if (part.kind != TokenKind::Word)
        context.in.fail();
    return {.sql = QuotedText(part.text), .kind = Kind::Text};
}

std::vector<Expression> readArguments(Context& context, const KnownFunction& function) {
    std::vector<Expression> arguments;
    if (context.in.acceptOperator(")"))
        return arguments;
    do {
        if (function.takes == Takes::DatePart && arguments.empty())
            arguments.push_back(readDatePart(context));
        else
            arguments.push_back(ReadExpression(context));
    } while (context.in.acceptOperator(","));
    context.in.expectOperator(")");
    return arguments;
}

Kind kindOf(const KnownFunction& function, const std::vector<Expression>& arguments) {
    switch (function.gives) {
        case Gives::Text:
            return Kind::Text;
        case Gives::Integer:
            return Kind::Integer;
        case Gives::Real:
            return Kind::Real;
        case Gives::DateTime:
            return Kind::DateTime;
        case Gives::Same:
            break;
    }
    return arguments.front().kind;
}

std::string argumentList(const std::vector<Expression>& arguments) {
    std::string list;
    for (const Expression& argument : arguments)
        AppendToList(list, argument.sql);
    return list;
}

void checkCount(const KnownFunction& function, std::size_t count) {
    if (count >= function.least && count <= function.most)
        return;
    const QString name = ToQt(function.name);
    if (function.least == function.most)
        throw DatabaseError(174,
                            QStringLiteral("The %1 function requires %2 argument(s).").arg(name).arg(function.least));
    throw DatabaseError(189, QStringLiteral("The %1 function requires %2 to %3 arguments.")
                                 .arg(name)
                                 .arg(function.least)
                                 .arg(function.most));
}

/// Marks the inside of an aggregate, where Group By does not restrict the columns.
class WithinAggregate {
  public:
    explicit WithinAggregate(const Context& context) : grouping_(context.scope ? context.scope->grouping : nullptr) {
        if (!grouping_)
            return;
        grouping_->aggregated = true;
        ++grouping_->aggregateDepth;
    }
    ~WithinAggregate() {
        if (grouping_)
            --grouping_->aggregateDepth;
    }
    WithinAggregate(const WithinAggregate&) = delete;
    WithinAggregate& operator=(const WithinAggregate&) = delete;

  private:
    Grouping* grouping_;
};

/// The sum of whole numbers has their type, and the sum of money has its decimals.
Expression totalled(const KnownFunction& function, Expression total, const Expression& argument) {
    const bool money = argument.type.name == "money" || argument.type.name == "smallmoney";
    if (function.name == "sum")
        return money ? Converted(argument.type, total, "0") : CheckedWhole(std::move(total), argument, {});
    if (function.name == "avg" && total.kind == Kind::Integer)
        total.sql = "CAST(" + total.sql + " AS INTEGER)";
    return function.name == "avg" && money ? Converted(argument.type, total, "0") : total;
}

/// Reads Count(*), or Count, Sum and the other aggregates, also with Distinct.
Expression readAggregate(Context& context, const KnownFunction& function) {
    TokenReader& in = context.in;
    const WithinAggregate within(context);
    if (function.name == "count" && in.acceptOperator("*")) {
        in.expectOperator(")");
        return {.sql = "count(*)", .kind = Kind::Integer};
    }
    const bool distinct = in.acceptWord("distinct");
    if (!distinct)
        in.acceptWord("all");
    if (in.atOperator(")"))
        checkCount(function, 0);
    Expression argument = ReadExpression(context);
    if (in.atOperator(","))
        checkCount(function, 2);
    in.expectOperator(")");
    const bool adds = function.name == "sum" || function.name == "avg";
    if (adds && argument.kind == Kind::Text)
        argument.sql = "svs_cast(" + argument.sql + ", 'float')";
    const Kind own = adds && argument.kind == Kind::Bit ? Kind::Integer : argument.kind;
    Expression total{.sql = std::string(function.sqlite) + (distinct ? "(DISTINCT " : "(") + Collated(argument) + ")",
                     .kind = function.gives == Gives::Integer ? Kind::Integer : own,
                     .type = function.gives == Gives::Integer ? SqlType() : argument.type};
    return totalled(function, std::move(total), argument);
}

/// IsNull has the type and the length of its first argument.
Expression isNull(std::vector<Expression> arguments) {
    Expression& looked = arguments[0];
    Expression& otherwise = arguments[1];
    if (looked.type.kind != Kind::Unknown)
        otherwise = Converted(looked.type, otherwise, "0");
    else if (looked.kind != Kind::Null)
        otherwise = Converted(otherwise, looked.kind);
    const Kind kind = looked.kind == Kind::Null ? otherwise.kind : looked.kind;
    return {.sql = "coalesce(" + argumentList(arguments) + ")", .kind = kind, .type = looked.type};
}

/// Coalesce has the highest kind of all its arguments.
Expression coalesce(const std::vector<Expression>& arguments) {
    Kind kind = Kind::Unknown;
    for (const Expression& argument : arguments)
        kind = CommonKind(kind, argument.kind);
    std::string list;
    for (const Expression& argument : arguments)
        AppendToList(list, Converted(argument, kind).sql);
    return {.sql = "coalesce(" + list + ")", .kind = kind};
}

/// NullIf gives its first argument as it is, in whatever kind the two are compared.
Expression nullIf(const Expression& value, Expression other) {
    Expression compared = value;
    MakeComparable(compared, other);
    return {.sql = "CASE WHEN " + compared.sql + " = " + other.sql + " THEN NULL ELSE " + value.sql + " END",
            .kind = value.kind,
            .type = value.type};
}

/// Reads IIf(condition, value, value), a short Case.
Expression readIif(Context& context) {
    const std::string condition = ReadCondition(context).sql;
    context.in.expectOperator(",");
    Expression then = ReadExpression(context);
    context.in.expectOperator(",");
    Expression otherwise = ReadExpression(context);
    context.in.expectOperator(")");
    const Kind kind = CommonKind(then.kind, otherwise.kind);
    return {.sql = "CASE WHEN " + condition + " THEN " + Converted(std::move(then), kind).sql + " ELSE " +
                   Converted(std::move(otherwise), kind).sql + " END",
            .kind = kind};
}

/// Reads Concat, which takes any number of values and reads null as "".
Expression readConcat(Context& context) {
    std::string list;
    do {
        const Expression value = ReadExpression(context);
        list.append(list.empty() ? "" : " || ").append("coalesce(" + AsText(value) + ", '')");
    } while (context.in.acceptOperator(","));
    context.in.expectOperator(")");
    return {.sql = "(" + list + ")", .kind = Kind::Text};
}

}  // namespace

Expression ReadCall(Context& context, const std::string& name) {
    if (SameName(name, "convert"))
        return ReadConvert(context);
    if (SameName(name, "cast"))
        return ReadCast(context);
    if (SameName(name, "iif"))
        return readIif(context);
    if (SameName(name, "concat"))
        return readConcat(context);
    const KnownFunction& function = functionOf(name);
    if (function.takes == Takes::Rows)
        return readAggregate(context, function);
    std::vector<Expression> arguments = readArguments(context, function);
    checkCount(function, arguments.size());
    if (function.takes == Takes::Number && arguments.front().kind == Kind::Text)
        arguments.front() = {.sql = "svs_cast(" + arguments.front().sql + ", 'float')", .kind = Kind::Real};
    if (function.takes == Takes::Text)
        for (Expression& argument : arguments)
            if (argument.kind == Kind::DateTime || argument.kind == Kind::Real)
                argument.sql = AsText(argument);
    if (function.name == "isnull")
        return isNull(std::move(arguments));
    if (function.name == "coalesce")
        return coalesce(arguments);
    if (function.name == "nullif")
        return nullIf(arguments[0], arguments[1]);
    if (function.name == "round" && arguments.size() == 2)
        arguments.push_back({.sql = "0"});
    if (function.sqlite == "svs_char")
        arguments.push_back({.sql = function.name == "char" ? "255" : "65535"});
    Expression result{.sql = std::string(function.sqlite) + "(" + argumentList(arguments) + ")",
                      .kind = kindOf(function, arguments)};
    return function.name == "power" ? CheckedWhole(std::move(result), arguments.front(), {}) : result;
}

SqlType ReadType(TokenReader& in, int lengthLeftOut) {
    const std::string name = in.expectName();
    std::optional<int> numbers[2];
    if (in.acceptOperator("(")) {
        for (std::optional<int>& number : numbers) {
            if (in.acceptWord("max"))
                number = 0;
            else if (in.peek().kind == TokenKind::Number)
                number = std::atoi(in.next().text.c_str());
            else
                in.fail();
            if (!in.acceptOperator(","))
                break;
        }
        in.expectOperator(")");
    } else if (SameName(name, "varchar") || SameName(name, "nvarchar") || SameName(name, "char") ||
               SameName(name, "nchar")) {
        numbers[0] = lengthLeftOut;
    }
    const auto type = MakeType(name, numbers[0], numbers[1]);
    if (!type)
        throw DatabaseError(2715, QStringLiteral("Cannot find data type %1.").arg(ToQt(name)));
    return *type;
}

namespace {

constexpr int convertedLength = 30;

}  // namespace

Expression ReadConvert(Context& context) {
    const SqlType type = ReadType(context.in, convertedLength);
    context.in.expectOperator(",");
    const Expression value = ReadExpression(context);
    std::string style = "0";
    if (context.in.acceptOperator(","))
        style = ReadExpression(context).sql;
    context.in.expectOperator(")");
    return Converted(type, value, style);
}

Expression ReadCast(Context& context) {
    const Expression value = ReadExpression(context);
    context.in.expectWord("as");
    const SqlType type = ReadType(context.in, convertedLength);
    context.in.expectOperator(")");
    return Converted(type, value, "0");
}

Expression ReadCase(Context& context) {
    TokenReader& in = context.in;
    std::string sql = "CASE";
    std::optional<Expression> subject;
    if (!in.atWord("when")) {
        subject = ReadExpression(context);
        sql += " " + subject->sql;
    }
    std::vector<std::string> whens;
    std::vector<Expression> values;
    while (in.acceptWord("when")) {
        Expression when = subject ? ReadExpression(context) : ReadCondition(context);
        if (subject) {
            Expression compared = *subject;
            MakeComparable(compared, when);
        }
        in.expectWord("then");
        whens.push_back(when.sql);
        values.push_back(ReadExpression(context));
    }
    if (whens.empty())
        in.fail();
    if (in.acceptWord("else"))
        values.push_back(ReadExpression(context));
    in.expectWord("end");
    Kind kind = Kind::Unknown;
    for (const Expression& value : values)
        kind = CommonKind(kind, value.kind);
    for (std::size_t i = 0; i < values.size(); ++i)
        sql += (i < whens.size() ? " WHEN " + whens[i] + " THEN " : " ELSE ") + Converted(values[i], kind).sql;
    return {.sql = sql + " END", .kind = kind};
}

}  // namespace db::embedded
