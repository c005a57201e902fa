#pragma once

#include <optional>
#include <QString>

/// What a number field takes.
struct NumberForm {
    double lowest = 0;
    double highest = 99;
    int decimals = 0;
    friend bool operator==(const NumberForm&, const NumberForm&) = default;
};

/// The number typed, with the decimal sign of the computer's language or a point. Nothing for what is no number, lies
/// outside the range or has more decimals than the field shows: a number is never rounded or bent in silence.
[[nodiscard]] std::optional<double> ReadNumber(const QString& text, const NumberForm& form);
/// The number with the field's decimals, without group signs.
[[nodiscard]] QString NumberFieldText(double number, const NumberForm& form);
