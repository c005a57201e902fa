#include "platform/database/embedded/numberfunctions.h"

#include <cmath>
#include <limits>
#include <QLocale>

#include "platform/database/embedded/functioncall.h"
#include "platform/database/embedded/names.h"

namespace db::embedded {

namespace {

void refuseZero(const FunctionCall& call) {
    if (call.real(1) == 0)
        throw DatabaseError(8134, QStringLiteral("Divide by zero error encountered."));
}

bool areWhole(const FunctionCall& call) {
    return call.type(0) == SQLITE_INTEGER && call.type(1) == SQLITE_INTEGER;
}

double cutAt(double number, int digits) {
    const double factor = std::pow(10.0, digits);
    return std::trunc(number * factor) / factor;
}

}  // namespace

void Divide(const FunctionCall& call) {
    refuseZero(call);
    if (!areWhole(call))
        call.give(call.real(0) / call.real(1));
    else if (call.integer(1) == -1)
        // The lowest number has no positive counterpart, so plain division would overflow.
        call.give(static_cast<qint64>(0 - static_cast<quint64>(call.integer(0))));
    else
        call.give(call.integer(0) / call.integer(1));
}

void Modulo(const FunctionCall& call) {
    refuseZero(call);
    if (!areWhole(call))
        call.give(std::fmod(call.real(0), call.real(1)));
    else
        call.give(call.integer(1) == -1 ? qint64{0} : call.integer(0) % call.integer(1));
}

void CheckedWhole(const FunctionCall& call) {
    const TableColumn column{.name = {}, .type = ReadDeclaredType(call.text(1))};
    try {
        call.give(StoredCell({}, column, call.cell(0)));
    } catch (const DatabaseError&) {
        throw DatabaseError(8115, QStringLiteral("Arithmetic overflow error converting expression to data type %1.")
                                      .arg(ToQt(column.type.name)));
    }
}

void Round(const FunctionCall& call) {
    const auto digits = static_cast<int>(call.integer(1));
    const double rounded = call.integer(2) == 0 ? RoundedNumber(call.real(0), digits) : cutAt(call.real(0), digits);
    if (call.type(0) == SQLITE_INTEGER)
        call.give(digits >= 0 ? call.integer(0) : static_cast<qint64>(rounded));
    else
        call.give(rounded);
}

void Power(const FunctionCall& call) {
    const double power = std::pow(call.real(0), call.real(1));
    if (call.type(0) == SQLITE_INTEGER && std::fabs(power) <= static_cast<double>(std::numeric_limits<qint64>::max()))
        call.give(static_cast<qint64>(power));
    else
        call.give(power);
}

void SquareRoot(const FunctionCall& call) {
    if (call.real(0) < 0)
        throw DatabaseError(3623, QStringLiteral("An invalid floating point operation occurred."));
    call.give(std::sqrt(call.real(0)));
}

void MoneyToText(const FunctionCall& call) {
    constexpr int decimalsOfMoney = 4;
    const qint64 style = call.integer(1);
    const int decimals = style == 2 ? decimalsOfMoney : 2;
    QLocale locale = QLocale::c();
    locale.setNumberOptions(style == 1 ? QLocale::DefaultNumberOptions : QLocale::OmitGroupSeparator);
    const QString text = locale.toString(RoundedNumber(call.real(0), decimals), 'f', decimals);
    call.give(std::string_view(text.toStdString()));
}

void IsNumeric(const FunctionCall& call) {
    static const SqlType money = *MakeType("money");
    static const SqlType real = *MakeType("float");
    const auto reads = [&](const SqlType& type) {
        try {
            const std::string text(call.text(0));
            static_cast<void>(NumberFromText(text, type));
            return text.find_first_not_of(' ') != std::string::npos;
        } catch (const DatabaseError&) {
            return false;
        }
    };
    call.give(qint64{!call.isNull(0) && (!call.isText(0) || reads(real) || reads(money))});
}

}  // namespace db::embedded
