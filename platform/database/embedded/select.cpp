#include "platform/database/embedded/select.h"

#include <algorithm>
#include <optional>

#include "platform/database/embedded/names.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

/// One Select of a query, between its Unions.
struct Core {
    std::string sql;
    std::vector<SelectColumn> columns;
    std::vector<bool> aliased;  ///< Columns that the statement names itself.
    Scope scope;
    std::string limit;
};

class CoreReader {
  public:
    explicit CoreReader(Context& outer) : in_(outer.in), context_(outer) {
        core_.scope.outer = outer.scope;
        context_.scope = &core_.scope;
        context_.negated = false;
    }

    Core read() {
        in_.expectWord("select");
        std::string quantifier;
        if (in_.acceptWord("distinct"))
            quantifier = "DISTINCT ";
        else
            in_.acceptWord("all");
        if (in_.acceptWord("top"))
            readTop();
        // The types of the list are known once its tables are.
        const std::size_t list = in_.position();
        const std::string from = skipToFrom() ? readFrom() : std::string();
        const std::size_t behindFrom = in_.position();
        in_.moveTo(list);
        const std::string columns = readList();
        if (!from.empty()) {
            if (!in_.atWord("from"))
                in_.fail();
            in_.moveTo(behindFrom);
        }
        core_.sql = "SELECT " + quantifier + columns + from + readConditions();
        return std::move(core_);
    }

  private:
    void readTop() {
        const bool parentheses = in_.acceptOperator("(");
        if (in_.peek().kind != TokenKind::Number)
            in_.fail();
        core_.limit = in_.next().text;
        if (parentheses)
            in_.expectOperator(")");
    }

    bool skipToFrom() {
        const std::size_t start = in_.position();
        while (!in_.atEnd() && !in_.atOperator(")") && !in_.atOperator(";") && !in_.atWord("union") &&
               !in_.atWord("where") && !in_.atWord("order")) {
            if (in_.acceptWord("from"))
                return true;
            if (in_.acceptOperator("("))
                in_.skipParentheses();
            else
                in_.next();
        }
        in_.moveTo(start);
        return false;
    }

    std::string readFrom() {
        std::string sql = " FROM ";
        do {
            if (sql.back() != ' ')
                sql += ", ";
            sql += readJoins();
        } while (in_.acceptOperator(","));
        return sql;
    }

    std::string readJoins() {
        std::string sql = readSource();
        while (const auto join = acceptJoin()) {
            sql += *join + readSource();
            if (*join == " CROSS JOIN ")
                continue;
            in_.expectWord("on");
            sql += " ON " + ReadCondition(context_).sql;
        }
        return sql;
    }

    std::optional<std::string> acceptJoin() {
        std::string join;
        if (in_.acceptWord("inner"))
            join = " INNER JOIN ";
        else if (in_.acceptWord("left"))
            join = " LEFT JOIN ";
        else if (in_.acceptWord("right"))
            join = " RIGHT JOIN ";
        else if (in_.acceptWord("full"))
            join = " FULL JOIN ";
        else if (in_.acceptWord("cross"))
            join = " CROSS JOIN ";
        else if (!in_.atWord("join"))
            return {};
        in_.acceptWord("outer");
        in_.expectWord("join");
        return join.empty() ? " INNER JOIN " : join;
    }

    std::string readSource() {
        if (in_.acceptOperator("(")) {
            if (in_.atWord("select"))
                return readDerived();
            std::string joins = readJoins();
            in_.expectOperator(")");
            return "(" + joins + ")";
        }
        const auto table = context_.catalog.table(ReadTableName(in_));
        const std::string alias = readAlias().value_or(table->name);
        core_.scope.sources.push_back({alias, table});
        // Locking hints mean nothing where readers and writers do not wait for each other.
        if (in_.acceptWord("with") && in_.acceptOperator("("))
            in_.skipParentheses();
        return QuotedName(table->name) + (alias == table->name ? "" : " AS " + QuotedName(alias));
    }

    std::string readDerived() {
        Context inner = context_;
        inner.scope = core_.scope.outer;
        const SelectText select = ReadSelect(inner);
        in_.expectOperator(")");
        const auto alias = readAlias();
        if (!alias)
            in_.fail();
        auto table = std::make_shared<Table>();
        for (const SelectColumn& column : select.columns)
            table->columns.push_back({.name = column.name, .type = {.kind = column.kind}});
        core_.scope.sources.push_back({*alias, table});
        return "(" + select.sql + ") AS " + QuotedName(*alias);
    }

    std::optional<std::string> readAlias() {
        if (in_.acceptWord("as") || in_.atName())
            return in_.expectName();
        return {};
    }

