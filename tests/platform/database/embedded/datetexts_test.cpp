// The forms in which a date or a time may be written, and those that are none.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class DateTexts : public Dialect {
  protected:
    DateTexts()
        : Dialect(R"(
Create Table moments (id int not null primary key, moment datetime null, written nvarchar(40) null)
Insert Into moments Values (1, '2026/03/11 14:05:30', 'Mar 11 2026')
)") {}

    /// The text is the moment wherever it stands: converted, compared, written and from a column of texts.
    void reads(const char* text, const char* moment) {
        const QString literal = QString::fromUtf8(text).replace(u'\'', QStringLiteral("''"));
        gives(QStringLiteral("Select Convert(datetime, '%1')").arg(literal), moment);
        gives(QStringLiteral("Select Cast('%1' as datetime)").arg(literal), moment);
        writes(QStringLiteral("Update moments Set moment = '%1', written = '%1'").arg(literal), 1);
        gives("Select moment from moments", moment);
        gives("Select Convert(datetime, written) from moments", moment);
        gives(QStringLiteral("Select id from moments Where moment = '%1'").arg(literal), "1");
        gives("Select id from moments Where moment = written", "1");
    }

    /// The same where a server of another make reads something else.
    void readsOnSqlServer(const char* text, const char* moment) {
        givesOnSqlServer(QStringLiteral("Select Convert(datetime, '%1')").arg(text), moment);
        givesOnSqlServer(QStringLiteral("Select Cast('%1' as datetime)").arg(text), moment);
    }

    void readsNot(const char* text) {
        const QString literal = QString::fromUtf8(text);
        EXPECT_EQ(practice.failureNumber(QStringLiteral("Select Convert(datetime, '%1')").arg(literal)), 241) << text;
        EXPECT_EQ(practice.failureNumber(QStringLiteral("Update moments Set moment = '%1'").arg(literal)), 241) << text;
        EXPECT_EQ(practice.failureNumber(QStringLiteral("Select id from moments Where moment = '%1'").arg(literal)),
                  241)
            << text;
        givesOnSqlServer(QStringLiteral("Select IsDate('%1')").arg(literal), "0");
    }
};

TEST_F(DateTexts, TheYearMayStandFirst) {
    reads("2026-03-11", "2026-03-11 00:00:00");
    reads("2026/03/11", "2026-03-11 00:00:00");
    reads("2026/3/1", "2026-03-01 00:00:00");
    reads("2026.03.11", "2026-03-11 00:00:00");
    reads("20260311", "2026-03-11 00:00:00");
}

TEST_F(DateTexts, TheMonthMayStandFirst) {
    reads("03/11/2026", "2026-03-11 00:00:00");
    reads("3/1/2026", "2026-03-01 00:00:00");
    reads("03-11-2026", "2026-03-11 00:00:00");
    reads("03.11.2026", "2026-03-11 00:00:00");
}

TEST_F(DateTexts, AYearOfTwoDigitsLiesBetween1950And2049) {
    reads("3/11/26", "2026-03-11 00:00:00");
    reads("3/11/00", "2000-03-11 00:00:00");
    reads("3/11/49", "2049-03-11 00:00:00");
    reads("3/11/99", "1999-03-11 00:00:00");
    reads("260311", "2026-03-11 00:00:00");
}

TEST_F(DateTexts, TheMonthMayBeNamed) {
    reads("Mar 11 2026", "2026-03-11 00:00:00");
    reads("March 11, 2026", "2026-03-11 00:00:00");
    reads("11 Mar 2026", "2026-03-11 00:00:00");
    reads("11 MARCH 2026", "2026-03-11 00:00:00");
    reads("Dec 31 1999", "1999-12-31 00:00:00");
    reads("may 5 2026", "2026-05-05 00:00:00");
}

TEST_F(DateTexts, ATimeMayFollow) {
    reads("2026/03/11 9:05", "2026-03-11 09:05:00");
    reads("2026/03/11 09:05:30", "2026-03-11 09:05:30");
    reads("03/11/2026 14:05", "2026-03-11 14:05:00");
    reads("03/11/2026 9:05 AM", "2026-03-11 09:05:00");
    reads("03/11/2026 9:05 PM", "2026-03-11 21:05:00");
    reads("03/11/2026 9:05pm", "2026-03-11 21:05:00");
    reads("03/11/2026 12:00 AM", "2026-03-11 00:00:00");
    reads("03/11/2026 12:00 PM", "2026-03-11 12:00:00");
    reads("Mar 11 2026  9:05AM", "2026-03-11 09:05:00");
    reads("20260311 23:59", "2026-03-11 23:59:00");
    readsOnSqlServer("2026-03-11T09:05:30", "2026-03-11 09:05:30");
}

TEST_F(DateTexts, ATimeAloneIsOfTheFirstDay) {
    reads("9:05", "1900-01-01 09:05:00");
    reads("9:05 PM", "1900-01-01 21:05:00");
    reads("23:59:59", "1900-01-01 23:59:59");
    readsOnSqlServer("5 PM", "1900-01-01 17:00:00");
}

TEST_F(DateTexts, NothingIsTheFirstDay) {
    readsOnSqlServer("", "1900-01-01 00:00:00");
    givesOnSqlServer("Select IsDate(''), IsDate(null)", "0|0");
}

