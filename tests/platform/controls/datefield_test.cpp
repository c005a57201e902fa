#include "platform/controls/datefield.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace {

const QDate Today21(2026, 11, 21);  // A Saturday.
constexpr auto MonthFirst = DateOrder::MonthFirst;
constexpr auto DayFirst = DateOrder::DayFirst;
constexpr auto YearFirst = DateOrder::YearFirst;

struct DateEntry {
    const char* typed;
    DateOrder order;
    const char* expected;  ///< yyyy-mm-dd, empty for none.
};

QString read(const QString& typed, DateOrder order, QDate today = Today21) {
    const std::optional<QDate> date = ReadDate(typed, order, today);
    return date ? date->toString(Qt::ISODate) : QString();
}

class DateEntries : public testing::TestWithParam<DateEntry> {};

}  // namespace

TEST_P(DateEntries, AreReadInTheOrderOfTheSession) {
    const DateEntry& entry = GetParam();
    EXPECT_EQ(read(QString::fromLatin1(entry.typed), entry.order), QLatin1String(entry.expected)) << entry.typed;
}

INSTANTIATE_TEST_SUITE_P(
    FromToday, DateEntries,
    testing::Values(DateEntry{"t", MonthFirst, "2026-11-21"}, DateEntry{"Today", DayFirst, "2026-11-21"},
                    DateEntry{"+1", MonthFirst, "2026-11-22"}, DateEntry{"-3", MonthFirst, "2026-11-18"},
                    DateEntry{"+2w", MonthFirst, "2026-12-05"}, DateEntry{"+ 2 W", YearFirst, "2026-12-05"},
                    DateEntry{"t+10d", MonthFirst, "2026-12-01"}, DateEntry{"+3m", DayFirst, "2027-02-21"},
                    DateEntry{"-1y", MonthFirst, "2025-11-21"}, DateEntry{"+", MonthFirst, ""},
                    DateEntry{"+2q", MonthFirst, ""}, DateEntry{"+9999y", MonthFirst, ""}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, DateEntries,
    testing::Values(DateEntry{"12/3", MonthFirst, "2026-12-03"}, DateEntry{"12/3", DayFirst, "2027-03-12"},
                    DateEntry{"12/3", YearFirst, "2026-12-03"}, DateEntry{"12/3/26", MonthFirst, "2026-12-03"},
                    DateEntry{"3.12.26", DayFirst, "2026-12-03"}, DateEntry{"26-12-3", YearFirst, "2026-12-03"},
                    DateEntry{"12 3 2026", MonthFirst, "2026-12-03"}, DateEntry{"2026-12-03", MonthFirst, "2026-12-03"},
                    DateEntry{"2026-12-03", DayFirst, "2026-12-03"}, DateEntry{"2026/12/3", YearFirst, "2026-12-03"},
                    DateEntry{"1203", MonthFirst, "2026-12-03"}, DateEntry{"120326", MonthFirst, "2026-12-03"},
                    DateEntry{"03122026", DayFirst, "2026-12-03"}, DateEntry{"20261203", YearFirst, "2026-12-03"}));

INSTANTIATE_TEST_SUITE_P(
    MonthsByName, DateEntries,
    testing::Values(DateEntry{"3 dec", MonthFirst, "2026-12-03"}, DateEntry{"dec 3", DayFirst, "2026-12-03"},
                    DateEntry{"3dec26", MonthFirst, "2026-12-03"}, DateEntry{"3-Dec-2026", YearFirst, "2026-12-03"},
                    DateEntry{"Dec 3, 2026", MonthFirst, "2026-12-03"},
                    DateEntry{"December 3rd, 2026", MonthFirst, "2026-12-03"},
                    DateEntry{"sept. 1 27", MonthFirst, "2027-09-01"}, DateEntry{"26 dec 3", YearFirst, "2026-12-03"},
                    DateEntry{"2026 dec 3", MonthFirst, "2026-12-03"}, DateEntry{"ju 3", MonthFirst, ""},
                    DateEntry{"dec", MonthFirst, ""}, DateEntry{"dec 2026", MonthFirst, ""},
                    DateEntry{"3 dec jan", MonthFirst, ""}));

INSTANTIATE_TEST_SUITE_P(Weekdays, DateEntries,
                         testing::Values(DateEntry{"Thu, Dec 3, 2026", MonthFirst, "2026-12-03"},
                                         DateEntry{"thursday 12/3", MonthFirst, "2026-12-03"},
                                         DateEntry{"Fri, Dec 3, 2026", MonthFirst, ""},
                                         DateEntry{"thu", MonthFirst, ""}));

INSTANTIATE_TEST_SUITE_P(NoDates, DateEntries,
                         testing::Values(DateEntry{"", MonthFirst, ""}, DateEntry{"someday", MonthFirst, ""},
                                         DateEntry{"13/3/2026", MonthFirst, ""}, DateEntry{"12/25/2026", DayFirst, ""},
                                         DateEntry{"2/29/2027", MonthFirst, ""}, DateEntry{"12/3/2026", YearFirst, ""},
                                         DateEntry{"12/3/6", MonthFirst, ""}, DateEntry{"12/3/026", MonthFirst, ""},
                                         DateEntry{"1/1/1752", MonthFirst, ""}, DateEntry{"15", MonthFirst, ""},
                                         DateEntry{"12//3", MonthFirst, ""}, DateEntry{"12/3/26/1", MonthFirst, ""},
                                         DateEntry{"-", MonthFirst, ""}, DateEntry{"th", MonthFirst, ""}));

TEST(DateField, EveryDateOfManyYearsIsReadBackFromItsTextInEachOrder) {
    for (const DateOrder order : {MonthFirst, DayFirst, YearFirst})
        for (QDate date(1940, 1, 1); date.year() < 2070; date = date.addDays(5)) {
            const QString text = DateFieldText(date, order);
            ASSERT_EQ(ReadDate(text, order, Today21), date) << qPrintable(text);
            ASSERT_EQ(ReadDate(date.toString(Qt::ISODate), order, Today21), date);
            const QString named = QLocale::c().toString(date, QStringLiteral("ddd, MMM d, yyyy"));
            ASSERT_EQ(ReadDate(named, order, Today21), date) << qPrintable(named);
        }
}

TEST(DateField, ADateWithoutYearIsNeverMoreThanSixMonthsGoneNorAYearAhead) {
    for (QDate today(2024, 1, 1); today.year() < 2028; today = today.addDays(13))
        for (QDate date(2025, 1, 1); date.year() == 2025; date = date.addDays(1)) {
            const std::optional<QDate> read = ReadDate(date.toString(QStringLiteral("M/d")), MonthFirst, today);
            ASSERT_TRUE(read);
            ASSERT_EQ(std::pair(read->month(), read->day()), std::pair(date.month(), date.day()));
            ASSERT_GE(*read, today.addMonths(-6));
            ASSERT_LE(read->year(), today.year() + 1);
            ASSERT_LE(*read, today.addYears(1));
        }
}

TEST(DateField, TheLeapDayWithoutYearIsTheOneOfThisYearOrTheNext) {
    EXPECT_EQ(read(QStringLiteral("2/29"), MonthFirst, QDate(2027, 11, 1)), QStringLiteral("2028-02-29"));
    EXPECT_EQ(read(QStringLiteral("2/29"), MonthFirst, QDate(2026, 11, 1)), QString());
}

TEST(DateField, TwoDigitsOfAYearReachTwentyYearsAhead) {
    EXPECT_EQ(read(QStringLiteral("1/2/46"), MonthFirst), QStringLiteral("2046-01-02"));
    EXPECT_EQ(read(QStringLiteral("1/2/47"), MonthFirst), QStringLiteral("1947-01-02"));
    EXPECT_EQ(read(QStringLiteral("1/2/00"), MonthFirst), QStringLiteral("2000-01-02"));
}

TEST(DateField, InThePastTwoDigitsOfAYearAndADateWithoutYearAreNotAfterToday) {
    const QDate today(2026, 3, 11);
    const auto past = [&](const char* typed) {
        return ReadDate(QString::fromLatin1(typed), MonthFirst, today, YearReading::Past);
    };
    EXPECT_EQ(past("5/6/40"), QDate(1940, 5, 6));
    EXPECT_EQ(past("3/11/26"), today);
    EXPECT_EQ(past("3/12/26"), QDate(1926, 3, 12));
    EXPECT_EQ(past("2/29/24"), QDate(2024, 2, 29));
    EXPECT_EQ(past("3/12/2026"), QDate(2026, 3, 12));
    EXPECT_EQ(past("3/11"), today);
    EXPECT_EQ(past("dec 3"), QDate(2025, 12, 3));
    EXPECT_EQ(past("2/30/80"), std::nullopt);
}

TEST(DateField, MonthsAreReadInTheLanguageOfTheComputerToo) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(read(QStringLiteral("3. Dez 2026"), DayFirst), QStringLiteral("2026-12-03"));
    EXPECT_EQ(read(QStringLiteral("3 dec 2026"), DayFirst), QStringLiteral("2026-12-03"));
    EXPECT_EQ(read(QString::fromUtf8("5 m\u00e4rz 2027"), DayFirst), QStringLiteral("2027-03-05"));
    QLocale::setDefault(before);
}

TEST(DateField, AnInvalidDateHasNoText) {
    EXPECT_TRUE(DateFieldText(QDate(), MonthFirst).isEmpty());
}
