#include <algorithm>
#include <array>
#include <iterator>

#include "platform/database/embedded/expression.h"
#include "platform/database/embedded/like.h"
#include "platform/database/embedded/names.h"
#include "platform/database/embedded/store.h"
#include "platform/database/embedded/textorder.h"
#include "platform/database/value.h"

namespace db::embedded {

namespace {

using Form = Expression::Form;

bool isNumber(Kind kind) {
    return kind == Kind::Bit || kind == Kind::Integer || kind == Kind::Real;
}

bool isMoney(const SqlType& type) {
    return type.name == "money" || type.name == "smallmoney";
}

void becomeDateTime(Expression& expression, bool besideColumn) {
    if (expression.form == Form::Text)
        expression.sql = QuotedText(DateTimeFromText(expression.name));
    else if (expression.form == Form::Parameter ? !besideColumn
                                                : expression.kind != Kind::DateTime && expression.kind != Kind::Null)
        expression.sql = "svs_datetime(" + expression.sql + ")";
    else
        return;
    expression.kind = Kind::DateTime;
}

void becomeNumber(Expression& expression, Kind kind) {
    if (expression.form == Form::Text) {
        const SqlType type = *MakeType(kind == Kind::Real ? "float" : kind == Kind::Bit ? "bit" : "int");
        const Cell number = NumberFromText(expression.name, type);
        const auto* whole = std::get_if<qint64>(&number);
        expression.sql = whole ? std::to_string(*whole) : NumberText(std::get<double>(number)).toStdString();
    } else if (expression.kind == Kind::Text) {
        expression.sql = "svs_cast(" + expression.sql + (kind == Kind::Real ? ", 'float')" : ", 'int')");
    } else {
        return;
    }
    expression.kind = kind;
}

void appendParts(std::vector<Expression>& parts, Expression expression) {
    if (expression.parts.empty())
        parts.push_back(std::move(expression));
    else
        std::move(expression.parts.begin(), expression.parts.end(), std::back_inserter(parts));
}

Expression joined(Expression left, Expression right) {
    Expression result{.kind = Kind::Text};
    appendParts(result.parts, std::move(left));
    appendParts(result.parts, std::move(right));
    // The parts make one chain instead of nested pairs, because SQLite takes no more than a hundred levels.
    for (const Expression& part : result.parts)
        result.sql.append(result.sql.empty() ? "(" : " || ").append(part.sql);
    result.sql.push_back(')');
    return result;
}

/// Returns the text that the first part must start with when the whole starts with the prefix. That is all of the
/// prefix, or all before the first character of the literal that follows, because a shorter first part would put that
/// character there.
std::string prefixOfFirstPart(const Expression& left, std::string_view prefix) {
    if (left.parts.empty())
        return std::string(prefix);
    const Expression& second = left.parts[1];
    if (second.form != Form::Text || second.name.empty())
        return {};
    std::string_view rest = second.name;
    const char32_t separator = FoldCharacter(TakeCharacter(rest));
    std::string result;
    for (rest = prefix; !rest.empty();) {
        const char32_t character = TakeCharacter(rest);
        if (FoldCharacter(character) == separator)
            break;
        AppendCharacter(result, character);
    }
    return result;
}

/// Returns a range on the column's own order that holds every match, so that an index can find the matches.
std::string likeRange(const Expression& left, const Expression& pattern) {
    const Expression& first = left.parts.empty() ? left : left.parts.front();
    if (first.form != Form::Column || first.kind != Kind::Text || pattern.form != Form::Text)
        return {};
    std::string prefix = prefixOfFirstPart(left, LikePrefix(pattern.name));
    if (WithoutTrailingBlanks(prefix).empty())
        return {};
    std::string beyond = prefix;
    AppendCharacter(beyond, 0x10FFFF);
    return first.sql + " >= " + QuotedText(prefix) + " AND " + first.sql + " < " + QuotedText(beyond) + " AND ";
}

}  // namespace

std::string AsText(const Expression& expression) {
    if (expression.kind == Kind::DateTime)
        return "svs_date_text(" + expression.sql + ", 0, 0)";
    if (isMoney(expression.type))
        return "svs_money_text(" + expression.sql + ", 0)";
    if (isNumber(expression.kind))
        return "svs_cast_text(" + expression.sql + ", 0)";
    return expression.sql;
}

Kind CommonKind(Kind a, Kind b) {
    return std::max(a, b);
}

std::string Collated(const Expression& expression) {
    const bool bare = expression.kind == Kind::Text && expression.form != Form::Column;
    return bare ? expression.sql + " COLLATE SVS_TEXT" : expression.sql;
}

void MakeComparable(Expression& left, Expression& right) {
    const bool column = left.form == Form::Column || right.form == Form::Column;
    if (left.kind == Kind::DateTime || right.kind == Kind::DateTime) {
        becomeDateTime(left, column);
        becomeDateTime(right, column);
    } else if (isNumber(left.kind) || isNumber(right.kind)) {
        becomeNumber(left, right.kind);
        becomeNumber(right, left.kind);
    } else if (!column && (left.kind == Kind::Text || right.kind == Kind::Text)) {
        right.sql += " COLLATE SVS_TEXT";
    }
}

Expression Plus(Expression left, Expression right) {
    const bool leftText = left.kind == Kind::Text || left.kind == Kind::Null;
    const bool rightText = right.kind == Kind::Text || right.kind == Kind::Null;
    if (leftText && rightText)
        return joined(std::move(left), std::move(right));
    if (left.kind == Kind::DateTime || right.kind == Kind::DateTime) {
        if (left.kind != Kind::DateTime)
            std::swap(left, right);
        return {.sql = "svs_date_plus(" + left.sql + ", " + right.sql + ")", .kind = Kind::DateTime};
    }
    if (left.kind == Kind::Unknown || right.kind == Kind::Unknown) {
        const Kind other = CommonKind(left.kind, right.kind);
        return {.sql = "svs_add(" + left.sql + ", " + right.sql + ")", .kind = isNumber(other) ? other : Kind::Unknown};
    }
    MakeComparable(left, right);
    const Kind kind = CommonKind(Kind::Integer, CommonKind(left.kind, right.kind));
    return CheckedWhole({.sql = "(" + left.sql + " + " + right.sql + ")", .kind = kind}, left, right);
}

Expression CheckedWhole(Expression result, const Expression& left, const Expression& right) {
    if (result.kind != Kind::Integer)
        return result;
    const auto rank = [](const Expression& operand) {
        static constexpr std::array<std::string_view, 4> types = {"tinyint", "smallint", "int", "bigint"};
        const auto* known = std::find(types.begin(), types.end(), operand.type.name);
        return known == types.end() ? std::size_t{2} : static_cast<std::size_t>(known - types.begin());
    };
    static constexpr std::array<const char*, 4> names = {"tinyint", "smallint", "int", "bigint"};
    const char* name = names[std::max(rank(left), rank(right))];
    result.type = *MakeType(name);
    result.sql = "svs_int(" + result.sql + ", " + QuotedText(name) + ")";
    return result;
}

Expression Converted(Expression value, Kind kind) {
    if (value.kind == kind || value.kind == Kind::Null || value.kind == Kind::Unknown)
        return value;
    if (kind == Kind::DateTime)
        return {.sql = "svs_datetime(" + value.sql + ")", .kind = kind};
    if (kind == Kind::Text)
        return {.sql = AsText(value), .kind = kind};
    if (value.kind != Kind::Text)
        return value;
    const char* type = kind == Kind::Real ? ", 'float')" : kind == Kind::Bit ? ", 'bit')" : ", 'int')";
    return {.sql = "svs_cast(" + value.sql + type, .kind = kind};
}

Expression Converted(const SqlType& type, const Expression& value, const std::string& style) {
    Expression result{.kind = type.kind, .type = type};
    const bool number = type.kind == Kind::Bit || type.kind == Kind::Integer || type.kind == Kind::Real;
    const bool filled = type.name == "char" || type.name == "nchar";
    std::string length = std::to_string(filled ? -type.maxLength : type.maxLength);
    if (type.kind == Kind::Text)
        length += ", " + QuotedText(type.name);
    if (number && value.kind == Kind::DateTime)
        result.sql = "svs_cast(" + std::string(type.kind == Kind::Real ? "" : "svs_round(") + "svs_days(" + value.sql +
                     ")" + (type.kind == Kind::Real ? "" : ", 0, 0)") + ", " + QuotedText(DeclaredType(type)) + ")";
    else if (type.kind == Kind::DateTime && value.kind == Kind::Text && style != "0")
        result.sql = "svs_date_read(" + value.sql + ", " + style + ")";
    else if (type.kind != Kind::Text)
        result.sql = "svs_cast(" + value.sql + ", " + QuotedText(DeclaredType(type)) + ")";
    else if (value.kind == Kind::DateTime)
        result.sql = "svs_cast_text(svs_date_text(" + value.sql + ", " + style + ", 0), " + length + ")";
    else if (isMoney(value.type))
        result.sql = "svs_cast_text(svs_money_text(" + value.sql + ", " + style + "), " + length + ")";
    else
        result.sql = "svs_cast_text(" + value.sql + ", " + length + ")";
    return result;
}

Expression Like(const Context& context, Expression left, const Expression& pattern, const std::string& escape,
                bool negated) {
    std::string sql = "svs_like(" + AsText(pattern) + ", " + QuotedText(escape);
    // SQLite takes no more than 127 arguments.
    constexpr std::size_t mostParts = 100;
    const bool joined = left.parts.empty() || left.parts.size() > mostParts;
    if (joined)
        sql += ", " + AsText(left);
    for (std::size_t i = 0; !joined && i < left.parts.size(); ++i)
        sql += ", " + AsText(left.parts[i]);
    sql += ")";
    // The range makes a row with null false instead of unknown, so it is added only where the two do not differ.
    if (!negated && !context.negated && escape.empty())
        sql = likeRange(left, pattern) + sql;
    return {.sql = negated ? "NOT " + sql : "(" + sql + ")", .kind = Kind::Bit, .condition = true};
}

}  // namespace db::embedded
