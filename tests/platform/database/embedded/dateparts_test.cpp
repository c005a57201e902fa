// DatePart, DateAdd, DateDiff, DateName, Day, Month and Year.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class DateParts : public Dialect {
  protected:
    DateParts()
        : Dialect(R"(
Create Table times (id int not null primary key, moment datetime null, written nvarchar(40) null, n int null)
Insert Into times Values (1, '2026/03/11 14:05:30', '12/31/2025', 2)
Insert Into times Values (2, null, null, null)
)") {}

    void part(const char* name, const char* text, int value) {
        gives(QStringLiteral("Select DatePart(%1, '%2')").arg(name, text), QString::number(value));
    }
    void sum(const char* name, int count, const char* text, const char* moment) {
        gives(QStringLiteral("Select DateAdd(%1, %2, '%3')").arg(name).arg(count).arg(text), moment);
    }
    void difference(const char* name, const char* from, const char* to, int value) {
        gives(QStringLiteral("Select DateDiff(%1, '%2', '%3')").arg(name, from, to), QString::number(value));
        gives(QStringLiteral("Select DateDiff(%1, '%3', '%2')").arg(name, from, to), QString::number(-value));
    }
};

TEST_F(DateParts, EachPartIsReadFromAMoment) {
    part("year", "2026/03/11 14:05:30", 2026);
    part("quarter", "2026/03/11 14:05:30", 1);
    part("month", "2026/03/11 14:05:30", 3);
    part("dayofyear", "2026/03/11 14:05:30", 70);
    part("day", "2026/03/11 14:05:30", 11);
    part("week", "2026/03/11 14:05:30", 11);
    part("weekday", "2026/03/11 14:05:30", 4);
    part("hour", "2026/03/11 14:05:30", 14);
    part("minute", "2026/03/11 14:05:30", 5);
    part("second", "2026/03/11 14:05:30", 30);
    part("millisecond", "2026/03/11 14:05:30.250", 250);
}

TEST_F(DateParts, EachPartHasShortNames) {
    for (const char* name : {"yy", "yyyy", "YEAR"})
        part(name, "2026/03/11", 2026);
    for (const char* name : {"qq", "q"})
        part(name, "2026/05/11", 2);
    for (const char* name : {"mm", "m", "Month"})
        part(name, "2026/03/11", 3);
    for (const char* name : {"dy", "y"})
        part(name, "2026/02/01", 32);
    for (const char* name : {"dd", "d", "DAY"})
        part(name, "2026/03/11", 11);
    for (const char* name : {"wk", "ww"})
        part(name, "2026/01/04", 2);
    part("dw", "2026/03/11", 4);
    part("hh", "14:05", 14);
    for (const char* name : {"mi", "n"})
        part(name, "14:05", 5);
    for (const char* name : {"ss", "s"})
        part(name, "14:05:30", 30);
    part("ms", "14:05:30.5", 500);
}

TEST_F(DateParts, QuartersBeginEveryThirdMonth) {
    const int quarters[] = {1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4};
    for (int month = 1; month <= 12; ++month)
        part("quarter", qPrintable(QStringLiteral("2026/%1/15").arg(month)), quarters[month - 1]);
}

TEST_F(DateParts, WeeksAndWeekdaysBeginOnSunday) {
    part("weekday", "2026/03/08", 1);
    part("weekday", "2026/03/09", 2);
    part("weekday", "2026/03/14", 7);
    part("weekday", "2026/03/15", 1);
    part("week", "2026/01/01", 1);
    part("week", "2026/01/03", 1);
    part("week", "2026/01/04", 2);
    part("week", "2026/12/31", 53);
    part("week", "2028/12/31", 54);
    part("dayofyear", "2024/12/31", 366);
    part("dayofyear", "2026/12/31", 365);
    part("dayofyear", "2026/01/01", 1);
}

TEST_F(DateParts, DayMonthAndYearReadTextsNumbersAndColumns) {
    gives("Select Day('03/11/2026'), Month('03/11/2026'), Year('03/11/2026')", "11|3|2026");
    gives("Select Day(moment), Month(moment), Year(moment) from times Where id = 1", "11|3|2026");
    gives("Select Day(written), Month(written), Year(written) from times Where id = 1", "31|12|2025");
    gives("Select Day(0), Month(0), Year(0)", "1|1|1900");
    gives("Select Day(moment), Month(moment), Year(written) from times Where id = 2", "null|null|null");
    gives("Select Month(moment + 30) from times Where id = 1", "4");
    gives("Select id from times Where Month(moment) = 3 and Year(moment) = 2026 and Day(moment) > 10", "1");
    fails("Select Month('x')", 241);
    fails("Select Year(written + 'x') from times", 241);
}

