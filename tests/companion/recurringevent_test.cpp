#include "companion/recurringevent.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/controls/noticebar.h"
#include "platform/database/sql.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"
#include "tests/support/triplog.h"

using db::Sql;

namespace {

constexpr int Reed = 1, Lane = 2;
const QDate Wednesday(2026, 3, 11);

/// The columns of a row of RecurringEvents that are not as the database fills them in.
using Row = std::vector<std::pair<QString, db::Value>>;

class Series : public testing::Test {
  protected:
    Series() { desk.setNow(Wednesday.startOfDay()); }

    int add(const Row& row) {
        QStringList columns;
        std::vector<db::Value> values;
        for (const auto& [column, value] : row) {
            columns << column;
            values.push_back(value);
        }
        companion.connection().InsertRows(QStringLiteral("RecurringEvents"), columns, {values});
        return static_cast<int>(companion.connection().LastIdentity());
    }
    void except(int series, QDate date, const db::Value& provider) {
        companion.connection().InsertRows(
            QStringLiteral("RecurringEventExceptions"),
            {QStringLiteral("RecrId"), QStringLiteral("RExcDate"), QStringLiteral("ProvId")},
            {{series, date, provider}});
    }
    RecurringEvent read(int series, QDate from, QDate to = {}) {
        RecurringEvent event;
        EXPECT_TRUE(event.DBGetInfo(companion.connection(), series, db::Value(from).text(), db::Value(to).text(),
                                    QStringLiteral("1900-01-01 09:00:00"), 0, 60));
        return event;
    }
    RecurringEvent series(const Row& row, QDate from = Wednesday, QDate to = {}) { return read(add(row), from, to); }
    bool isOn(const RecurringEvent& event, QDate date, int provider = Reed) {
        return event.IsDateInSeries(companion.connection(), date, provider);
    }
    /// The days of the series within some days from a date, "3/11 3/18".
    QString days(const RecurringEvent& event, QDate from, int count) {
        QStringList on;
        for (int day = 0; day < count; ++day)
            if (isOn(event, from.addDays(day)))
                on << from.addDays(day).toString(QStringLiteral("M/d"));
        return on.join(QLatin1Char(' '));
    }

    ScriptedDesk desk;
    TestDatabase companion{SchemaScript::Companion};
};

}  // namespace

// Each pattern.

TEST_F(Series, EveryThirdDayCountsFromTheFirstDay) {
    EXPECT_EQ(days(series({{"RecrPattern", 0}, {"RecrDailyDays", 3}}), Wednesday.addDays(-5), 15),
              QStringLiteral("3/11 3/14 3/17 3/20"));
}

TEST_F(Series, EveryWeekdayLeavesTheWeekendOutAndHasNoInterval) {
    EXPECT_EQ(
        days(series({{"RecrPattern", 0}, {"RecrDailyWeekdayInd", 1}, {"RecrDailyDays", 3}}), Wednesday.addDays(-1), 8),
        QStringLiteral("3/11 3/12 3/13 3/16 3/17"));
}

TEST_F(Series, EverySecondWeekCountsTheSundaysAndNotSevenDays) {
    const RecurringEvent event = series(
        {{"RecrPattern", 1}, {"RecrWeeklyWeeks", 2}, {"RecrWeeklySunInd", 1}, {"RecrWeeklyWedInd", 1}}, Wednesday);
    EXPECT_FALSE(isOn(event, QDate(2026, 3, 15))) << "the Sunday of the next week is one week on";
    EXPECT_FALSE(isOn(event, QDate(2026, 3, 18)));
    EXPECT_TRUE(isOn(event, QDate(2026, 3, 22)));
    EXPECT_TRUE(isOn(event, QDate(2026, 3, 25)));
}

TEST_F(Series, EachWeekdayHasItsOwnIndicator) {
    const char* const columns[] = {"RecrWeeklySunInd", "RecrWeeklyMonInd", "RecrWeeklyTueInd", "RecrWeeklyWedInd",
                                   "RecrWeeklyThuInd", "RecrWeeklyFriInd", "RecrWeeklySatInd"};
    const QDate sunday(2026, 3, 15);
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(days(series({{"RecrPattern", 1}, {QString::fromLatin1(columns[day]), 1}}), sunday, 7),
                  sunday.addDays(day).toString(QStringLiteral("M/d")))
            << columns[day];
}

