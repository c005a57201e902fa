#pragma once

namespace db::embedded {

class FunctionCall;

/// svs_divide(a, b) and svs_modulo(a, b) give a whole number for whole numbers. Throw 8134 where b is 0.
void Divide(const FunctionCall& call);
void Modulo(const FunctionCall& call);
/// svs_int(value, type) gives the result of arithmetic in a whole type. Throws 8115 where the type does not hold it.
void CheckedWhole(const FunctionCall& call);
/// svs_round(value, digits, cut) rounds to that many digits after the point, or before it where `digits` is below 0. A
/// `cut` other than 0 cuts instead of rounding.
void Round(const FunctionCall& call);
/// svs_power(a, b) and svs_sqrt(a). Throws 3623 for the root of a number below 0.
void Power(const FunctionCall& call);
void SquareRoot(const FunctionCall& call);
/// svs_money_text(value, style) writes two decimals for style 0, two decimals and commas for style 1, and four decimals
/// for style 2.
void MoneyToText(const FunctionCall& call);
/// isnumeric(value) gives 1 for a number and for a text that is one, else 0.
void IsNumeric(const FunctionCall& call);

}  // namespace db::embedded
