#include "platform/database/embedded/select.h"

#include <algorithm>
#include <cstdlib>

#include "platform/database/embedded/names.h"
#include "platform/database/embedded/selectcore.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

constexpr std::string_view intersect = " INTERSECT ";

std::string acceptUnion(TokenReader& in) {
    if (in.acceptWord("union"))
        return in.acceptWord("all") ? " UNION ALL " : " UNION ";
    if (in.acceptWord("except"))
        return " EXCEPT ";
    return std::string(in.acceptWord("intersect") ? intersect : "");
}

std::string placeOf(const std::vector<SelectColumn>& columns, const std::string& name) {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const SelectColumn& column) { return SameName(column.name, name); });
    return found == columns.end() ? std::string() : std::to_string(found - columns.begin() + 1);
}

/// Reads a number in an order, which is the place of a column.
std::string readPlace(TokenReader& in, const std::vector<SelectColumn>& columns) {
    const std::string digits = in.next().text;
    const auto place = std::strtoull(digits.c_str(), nullptr, 10);
    if (place < 1 || place > columns.size())
        throw DatabaseError(
            108,
            QStringLiteral("The ORDER BY position number %1 is out of range of the number of items in the select list.")
                .arg(ToQt(digits)));
    return std::to_string(place);
}

/// Returns whether the name ahead is a term by itself. Within an expression it could only be the name of a column.
bool isWholeTerm(const TokenReader& in) {
    return in.peek(1).kind != TokenKind::Operator || in.atOperator(",", 1) || in.atOperator(")", 1) ||
           in.atOperator(";", 1);
}

/// Reads a term of a Union's order. It names one of the Union's columns and is written as that column's place.
std::string readUnionTerm(Context& context, const SelectCore& first) {
    TokenReader& in = context.in;
    if (in.peek().kind == TokenKind::Number)
        return readPlace(in, first.columns);
    std::string name = in.expectName();
    while (in.acceptOperator("."))
        name = in.expectName();
    std::string place = placeOf(first.columns, name);
    if (place.empty())
        throw DatabaseError(
            104,
            QStringLiteral(
                "ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT or EXCEPT operator."));
    return place;
}

std::string readTerm(Context& context, const SelectCore& core) {
    TokenReader& in = context.in;
    if (in.peek().kind == TokenKind::Number)
        return readPlace(in, core.columns);
    if (in.atName() && isWholeTerm(in))
        for (std::size_t i = 0; i < core.columns.size(); ++i)
            if (core.aliased[i] && SameName(core.columns[i].name, in.peek().text)) {
                in.next();
                return std::to_string(i + 1);
            }
    Grouping named;
    Scope scope = core.scope;
    scope.grouping = &named;
    context.scope = &scope;
    const std::string term = Collated(ReadExpression(context));
    context.scope = &core.scope;
    if (core.distinct && std::find(core.items.begin(), core.items.end(), term) == core.items.end())
        throw DatabaseError(
            145, QStringLiteral("ORDER BY items must appear in the select list if SELECT DISTINCT is specified."));
    if (core.aggregated)
        RequireGrouped(core.grouped, named.columns, term, {8127, "ORDER BY clause"});
    return term;
}

std::string readOrder(Context& outer, const SelectCore& core, bool compound) {
    if (!outer.in.acceptWord("order"))
        return {};
    outer.in.expectWord("by");
    Context context = outer;
    context.scope = &core.scope;
    std::string sql;
    do {
        sql += sql.empty() ? " ORDER BY " : ", ";
        sql += compound ? readUnionTerm(context, core) : readTerm(context, core);
        if (context.in.acceptWord("desc"))
            sql += " DESC";
        else
            context.in.acceptWord("asc");
    } while (context.in.acceptOperator(","));
    return sql;
}

/// Within a Union, a limit belongs to its own Select.
std::string limitedInUnion(const SelectCore& core) {
    return core.limit.empty() ? core.sql : "SELECT * FROM (" + core.sql + " LIMIT " + core.limit + ")";
}

/// One Select of a Union.
struct Member {
    std::string op;  ///< The operator before it; "" for the first.
    std::string sql;
    std::vector<SelectColumn> columns;
};

