#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/embedded/catalog.h"
#include "platform/database/embedded/tokens.h"
#include "platform/database/embedded/translate.h"

namespace db::embedded {

/// A table, or a query in its place, under the name by which the statement knows it.
struct Source {
    std::string name;
    std::shared_ptr<const Table> table;  ///< Of a query: its columns, without a name.
};

/// What the items of a query name outside of its aggregates, which Group By has rules for.
struct Grouping {
    std::vector<std::string> columns = {};  ///< As SQLite text, since they were taken last.
    int aggregateDepth = 0;
    bool aggregated = false;  ///< An aggregate was met.
};

/// The tables whose columns an expression may name, and those around it where it stands in an inner query.
struct Scope {
    std::vector<Source> sources = {};
    const Scope* outer = nullptr;
    Grouping* grouping = nullptr;  ///< Of a query; none for a statement that writes.
};

struct Context {
    TokenReader& in;
    Catalog& catalog;
    std::vector<BoundPlace>& parameters;
    const Scope* scope = nullptr;
    bool negated = false;                            ///< Inside Not, where unknown and false differ.
    std::shared_ptr<const Table> written = nullptr;  ///< In a trigger: the table whose new row "inserted" is.
};

struct Expression {
    enum class Form { Other, Column, Text, Number, Null, Parameter };

    // Every member has its empty value here, so that a result names only what it fills.
    std::string sql = {};
    Kind kind = Kind::Unknown;
    SqlType type = {};  ///< Where a column or a conversion tells it; its kind is Unknown else.
    Form form = Form::Other;
    bool condition = false;              ///< True or false, which is no value in T-SQL.
    std::string name = {};               ///< A column as the statement names it, or what a literal holds.
    std::string table = {};              ///< The base table of a column.
    std::size_t place = 0;               ///< Of a parameter, from 1.
    std::vector<Expression> parts = {};  ///< The texts that + joins, where there are several.
};

/// A value. Throws 102 where a condition stands.
Expression ReadExpression(Context& context);
/// A condition. Throws 4145 where a value stands.
Expression ReadCondition(Context& context);
/// Whichever of the two stands there.
Expression ReadAny(Context& context);
/// The argument of an operator such as + or Like: no comparison, no And, no Or.
Expression ReadOperand(Context& context);
/// A literal, name, call, Case or anything in parentheses.
Expression ReadPrimary(Context& context);
/// A call whose name and opening parenthesis were taken.
Expression ReadCall(Context& context, const std::string& name);
Expression ReadCase(Context& context);
/// Convert(type, value, style) and Cast(value As type), from behind the opening parenthesis.
Expression ReadConvert(Context& context);
Expression ReadCast(Context& context);
/// A T-SQL type with its lengths; 2715 for an unknown one.
SqlType ReadType(TokenReader& in, int lengthLeftOut);

Expression ColumnExpression(const Context& context, const std::string& qualifier, const std::string& name);
/// left + right, which joins two texts and adds anything else.
Expression Plus(Expression left, Expression right);
/// left Like pattern; `escape` is empty for none.
Expression Like(const Context& context, Expression left, const Expression& pattern, const std::string& escape,
                bool negated);

/// Converts the operand with the lower type so that the two compare as on the server, and lets two texts compare
/// without case where neither is a column that brings its collation along.
void MakeComparable(Expression& left, Expression& right);
/// The kind of a value that is one or the other.
Kind CommonKind(Kind a, Kind b);
/// As SQLite text of the value as a text.
std::string AsText(const Expression& expression);
/// The value as one of that kind when the statement runs; a failure is one of the row's, as on the server.
Expression Converted(Expression value, Kind kind);
/// The same for a type, by a style of Convert, as SQLite text.
Expression Converted(const SqlType& type, const Expression& value, const std::string& style);
/// The result of whole numbers' arithmetic, which must fit the type of the two.
Expression CheckedWhole(Expression result, const Expression& left, const Expression& right);
/// With the collation of text where it has none of its own.
std::string Collated(const Expression& expression);

}  // namespace db::embedded
