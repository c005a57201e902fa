#include "platform/database/embedded/definition.h"

#include <optional>

#include "platform/database/embedded/names.h"
#include "platform/database/embedded/select.h"
#include "platform/database/embedded/write.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

/// A column as it is being declared.
struct Declaration {
    TableColumn column;
    std::string defaultValue;
    std::string constraints;
    bool key = false;
};

class TableReader {
  public:
    explicit TableReader(Context& context) : context_(context), in_(context.in) {}

    std::string readTable() {
        table_.name = ReadTableName(in_);
        refuseSecond();
        in_.expectOperator("(");
        do
            readElement();
        while (in_.acceptOperator(","));
        in_.expectOperator(")");
        return "CREATE TABLE " + QuotedName(table_.name) + " (" + columns() + constraints_ + ")";
    }

    std::string readAddedColumn() {
        const auto table = context_.catalog.table(ReadTableName(in_));
        table_.name = table->name;
        in_.expectWord("add");
        readColumn();
        return "ALTER TABLE " + QuotedName(table->name) + " ADD COLUMN " + text(declarations_.front());
    }

  private:
    void refuseSecond() const {
        try {
            context_.catalog.table(table_.name);
        } catch (const DatabaseError&) {
            return;
        }
        throw DatabaseError(
            2714, QStringLiteral("There is already an object named '%1' in the database.").arg(ToQt(table_.name)));
    }

    void readElement() {
        if (in_.acceptWord("constraint"))
            in_.expectName();
        if (in_.atWord("primary") || in_.atWord("unique"))
            readKey();
        else if (in_.acceptWord("foreign"))
            readForeignKey();
        else if (in_.acceptWord("check"))
            constraints_.append(", ").append(readCheck());
        else
            readColumn();
    }

    void readKey() {
        const bool primary = in_.next().text.size() > 6;
        if (primary)
            in_.expectWord("key");
        skipClustering();
        const std::vector<std::string> names = readNames();
        if (!primary) {
            constraints_ += ", UNIQUE (" + list(names) + ")";
            return;
        }
        for (const std::string& name : names)
            declaration(name).column.nullable = false;
        // The key of an identity is declared with its column, because SQLite only then assigns its values.
        if (names.size() != 1 || !declaration(names.front()).column.identity)
            constraints_ += ", PRIMARY KEY (" + list(names) + ")";
    }

    void readForeignKey() {
        in_.expectWord("key");
        const std::vector<std::string> names = readNames();
        in_.expectWord("references");
        constraints_ += ", FOREIGN KEY (" + list(names) + ")" + readReference();
    }

    void readColumn() {
        Declaration declared;
        declared.column.name = in_.expectName();
        declared.column.type = ReadType(in_, 1);
        while (readColumnClause(declared)) {
        }
        declarations_.push_back(std::move(declared));
    }

    bool readColumnClause(Declaration& declared) {
        if (in_.acceptWord("constraint")) {
            in_.expectName();
            return true;
        }
        if (in_.acceptWord("null"))
            return true;
        if (in_.acceptWord("not")) {
            in_.expectWord("null");
            declared.column.nullable = false;
        } else if (in_.acceptWord("identity")) {
            declared.column.identity = true;
            if (in_.acceptOperator("("))
                in_.skipParentheses();
        } else if (in_.acceptWord("primary")) {
            in_.expectWord("key");
            skipClustering();
            declared.key = true;
            declared.column.nullable = false;
        } else if (in_.acceptWord("unique")) {
            skipClustering();
            declared.constraints += " UNIQUE";
        } else if (in_.acceptWord("default")) {
            declared.defaultValue = readDefault(declared.column);
        } else if (in_.acceptWord("references")) {
            declared.constraints += readReference();
        } else if (in_.acceptWord("check")) {
            // The condition may name its own column, although the table is not complete yet.
            const Scope scope = scopeWith(declared.column);
            context_.scope = &scope;
            declared.constraints.append(" ").append(readCheckCondition());
            context_.scope = nullptr;
        } else if (in_.acceptWord("collate")) {
            in_.expectName();
        } else {
            return false;
        }
        return true;
    }

    std::string readDefault(const TableColumn& column) {
        const Expression value = ReadOperand(context_);
        const bool literal = value.form == Expression::Form::Text || value.form == Expression::Form::Number;
        return literal ? StoredLiteral(table_, column, value) : "(" + value.sql + ")";
    }

    std::string readReference() {
        const std::string table = ReadTableName(in_);
        std::string sql = " REFERENCES " + QuotedName(table);
        if (in_.atOperator("("))
            sql += " (" + list(readNames()) + ")";
        while (in_.acceptWord("on")) {
            const std::string event =
                in_.acceptWord("delete") ? " ON DELETE " : (in_.expectWord("update"), " ON UPDATE ");
            if (in_.acceptWord("cascade"))
                sql += event + "CASCADE";
            else if (in_.acceptWord("no"))
                in_.expectWord("action");
            else
                in_.fail();
        }
        return sql;
    }

    std::string readCheck() {
        const Scope scope = scopeWith({});
        context_.scope = &scope;
        std::string sql = readCheckCondition();
        context_.scope = nullptr;
        return sql;
    }

    std::string readCheckCondition() {
        in_.expectOperator("(");
        std::string sql = "CHECK (" + ReadCondition(context_).sql + ")";
        in_.expectOperator(")");
        return sql;
    }

    [[nodiscard]] Scope scopeWith(const TableColumn& last) const {
        auto table = std::make_shared<Table>();
        table->name = table_.name;
        for (const Declaration& declared : declarations_)
            table->columns.push_back(declared.column);
        table->columns.push_back(last);
        return {.sources = {{table_.name, table}}};
    }

