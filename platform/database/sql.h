#pragma once

#include <initializer_list>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <variant>

namespace db {

/// Text that goes into a statement as it stands, where the system does not escape it. Inside quotes its own quotes must
/// stand doubled: a lone one fails as the server would fail it, with 105 "Unclosed quotation mark after the character
/// string ...", before anything is sent. Outside quotes it is a piece of SQL that the program made (a column name, a
/// list of conditions), never anything typed.
struct Raw {
    QString text;
};

/// The text "yyyy/mm/dd" by which dates stand in statements, without the quotes.
QString SqlDate(QDate date);

/// A text for a Like pattern, in which it stands for itself: "%", "_" and "[" are no wildcards there. Its quotes are
/// still to be doubled, as Sql does.
QString LikeText(const QString& text);

/// A name as it stands in a statement whatever its letters are: in brackets.
QString Bracketed(QString name);

/// What fills one place of a statement.
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

/// Fills the places {} of a statement in order. A place inside single quotes takes text (quotes doubled), dates (as
/// SqlDate) and numbers; a place outside takes numbers and Raw only: text or a date there, or a number of places other
/// than that of the arguments, is a mistake in the program and throws std::logic_error. Whole reals print without a
/// decimal point.
QString FillSql(const QString& statement, std::initializer_list<SqlArgument> arguments);

template <typename... Arguments>
QString Sql(const char* statement, const Arguments&... arguments) {
    return FillSql(QString::fromUtf8(statement), {SqlArgument(arguments)...});
}

}  // namespace db