Member readMember(Context& context, const std::string& op) {
    if (context.in.acceptOperator("(")) {
        const SelectText inner = ReadSelect(context);
        context.in.expectOperator(")");
        return {op, "SELECT * FROM (" + inner.sql + ")", inner.columns};
    }
    const SelectCore core = ReadSelectCore(context);
    return {op, limitedInUnion(core), core.columns};
}

std::vector<Kind> commonKinds(const std::vector<Member>& members) {
    std::vector<Kind> kinds(members.front().columns.size(), Kind::Unknown);
    for (const Member& member : members) {
        if (member.columns.size() != kinds.size())
            throw DatabaseError(
                205,
                QStringLiteral(
                    "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal number of expressions in their target lists."));
        for (std::size_t i = 0; i < kinds.size(); ++i)
            kinds[i] = CommonKind(kinds[i], member.columns[i].kind);
    }
    return kinds;
}

/// Returns the type that the members have in common in that place, of whole numbers the wider one.
SqlType commonType(const std::vector<Member>& members, std::size_t place, Kind kind) {
    const SqlType& first = members.front().columns[place].type;
    const auto isFirst = [&](const Member& member) { return member.columns[place].type == first; };
    if (std::all_of(members.begin(), members.end(), isFirst))
        return first;
    const auto isBig = [place](const Member& member) { return member.columns[place].type.name == "bigint"; };
    const bool big = kind == Kind::Integer && std::any_of(members.begin(), members.end(), isBig);
    return big ? *MakeType("bigint") : SqlType();
}

/// Returns the member with its texts converted to the kind that the other members have in that place, a number or a
/// moment.
std::string convertedMember(const Member& member, const std::vector<Kind>& kinds) {
    std::string names;
    std::string values;
    bool differs = false;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const std::string name = QuotedName("value" + std::to_string(i + 1));
        const Expression value = Converted(Expression{.sql = name, .kind = member.columns[i].kind}, kinds[i]);
        differs = differs || value.sql != name;
        AppendToList(names, name);
        AppendToList(values, value.sql + " AS " + QuotedName(member.columns[i].name));
    }
    if (!differs)
        return member.sql;
    return "SELECT * FROM (WITH \"svs_rows\" (" + names + ") AS (" + member.sql + ") SELECT " + values +
           " FROM \"svs_rows\")";
}

SelectText joined(const std::vector<Member>& members) {
    const std::vector<Kind> kinds = commonKinds(members);
    SelectText select{{}, members.front().columns};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        select.columns[i].kind = kinds[i];
        select.columns[i].type = commonType(members, i, kinds[i]);
    }
    const auto isIntersected = [&](std::size_t i) { return i < members.size() && members[i].op == intersect; };
    bool open = false;
    for (std::size_t i = 0; i < members.size(); ++i) {
        // Intersect binds more closely than the others, but SQLite takes all of them from the left.
        const bool opens = i > 0 && !isIntersected(i) && isIntersected(i + 1);
        open = open || opens;
        select.sql += members[i].op + (opens ? "SELECT * FROM (" : "") + convertedMember(members[i], kinds);
        if (open && !isIntersected(i + 1)) {
            select.sql += ")";
            open = false;
        }
    }
    return select;
}

}  // namespace

SelectText ReadSelect(Context& context) {
    const SelectCore first = ReadSelectCore(context);
    std::vector<Member> members;
    for (std::string op = acceptUnion(context.in); !op.empty(); op = acceptUnion(context.in)) {
        if (members.empty())
            members.push_back({{}, limitedInUnion(first), first.columns});
        members.push_back(readMember(context, op));
    }
    SelectText select = members.empty() ? SelectText{first.sql, first.columns} : joined(members);
    select.sql += readOrder(context, first, !members.empty());
    if (members.empty() && !first.limit.empty())
        select.sql += " LIMIT " + first.limit;
    select.single = members.empty() && (first.limit == "1" || (first.aggregated && first.grouped.empty()));
    return select;
}

SelectText ReadInnerSelect(Context& context) {
    SelectText select = ReadSelect(context);
    context.in.expectOperator(")");
    if (select.columns.size() != 1)
        throw DatabaseError(
            116,
            QStringLiteral(
                "Only one expression can be specified in the select list when the subquery is not introduced with EXISTS."));
    return select;
}

std::string ReadTableName(TokenReader& in) {
    std::string name = in.expectName();
    while (in.acceptOperator("."))
        name = in.expectName();
    return name;
}

}  // namespace db::embedded