    void skipClustering() {
        if (!in_.acceptWord("clustered"))
            in_.acceptWord("nonclustered");
    }

    std::vector<std::string> readNames() {
        std::vector<std::string> names;
        in_.expectOperator("(");
        do {
            names.push_back(in_.expectName());
            if (!in_.acceptWord("asc"))
                in_.acceptWord("desc");
        } while (in_.acceptOperator(","));
        in_.expectOperator(")");
        return names;
    }

    Declaration& declaration(const std::string& name) {
        for (Declaration& declared : declarations_)
            if (SameName(declared.column.name, name))
                return declared;
        throw DatabaseError(
            1911, QStringLiteral("Column name '%1' does not exist in the target table or view.").arg(ToQt(name)));
    }

    static std::string list(const std::vector<std::string>& names) {
        std::string sql;
        for (const std::string& name : names)
            AppendToList(sql, QuotedName(name));
        return sql;
    }

    std::string columns() const {
        std::string sql;
        for (const Declaration& declared : declarations_)
            AppendToList(sql, text(declared));
        return sql;
    }

    static std::string text(const Declaration& declared) {
        const TableColumn& column = declared.column;
        // SQLite assigns an identity only as INTEGER PRIMARY KEY. With AUTOINCREMENT it never gives a key twice.
        if (column.identity)
            return QuotedName(column.name) + " INTEGER PRIMARY KEY AUTOINCREMENT";
        std::string sql = QuotedName(column.name) + " " + DeclaredType(column.type);
        if (column.type.kind == Kind::Text)
            sql += " COLLATE SVS_TEXT";
        if (column.type.kind == Kind::DateTime)
            sql += " COLLATE SVS_DATETIME";
        if (!column.nullable)
            sql += " NOT NULL";
        if (!declared.defaultValue.empty())
            sql += " DEFAULT " + declared.defaultValue;
        if (declared.key)
            sql += " PRIMARY KEY";
        return sql + declared.constraints;
    }

    Context& context_;
    TokenReader& in_;
    Table table_;
    std::vector<Declaration> declarations_;
    std::string constraints_;
};

/// An index name belongs to its table on the server, but to the whole file in SQLite.
std::string indexName(const std::string& table, const std::string& index) {
    return QuotedName(table + "." + index);
}

std::string readIndex(Context& context, bool unique) {
    TokenReader& in = context.in;
    const std::string name = in.expectName();
    in.expectWord("on");
    const auto table = context.catalog.table(ReadTableName(in));
    std::string columns;
    in.expectOperator("(");
    do {
        const std::string column = in.expectName();
        if (!table->find(column))
            throw DatabaseError(
                1911, QStringLiteral("Column name '%1' does not exist in the target table or view.").arg(ToQt(column)));
        AppendToList(columns, QuotedName(column));
        if (in.acceptWord("desc"))
            columns += " DESC";
        else
            in.acceptWord("asc");
    } while (in.acceptOperator(","));
    in.expectOperator(")");
    return std::string(unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + indexName(table->name, name) + " ON " +
           QuotedName(table->name) + " (" + columns + ")";
}

/// Reads one event, an optional If and one statement. SQLite runs a trigger for each row, and "inserted" is a table of
/// that row.
std::string readTrigger(Context& context) {
    TokenReader& in = context.in;
    const std::string name = in.expectName();
    in.expectWord("on");
    context.written = context.catalog.table(ReadTableName(in));
    if (!in.acceptWord("for"))
        in.expectWord("after");
    const std::string event = in.acceptWord("insert") ? "INSERT" : (in.expectWord("update"), "UPDATE");
    in.expectWord("as");
    // The embedded engine never counts the rows of a trigger.
    if (in.acceptWord("set")) {
        in.expectWord("nocount");
        in.expectWord("on");
    }
    const std::string condition = in.acceptWord("if") ? " WHEN " + ReadCondition(context).sql : std::string();
    const std::string statement =
        in.acceptWord("delete") ? ReadDelete(context) : (in.expectWord("update"), ReadUpdate(context));
    return "CREATE TRIGGER " + QuotedName(name) + " AFTER " + event + " ON " + QuotedName(context.written->name) +
           condition + " BEGIN " + statement + "; END";
}

}  // namespace

std::string ReadCreate(Context& context) {
    TokenReader& in = context.in;
    if (in.acceptWord("table"))
        return TableReader(context).readTable();
    if (in.acceptWord("trigger"))
        return readTrigger(context);
    const bool unique = in.acceptWord("unique");
    if (!in.acceptWord("clustered"))
        in.acceptWord("nonclustered");
    in.expectWord("index");
    return readIndex(context, unique);
}

std::string ReadAlter(Context& context) {
    context.in.expectWord("table");
    return TableReader(context).readAddedColumn();
}

std::string ReadDrop(Context& context) {
    TokenReader& in = context.in;
    if (in.acceptWord("table"))
        return "DROP TABLE " + QuotedName(context.catalog.table(ReadTableName(in))->name);
    if (in.acceptWord("trigger"))
        return "DROP TRIGGER " + QuotedName(in.expectName());
    in.expectWord("index");
    std::string first = in.expectName();
    if (in.acceptOperator("."))
        return "DROP INDEX " + indexName(context.catalog.table(first)->name, in.expectName());
    in.expectWord("on");
    return "DROP INDEX " + indexName(context.catalog.table(ReadTableName(in))->name, first);
}

}  // namespace db::embedded
