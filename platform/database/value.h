#pragma once

#include <cstddef>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <variant>

namespace db {

/// Returns the number at the start of a text, or 0 where there is none. The decimal sign is a point.
double NumberAtStart(QStringView text);
/// Returns the number cut towards zero. A number beyond 64 bits gives the nearest that fits.
qint64 WholeNumber(double number);
/// Returns the number as text, without a decimal point where it is whole.
QString NumberText(double number);

/// One typed database value: null, integer, real, text, date-time or boolean. Reading a value in another type converts
/// it as the system's statements expect: null becomes "" or 0, and text becomes the number at its start.
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
    Value(QDate v);      ///< Midnight of the date; null for an invalid date.
    Value(QDateTime v);  ///< The wall-clock time, kept as UTC, a zone that lacks no hour. Null where invalid.

    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(data_); }
    [[nodiscard]] QString text() const;  ///< Date-times as yyyy-MM-dd hh:mm:ss, booleans as 1 or 0.
    [[nodiscard]] qint64 integer() const;
    [[nodiscard]] double real() const;
    [[nodiscard]] bool boolean() const;  ///< True for any number other than 0, also in a text, and for "True".
    [[nodiscard]] QDate date() const;    ///< Invalid for a value that is no date.
    [[nodiscard]] QDateTime dateTime() const;

    using Data = std::variant<std::monostate, qint64, double, QString, QDateTime, bool>;
    [[nodiscard]] const Data& data() const { return data_; }
    friend bool operator==(const Value&, const Value&) = default;

  private:
    Data data_;
};

}  // namespace db
