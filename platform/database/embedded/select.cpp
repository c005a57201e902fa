#include "platform/database/embedded/select.h"

#include <algorithm>

#include "platform/database/embedded/names.h"
#include "platform/database/embedded/selectcore.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

std::string acceptUnion(TokenReader& in) {
    if (in.acceptWord("union"))
        return in.acceptWord("all") ? " UNION ALL " : " UNION ";
    if (in.acceptWord("except"))
        return " EXCEPT ";
    return in.acceptWord("intersect") ? " INTERSECT " : "";
}

std::string placeOf(const std::vector<SelectColumn>& columns, const std::string& name) {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const SelectColumn& column) { return SameName(column.name, name); });
    return found == columns.end() ? std::string() : std::to_string(found - columns.begin() + 1);
}

/// Reads a term of a Union's order. It names one of the Union's columns and is written as that column's place.
std::string readUnionTerm(Context& context, const SelectCore& first) {
    TokenReader& in = context.in;
    if (in.peek().kind == TokenKind::Number)
        return in.next().text;
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
        return in.next().text;
    if (in.atName() && !in.atOperator(".", 1) && !in.atOperator("(", 1))
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
    for (std::size_t i = 0; i < kinds.size(); ++i)
        select.columns[i].kind = kinds[i];
    for (const Member& member : members)
        select.sql += member.op + convertedMember(member, kinds);
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
    return select;
}

std::string ReadTableName(TokenReader& in) {
    std::string name = in.expectName();
    while (in.acceptOperator("."))
        name = in.expectName();
    return name;
}

}  // namespace db::embedded
