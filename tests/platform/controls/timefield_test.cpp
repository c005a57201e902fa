#include "platform/controls/timefield.h"

#include <gtest/gtest.h>

namespace {

constexpr TimeForm Twelve{};
constexpr TimeForm TwentyFour{.twentyFourHour = true};
constexpr TimeForm End{.isEnd = true};
constexpr int Nothing = -1;

struct Entry {
    const char* typed;
    int twelveHour;
    int twentyFourHour;
};

constexpr int at(int hour, int minute = 0) {
    return hour * 60 + minute;
}

class TimeEntries : public testing::TestWithParam<Entry> {};

}  // namespace

TEST_P(TimeEntries, AreReadAsTheDeskMeansThem) {
    const Entry& entry = GetParam();
    const QString typed = QString::fromLatin1(entry.typed);
    EXPECT_EQ(ReadTime(typed, Twelve).value_or(Nothing), entry.twelveHour) << entry.typed;
    EXPECT_EQ(ReadTime(typed, TwentyFour).value_or(Nothing), entry.twentyFourHour) << entry.typed;
}

INSTANTIATE_TEST_SUITE_P(Hours, TimeEntries,
                         testing::Values(Entry{"9", at(9), at(9)}, Entry{"14", at(14), at(14)},
                                         Entry{"9a", at(9), at(9)}, Entry{"9 p.m.", at(21), at(21)},
                                         Entry{"9P", at(21), at(21)}, Entry{"12", at(12), at(12)}, Entry{"12a", 0, 0},
                                         Entry{"12p", at(12), at(12)}, Entry{"0", 0, 0}, Entry{"24", 1440, 1440},
                                         Entry{"14p", at(14), at(14)}, Entry{"14a", Nothing, Nothing},
                                         Entry{"25", Nothing, Nothing}));

INSTANTIATE_TEST_SUITE_P(HoursAndMinutes, TimeEntries,
                         testing::Values(Entry{"930", at(9, 30), at(9, 30)}, Entry{"9:30", at(9, 30), at(9, 30)},
                                         Entry{"9.30p", at(21, 30), at(21, 30)}, Entry{"9 30", at(9, 30), at(9, 30)},
                                         Entry{" 9:30 PM ", at(21, 30), at(21, 30)},
                                         Entry{"1430", at(14, 30), at(14, 30)}, Entry{"0930", at(9, 30), at(9, 30)},
                                         Entry{"9:05", at(9, 5), at(9, 5)}, Entry{"9:5", at(9, 5), at(9, 5)},
                                         Entry{"9.5", Nothing, Nothing}, Entry{"09:30:00", at(9, 30), at(9, 30)},
                                         Entry{"24:00", 1440, 1440}, Entry{"24:01", Nothing, Nothing},
                                         Entry{"9:60", Nothing, Nothing}, Entry{"2400", 1440, 1440},
                                         Entry{"0:59 PM", at(12, 59), at(12, 59)}, Entry{"12:59 AM", 59, 59}));

INSTANTIATE_TEST_SUITE_P(AfternoonHoursWithoutPm, TimeEntries,
                         testing::Values(Entry{"1", at(13), at(1)}, Entry{"2", at(14), at(2)},
                                         Entry{"230", at(14, 30), at(2, 30)}, Entry{"6:45", at(18, 45), at(6, 45)},
                                         Entry{"7", at(7), at(7)}, Entry{"0530", at(5, 30), at(5, 30)},
                                         Entry{"05:30", at(5, 30), at(5, 30)}, Entry{"5a", at(5), at(5)}));

INSTANTIATE_TEST_SUITE_P(Words, TimeEntries,
                         testing::Values(Entry{"noon", 720, 720}, Entry{"Noon", 720, 720}, Entry{"mid", 0, 0},
                                         Entry{"Midnight", 0, 0}, Entry{"12:00 Noon", 720, 720},
                                         Entry{"12:00 Mid", 0, 0}, Entry{"9 noon", Nothing, Nothing},
                                         Entry{"12:30 Mid", Nothing, Nothing}));

INSTANTIATE_TEST_SUITE_P(NoTimes, TimeEntries,
                         testing::Values(Entry{"", Nothing, Nothing}, Entry{"  ", Nothing, Nothing},
                                         Entry{"soon", Nothing, Nothing}, Entry{"9:30x", Nothing, Nothing},
                                         Entry{"-9", Nothing, Nothing}, Entry{"12345", Nothing, Nothing},
                                         Entry{"9:30 10:00", Nothing, Nothing}, Entry{"9::30", Nothing, Nothing},
                                         Entry{"p", Nothing, Nothing}, Entry{"1e1", Nothing, Nothing}));

TEST(TimeField, EveryMinuteOfTheDayIsReadBackFromItsText) {
    for (const bool twentyFourHour : {false, true})
        for (const bool isEnd : {false, true})
            for (int minutes = 0; minutes <= 1440; ++minutes) {
                const TimeForm form{twentyFourHour, isEnd};
                const QString text = TimeFieldText(minutes, form);
                ASSERT_EQ(ReadTime(text, form), minutes) << qPrintable(text);
                ASSERT_EQ(ReadTime(text.toLower().remove(QLatin1Char(' ')), form), minutes) << qPrintable(text);
            }
}

TEST(TimeField, EveryTextOfFourDigitsIsATimeExactlyWhenAClockShowsIt) {
    for (int digits = 0; digits < 10000; ++digits) {
        const QString text = QStringLiteral("%1").arg(digits, 4, 10, QLatin1Char('0'));
        const int minutes = digits / 100 * 60 + digits % 100;
        const bool shown = digits % 100 < 60 && minutes <= 1440;
        ASSERT_EQ(ReadTime(text, TwentyFour).value_or(Nothing), shown ? minutes : Nothing) << qPrintable(text);
    }
}

TEST(TimeField, MidnightNamedInAnEndFieldEndsTheDay) {
    EXPECT_EQ(ReadTime(QStringLiteral("mid"), End), 1440);
    EXPECT_EQ(ReadTime(QStringLiteral("12:00 Mid"), End), 1440);
    EXPECT_EQ(ReadTime(QStringLiteral("12a"), End), 0);
    EXPECT_EQ(TimeFieldText(1440, End), QStringLiteral("12:00 Mid"));
}

TEST(TimeField, TimesAreShownInTheSettingOfTheSession) {
    EXPECT_EQ(TimeFieldText(545, Twelve), QStringLiteral("9:05 AM"));
    EXPECT_EQ(TimeFieldText(720, Twelve), QStringLiteral("12:00 PM"));
    EXPECT_EQ(TimeFieldText(779, Twelve), QStringLiteral("12:59 PM"));
    EXPECT_EQ(TimeFieldText(0, Twelve), QStringLiteral("12:00 AM"));
    EXPECT_EQ(TimeFieldText(545, TwentyFour), QStringLiteral("09:05"));
    EXPECT_EQ(TimeFieldText(1440, TwentyFour), QStringLiteral("24:00"));
}

TEST(TimeField, ANumberThatIsNoMinuteOfTheDayHasNoText) {
    EXPECT_TRUE(TimeFieldText(-1, Twelve).isEmpty());
    EXPECT_TRUE(TimeFieldText(1441, Twelve).isEmpty());
}
