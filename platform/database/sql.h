#pragma once

#include <initializer_list>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <variant>

namespace db {

/// Text that goes into a statement as it stands, where the system does not escape it.
///
/// Inside quotes, the quotes in the text must already stand doubled. A lone one fails before anything is sent, as the
/// server would fail it, with 105 "Unclosed quotation mark after the character string ...". Outside quotes, the text is
/// a piece of SQL that the program made (a column name, a list of conditions), never anything that a user typed.
struct Raw {
    QString text;
};

/// Returns the date as "yyyy/mm/dd", the form of dates in statements, without quotes.
QString SqlDate(QDate date);

/// Returns the pattern of Like that matches the text itself: "%", "_" and "[" are no wildcards in it. Its quotes are
/// not doubled yet; Sql does that.
QString LikeText(const QString& text);

/// Returns a name in brackets, in which it may hold any letters.
QString Bracketed(QString name);

/// A value that fills one place of a statement.
class SqlArgument {
  public:
    SqlArgument(int v) : data_(qint64{v}) {}
    SqlArgument(qint64 v) : data_(v) {}
    SqlArgument(double v) : data_(v) {}
    SqlArgument(const QString& v) : data_(v) {}
    SqlArgument(const char* utf8) : data_(QString::fromUtf8(utf8)) {}
    SqlArgument(QDate v) : data_(v) {}
    SqlArgument(const Raw& v) : data_(v) {}

  private:
    friend QString FillSql(const QString&, std::initializer_list<SqlArgument>);
    std::variant<qint64, double, QString, QDate, Raw> data_;
};

/// Fills the places {} of a statement in order. A place inside single quotes takes text (its quotes are doubled), dates
/// (as SqlDate writes them) and numbers. A place outside quotes takes only numbers and Raw. Text or a date outside
/// quotes, or a number of places other than the number of arguments, is a mistake in the program and throws
/// std::logic_error. Whole reals are written without a decimal point.
QString FillSql(const QString& statement, std::initializer_list<SqlArgument> arguments);

template <typename... Arguments>
QString Sql(const char* statement, const Arguments&... arguments) {
    return FillSql(QString::fromUtf8(statement), {SqlArgument(arguments)...});
}

}  // namespace db
