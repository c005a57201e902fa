#pragma once

namespace db::embedded {

class FunctionCall;

/// The server's functions on moments, called by SQLite as they are written here.
void DayOf(const FunctionCall& call);
void MonthOf(const FunctionCall& call);
void YearOf(const FunctionCall& call);
/// datepart('month', moment), dateadd('day', n, moment) and datediff('minute', from, to). The part is given as a text
/// with its name or its short form. Throws 155 for an unknown part.
void DatePart(const FunctionCall& call);
void DateAdd(const FunctionCall& call);
void DateDiff(const FunctionCall& call);

/// datename('month', moment) gives the name in English.
void DateName(const FunctionCall& call);
/// isdate(value) gives 1 for a date, else 0.
void IsDate(const FunctionCall& call);

/// svs_days(moment) gives the days since 1900-01-01. The fraction is the time of day.
void DaysOf(const FunctionCall& call);
/// svs_date_minus(a, b) gives the moment that lies as long after 1900-01-01 as a lies after b.
void DateMinus(const FunctionCall& call);
/// svs_date_read(text, style) reads a text as svs_datetime does, with the day before the month for the styles that have
/// it so.
void StyledMoment(const FunctionCall& call);
/// svs_datetime(value) gives the stored form of a text, or of a number of days since 1900-01-01.
void ToMoment(const FunctionCall& call);
/// svs_date_plus(moment, days) adds days, of which the fraction is a time.
void DatePlusDays(const FunctionCall& call);
/// svs_date_text(moment, style, length) writes the moment by a style number of Convert. The text is cut to `length`
/// where that is above 0.
void DateToText(const FunctionCall& call);

}  // namespace db::embedded
