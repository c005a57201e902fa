#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/embedded/catalog.h"
#include "platform/database/embedded/tokens.h"
#include "platform/database/embedded/translate.h"

namespace db::embedded {

/// A table, or a query in the place of one, under the name that the statement gives it.
struct Source {
    std::string name;
    std::shared_ptr<const Table> table;  ///< For a query: its columns, in a table without a name.
};

/// The columns that the items of a query name outside of its aggregates. Group By has rules for these.
struct Grouping {
    std::vector<std::string> columns = {};  ///< As SQLite text; emptied each time they are taken.
    int aggregateDepth = 0;
    bool aggregated = false;  ///< Whether an aggregate was met.
};

/// The tables whose columns an expression may name. `outer` is the scope around an inner query.
struct Scope {
    std::vector<Source> sources = {};
    const Scope* outer = nullptr;
    Grouping* grouping = nullptr;  ///< Belongs to a query; null for a statement that writes.
};

struct Context {
    TokenReader& in;
    Catalog& catalog;
    std::vector<BoundPlace>& parameters;
    const Scope* scope = nullptr;
    bool negated = false;                            ///< True inside Not, where unknown and false differ.
    std::shared_ptr<const Table> written = nullptr;  ///< Inside a trigger: the table whose new row is "inserted".
};

struct Expression {
    enum class Form { Other, Column, Text, Number, Null, Parameter };

    // Every member has its empty value here, so that an initialiser names only the members that it fills.
    std::string sql = {};
    Kind kind = Kind::Unknown;
    SqlType type = {};  ///< The type where a column or a conversion tells it, else a type of the kind Unknown.
    Form form = Form::Other;
    bool condition = false;  ///< True for a condition, which is no value in T-SQL.
    std::string name = {};   ///< The name of a column as the statement writes it, or the content of a literal.
    std::string table = {};  ///< The base table of a column.
    std::size_t place = 0;   ///< The place of a parameter, from 1.
    std::vector<Expression> parts = {};  ///< The texts that + joins, where there are several.
};

/// Reads a value. Throws 102 for a condition.
Expression ReadExpression(Context& context);
/// Reads a condition. Throws 4145 for a value.
Expression ReadCondition(Context& context);
/// Reads a value or a condition, whichever comes next.
Expression ReadAny(Context& context);
/// Reads the argument of an operator such as + or Like. A comparison, And and Or are not part of it.
Expression ReadOperand(Context& context);
/// Reads a literal, name, call, Case or anything in parentheses.
Expression ReadPrimary(Context& context);
/// Reads a call whose name and opening parenthesis have been taken.
Expression ReadCall(Context& context, const std::string& name);
Expression ReadCase(Context& context);
/// Convert(type, value, style) and Cast(value As type) are read from behind the opening parenthesis.
Expression ReadConvert(Context& context);
Expression ReadCast(Context& context);
/// Reads a T-SQL type with its lengths. `lengthLeftOut` is the length of a text without one. Throws 2715 for an unknown
/// type.
SqlType ReadType(TokenReader& in, int lengthLeftOut);

Expression ColumnExpression(const Context& context, const std::string& qualifier, const std::string& name);
/// Returns left + right. Two texts are joined; any other values are added.
Expression Plus(Expression left, Expression right);
/// Returns left Like pattern. `escape` is empty where there is none.
Expression Like(const Context& context, Expression left, const Expression& pattern, const std::string& escape,
                bool negated);

/// Makes two operands comparable as on the server. The operand with the lower kind is converted. Two texts compare
/// without case, even where neither is a column that brings its collation along.
void MakeComparable(Expression& left, Expression& right);
/// Returns the kind of an expression that yields one or the other.
Kind CommonKind(Kind a, Kind b);
/// Returns SQLite text that gives the value as a text.
std::string AsText(const Expression& expression);
/// Returns the value converted to that kind when the statement runs. A failure belongs to the row, as on the server.
Expression Converted(Expression value, Kind kind);
/// Returns SQLite text that converts the value to a type, by a style of Convert.
Expression Converted(const SqlType& type, const Expression& value, const std::string& style);
/// Returns the result of whole-number arithmetic with a check that it fits the type of the operands.
Expression CheckedWhole(Expression result, const Expression& left, const Expression& right);
/// Returns the SQLite text of the expression, with the collation of texts where it has none of its own.
std::string Collated(const Expression& expression);

}  // namespace db::embedded