TEST_F(Series, ADayThatAMonthLacksIsLeftOut) {
    const RecurringEvent event =
        series({{"RecrPattern", 2}, {"RecrMonthlyDay", 31}, {"RecrMonthlyMonths", 1}}, QDate(2026, 1, 31));
    EXPECT_EQ(days(event, QDate(2026, 1, 1), 160), QStringLiteral("1/31 3/31 5/31"));
}

TEST_F(Series, EveryThirdMonthCountsFromTheFirstDaysMonth) {
    const RecurringEvent event =
        series({{"RecrPattern", 2}, {"RecrMonthlyDay", 5}, {"RecrMonthlyMonths", 3}}, QDate(2026, 1, 20));
    EXPECT_EQ(days(event, QDate(2026, 1, 1), 370), QStringLiteral("4/5 7/5 10/5 1/5"));
}

TEST_F(Series, TheSecondTuesdayIsTheSecondAlsoOnTheFourteenth) {
    const RecurringEvent event =
        series({{"RecrPattern", 2}, {"RecrMonthlyScaleInd", 1}, {"RecrMonthlyScale", 2}, {"RecrMonthlyWeekday", 3}},
               QDate(2023, 1, 1));
    EXPECT_TRUE(isOn(event, QDate(2023, 3, 14)));
    EXPECT_FALSE(isOn(event, QDate(2023, 3, 7)));
    EXPECT_EQ(days(event, QDate(2023, 3, 1), 61), QStringLiteral("3/14 4/11"));
}

TEST_F(Series, TheLastFridayIsTheLastInMonthsOfFourAndOfFiveFridays) {
    const RecurringEvent event =
        series({{"RecrPattern", 2}, {"RecrMonthlyScaleInd", 1}, {"RecrMonthlyScale", 5}, {"RecrMonthlyWeekday", 6}},
               QDate(2026, 1, 1));
    EXPECT_EQ(days(event, QDate(2026, 1, 1), 181), QStringLiteral("1/30 2/27 3/27 4/24 5/29 6/26"));
}

TEST_F(Series, AYearlyDayComesEveryYearAndFebruary29InLeapYears) {
    EXPECT_EQ(days(series({{"RecrPattern", 3}, {"RecrYearlyMonth", 7}, {"RecrYearlyDay", 4}}), Wednesday, 800),
              QStringLiteral("7/4 7/4"));
    const RecurringEvent leap = series({{"RecrPattern", 3}, {"RecrYearlyMonth", 2}, {"RecrYearlyDay", 29}});
    EXPECT_EQ(days(leap, QDate(2027, 2, 1), 59), QString());
    EXPECT_EQ(days(leap, QDate(2028, 2, 1), 60), QStringLiteral("2/29"));
}

TEST_F(Series, AYearlyWeekdayIsNumberedInItsMonth) {
    const RecurringEvent event = series({{"RecrPattern", 3},
                                         {"RecrYearlyScaleInd", 1},
                                         {"RecrYearlyMonth", 11},
                                         {"RecrYearlyScale", 4},
                                         {"RecrYearlyWeekday", 5}});
    EXPECT_EQ(days(event, Wednesday, 700), QStringLiteral("11/26 11/25"));
}

TEST_F(Series, AScaleThatIsNoneHasNoDay) {
    for (const int scale : {0, 6, -1})
        EXPECT_EQ(days(series({{"RecrPattern", 2},
                               {"RecrMonthlyScaleInd", 1},
                               {"RecrMonthlyScale", scale},
                               {"RecrMonthlyWeekday", 4}}),
                       Wednesday, 60),
                  QString())
            << scale;
}

