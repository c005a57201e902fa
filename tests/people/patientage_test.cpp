#include "people/patientage.h"

#include <gtest/gtest.h>

#include "tests/support/scripteddesk.h"

namespace {

std::int16_t ageOn(QDate today, QDate born) {
    ScriptedDesk desk;
    desk.setNow(today.startOfDay());
    return AgeInYears(born);
}

}  // namespace

TEST(PatientAge, IsTheDaysLessTheLeapDaysInYearsOf365Days) {
    EXPECT_EQ(ageOn(QDate(2026, 3, 11), QDate(1986, 3, 11)), 40);
    EXPECT_EQ(ageOn(QDate(2026, 3, 11), QDate(1986, 3, 12)), 39);
    EXPECT_EQ(ageOn(QDate(2026, 3, 11), QDate(2025, 3, 12)), 0);
    EXPECT_EQ(ageOn(QDate(2026, 3, 11), QDate(2025, 3, 11)), 1);
}

TEST(PatientAge, MayTurnADayBesideTheBirthday) {
    // Three calendar years hold no fourth part, though a leap day lies between.
    EXPECT_EQ(ageOn(QDate(2026, 3, 10), QDate(2023, 3, 11)), 3);
}

TEST(PatientAge, OfAHundredYearsAndMore) {
    EXPECT_EQ(ageOn(QDate(2026, 3, 11), QDate(1920, 1, 1)), 106);
}

TEST(PatientAge, IsNoneOnTheDayOfBirthBeforeItAndWithoutADate) {
    EXPECT_EQ(ageOn(QDate(2026, 3, 11), QDate(2026, 3, 11)), 0);
    EXPECT_EQ(ageOn(QDate(2026, 3, 11), QDate(2027, 3, 11)), 0);
    EXPECT_EQ(ageOn(QDate(2026, 3, 11), QDate()), 0);
}
