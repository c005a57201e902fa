#pragma once

namespace db::embedded {

class FunctionCall;

/// svs_divide(a, b) and svs_modulo(a, b): whole for whole numbers; 8134 where b is 0.
void Divide(const FunctionCall& call);
void Modulo(const FunctionCall& call);
/// svs_int(value, type): the value of a whole type's arithmetic; 8115 where the type does not hold it.
void CheckedWhole(const FunctionCall& call);
/// svs_round(value, digits, cut): to the digits behind the point, before it where they are below 0; cut instead of
/// rounded where the last is not 0.
void Round(const FunctionCall& call);
/// svs_power(a, b), svs_sqrt(a): 3623 for a root of less than 0.
void Power(const FunctionCall& call);
void SquareRoot(const FunctionCall& call);
/// svs_money_text(value, style): 0 with two decimals, 1 with commas besides, 2 with four decimals.
void MoneyToText(const FunctionCall& call);
/// 1 for a number and for a text that is one, else 0.
void IsNumeric(const FunctionCall& call);

}  // namespace db::embedded
