#include <algorithm>
#include <array>
#include <optional>

#include "platform/database/embedded/expression.h"
#include "platform/database/embedded/names.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

enum class Gives { Same, Text, Integer, Real, DateTime };
enum class Takes { Any, Number, DatePart };

struct KnownFunction {
    std::string_view name;
    std::string_view sqlite;
    std::size_t least;
    std::size_t most;
    Gives gives;
    Takes takes = Takes::Any;
};

// Round keeps its first argument's type, as the aggregates do; Avg of whole numbers is cut to one.
constexpr std::array<KnownFunction, 30> functions = {{
    {"getdate", "getdate", 0, 0, Gives::DateTime},
    {"len", "len", 1, 1, Gives::Integer},
    {"day", "day", 1, 1, Gives::Integer},
    {"month", "month", 1, 1, Gives::Integer},
    {"year", "year", 1, 1, Gives::Integer},
    {"datepart", "datepart", 2, 2, Gives::Integer, Takes::DatePart},
    {"dateadd", "dateadd", 3, 3, Gives::DateTime, Takes::DatePart},
    {"datediff", "datediff", 3, 3, Gives::Integer, Takes::DatePart},
    {"upper", "upper", 1, 1, Gives::Text},
    {"lower", "lower", 1, 1, Gives::Text},
    {"rtrim", "rtrim", 1, 1, Gives::Text},
    {"ltrim", "ltrim", 1, 1, Gives::Text},
    {"left", "\"left\"", 2, 2, Gives::Text},
    {"right", "\"right\"", 2, 2, Gives::Text},
    {"substring", "substring", 3, 3, Gives::Text},
    {"charindex", "charindex", 2, 3, Gives::Integer},
    {"abs", "abs", 1, 1, Gives::Same, Takes::Number},
    {"round", "round", 2, 2, Gives::Same, Takes::Number},
    {"floor", "floor", 1, 1, Gives::Same, Takes::Number},
    {"ceiling", "ceil", 1, 1, Gives::Same, Takes::Number},
    {"isnull", "coalesce", 2, 2, Gives::Same},
    {"coalesce", "coalesce", 2, 99, Gives::Same},
    {"nullif", "nullif", 2, 2, Gives::Same},
    {"count", "count", 1, 1, Gives::Integer},
    {"sum", "sum", 1, 1, Gives::Same, Takes::Number},
    {"avg", "avg", 1, 1, Gives::Same, Takes::Number},
    {"min", "min", 1, 1, Gives::Same},
    {"max", "max", 1, 1, Gives::Same},
    {"scope_identity", "last_insert_rowid", 0, 0, Gives::Integer},
    {"datalength", "length", 1, 1, Gives::Integer},
}};

const KnownFunction& functionOf(const std::string& name) {
    const auto* found = std::find_if(functions.begin(), functions.end(),
                                     [&](const KnownFunction& each) { return SameName(each.name, name); });
    if (found == functions.end())
        throw DatabaseError(195, QStringLiteral("'%1' is not a recognized built-in function name.").arg(ToQt(name)));
    return *found;
}

/// The bare word that names a part of a date goes on as a text.
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
    // IsNull and NullIf have the type of what they look at, Coalesce the highest of all.
    Kind kind = arguments.front().kind;
    if (function.name == "coalesce" || kind == Kind::Null)
        for (const Expression& argument : arguments)
            kind = CommonKind(kind, argument.kind);
    return kind;
}

std::string argumentList(const std::vector<Expression>& arguments) {
    std::string list;
    for (const Expression& argument : arguments)
        AppendToList(list, argument.sql);
    return list;
}

void checkCount(const KnownFunction& function, std::size_t count) {
    if (count < function.least || count > function.most)
        throw DatabaseError(
            174,
            QStringLiteral("The %1 function requires %2 argument(s).").arg(ToQt(function.name)).arg(function.least));
}