TEST_F(Series, AnIndicatorOtherThanOneIsOff) {
    EXPECT_EQ(days(series({{"RecrPattern", 1}, {"RecrWeeklyWedInd", 2}}), Wednesday, 14), QString());
    EXPECT_EQ(days(series({{"RecrPattern", 0}, {"RecrDailyWeekdayInd", 2}}), QDate(2026, 3, 14), 2),
              QStringLiteral("3/14 3/15"));
}

TEST_F(Series, APatternBeyondYearlyHasNoDay) {
    for (int pattern = 4; pattern <= 9; ++pattern)
        EXPECT_EQ(days(series({{"RecrPattern", pattern}, {"RecrWeeklyWedInd", 1}}), Wednesday, 30), QString())
            << pattern;
    EXPECT_EQ(days(series({{"RecrPattern", -1}}), Wednesday, 30), QString());
}

// The range.

TEST_F(Series, TheFirstAndTheLastDayBelongToIt) {
    const RecurringEvent event = series({{"RecrPattern", 0}}, Wednesday, Wednesday.addDays(2));
    EXPECT_EQ(days(event, Wednesday.addDays(-3), 9), QStringLiteral("3/11 3/12 3/13"));
}

TEST_F(Series, AFirstAndALastDayWithATimeAreTakenAsDays) {
    RecurringEvent event;
    ASSERT_TRUE(event.DBGetInfo(companion.connection(), add({{"RecrPattern", 0}}),
                                QStringLiteral("2026-03-11 09:30:00"), QStringLiteral("3/13/2026 9:30:00 AM"),
                                QString(), 0, 0));
    EXPECT_EQ(days(event, Wednesday.addDays(-3), 9), QStringLiteral("3/11 3/12 3/13"));
}

TEST_F(Series, WithoutALastDayItGoesOnForever) {
    const RecurringEvent event = series({{"RecrPattern", 0}});
    EXPECT_TRUE(isOn(event, Wednesday));
    EXPECT_TRUE(isOn(event, QDate(2126, 12, 31)));
    EXPECT_FALSE(isOn(event, Wednesday.addDays(-1)));
}

TEST_F(Series, ACountEndsNoSeries) {
    const RecurringEvent event = series({{"RecrPattern", 0}, {"RecrMaxEvents", 5}});
    EXPECT_EQ(event.RecrMaxEvents, 5);
    EXPECT_TRUE(isOn(event, Wednesday.addDays(5))) << "a sixth occurrence";
}

TEST_F(Series, ALastDayBeforeTheFirstLeavesNoDay) {
    EXPECT_EQ(days(series({{"RecrPattern", 0}}, Wednesday, Wednesday.addDays(-1)), Wednesday.addDays(-3), 9),
              QString());
}

TEST_F(Series, DaysThatAreNoDatesLeaveNoDay) {
    RecurringEvent event;
    const int key = add({{"RecrPattern", 0}});
    ASSERT_TRUE(event.DBGetInfo(companion.connection(), key, QString(), QString(), QString(), 0, 0));
    EXPECT_EQ(days(event, Wednesday, 7), QString());
    ASSERT_TRUE(event.DBGetInfo(companion.connection(), key, QStringLiteral("2026-03-11"), QStringLiteral("later"),
                                QString(), 0, 0));
    EXPECT_EQ(days(event, Wednesday, 7), QString());
}

// Exceptions.

TEST_F(Series, AnExceptionOfNobodyRemovesTheDayForEverybody) {
    const RecurringEvent event = series({{"RecrPattern", 0}});
    except(event.RecrId, Wednesday, nullptr);
    except(event.RecrId, Wednesday.addDays(1), 0);
    for (const int provider : {Reed, Lane}) {
        EXPECT_FALSE(isOn(event, Wednesday, provider));
        EXPECT_FALSE(isOn(event, Wednesday.addDays(1), provider));
        EXPECT_TRUE(isOn(event, Wednesday.addDays(2), provider));
    }
}

TEST_F(Series, AnotherProvidersExceptionLeavesTheDay) {
    const RecurringEvent event = series({{"RecrPattern", 0}});
    except(event.RecrId, Wednesday, Lane);
    EXPECT_TRUE(isOn(event, Wednesday, Reed));
    EXPECT_FALSE(isOn(event, Wednesday, Lane));
}

