#pragma once

namespace db::embedded {

class FunctionCall;

void DayOf(const FunctionCall& call);
void MonthOf(const FunctionCall& call);
void YearOf(const FunctionCall& call);
/// datepart('month', moment), dateadd('day', n, moment), datediff('minute', from, to): the part's name, or its short
/// form, is a text here. An unknown part is error 155.
void DatePart(const FunctionCall& call);
void DateAdd(const FunctionCall& call);
void DateDiff(const FunctionCall& call);

/// datename('month', moment): in English.
void DateName(const FunctionCall& call);
/// 1 for what is a date, else 0.
void IsDate(const FunctionCall& call);

/// svs_days(moment): days since 1900-01-01, the fraction being the time.
void DaysOf(const FunctionCall& call);
/// svs_date_minus(moment, moment): the moment that lies as far after 1900-01-01.
void DateMinus(const FunctionCall& call);
/// svs_date_read(text, style): as svs_datetime, the day before the month where the style has it so.
void StyledMoment(const FunctionCall& call);
/// svs_datetime(value): the stored form of a text, or of a number of days since 1900-01-01.
void ToMoment(const FunctionCall& call);
/// svs_date_plus(moment, days)
void DatePlusDays(const FunctionCall& call);
/// svs_date_text(moment, style, length): by the style numbers of Convert, cut to the length where that is above 0.
void DateToText(const FunctionCall& call);

}  // namespace db::embedded
