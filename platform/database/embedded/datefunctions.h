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

/// svs_datetime(value): the stored form of a text, or of a number of days since 1900-01-01.
void ToMoment(const FunctionCall& call);
/// svs_date_plus(moment, days)
void DatePlusDays(const FunctionCall& call);
/// svs_date_text(moment, style, length): by the style numbers of Convert, cut to the length where that is above 0.
void DateToText(const FunctionCall& call);

}  // namespace db::embedded