TEST_F(DateTexts, IsDateKnowsADate) {
    for (const char* text : {"2026/03/11", "03/11/2026", "20260311", "Mar 11 2026", "9:05", "2026/03/11 9:05 PM"})
        givesOnSqlServer(QStringLiteral("Select IsDate('%1')").arg(text), "1");
    for (const char* text : {"soon", "2026/02/30", "13/13/2026", "25:00"})
        givesOnSqlServer(QStringLiteral("Select IsDate('%1')").arg(text), "0");
    gives("Select IsDate(written) from moments", "1");
    gives("Select Count(*) from moments Where IsDate(written + 'x') = 1", "0");
}

TEST_F(DateTexts, BlanksAroundItDoNotCount) {
    reads("  2026/03/11", "2026-03-11 00:00:00");
    reads("2026/03/11   ", "2026-03-11 00:00:00");
    reads("2026/03/11   9:05", "2026-03-11 09:05:00");
}

TEST_F(DateTexts, TheDayMustBeInTheCalendar) {
    reads("2024/02/29", "2024-02-29 00:00:00");
    reads("1753/01/01", "1753-01-01 00:00:00");
    reads("9999/12/31", "9999-12-31 00:00:00");
    readsNot("2026/02/29");
    readsNot("2026/13/01");
    readsNot("13/01/2026");
    readsNot("2026/04/31");
    readsNot("2026/00/10");
    readsNot("2026/01/00");
    readsNot("1752/12/31");
}

TEST_F(DateTexts, TheTimeMustBeOnTheClock) {
    readsNot("2026/03/11 24:00");
    readsNot("2026/03/11 9:60");
    readsNot("2026/03/11 9:05:60");
    readsNot("2026/03/11 13:00 AM");
    readsNot("9:05 9:06");
}

TEST_F(DateTexts, OtherTextsAreNoDates) {
    readsNot("soon");
    readsNot("2026/03");
    readsNot("03/11/2026/5");
    readsNot("Mars 11 2026");
    readsNot("11 of March 2026");
    readsNot("x2026/03/11");
    readsNot("2026/03/11 noon");
    readsNot("2026/03-11");
}

TEST_F(DateTexts, FractionsAreKeptToAThirdOfAHundredth) {
    const auto kept = [&](const char* text) {
        return practice.engine.query(QStringLiteral("Select Convert(datetime, '%1')").arg(text), {})
            .at(0, 0)
            .dateTime()
            .toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    };
    EXPECT_EQ(kept("2026/03/11 9:05:30.000"), "2026-03-11 09:05:30.000");
    EXPECT_EQ(kept("2026/03/11 9:05:30.001"), "2026-03-11 09:05:30.000");
    EXPECT_EQ(kept("2026/03/11 9:05:30.002"), "2026-03-11 09:05:30.003");
    EXPECT_EQ(kept("2026/03/11 9:05:30.005"), "2026-03-11 09:05:30.007");
    EXPECT_EQ(kept("2026/03/11 9:05:30.008"), "2026-03-11 09:05:30.007");
    EXPECT_EQ(kept("2026/03/11 9:05:30.009"), "2026-03-11 09:05:30.010");
    EXPECT_EQ(kept("2026/03/11 9:05:30.5"), "2026-03-11 09:05:30.500");
    EXPECT_EQ(kept("2026/03/11 9:05:30.25"), "2026-03-11 09:05:30.250");
    EXPECT_EQ(kept("2026/03/11 23:59:59.999"), "2026-03-12 00:00:00.000");
    EXPECT_EQ(kept("9999/12/31 23:59:59.997"), "9999-12-31 23:59:59.997");
}

TEST_F(DateTexts, ATypeOfDaysDropsTheTime) {
    givesOnSqlServer("Select Convert(date, '2026/03/11 14:05')", "2026-03-11 00:00:00");
    gives("Select Cast('03/11/2026 11:59 PM' as date)", "2026-03-11 00:00:00");
    gives("Select Convert(date, moment) from moments", "2026-03-11 00:00:00");
    gives("Select id from moments Where Convert(date, moment) = '03/11/2026'", "1");
}

TEST_F(DateTexts, AStyleMayPutTheDayFirst) {
    gives("Select Convert(datetime, '11/03/2026', 103)", "2026-03-11 00:00:00");
    gives("Select Convert(datetime, '11.03.2026', 104)", "2026-03-11 00:00:00");
    gives("Select Convert(datetime, '11-03-2026', 105)", "2026-03-11 00:00:00");
    gives("Select Convert(datetime, '31/12/2026', 103)", "2026-12-31 00:00:00");
    gives("Select Convert(datetime, '03/11/2026', 101)", "2026-03-11 00:00:00");
    givesOnSqlServer("Select Convert(datetime, '11/03/26', 3)", "2026-03-11 00:00:00");
    givesOnSqlServer("Select Convert(datetime, '11/03/2026 9:05', 103)", "2026-03-11 09:05:00");
    EXPECT_EQ(practice.failureNumber("Select Convert(datetime, '12/31/2026', 103)"), 241);
}

TEST_F(DateTexts, ANumberIsDaysSinceTheFirst) {
    gives("Select Convert(datetime, 0)", "1900-01-01 00:00:00");
    gives("Select Convert(datetime, 1)", "1900-01-02 00:00:00");
    gives("Select Convert(datetime, -1)", "1899-12-31 00:00:00");
    gives("Select Convert(datetime, 1.5)", "1900-01-02 12:00:00");
    gives("Select Convert(datetime, 46090)", "2026-03-11 00:00:00");
    gives("Select Convert(datetime, -53690)", "1753-01-01 00:00:00");
    fails("Select Convert(datetime, -53691)", 8115,
          "Arithmetic overflow error converting expression to data type datetime.");
    fails("Select Convert(datetime, 9999999)", 8115);
}

}  // namespace
