#pragma once

#include <cstddef>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <variant>

namespace db {

/// The number at the start of a text, 0 where there is none; a point is the decimal sign.
double NumberAtStart(QStringView text);
/// Towards zero; beyond 64 bits the nearest that fits.
qint64 WholeNumber(double number);
/// Without a decimal point where the number is whole.
QString NumberText(double number);

/// One typed database value: null, integer, real, text, date-time or boolean. A reading that does not fit the type
/// converts as the statements of the system expect: null is "" or 0, text is read as the number at its start.
class Value {
  public:
    Value() = default;
    Value(std::nullptr_t) {}
    Value(bool v) : data_(v) {}
    Value(int v) : data_(qint64{v}) {}
    Value(qint64 v) : data_(v) {}
    Value(double v) : data_(v) {}
    Value(const char* utf8) : data_(QString::fromUtf8(utf8)) {}
    Value(const QString& v) : data_(v) {}
    Value(QDate v);      ///< A date with no time of day; an invalid date is null.
    Value(QDateTime v);  ///< Its wall clock, kept as if in UTC: no zone lacks the moment. Null where invalid.

    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(data_); }
    [[nodiscard]] QString text() const;  ///< Date-times as yyyy-MM-dd hh:mm:ss, booleans as 1 or 0.
    [[nodiscard]] qint64 integer() const;
    [[nodiscard]] double real() const;
    [[nodiscard]] bool boolean() const;  ///< True for anything that reads as a number other than 0, and for "True".
    [[nodiscard]] QDate date() const;    ///< Invalid where there is none.
    [[nodiscard]] QDateTime dateTime() const;

    using Data = std::variant<std::monostate, qint64, double, QString, QDateTime, bool>;
    [[nodiscard]] const Data& data() const { return data_; }
    friend bool operator==(const Value&, const Value&) = default;

  private:
    Data data_;
};

}  // namespace db