    std::string readList() {
        std::string sql;
        do
            AppendToList(sql, readItem());
        while (in_.acceptOperator(","));
        return sql;
    }

    std::string readItem() {
        if (in_.acceptOperator("*")) {
            for (const Source& source : core_.scope.sources)
                addAll(source);
            return "*";
        }
        if (in_.atName() && in_.atOperator(".", 1) && in_.atOperator("*", 2))
            return readAllOf();
        const TokenKind kind = in_.peek().kind;
        const bool names = in_.atName() || kind == TokenKind::Text;
        std::optional<std::string> alias;
        if (names && in_.atOperator("=", 1)) {
            alias = in_.next().text;
            in_.next();
        }
        const Expression value = ReadExpression(context_);
        if (!alias)
            alias = readColumnAlias();
        return addItem(value, alias);
    }

    std::string readAllOf() {
        const std::string name = in_.expectName();
        in_.expectOperator(".");
        in_.expectOperator("*");
        for (const Source& source : core_.scope.sources)
            if (SameName(source.name, name)) {
                addAll(source);
                return QuotedName(source.name) + ".*";
            }
        throw DatabaseError(
            107,
            QStringLiteral("The column prefix '%1' does not match with a table name or alias name used in the query.")
                .arg(ToQt(name)));
    }

    std::optional<std::string> readColumnAlias() {
        const bool as = in_.acceptWord("as");
        if (in_.peek().kind == TokenKind::Text)
            return in_.next().text;
        if (as || in_.atName())
            return in_.expectName();
        return {};
    }

    void addAll(const Source& source) {
        for (const TableColumn& column : source.table->columns) {
            core_.columns.push_back({column.name, source.table->name, column.type.kind});
            core_.aliased.push_back(false);
        }
    }

    /// Texts without a collation of their own are given one, so that Distinct, Union and Order By treat them as texts.
    std::string addItem(const Expression& value, const std::optional<std::string>& alias) {
        const bool column = value.form == Expression::Form::Column;
        const std::string name = alias.value_or(column ? value.name : std::string());
        core_.columns.push_back({name, value.table, value.kind});
        core_.aliased.push_back(alias.has_value());
        return Collated(value) + (name.empty() ? "" : " AS " + QuotedName(name));
    }

    std::string readConditions() {
        std::string sql;
        if (in_.acceptWord("where"))
            sql += " WHERE " + ReadCondition(context_).sql;
        if (in_.acceptWord("group")) {
            in_.expectWord("by");
            std::string terms;
            do
                AppendToList(terms, Collated(ReadExpression(context_)));
            while (in_.acceptOperator(","));
            sql += " GROUP BY " + terms;
        }
        if (in_.acceptWord("having"))
            sql += " HAVING " + ReadCondition(context_).sql;
        return sql;
    }

    TokenReader& in_;
    Context context_;
    Core core_;
};

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

/// A term of a Union's order is one of its columns, and goes on as that column's place.
std::string readUnionTerm(Context& context, const Core& first) {
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

std::string readTerm(Context& context, const Core& core) {
    TokenReader& in = context.in;
    if (in.peek().kind == TokenKind::Number)
        return in.next().text;
    if (in.atName() && !in.atOperator(".", 1) && !in.atOperator("(", 1))
        for (std::size_t i = 0; i < core.columns.size(); ++i)
            if (core.aliased[i] && SameName(core.columns[i].name, in.peek().text)) {
                in.next();
                return std::to_string(i + 1);
            }
    return Collated(ReadExpression(context));
}

std::string readOrder(Context& outer, const Core& core, bool compound) {
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

void joinKinds(std::vector<SelectColumn>& columns, const std::vector<SelectColumn>& others) {
    if (columns.size() != others.size())
        throw DatabaseError(
            205,
            QStringLiteral(
                "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal number of expressions in their target lists."));
    for (std::size_t i = 0; i < columns.size(); ++i)
        columns[i].kind = CommonKind(columns[i].kind, others[i].kind);
}

/// Within a Union a limit belongs to its own Select.
std::string limitedInUnion(const Core& core) {
    return core.limit.empty() ? core.sql : "SELECT * FROM (" + core.sql + " LIMIT " + core.limit + ")";
}

}  // namespace

SelectText ReadSelect(Context& context) {
    const Core first = CoreReader(context).read();
    SelectText select{first.sql, first.columns};
    bool compound = false;
    for (std::string op = acceptUnion(context.in); !op.empty(); op = acceptUnion(context.in)) {
        const Core next = CoreReader(context).read();
        joinKinds(select.columns, next.columns);
        select.sql = (compound ? select.sql : limitedInUnion(first)) + op + limitedInUnion(next);
        compound = true;
    }
    select.sql += readOrder(context, first, compound);
    if (!compound && !first.limit.empty())
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
