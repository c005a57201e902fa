// Moments as texts, by the style numbers of Convert.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class DateStyles : public Dialect {
  protected:
    DateStyles()
        : Dialect(R"(
Create Table stamps (id int not null primary key, moment datetime null)
Insert Into stamps Values (1, '2026/03/01 14:05:06')
Insert Into stamps Values (2, '2026/12/31 0:07')
Insert Into stamps Values (3, null)
)") {}

    void shows(int style, const char* first, const char* second) {
        givesOnSqlServer(QStringLiteral("Select Convert(varchar(30), moment, %1) from stamps Order by id").arg(style),
                         QStringLiteral("%1/%2/null").arg(first, second));
    }
};

TEST_F(DateStyles, WithoutAStyleTheMonthIsNamed) {
    gives("Select Convert(varchar(30), moment) from stamps Where id < 3 Order by id",
          "Mar  1 2026  2:05PM/Dec 31 2026 12:07AM");
    givesOnSqlServer("Select Cast(moment as varchar(30)) from stamps Where id < 3 Order by id",
                     "Mar  1 2026  2:05PM/Dec 31 2026 12:07AM");
    shows(0, "Mar  1 2026  2:05PM", "Dec 31 2026 12:07AM");
    shows(100, "Mar  1 2026  2:05PM", "Dec 31 2026 12:07AM");
    shows(9, "Mar  1 2026  2:05:06:000PM", "Dec 31 2026 12:07:00:000AM");
    shows(109, "Mar  1 2026  2:05:06:000PM", "Dec 31 2026 12:07:00:000AM");
}

TEST_F(DateStyles, TheMonthStandsFirst) {
    shows(1, "03/01/26", "12/31/26");
    shows(101, "03/01/2026", "12/31/2026");
    shows(10, "03-01-26", "12-31-26");
    shows(110, "03-01-2026", "12-31-2026");
    shows(7, "Mar 01, 26", "Dec 31, 26");
    shows(107, "Mar 01, 2026", "Dec 31, 2026");
}

TEST_F(DateStyles, TheDayStandsFirst) {
    shows(3, "01/03/26", "31/12/26");
    shows(103, "01/03/2026", "31/12/2026");
    shows(4, "01.03.26", "31.12.26");
    shows(104, "01.03.2026", "31.12.2026");
    shows(5, "01-03-26", "31-12-26");
    shows(105, "01-03-2026", "31-12-2026");
    shows(6, "01 Mar 26", "31 Dec 26");
    shows(106, "01 Mar 2026", "31 Dec 2026");
    shows(13, "01 Mar 2026 14:05:06:000", "31 Dec 2026 00:07:00:000");
    shows(113, "01 Mar 2026 14:05:06:000", "31 Dec 2026 00:07:00:000");
}

TEST_F(DateStyles, TheYearStandsFirst) {
    shows(2, "26.03.01", "26.12.31");
    shows(102, "2026.03.01", "2026.12.31");
    shows(11, "26/03/01", "26/12/31");
    shows(111, "2026/03/01", "2026/12/31");
    shows(12, "260301", "261231");
    shows(112, "20260301", "20261231");
    shows(20, "2026-03-01 14:05:06", "2026-12-31 00:07:00");
    shows(120, "2026-03-01 14:05:06", "2026-12-31 00:07:00");
    shows(21, "2026-03-01 14:05:06.000", "2026-12-31 00:07:00.000");
    shows(121, "2026-03-01 14:05:06.000", "2026-12-31 00:07:00.000");
    shows(23, "2026-03-01", "2026-12-31");
    shows(126, "2026-03-01T14:05:06", "2026-12-31T00:07:00");
}

TEST_F(DateStyles, TheTimeStandsAlone) {
    shows(8, "14:05:06", "00:07:00");
    shows(108, "14:05:06", "00:07:00");
    shows(14, "14:05:06:000", "00:07:00:000");
    shows(114, "14:05:06:000", "00:07:00:000");
}

TEST_F(DateStyles, ThousandthsAreShownWhereTheStyleHasThem) {
    EXPECT_EQ(practice.one("Select Convert(varchar(30), Convert(datetime, '2026/03/01 14:05:06.007'), 121)"),
              "2026-03-01 14:05:06.007");
    EXPECT_EQ(practice.one("Select Convert(varchar(30), Convert(datetime, '2026/03/01 14:05:06.007'), 126)"),
              "2026-03-01T14:05:06.007");
    EXPECT_EQ(practice.one("Select Convert(varchar(30), Convert(datetime, '2026/03/01 14:05:06.250'), 114)"),
              "14:05:06:250");
    EXPECT_EQ(practice.one("Select Convert(varchar(30), Convert(datetime, '2026/03/01 2:05:06.250'), 109)"),
              "Mar  1 2026  2:05:06:250AM");
    EXPECT_EQ(practice.one("Select Convert(varchar(30), Convert(datetime, '2026/03/01 14:05:06.997'), 120)"),
              "2026-03-01 14:05:06");
}

