#pragma once

#include <optional>
#include <QString>

/// The range and the decimals of a number field.
struct NumberForm {
    double lowest = 0;
    double highest = 99;
    int decimals = 0;
    friend bool operator==(const NumberForm&, const NumberForm&) = default;
};

/// Reads a typed number with the decimal sign of the computer's language or a point. Returns nothing for a text that is
/// no number, lies outside the range or has more decimals than the field shows: a number is never rounded or changed
/// silently.
[[nodiscard]] std::optional<double> ReadNumber(const QString& text, const NumberForm& form);
/// Returns the number with the field's decimals, without group separators.
[[nodiscard]] QString NumberFieldText(double number, const NumberForm& form);
