#include "data/recurrence.h"

#include <gtest/gtest.h>

#include <libical/ical.h>
#include <random>
#include <string>

namespace {

using Type = RecurrencePattern::Type;

const QDate Wednesday(2026, 3, 11);

RecurrencePattern startingOn(QDate date, Type type) {
    RecurrencePattern pattern;
    pattern.patternLoaded = true;
    pattern.startDate = date;
    pattern.recurType = type;
    return pattern;
}

/// The dates that RFC 5545 gives for a rule from a start date on, by another implementation.
std::vector<QDate> expandedElsewhere(const std::string& rule, QDate start, int most, QDate until) {
    icalrecurrencetype recurrence = icalrecurrencetype_from_string(rule.c_str());
    const icaltimetype from = icaltime_from_string(start.toString(QStringLiteral("yyyyMMdd")).toLatin1().constData());
    icalrecur_iterator* iterator = icalrecur_iterator_new(recurrence, from);
    std::vector<QDate> dates;
    while (iterator != nullptr && static_cast<int>(dates.size()) < most) {
        const icaltimetype next = icalrecur_iterator_next(iterator);
        const QDate date(next.year, next.month, next.day);
        if (icaltime_is_null_time(next) || date > until)
            break;
        dates.push_back(date);
    }
    icalrecur_iterator_free(iterator);
    return dates;
}

/// A random pattern and the same rule in the words of RFC 5545.
struct Drawn {
    RecurrencePattern pattern;
    std::string rule;
};

class Drawing {
  public:
    explicit Drawing(unsigned seed) : source_(seed) {}

    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(source_); }

    Drawn draw() {
        Drawn drawn;
        drawn.pattern = startingOn(QDate(2020, 1, 1).addDays(number(0, 4000)), static_cast<Type>(number(0, 3)));
        drawn.pattern.maxEvents = number(1, 60);
        switch (drawn.pattern.recurType) {
            case Type::Daily:
                daily(drawn);
                break;
            case Type::Weekly:
                weekly(drawn);
                break;
            case Type::Monthly:
                monthly(drawn);
                break;
            case Type::Yearly:
                yearly(drawn);
                break;
        }
        return drawn;
    }

  private:
    static constexpr const char* names[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

    void daily(Drawn& drawn) {
        drawn.pattern.dailyWeekdayOnly = number(0, 2) == 0;
        drawn.pattern.dailyDays = number(1, 40);
        drawn.rule = drawn.pattern.dailyWeekdayOnly ? "FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR"
                                                    : "FREQ=DAILY;INTERVAL=" + std::to_string(drawn.pattern.dailyDays);
    }
    void weekly(Drawn& drawn) {
        drawn.pattern.weeklyWeeks = number(1, 9);
        std::string days;
        for (std::size_t day = 0; day < 7; ++day) {
            drawn.pattern.weeklyDays[day] = number(0, 2) == 0;
            if (drawn.pattern.weeklyDays[day])
                days += std::string(days.empty() ? "" : ",") + names[day];
        }
        if (days.empty()) {
            drawn.pattern.weeklyDays[3] = true;
            days = "WE";
        }
        drawn.rule = "FREQ=WEEKLY;WKST=SU;INTERVAL=" + std::to_string(drawn.pattern.weeklyWeeks) + ";BYDAY=" + days;
    }
    /// "2TU", or "-1TU" for the last.
    std::string nth(int scale, int weekday) const {
        return std::to_string(scale == RecurrencePattern::Last ? -1 : scale) + names[weekday - 1];
    }
    void monthly(Drawn& drawn) {
        RecurrencePattern& pattern = drawn.pattern;
        pattern.monthlyMonths = number(1, 14);
        pattern.monthlyUseThe = number(0, 1) == 0;
        pattern.monthlyDay = number(1, 31);
        pattern.monthlyScale = number(1, 5);
        pattern.monthlyWeekday = number(1, 7);
        drawn.rule = "FREQ=MONTHLY;INTERVAL=" + std::to_string(pattern.monthlyMonths) +
                     (pattern.monthlyUseThe ? ";BYDAY=" + nth(pattern.monthlyScale, pattern.monthlyWeekday)
                                            : ";BYMONTHDAY=" + std::to_string(pattern.monthlyDay));
    }
    void yearly(Drawn& drawn) {
        RecurrencePattern& pattern = drawn.pattern;
        pattern.yearlyUseThe = number(0, 1) == 0;
        pattern.yearlyMonth = number(1, 12);
        pattern.yearlyDay = number(1, 31);
        pattern.yearlyScale = number(1, 5);
        pattern.yearlyWeekday = number(1, 7);
        drawn.rule = "FREQ=YEARLY;BYMONTH=" + std::to_string(pattern.yearlyMonth) +
                     (pattern.yearlyUseThe ? ";BYDAY=" + nth(pattern.yearlyScale, pattern.yearlyWeekday)
                                           : ";BYMONTHDAY=" + std::to_string(pattern.yearlyDay));
    }

    std::mt19937 source_;
};

}  // namespace

TEST(Recurrence, GivesTheDatesThatAnotherImplementationGivesForThousandsOfPatterns) {
    Drawing drawing(20260311);
    for (int i = 0; i < 4000; ++i) {
        const Drawn drawn = drawing.draw();
        const QDate until = drawn.pattern.startDate.addDays(5000);
        const std::vector<QDate> expected =
            expandedElsewhere(drawn.rule, drawn.pattern.startDate, drawn.pattern.maxEvents, until);
        ASSERT_EQ(BRGetDateStream(drawn.pattern), expected)
            << drawn.rule << " from " << drawn.pattern.startDate.toString(Qt::ISODate).toStdString();
    }
}