TEST_F(DateStyles, NoonAndMidnightAreTwelve) {
    const auto shown = [&](const char* time) {
        return practice.one(
            QStringLiteral("Select Right(Convert(varchar(30), Convert(datetime, '%1'), 0), 7)").arg(time));
    };
    EXPECT_EQ(shown("0:00"), "12:00AM");
    EXPECT_EQ(shown("0:59"), "12:59AM");
    EXPECT_EQ(shown("1:00"), " 1:00AM");
    EXPECT_EQ(shown("11:59"), "11:59AM");
    EXPECT_EQ(shown("12:00"), "12:00PM");
    EXPECT_EQ(shown("12:59"), "12:59PM");
    EXPECT_EQ(shown("13:00"), " 1:00PM");
    EXPECT_EQ(shown("23:59"), "11:59PM");
}

TEST_F(DateStyles, EveryMonthIsNamedInEnglish) {
    const QStringList names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int month = 1; month <= 12; ++month)
        gives(QStringLiteral("Select Convert(varchar(3), Convert(datetime, '2026/%1/05'), 107)").arg(month),
              names.at(month - 1));
}

TEST_F(DateStyles, TheTextIsCutToItsLength) {
    gives("Select Convert(varchar(10), moment, 120) from stamps Where id = 1", "2026-03-01");
    gives("Select Convert(varchar(5), moment, 108) from stamps Where id = 1", "14:05");
    gives("Select Convert(char(10), moment, 101) + '|' from stamps Where id = 1", "03/01/2026|");
    gives("Select Convert(char(12), moment, 101) + '|' from stamps Where id = 1", "03/01/2026  |");
    gives("Select Convert(nvarchar(7), moment, 111) from stamps Where id = 2", "2026/12");
}

TEST_F(DateStyles, TheStyleMayBeAnExpression) {
    givesOnSqlServer("Select Convert(varchar, moment, 100 + 1) from stamps Where id = 1", "03/01/2026");
    givesOnSqlServer(
        "Select Convert(varchar, moment, Case When id = 1 Then 101 Else 112 End) from stamps Where id < 3 "
        "Order by id",
        "03/01/2026/20261231");
}

TEST_F(DateStyles, ATextOfAMomentIsAText) {
    gives("Select Convert(varchar, moment, 101) + ' ' + Convert(varchar(5), moment, 108) from stamps Where id = 1",
          "03/01/2026 14:05");
    gives("Select id from stamps Where Convert(varchar, moment, 101) = '03/01/2026'", "1");
    gives("Select id from stamps Where Convert(varchar(10), moment, 112) Like '2026%' Order by id", "1/2");
    gives("Select Len(Convert(varchar, moment, 112)) from stamps Where id = 1", "8");
}

TEST_F(DateStyles, AFunctionOnTextsSeesTheMomentAsAText) {
    givesOnSqlServer("Select Left(moment, 11) from stamps Where id = 1", "Mar  1 2026");
    givesOnSqlServer("Select Right(moment, 7) from stamps Where id = 1", " 2:05PM");
    givesOnSqlServer("Select Len(moment) from stamps Where id = 1", "19");
    gives("Select Substring(Convert(varchar, moment), 1, 3) from stamps Where id = 2", "Dec");
    givesOnSqlServer("Select CharIndex('2026', moment) from stamps Where id = 1", "8");
    givesOnSqlServer("Select Replace(moment, '2026', 'X') from stamps Where id = 1", "Mar  1 X  2:05PM");
    givesOnSqlServer("Select Upper(moment) from stamps Where id = 1", "MAR  1 2026  2:05PM");
    givesOnSqlServer("Select RTrim(moment) from stamps Where id = 1", "Mar  1 2026  2:05PM");
    givesOnSqlServer("Select Concat('On ', moment) from stamps Where id = 1", "On Mar  1 2026  2:05PM");
}

TEST_F(DateStyles, AnUnknownStyleIsRefused) {
    failsOnSqlServer("Select Convert(varchar, moment, 999) from stamps", 281,
                     "999 is not a valid style number when converting from datetime to a character string.");
    failsOnSqlServer("Select Convert(varchar, moment, 15) from stamps", 281);
    failsOnSqlServer("Select Convert(varchar, moment, 115) from stamps", 281);
    failsOnSqlServer("Select Convert(varchar, moment, -1) from stamps", 281);
}

}  // namespace
