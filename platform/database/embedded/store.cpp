#include "platform/database/embedded/store.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

#include "platform/database/datetext.h"
#include "platform/database/embedded/names.h"
#include "platform/database/embedded/textorder.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

std::string fromQt(const QByteArray& bytes) {
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

struct Limits {
    qint64 lowest;
    qint64 highest;
};

Limits limitsOf(const SqlType& type) {
    if (type.name == "tinyint")
        return {0, 255};
    if (type.name == "smallint")
        return {std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max()};
    if (type.name == "int")
        return {std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()};
    return {std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()};
}

Cell wholeNumber(double number, const SqlType& type) {
    const Limits limits = limitsOf(type);
    const double whole = std::trunc(number);
    // The highest bigint is no double, but the whole number after it is one.
    if (whole >= static_cast<double>(limits.lowest) && whole < static_cast<double>(limits.highest) + 1)
        return static_cast<qint64>(whole);
    if (type.name == "smallint" || type.name == "tinyint")
        throw DatabaseError(220, QStringLiteral("Arithmetic overflow error for data type %1, value = %2.")
                                     .arg(ToQt(type.name), QString::number(whole, 'f', 0)));
    throw DatabaseError(
        8115, QStringLiteral("Arithmetic overflow error converting expression to data type %1.").arg(ToQt(type.name)));
}

std::string_view trimmed(std::string_view text) {
    text = WithoutTrailingBlanks(text);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    return text;
}

template <typename Number>
bool readWhole(std::string_view text, Number& number) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (text.starts_with('-'))
            return false;
    }
    const std::size_t first = text.find_first_not_of("-.");
    if (first == std::string_view::npos || text[first] < '0' || text[first] > '9')
        return false;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

/// Returns the text of an amount of money without its currency sign and without the commas between thousands.
std::string withoutCurrency(const std::string& text) {
    std::string plain;
    std::copy_if(text.begin(), text.end(), std::back_inserter(plain), [](char c) { return c != ','; });
    if (const std::size_t sign = plain.find('$'); sign != std::string::npos && plain.size() > 1)
        plain.erase(sign, 1);
    return plain;
}

double rounded(double number, const SqlType& type) {
    if (type.scale < 0)
        return number;
    const double result = RoundedNumber(number, type.scale);
    if (type.precision > 0 && std::fabs(result) >= std::pow(10.0, type.precision - type.scale))
        throw DatabaseError(8115, QStringLiteral("Arithmetic overflow error converting numeric to data type numeric."));
    return result;
}

Cell storedNumber(const TableColumn& column, const Cell& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return NumberFromText(*text, column.type);
    const auto* whole = std::get_if<qint64>(&value);
    const double number = whole ? static_cast<double>(*whole) : std::get<double>(value);
    if (column.type.kind == Kind::Bit)
        return qint64{number != 0};
    if (column.type.kind == Kind::Real)
        return rounded(number, column.type);
    if (whole && column.type.name == "bigint")
        return value;
    return wholeNumber(number, column.type);
}

Cell storedDateTime(const TableColumn& column, const Cell& value) {
    std::string stored;
    if (const auto* text = std::get_if<std::string>(&value))
        stored = DateTimeFromText(*text);
    else if (const auto* whole = std::get_if<qint64>(&value))
        stored = DateTimeFromNumber(static_cast<double>(*whole));
    else
        stored = DateTimeFromNumber(std::get<double>(value));
    constexpr std::size_t day = 10;
    return column.type.name == "date" ? stored.substr(0, day) : stored;
}

std::size_t lengthOf(std::string_view utf8) {
    std::size_t length = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        length += (byte & 0xC0) == 0x80 ? 0 : byte >= 0xF0 ? 2 : 1;
    }
    return length;
}