TEST_F(DateParts, EachPartIsAdded) {
    sum("year", 1, "2026/03/11", "2027-03-11 00:00:00");
    sum("quarter", 1, "2026/03/11", "2026-06-11 00:00:00");
    sum("month", 1, "2026/03/11", "2026-04-11 00:00:00");
    sum("dayofyear", 1, "2026/03/11", "2026-03-12 00:00:00");
    sum("day", 1, "2026/03/11", "2026-03-12 00:00:00");
    sum("week", 1, "2026/03/11", "2026-03-18 00:00:00");
    sum("weekday", 1, "2026/03/11", "2026-03-12 00:00:00");
    sum("hour", 1, "2026/03/11 14:05", "2026-03-11 15:05:00");
    sum("minute", 1, "2026/03/11 14:05", "2026-03-11 14:06:00");
    sum("second", 1, "2026/03/11 14:05", "2026-03-11 14:05:01");
    sum("millisecond", 1000, "2026/03/11 14:05", "2026-03-11 14:05:01");
}

TEST_F(DateParts, EachPartIsTakenAway) {
    sum("yy", -1, "2026/03/11", "2025-03-11 00:00:00");
    sum("qq", -1, "2026/03/11", "2025-12-11 00:00:00");
    sum("mm", -3, "2026/03/11", "2025-12-11 00:00:00");
    sum("dd", -11, "2026/03/11", "2026-02-28 00:00:00");
    sum("wk", -2, "2026/03/11", "2026-02-25 00:00:00");
    sum("hh", -15, "2026/03/11 14:05", "2026-03-10 23:05:00");
    sum("mi", -6, "2026/03/11 14:05", "2026-03-11 13:59:00");
    sum("ss", -1, "2026/03/11", "2026-03-10 23:59:59");
}

TEST_F(DateParts, AMonthThatHasNoSuchDayGivesItsLast) {
    sum("month", 1, "2026/01/31", "2026-02-28 00:00:00");
    sum("month", 1, "2024/01/31", "2024-02-29 00:00:00");
    sum("month", -1, "2026/03/31", "2026-02-28 00:00:00");
    sum("month", 2, "2026/01/31", "2026-03-31 00:00:00");
    sum("year", 1, "2024/02/29", "2025-02-28 00:00:00");
    sum("year", 4, "2024/02/29", "2028-02-29 00:00:00");
    sum("quarter", 1, "2026/11/30", "2027-02-28 00:00:00");
}

TEST_F(DateParts, WhatIsAddedIsAWholeNumberOfAnyForm) {
    gives("Select DateAdd(day, n, moment) from times Where id = 1", "2026-03-13 14:05:30");
    gives("Select DateAdd(day, n * 10, moment) from times Where id = 1", "2026-03-31 14:05:30");
    gives("Select DateAdd(day, -n, written) from times Where id = 1", "2025-12-29 00:00:00");
    gives("Select DateAdd(day, 1.9, '2026/03/11'), DateAdd(day, -1.9, '2026/03/11')",
          "2026-03-12 00:00:00|2026-03-10 00:00:00");
    gives("Select DateAdd(day, n, moment) from times Where id = 2", "null");
    gives("Select DateAdd(day, null, '2026/03/11'), DateAdd(day, 1, null)", "null|null");
    gives("Select DateAdd(minute, 90, DateAdd(hour, 1, '2026/03/11'))", "2026-03-11 02:30:00");
    gives(
        "Select id from times Where DateAdd(day, 1, moment) > '03/12/2026' and DateAdd(day, 1, moment) < '03/13/2026'",
        "1");
}

TEST_F(DateParts, AMomentBeyondTheCalendarIsRefused) {
    const QString sentence = "Adding a value to a 'datetime' column caused an overflow.";
    fails("Select DateAdd(year, 8000, '2026/03/11')", 517, sentence);
    fails("Select DateAdd(year, -300, '2026/03/11')", 517, sentence);
    fails("Select DateAdd(day, 1, '9999/12/31')", 517, sentence);
    fails("Select DateAdd(day, -1, '1753/01/01')", 517, sentence);
    fails("Select DateAdd(month, 1, '9999/12/01')", 517, sentence);
    gives("Select DateAdd(day, -1, '1753/01/02'), DateAdd(day, 1, '9999/12/30')",
          "1753-01-01 00:00:00|9999-12-31 00:00:00");
}

TEST_F(DateParts, ADifferenceCountsTheBoundariesThatLieBetween) {
    difference("year", "2025/12/31", "2026/01/01", 1);
    difference("year", "2026/01/01", "2026/12/31", 0);
    givesOnSqlServer("Select DateDiff(quarter, '2026/03/31', '2026/04/01')", "1");
    givesOnSqlServer("Select DateDiff(quarter, '2026/04/01', '2026/06/30')", "0");
    givesOnSqlServer("Select DateDiff(qq, '2025/01/01', '2026/12/31')", "7");
    givesOnSqlServer("Select DateDiff(q, '2026/12/31', '2025/01/01')", "-7");
    difference("month", "2026/01/31", "2026/02/01", 1);
    difference("month", "2025/12/01", "2026/03/31", 3);
    difference("day", "2026/03/10 23:59", "2026/03/11 0:01", 1);
    difference("day", "2026/03/11 0:00", "2026/03/11 23:59", 0);
    difference("day", "2024/02/28", "2024/03/01", 2);
    difference("dayofyear", "2026/01/01", "2026/12/31", 364);
    givesOnSqlServer("Select DateDiff(weekday, '2026/03/01', '2026/03/11')", "10");
    difference("hour", "2026/03/11 8:59", "2026/03/11 9:00", 1);
    difference("hour", "2026/03/11 9:00", "2026/03/11 9:59", 0);
    difference("minute", "2026/03/11 8:59:59", "2026/03/11 9:00:00", 1);
    difference("minute", "2026/03/11", "2026/03/12", 1440);
    difference("second", "2026/03/11 8:59:59", "2026/03/11 9:00:00", 1);
    difference("second", "2026/03/11", "2026/03/12", 86400);
    difference("millisecond", "2026/03/11 9:00:00", "2026/03/11 9:00:01", 1000);
}