TEST_F(Series, AnotherSeriesExceptionLeavesTheDay) {
    const RecurringEvent event = series({{"RecrPattern", 0}});
    except(event.RecrId + 1, Wednesday, nullptr);
    EXPECT_TRUE(isOn(event, Wednesday));
}

TEST_F(Series, OnlyADayOfThePatternAsksForExceptionsAndOnlyOnce) {
    const RecurringEvent event = series({{"RecrPattern", 1}, {"RecrWeeklyWedInd", 1}}, Wednesday);
    const TripLog log;
    EXPECT_EQ(days(event, Wednesday.addDays(-8), 24), QStringLiteral("3/11 3/18 3/25"));
    ASSERT_EQ(log.sent().size(), 3);
    for (const char* date : {"03/11/2026", "03/18/2026", "03/25/2026"})
        EXPECT_EQ(
            log.sent()
                .filter(Sql(
                    "Select COUNT(*)FROM RecurringEventExceptions WHERE RecrId = {}  AND RExcDate = '{}' and (provID is null or provid = 0 or provid = 1) ",
                    event.RecrId, date))
                .size(),
            1)
            << date << log.sent().join(QLatin1Char('\n')).toStdString();
}

// Rows that are not as they should be.

TEST_F(Series, AnIntervalOfZeroIsAnErrorOfTheCaller) {
    const Row rows[] = {{{"RecrPattern", 0}, {"RecrDailyDays", 0}},
                        {{"RecrPattern", 1}, {"RecrWeeklyWeeks", 0}, {"RecrWeeklyWedInd", 1}},
                        {{"RecrPattern", 2}, {"RecrMonthlyMonths", 0}, {"RecrMonthlyDay", 11}}};
    for (const Row& row : rows) {
        const RecurringEvent event = series(row);
        for (int day = 0; day < 3; ++day) {
            try {
                static_cast<void>(isOn(event, Wednesday.addDays(day)));
                ADD_FAILURE() << event.RecrPattern;
            } catch (const db::DatabaseError& error) {
                EXPECT_EQ(error.number, 8134);
                EXPECT_EQ(error.description, QStringLiteral("Division by zero"));
            }
        }
        EXPECT_FALSE(isOn(event, Wednesday.addDays(-1))) << "before the first day nothing is divided";
    }
}

TEST_F(Series, AnIntervalOfZeroThatIsNotAskedForDoesNotMatter) {
    EXPECT_EQ(days(series({{"RecrPattern", 0}, {"RecrDailyWeekdayInd", 1}, {"RecrDailyDays", 0}}), Wednesday, 2),
              QStringLiteral("3/11 3/12"));
    EXPECT_EQ(days(series({{"RecrPattern", 3},
                           {"RecrMonthlyMonths", 0},
                           {"RecrDailyDays", 0},
                           {"RecrWeeklyWeeks", 0},
                           {"RecrYearlyDay", 12},
                           {"RecrYearlyMonth", 3}}),
                   Wednesday, 3),
              QStringLiteral("3/12"));
}