Cell storedText(const Table& table, const TableColumn& column, Cell value) {
    if (const auto* whole = std::get_if<qint64>(&value))
        value = std::to_string(*whole);
    else if (const auto* real = std::get_if<double>(&value))
        value = NumberText(*real).toStdString();
    auto& text = std::get<std::string>(value);
    const auto limit = static_cast<std::size_t>(column.type.maxLength);
    if (limit == 0 || text.size() <= limit)
        return value;
    while (text.back() == ' ' && lengthOf(text) > limit)
        text.pop_back();
    if (lengthOf(text) > limit)
        throw DatabaseError(
            2628, QStringLiteral(
                      "String or binary data would be truncated in table '%1', column '%2'. Truncated value: '%3'.")
                      .arg(ToQt(table.name), ToQt(column.name), ToQt(text).left(column.type.maxLength)));
    return value;
}

}  // namespace

Cell ToCell(const Value& value) {
    if (const auto* whole = std::get_if<qint64>(&value.data()))
        return *whole;
    if (const auto* real = std::get_if<double>(&value.data()))
        return *real;
    if (const auto* text = std::get_if<QString>(&value.data()))
        return fromQt(text->toUtf8());
    if (const auto* truth = std::get_if<bool>(&value.data()))
        return qint64{*truth};
    if (const auto* moment = std::get_if<QDateTime>(&value.data())) {
        const auto stored = ToServerDateTime(*moment);
        if (!stored)
            throw DatabaseError(
                241, QStringLiteral("Conversion failed when converting date and/or time from character string."));
        return fromQt(IsoText(*stored));
    }
    return {};
}

Cell StoredCell(const Table& table, const TableColumn& column, Cell value) {
    if (std::holds_alternative<std::monostate>(value))
        return value;
    switch (column.type.kind) {
        case Kind::Bit:
        case Kind::Integer:
        case Kind::Real:
            return storedNumber(column, value);
        case Kind::DateTime:
            return storedDateTime(column, value);
        case Kind::Text:
            return storedText(table, column, std::move(value));
        case Kind::Unknown:
        case Kind::Null:
            break;
    }
    return value;
}

double RoundedNumber(double number, int decimals) {
    // A half in decimal digits may lack this much in binary.
    constexpr double slack = 1e-9;
    const double factor = std::pow(10.0, decimals);
    return std::copysign(std::floor(std::fabs(number) * factor + 0.5 + slack) / factor, number);
}

Cell NumberFromText(const std::string& text, const SqlType& type) {
    std::string plain;
    if (type.name == "money" || type.name == "smallmoney")
        plain = withoutCurrency(text);
    const std::string_view digits = trimmed(plain.empty() ? text : plain);
    if (type.kind == Kind::Real) {
        double number = 0;
        if (!digits.empty() && !readWhole(digits, number))
            throw DatabaseError(8114, QStringLiteral("Error converting data type varchar to %1.").arg(ToQt(type.name)));
        return rounded(number, type);
    }
    qint64 number = 0;
    if (type.kind == Kind::Bit && SameName(digits, "true"))
        number = 1;
    else if (type.kind == Kind::Bit && SameName(digits, "false"))
        number = 0;
    else if (!digits.empty() && !readWhole(digits, number))
        throw DatabaseError(245,
                            QStringLiteral("Conversion failed when converting the varchar value '%1' to data type %2.")
                                .arg(ToQt(text), ToQt(type.name)));
    if (type.kind == Kind::Bit)
        return qint64{number != 0};
    return type.name == "bigint" ? Cell(number) : wholeNumber(static_cast<double>(number), type);
}

std::string DateTimeFromText(const std::string& text) {
    const auto moment = ReadDateTime(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    if (!moment)
        throw DatabaseError(
            241, QStringLiteral("Conversion failed when converting date and/or time from character string."));
    return fromQt(IsoText(*moment));
}

std::string DateTimeFromNumber(double days) {
    constexpr double millisecondsPerDay = 86'400'000;
    const double whole = std::floor(days);
    const QDate date = QDate::fromJulianDay(ServerEpochJulianDay + static_cast<qint64>(whole));
    const QDateTime moment =
        date.startOfDay(Qt::UTC).addMSecs(static_cast<qint64>(std::llround((days - whole) * millisecondsPerDay)));
    const auto stored = ToServerDateTime(moment);
    if (!stored)
        throw DatabaseError(8115,
                            QStringLiteral("Arithmetic overflow error converting expression to data type datetime."));
    return fromQt(IsoText(*stored));
}

}  // namespace db::embedded