TEST_F(DateParts, ADifferenceReachesBehind1970) {
    difference("hour", "1899/12/31 23:59", "1900/01/01 0:00", 1);
    difference("minute", "1969/12/31 23:59:59", "1970/01/01 0:00:00", 1);
    difference("second", "1969/12/31 23:59:59", "1969/12/31 23:59:59", 0);
    difference("year", "1753/01/01", "9999/12/31", 8246);
    difference("day", "1900/01/01", "2026/03/11", 46090);
}

TEST_F(DateParts, WeeksAreCountedBySundays) {
    EXPECT_EQ(practice.one("Select DateDiff(week, '2026/03/07', '2026/03/08')"), "1");
    EXPECT_EQ(practice.one("Select DateDiff(week, '2026/03/08', '2026/03/14')"), "0");
    EXPECT_EQ(practice.one("Select DateDiff(wk, '2026/03/01', '2026/03/31')"), "4");
    EXPECT_EQ(practice.one("Select DateDiff(ww, '2026/03/08', '2026/03/07')"), "-1");
}

TEST_F(DateParts, ADifferenceTakesColumnsAndExpressions) {
    gives("Select DateDiff(day, written, moment) from times Where id = 1", "70");
    gives("Select DateDiff(day, moment, '03/31/2026') from times Where id = 1", "20");
    gives("Select DateDiff(day, moment, moment + 5) from times Where id = 1", "5");
    gives("Select DateDiff(year, moment, GetDate()) from times Where id = 2", "null");
    gives("Select id from times Where DateDiff(day, moment, '2026/03/12') = 1", "1");
    gives("Select DateDiff(minute, moment, DateAdd(hour, 2, moment)) / 60.0 from times Where id = 1", "2");
}

TEST_F(DateParts, ADifferenceMustFitAnInt) {
    fails(
        "Select DateDiff(second, '1753/01/01', '9999/12/31')", 535,
        "The datediff function resulted in an overflow. The number of dateparts separating two date/time instances is "
        "too large. Try to use datediff with a less precise datepart.");
    fails("Select DateDiff(millisecond, '2026/01/01', '2026/02/01')", 535);
    gives("Select DateDiff(millisecond, '2026/01/01', '2026/01/25')", "2073600000");
}

TEST_F(DateParts, PartsHaveNames) {
    gives("Select DateName(month, '2026/03/11'), DateName(weekday, '2026/03/11'), DateName(year, '2026/03/11')",
          "March|Wednesday|2026");
    gives("Select DateName(day, '2026/03/01'), DateName(hour, '14:05'), DateName(dw, '2026/03/08')", "1|14|Sunday");
    gives("Select DateName(mm, '2026/12/01') + ' ' + DateName(yy, '2026/12/01')", "December 2026");
    gives("Select DateName(month, moment) from times Where id = 2", "null");
    gives("Select DateName(weekday, moment) from times Where id = 1", "Wednesday");
}

TEST_F(DateParts, AnUnknownPartIsRefused) {
    fails("Select DatePart(fortnight, '2026/03/11')", 155, "'fortnight' is not a recognized datepart option.");
    fails("Select DateAdd(decade, 1, '2026/03/11')", 155);
    fails("Select DateDiff(moon, '2026/03/11', '2026/03/12')", 155);
    fails("Select DateName(era, '2026/03/11')", 155);
}

TEST_F(DateParts, TheNumberOfArgumentsIsChecked) {
    fails("Select DatePart(month)", 174, "The datepart function requires 2 argument(s).");
    fails("Select DateAdd(month, 1)", 174, "The dateadd function requires 3 argument(s).");
    fails("Select DateDiff(month, '2026/03/11')", 174, "The datediff function requires 3 argument(s).");
    fails("Select Month()", 174, "The month function requires 1 argument(s).");
    fails("Select Year('2026/03/11', 1)", 174);
    fails("Select GetDate(1)", 174, "The getdate function requires 0 argument(s).");
}

TEST_F(DateParts, NowIsTheSameInAllOfAStatement) {
    gives("Select DateDiff(second, GetDate(), Current_Timestamp)", "0");
    gives("Select Count(*) from times Where GetDate() = GetDate()", "2");
    gives("Select 1 Where GetDate() > '2020/01/01' and GetDate() - 1 < GetDate()", "1");
    gives("Select DateDiff(day, Convert(date, GetDate()), GetDate())", "0");
}

}  // namespace