TEST_F(Series, WithoutARowThereIsNoDayAndNothingIsTold) {
    QWidget window;
    const NoticeBar bar(&window);
    RecurringEvent event;
    EXPECT_FALSE(
        event.DBGetInfo(companion.connection(), 4711, QStringLiteral("2026-03-11"), QString(), QString(), 1, 30));
    EXPECT_FALSE(event.Loaded);
    EXPECT_EQ(event.StartDate, QStringLiteral("2026-03-11"));
    EXPECT_EQ(event.AllDay, 1);
    EXPECT_EQ(event.Duration, 30);
    EXPECT_EQ(days(event, Wednesday, 7), QString());
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(Series, ARefusedReadShowsNoDayAndIsToldInTheBar) {
    QWidget window;
    const NoticeBar bar(&window);
    RecurringEvent event = series({{"RecrPattern", 0}});
    const QString name = DropTable(companion.connection(), QStringLiteral("RecurringEvents"));
    EXPECT_FALSE(event.DBGetInfo(companion.connection(), event.RecrId, QStringLiteral("2026-03-11"), QString(),
                                 QString(), 0, 0));
    EXPECT_FALSE(event.Loaded);
    EXPECT_EQ(days(event, Wednesday, 7), QString());
    ASSERT_EQ(bar.Texts().size(), 1);
    EXPECT_TRUE(
        bar.Texts().first().startsWith(QStringLiteral("A series of events could not be read and is not shown. ")));
    EXPECT_TRUE(bar.Texts().first().contains(name, Qt::CaseInsensitive)) << bar.Texts().first().toStdString();
}

TEST_F(Series, ARefusedLookForExceptionsIsTheCallersFailure) {
    const RecurringEvent event = series({{"RecrPattern", 1}, {"RecrWeeklyWedInd", 1}});
    DropTable(companion.connection(), QStringLiteral("RecurringEventExceptions"));
    EXPECT_THROW(static_cast<void>(isOn(event, Wednesday)), db::DatabaseError);
    EXPECT_FALSE(isOn(event, Wednesday.addDays(1))) << "a day outside the pattern asks for none";
}

TEST_F(Series, NothingOfAnEarlierSeriesStays) {
    RecurringEvent event = series({{"RecrPattern", 1}, {"RecrWeeklyWedInd", 1}, {"RecrMaxEvents", 3}});
    const int daily = add({{"RecrPattern", 0}});
    ASSERT_TRUE(
        event.DBGetInfo(companion.connection(), daily, QStringLiteral("2026-03-12"), QString(), QString(), 0, 0));
    EXPECT_EQ(event.RecrWeeklyWedInd, 0);
    EXPECT_EQ(event.RecrMaxEvents, 0);
    EXPECT_EQ(days(event, Wednesday, 3), QStringLiteral("3/12 3/13"));
    EXPECT_FALSE(
        event.DBGetInfo(companion.connection(), 4711, QStringLiteral("2026-03-12"), QString(), QString(), 0, 0));
    EXPECT_EQ(days(event, Wednesday, 3), QString());
}

TEST_F(Series, ANewOneHasItsDefaultsAndNoDay) {
    const RecurringEvent event;
    EXPECT_FALSE(event.Loaded);
    EXPECT_EQ(event.RecrDailyDays, 1);
    EXPECT_EQ(event.RecrDailyWeekdayInd, 0);
    EXPECT_EQ(event.RecrWeeklyWeeks, 1);
    EXPECT_EQ(event.RecrMonthlyScaleInd, 0);
    EXPECT_EQ(event.RecrMonthlyDay, 11);
    EXPECT_EQ(event.RecrMonthlyMonths, 1);
    EXPECT_EQ(event.RecrMonthlyScale, 1);
    EXPECT_EQ(event.RecrMonthlyWeekday, 2);
    EXPECT_EQ(event.RecrYearlyScaleInd, 0);
    EXPECT_EQ(event.RecrYearlyDay, 11);
    EXPECT_EQ(event.RecrYearlyMonth, 3);
    EXPECT_EQ(event.RecrYearlyScale, 1);
    EXPECT_EQ(event.RecrYearlyWeekday, 2);
    EXPECT_EQ(days(event, Wednesday, 7), QString());
}

TEST_F(Series, AColumnThatIsNullHoldsWhatANewOneHolds) {
    EXPECT_EQ(
        days(series({{"RecrPattern", 0}, {"RecrDailyDays", nullptr}, {"RecrDailyWeekdayInd", nullptr}}), Wednesday, 3),
        QStringLiteral("3/11 3/12 3/13"));
    Row weekly{{"RecrPattern", 1}, {"RecrWeeklyWeeks", nullptr}};
    for (const char* day : {"Mon", "Tue", "Thu", "Fri", "Sat", "Sun"})
        weekly.emplace_back(QStringLiteral("RecrWeekly%1Ind").arg(QLatin1String(day)), nullptr);
    weekly.emplace_back(QStringLiteral("RecrWeeklyWedInd"), 1);
    EXPECT_EQ(days(series(weekly), Wednesday, 10), QStringLiteral("3/11 3/18"));
    EXPECT_EQ(days(series({{"RecrPattern", 2},
                           {"RecrMonthlyMonths", nullptr},
                           {"RecrMonthlyScaleInd", 1},
                           {"RecrMonthlyScale", nullptr},
                           {"RecrMonthlyWeekday", nullptr}}),
                   Wednesday, 60),
              QStringLiteral("4/6 5/4"));
    EXPECT_EQ(days(series({{"RecrPattern", 3},
                           {"RecrYearlyScaleInd", 1},
                           {"RecrYearlyMonth", 4},
                           {"RecrYearlyScale", nullptr},
                           {"RecrYearlyWeekday", nullptr}}),
                   Wednesday, 60),
              QStringLiteral("4/6"));
}

TEST_F(Series, ADayAMonthOrAPatternThatIsNullFitsNoDate) {
    EXPECT_EQ(days(series({{"RecrPattern", nullptr}}), Wednesday, 40), QString());
    EXPECT_EQ(days(series({{"RecrPattern", 2}, {"RecrMonthlyDay", nullptr}}), Wednesday, 40), QString());
    EXPECT_EQ(days(series({{"RecrPattern", 3}, {"RecrYearlyMonth", nullptr}, {"RecrYearlyDay", 11}}), Wednesday, 40),
              QString());
    EXPECT_EQ(days(series({{"RecrPattern", 3}, {"RecrYearlyMonth", 3}, {"RecrYearlyDay", nullptr}}), Wednesday, 40),
              QString());
}

// A calendar of its own: it fills in the days of a series from the first on, as a person would with a pencil.

namespace {

struct Drawn {
    int pattern = 0;
    QDate first, last;  ///< last is invalid for a series without end.
    int every = 1;
    bool weekdays = false;
    std::array<bool, 7> marked{};  ///< From Sunday.
    bool numbered = false;         ///< "The second Tuesday" and not a day of the month.
    int day = 1, month = 1, scale = 1, weekday = 1;

    [[nodiscard]] Row row() const {
        Row row{{"RecrPattern", pattern}, {"RecrDailyWeekdayInd", weekdays ? 1 : 0}};
        for (const char* interval : {"RecrDailyDays", "RecrWeeklyWeeks", "RecrMonthlyMonths"})
            row.emplace_back(QLatin1String(interval), every);
        const char* const names[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
        for (std::size_t i = 0; i < 7; ++i)
            row.emplace_back(QStringLiteral("RecrWeekly%1Ind").arg(QLatin1String(names[i])), marked.at(i) ? 1 : 0);
        for (const char* kind : {"Monthly", "Yearly"}) {
            const QString name = QStringLiteral("Recr") + QLatin1String(kind);
            row.emplace_back(name + QStringLiteral("ScaleInd"), numbered ? 1 : 0);
            row.emplace_back(name + QStringLiteral("Day"), day);
            row.emplace_back(name + QStringLiteral("Scale"), scale);
            row.emplace_back(name + QStringLiteral("Weekday"), weekday);
        }
        row.emplace_back(QStringLiteral("RecrYearlyMonth"), month);
        row.emplace_back(QStringLiteral("RecrMaxEvents"), 1);
        return row;
    }
};

class Pencil {
  public:
    Pencil(const Drawn& drawn, QDate until) : drawn_(drawn), until_(until) {
        switch (drawn.pattern) {
            case 0:
                daily();
                break;
            case 1:
                weekly();
                break;
            case 2:
                for (QDate month = firstOfMonth(drawn.first); month <= until; month = month.addMonths(drawn.every))
                    ofMonth(month);
                break;
            case 3:
                for (int year = drawn.first.year(); year <= until.year(); ++year)
                    ofMonth(QDate(year, drawn.month, 1));
                break;
            default:
                break;
        }
    }
    [[nodiscard]] bool isOn(QDate date) const { return days_.contains(date); }

  private:
    static QDate firstOfMonth(QDate date) { return {date.year(), date.month(), 1}; }
    static int fromSunday(QDate date) { return date.dayOfWeek() == Qt::Sunday ? 0 : date.dayOfWeek(); }

    void mark(QDate date) {
        if (date.isValid() && date >= drawn_.first && (!drawn_.last.isValid() || date <= drawn_.last))
            days_.insert(date);
    }
    void daily() {
        for (QDate date = drawn_.first; date <= until_; date = date.addDays(drawn_.weekdays ? 1 : drawn_.every))
            if (!drawn_.weekdays || (date.dayOfWeek() != Qt::Saturday && date.dayOfWeek() != Qt::Sunday))
                mark(date);
    }
    void weekly() {
        for (QDate sunday = drawn_.first.addDays(-fromSunday(drawn_.first)); sunday <= until_;
             sunday = sunday.addDays(qint64{7} * drawn_.every))
            for (int day = 0; day < 7; ++day)
                if (drawn_.marked.at(static_cast<std::size_t>(day)))
                    mark(sunday.addDays(day));
    }
    void ofMonth(QDate first) {
        if (!drawn_.numbered)
            return mark(QDate(first.year(), first.month(), drawn_.day));
        std::vector<QDate> sameWeekday;
        for (QDate date = first; date.month() == first.month(); date = date.addDays(1))
            if (fromSunday(date) + 1 == drawn_.weekday)
                sameWeekday.push_back(date);
        mark(drawn_.scale == 5 ? sameWeekday.back() : sameWeekday.at(static_cast<std::size_t>(drawn_.scale - 1)));
    }

    Drawn drawn_;
    QDate until_;
    QSet<QDate> days_;
};

class Draw {
  public:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(source_); }
    bool chance(int percent) { return number(1, 100) <= percent; }

    Drawn series() {
        Drawn drawn;
        drawn.pattern = number(0, 4);
        drawn.first = QDate(2023, 1, 1).addDays(number(0, 1500));
        if (chance(50))
            drawn.last = drawn.first.addDays(number(0, 900));
        drawn.every = number(1, 6);
        drawn.weekdays = chance(30);
        for (bool& marked : drawn.marked)
            marked = chance(35);
        drawn.numbered = chance(60);
        drawn.day = number(1, 31);
        drawn.month = number(1, 12);
        drawn.scale = number(1, 5);
        drawn.weekday = number(1, 7);
        return drawn;
    }

  private:
    std::mt19937 source_{20260311};
};

}  // namespace

TEST_F(Series, AgreesWithACalendarFilledInByHand) {
    constexpr int Span = 45, Keys = 400;
    const int count = companion.isOnServer() ? 250 : 4000;
    Draw draw;
    std::vector<Drawn> drawn;
    std::vector<QSet<QDate>> removed(static_cast<std::size_t>(Keys) + 1);
    for (int key = 1; key <= Keys; ++key) {
        drawn.push_back(draw.series());
        add(drawn.back().row());
    }
    for (int i = 0; i < 4000; ++i) {
        const int key = draw.number(1, Keys);
        const QDate date = drawn[static_cast<std::size_t>(key - 1)].first.addDays(draw.number(0, 400));
        const int provider = draw.number(0, 3);
        except(key, date, provider == 3 ? db::Value() : db::Value(provider));
        if (provider != Lane)
            removed[static_cast<std::size_t>(key)].insert(date);
    }
    int on = 0;
    for (int i = 0; i < count; ++i) {
        const int key = i % Keys + 1;
        const Drawn& wanted = drawn[static_cast<std::size_t>(key - 1)];
        const QDate from = wanted.first.addDays(draw.number(-20, 500));
        const Pencil pencil(wanted, from.addDays(Span));
        const RecurringEvent event = read(key, wanted.first, wanted.last);
        for (int day = 0; day < Span; ++day) {
            const QDate date = from.addDays(day);
            const bool expected = pencil.isOn(date) && !removed[static_cast<std::size_t>(key)].contains(date);
            ASSERT_EQ(isOn(event, date), expected) << "series " << key << " of pattern " << wanted.pattern << " on "
                                                   << qPrintable(date.toString(Qt::ISODate));
            on += expected ? 1 : 0;
        }
    }
    EXPECT_GT(on, count);
}
