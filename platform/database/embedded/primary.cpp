#include <algorithm>

#include "platform/database/embedded/expression.h"
#include "platform/database/embedded/names.h"
#include "platform/database/embedded/select.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

using Form = Expression::Form;

Expression found(const Source& source, const TableColumn& column, const std::string& written) {
    return {.sql = QuotedName(source.name) + "." + QuotedName(column.name),
            .kind = column.type.kind,
            .type = column.type,
            .form = Form::Column,
            .name = written,
            .table = source.table->name};
}

Expression number(const std::string& digits) {
    const bool whole = digits.find_first_of(".eE") == std::string::npos;
    // A number that no int holds is of a wider type.
    constexpr std::size_t digitsOfInt = 10;
    const bool wide = digits.size() > digitsOfInt || (digits.size() == digitsOfInt && digits > "2147483647");
    return {.sql = digits,
            .kind = whole ? Kind::Integer : Kind::Real,
            .type = whole && wide ? *MakeType("bigint") : SqlType(),
            .form = Form::Number,
            .name = digits};
}

/// Reads a query that stands for a value. It has one column and must not give more than one row.
Expression readValue(Context& context) {
    const SelectText select = ReadInnerSelect(context);
    const SelectColumn& value = select.columns.front();
    const std::string sql = select.single
                                ? select.sql
                                : "WITH \"svs_rows\" (\"value\") AS (" + select.sql +
                                      ") SELECT svs_single(\"value\") FROM (SELECT * FROM \"svs_rows\" LIMIT 2)";
    return {.sql = "(" + sql + ")", .kind = value.kind, .type = value.type};
}

Expression readParentheses(Context& context) {
    TokenReader& in = context.in;
    if (in.atWord("select"))
        return readValue(context);
    Expression inner = ReadAny(context);
    in.expectOperator(")");
    inner.sql = "(" + inner.sql + ")";
    return inner;
}

/// name, table.name or owner.table.name
Expression readColumn(Context& context, std::string name) {
    std::string qualifier;
    while (context.in.acceptOperator(".")) {
        qualifier = std::move(name);
        name = context.in.expectName();
    }
    return ColumnExpression(context, qualifier, name);
}

Expression readWord(Context& context) {
    TokenReader& in = context.in;
    if (in.acceptWord("null"))
        return {.sql = "NULL", .kind = Kind::Null, .form = Form::Null};
    if (in.acceptWord("case"))
        return ReadCase(context);
    if (in.atWord("exists") && in.atOperator("(", 1)) {
        in.next();
        in.next();
        const SelectText inner = ReadSelect(context);
        in.expectOperator(")");
        return {.sql = "EXISTS (" + inner.sql + ")", .kind = Kind::Bit, .condition = true};
    }
    if (in.acceptWord("current_timestamp"))
        return {.sql = "getdate()", .kind = Kind::DateTime};
    if (in.acceptWord("@@identity"))
        return {.sql = "last_insert_rowid()", .kind = Kind::Integer};
    const bool call = in.atOperator("(", 1);
    if (!in.atName() && !(call && (in.atWord("left") || in.atWord("right"))))
        in.fail();
    std::string name = in.next().text;
    if (call) {
        in.next();
        return ReadCall(context, name);
    }
    return readColumn(context, std::move(name));
}

}  // namespace

Expression ReadPrimary(Context& context) {
    TokenReader& in = context.in;
    switch (in.peek().kind) {
        case TokenKind::Text: {
            const std::string text = in.next().text;
            return {.sql = QuotedText(text), .kind = Kind::Text, .form = Form::Text, .name = text};
        }
        case TokenKind::Number:
            return number(in.next().text);
        case TokenKind::Parameter: {
            const auto place = static_cast<std::size_t>(in.next().place);
            context.parameters.resize(std::max(context.parameters.size(), place));
            return {.sql = std::string("?").append(std::to_string(place)), .form = Form::Parameter, .place = place};
        }
        case TokenKind::Name:
            return readColumn(context, in.next().text);
        case TokenKind::Word:
            return readWord(context);
        case TokenKind::Operator:
            if (in.acceptOperator("("))
                return readParentheses(context);
            break;
        case TokenKind::End:
            break;
    }
    in.fail();
}

Expression ColumnExpression(const Context& context, const std::string& qualifier, const std::string& name) {
    bool tableKnown = false;
    for (const Scope* scope = context.scope; scope; scope = scope->outer) {
        std::vector<Expression> hits;
        for (const Source& source : scope->sources) {
            if (!qualifier.empty() && !SameName(source.name, qualifier))
                continue;
            tableKnown = true;
            if (const TableColumn* column = source.table->find(name))
                hits.push_back(found(source, *column, name));
        }
        if (hits.size() > 1)
            throw DatabaseError(209, QStringLiteral("Ambiguous column name '%1'.").arg(ToQt(name)));
        if (!hits.empty()) {
            if (scope->grouping && scope->grouping->aggregateDepth == 0)
                scope->grouping->columns.push_back(hits.front().sql);
            return hits.front();
        }
    }
    if (!qualifier.empty() && !tableKnown)
        throw DatabaseError(
            4104,
            QStringLiteral("The multi-part identifier \"%1.%2\" could not be bound.").arg(ToQt(qualifier), ToQt(name)));
    throw DatabaseError(207, QStringLiteral("Invalid column name '%1'.").arg(ToQt(name)));
}

}  // namespace db::embedded