/// Count(*), and Count, Sum and the others of Distinct.
std::optional<Expression> readAggregate(Context& context, const KnownFunction& function) {
    TokenReader& in = context.in;
    if (function.name == "count" && in.acceptOperator("*")) {
        in.expectOperator(")");
        return Expression{.sql = "count(*)", .kind = Kind::Integer};
    }
    if (!in.acceptWord("distinct")) {
        in.acceptWord("all");
        return {};
    }
    const Expression argument = ReadExpression(context);
    in.expectOperator(")");
    const Kind kind = function.gives == Gives::Integer ? Kind::Integer : argument.kind;
    return Expression{.sql = std::string(function.sqlite) + "(DISTINCT " + Collated(argument) + ")", .kind = kind};
}

}  // namespace

Expression ReadCall(Context& context, const std::string& name) {
    if (SameName(name, "convert"))
        return ReadConvert(context);
    if (SameName(name, "cast"))
        return ReadCast(context);
    const KnownFunction& function = functionOf(name);
    if (auto aggregate = readAggregate(context, function))
        return *aggregate;
    std::vector<Expression> arguments = readArguments(context, function);
    checkCount(function, arguments.size());
    if (function.takes == Takes::Number && arguments.front().kind == Kind::Text)
        arguments.front().sql = "svs_cast(" + arguments.front().sql + ", 'float')";
    if (function.name == "isnull" && arguments.front().kind == Kind::Text)
        arguments[1].sql = AsText(arguments[1]);
    else if (function.name == "isnull" || function.name == "coalesce" || function.name == "nullif")
        for (std::size_t i = 1; i < arguments.size(); ++i)
            MakeComparable(arguments.front(), arguments[i]);
    const Kind kind = kindOf(function, arguments);
    std::string sql = std::string(function.sqlite) + "(" + argumentList(arguments) + ")";
    const bool cut = kind == Kind::Integer && (function.name == "avg" || function.name == "round");
    if (cut)
        sql = "CAST(" + sql + " AS INTEGER)";
    return {.sql = std::move(sql), .kind = kind};
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

Expression converted(const SqlType& type, const Expression& value, const std::string& style) {
    const std::string length = std::to_string(type.maxLength);
    if (type.kind != Kind::Text)
        return {.sql = "svs_cast(" + value.sql + ", " + QuotedText(DeclaredType(type)) + ")", .kind = type.kind};
    if (value.kind == Kind::DateTime)
        return {.sql = "svs_date_text(" + value.sql + ", " + style + ", " + length + ")", .kind = Kind::Text};
    return {.sql = "svs_cast_text(" + value.sql + ", " + length + ")", .kind = Kind::Text};
}

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
    return converted(type, value, style);
}

Expression ReadCast(Context& context) {
    const Expression value = ReadExpression(context);
    context.in.expectWord("as");
    const SqlType type = ReadType(context.in, convertedLength);
    context.in.expectOperator(")");
    return converted(type, value, "0");
}

Expression ReadCase(Context& context) {
    TokenReader& in = context.in;
    std::string sql = "CASE";
    std::optional<Expression> subject;
    if (!in.atWord("when")) {
        subject = ReadExpression(context);
        sql += " " + subject->sql;
    }
    Kind kind = Kind::Unknown;
    while (in.acceptWord("when")) {
        Expression when = subject ? ReadExpression(context) : ReadCondition(context);
        if (subject) {
            Expression compared = *subject;
            MakeComparable(compared, when);
        }
        in.expectWord("then");
        const Expression then = ReadExpression(context);
        kind = CommonKind(kind, then.kind);
        sql += " WHEN " + when.sql + " THEN " + then.sql;
    }
    if (kind == Kind::Unknown && !in.atWord("else") && !in.atWord("end"))
        in.fail();
    if (in.acceptWord("else")) {
        const Expression otherwise = ReadExpression(context);
        kind = CommonKind(kind, otherwise.kind);
        sql += " ELSE " + otherwise.sql;
    }
    in.expectWord("end");
    return {.sql = sql + " END", .kind = kind};
}

}  // namespace db::embedded
