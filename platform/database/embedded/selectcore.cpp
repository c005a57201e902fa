#include "platform/database/embedded/selectcore.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/database/embedded/names.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

class CoreReader {
  public:
    explicit CoreReader(Context& outer) : in_(outer.in), context_(outer) {
        core_.scope.outer = outer.scope;
        core_.scope.grouping = &grouping_;
        context_.scope = &core_.scope;
        context_.negated = false;
    }

    SelectCore read() {
        in_.expectWord("select");
        core_.distinct = in_.acceptWord("distinct");
        if (!core_.distinct)
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
        core_.sql = (core_.distinct ? "SELECT DISTINCT " : "SELECT ") + columns + wholeGroup(from + readConditions());
        requireGrouped();
        core_.scope.grouping = nullptr;
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
        if (context_.written && in_.acceptWord("inserted"))
            return readInserted();
        const auto table = context_.catalog.table(ReadTableName(in_));
        const std::string alias = readAlias().value_or(table->name);
        core_.scope.sources.push_back({alias, table});
        // Locking hints mean nothing here, because readers and writers do not wait for each other.
        if (in_.acceptWord("with") && in_.acceptOperator("("))
            in_.skipParentheses();
        return QuotedName(table->name) + (alias == table->name ? "" : " AS " + QuotedName(alias));
    }

    /// Returns the row that a trigger runs for, as a table of one row.
    std::string readInserted() {
        const std::string alias = readAlias().value_or("inserted");
        core_.scope.sources.push_back({alias, context_.written});
        std::string cells;
        for (const TableColumn& column : context_.written->columns)
            AppendToList(cells, "NEW." + QuotedName(column.name) + " AS " + QuotedName(column.name));
        return "(SELECT " + cells + ") AS " + QuotedName(alias);
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
        for (const SelectColumn& column : select.columns) {
            table->columns.push_back({.name = column.name, .type = column.type});
            table->columns.back().type.kind = column.kind;
        }
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
        grouping_.columns.clear();
        const Expression value = ReadExpression(context_);
        named_.push_back(std::exchange(grouping_.columns, {}));
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
            core_.columns.push_back({column.name, source.table->name, column.type.kind, column.type});
            core_.aliased.push_back(false);
            core_.items.push_back(QuotedName(source.name) + "." + QuotedName(column.name));
            named_.push_back({core_.items.back()});
        }
    }

    /// Gives a collation to a text without one, so that Distinct, Union and Order By treat it as a text.
    std::string addItem(const Expression& value, const std::optional<std::string>& alias) {
        const bool column = value.form == Expression::Form::Column;
        const std::string name = alias.value_or(column ? value.name : std::string());
        core_.columns.push_back({name, value.table, value.kind, value.type});
        core_.aliased.push_back(alias.has_value());
        core_.items.push_back(Collated(value));
        return core_.items.back() + (name.empty() ? "" : " AS " + QuotedName(name));
    }

    std::string readConditions() {
        std::string sql;
        // SQLite itself refuses an aggregate in Where, so one found there does not count.
        const bool aggregated = grouping_.aggregated;
        if (in_.acceptWord("where"))
            sql += " WHERE " + ReadCondition(context_).sql;
        grouping_.aggregated = aggregated;
        if (in_.acceptWord("group")) {
            in_.expectWord("by");
            std::string terms;
            do {
                const Expression term = ReadExpression(context_);
                core_.grouped.push_back(term.sql);
                AppendToList(terms, Collated(term));
            } while (in_.acceptOperator(","));
            sql += " GROUP BY " + terms;
        }
        if (in_.acceptWord("having")) {
            grouping_.columns.clear();
            grouping_.aggregated = true;
            const Expression having = ReadCondition(context_);
            RequireGrouped(core_.grouped, grouping_.columns, having.sql, {8121, "HAVING clause"});
            sql += " HAVING " + having.sql;
            isOneGroup_ = core_.grouped.empty() && !aggregated;
        }
        return sql;
    }

    /// Wraps a query that is one group by its Having alone, because SQLite wants an aggregate in its list.
    [[nodiscard]] std::string wholeGroup(const std::string& rest) const {
        return isOneGroup_ ? " FROM (SELECT count(*)" + rest + ")" : rest;
    }

    void requireGrouped() {
        core_.aggregated = grouping_.aggregated || !core_.grouped.empty();
        for (std::size_t i = 0; core_.aggregated && i < named_.size(); ++i)
            RequireGrouped(core_.grouped, named_[i], core_.items[i], {8120, "select list"});
    }

    TokenReader& in_;
    Context context_;
    SelectCore core_;
    Grouping grouping_;
    bool isOneGroup_ = false;                      ///< By Having, without an aggregate in the list.
    std::vector<std::vector<std::string>> named_;  ///< By each item of the list, outside of aggregates.
};

}  // namespace

SelectCore ReadSelectCore(Context& context) {
    return CoreReader(context).read();
}

void RequireGrouped(const std::vector<std::string>& grouped, const std::vector<std::string>& columns,
                    const std::string& sql, const UngroupedPlace& place) {
    const auto holds = [&](const std::string& column) {
        return std::any_of(grouped.begin(), grouped.end(), [&](const std::string& term) {
            return term == column || (term.find(column) != std::string::npos && sql.find(term) != std::string::npos);
        });
    };
    const auto found = std::find_if_not(columns.begin(), columns.end(), holds);
    if (found == columns.end())
        return;
    QString name = ToQt(*found);
    throw DatabaseError(
        place.number,
        QStringLiteral(
            "Column '%1' is invalid in the %2 because it is not contained in either an aggregate function or the GROUP BY clause.")
            .arg(name.remove(QLatin1Char('"')), QLatin1String(place.name)));
}

}  // namespace db::embedded