TEST(Recurrence, WithoutALoadedPatternEveryDateIsOutside) {
    RecurrencePattern pattern = startingOn(Wednesday, Type::Daily);
    EXPECT_TRUE(IsDateInSeries(pattern, Wednesday));
    pattern.patternLoaded = false;
    EXPECT_FALSE(IsDateInSeries(pattern, Wednesday));
}

TEST(Recurrence, AWeekWithNoDayTickedGivesNoDates) {
    EXPECT_TRUE(BRGetDateStream(startingOn(Wednesday, Type::Weekly)).empty());
}

TEST(Recurrence, DayThirtyOneSkipsTheShortMonths) {
    RecurrencePattern pattern = startingOn(QDate(2026, 1, 1), Type::Monthly);
    pattern.monthlyDay = 31;
    pattern.maxEvents = 4;
    EXPECT_EQ(BRGetDateStream(pattern),
              (std::vector<QDate>{QDate(2026, 1, 31), QDate(2026, 3, 31), QDate(2026, 5, 31), QDate(2026, 7, 31)}));
}

TEST(Recurrence, AnEndAfterThreeCountsOnlyDatesThatFit) {
    RecurrencePattern pattern = startingOn(Wednesday, Type::Weekly);
    pattern.weeklyDays[5] = true;  // Fridays; the series starts on a Wednesday.
    pattern.maxEvents = 3;
    EXPECT_EQ(BRGetDateStream(pattern),
              (std::vector<QDate>{QDate(2026, 3, 13), QDate(2026, 3, 20), QDate(2026, 3, 27)}));
}

TEST(Recurrence, TheStartCountsWhereItFits) {
    RecurrencePattern pattern = startingOn(Wednesday, Type::Weekly);
    pattern.weeklyDays[3] = true;
    pattern.maxEvents = 2;
    EXPECT_EQ(BRGetDateStream(pattern), (std::vector<QDate>{Wednesday, Wednesday.addDays(7)}));
}

TEST(Recurrence, WithoutAnyEndItStopsAfterFiveThousandDays) {
    const std::vector<QDate> dates = BRGetDateStream(startingOn(Wednesday, Type::Daily));
    EXPECT_EQ(dates.size(), 5001U);
    EXPECT_EQ(dates.back(), Wednesday.addDays(5000));
}

TEST(Recurrence, AnEndDateIsTheLastDateThatCounts) {
    RecurrencePattern pattern = startingOn(Wednesday, Type::Daily);
    pattern.endDate = Wednesday.addDays(3);
    EXPECT_EQ(BRGetDateStream(pattern).size(), 4U);
    EXPECT_FALSE(IsDateInSeries(pattern, Wednesday.addDays(4)));
}

TEST(Recurrence, AnEndBeforeTheStartGivesNothing) {
    RecurrencePattern pattern = startingOn(Wednesday, Type::Daily);
    pattern.endDate = Wednesday.addDays(-1);
    EXPECT_TRUE(BRGetDateStream(pattern).empty());
}

TEST(Recurrence, WithoutAStartThereIsNoSeries) {
    EXPECT_TRUE(BRGetDateStream(startingOn(QDate(), Type::Daily)).empty());
}

TEST(Recurrence, TheLastFridayIsFoundInMonthsOfAnyLength) {
    RecurrencePattern pattern = startingOn(QDate(2026, 1, 1), Type::Monthly);
    pattern.monthlyUseThe = true;
    pattern.monthlyScale = RecurrencePattern::Last;
    pattern.monthlyWeekday = 6;
    pattern.maxEvents = 3;
    EXPECT_EQ(BRGetDateStream(pattern),
              (std::vector<QDate>{QDate(2026, 1, 30), QDate(2026, 2, 27), QDate(2026, 3, 27)}));
}

TEST(Recurrence, TheFebruaryTwentyNinthComesInLeapYearsOnly) {
    RecurrencePattern pattern = startingOn(QDate(2026, 1, 1), Type::Yearly);
    pattern.yearlyMonth = 2;
    pattern.yearlyDay = 29;
    EXPECT_EQ(BRGetDateStream(pattern),
              (std::vector<QDate>{QDate(2028, 2, 29), QDate(2032, 2, 29), QDate(2036, 2, 29)}));
}

// An interval of 0 has no meaning in RFC 5545 either; here it fits nothing, so that a half-filled form previews
// nothing.
TEST(Recurrence, AnIntervalBelowOneFitsNoDate) {
    for (const Type type : {Type::Daily, Type::Weekly, Type::Monthly}) {
        RecurrencePattern pattern = startingOn(Wednesday, type);
        pattern.weeklyDays.fill(true);
        pattern.monthlyDay = 11;
        pattern.dailyDays = pattern.weeklyWeeks = pattern.monthlyMonths = 0;
        EXPECT_TRUE(BRGetDateStream(pattern).empty());
    }
}

TEST(Recurrence, WeeksBeginOnSunday) {
    RecurrencePattern pattern = startingOn(QDate(2026, 3, 14), Type::Weekly);  // A Saturday.
    pattern.weeklyWeeks = 2;
    pattern.weeklyDays[0] = true;
    pattern.maxEvents = 1;
    // The next day begins another week, which is skipped.
    EXPECT_EQ(BRGetDateStream(pattern), std::vector<QDate>{QDate(2026, 3, 22)});
}
