#include "session/preferences.h"

#include <gtest/gtest.h>

#include "session/session.h"
#include "tests/session/practice.h"
#include "tests/support/files.h"

namespace {

class Preferences : public testing::Test {
  protected:
    Preferences() {
        practice.connect();
        Session().UID = "ANNA";
    }
    [[nodiscard]] QString read(const char* detail) const {
        return GetPreference(Session().SchedulerIni, QString::fromLatin1(detail), "SchedulerGeneral", AllUsers);
    }
    void hours(const char* start, const char* end) {
        practice.sql("Delete From User_Preferences");
        practice.preference("ANNA", "SchedulerGeneral", "StartTime", QString::fromLatin1(start));
        practice.preference("ANNA", "SchedulerGeneral", "EndTime", QString::fromLatin1(end));
        getiniSettings();
    }

    Practice practice;
};

}  // namespace

TEST_F(Preferences, TheUsersOwnWinsOverTheOneForAll) {
    practice.preference("ANNA", "SchedulerGeneral", "TimeUnit", " 30 ");
    practice.preference("![ALL]!", "SchedulerGeneral", "TimeUnit", "60");
    practice.preference("BERT", "SchedulerGeneral", "TimeUnit", "5");

    EXPECT_EQ(read("TimeUnit"), "30");
}

TEST_F(Preferences, AUserWithoutOneGetsTheOneForAll) {
    practice.preference("![ALL]!", "SchedulerGeneral", "TimeUnit", "60");

    EXPECT_EQ(read("TimeUnit"), "60");
}

TEST_F(Preferences, WithoutAnyRowTheIniFileIsAsked) {
    PutFile(Session().SchedulerIni, "[SchedulerGeneral]\nTimeUnit=10\n");

    EXPECT_EQ(read("TimeUnit"), "10");
    EXPECT_EQ(read("StartTime"), "");
}

TEST_F(Preferences, WhenTheDatabaseIsAwayTheIniFileIsAsked) {
    PutFile(Session().SchedulerIni, "[SchedulerGeneral]\nTimeUnit=10\n");
    practice.preference("ANNA", "SchedulerGeneral", "TimeUnit", "30");
    Session().Connection.Close();

    EXPECT_EQ(read("TimeUnit"), "10");
}

TEST_F(Preferences, AnEmptyValueInARowIsAnAnswerAndNotTheIniFiles) {
    PutFile(Session().SchedulerIni, "[SchedulerGeneral]\nTimeUnit=10\n");
    practice.preference("ANNA", "SchedulerGeneral", "TimeUnit", "");

    EXPECT_EQ(read("TimeUnit"), "");
}

TEST_F(Preferences, ADeletedOneCountsAsGone) {
    practice.preference("ANNA", "SchedulerGeneral", "TimeUnit", "30");
    practice.preference("![ALL]!", "SchedulerGeneral", "TimeUnit", "60");
    practice.sql("Update User_Preferences Set UP_DateDeleted = '2026/01/01' Where UP_UserID = 'ANNA'");

    EXPECT_EQ(read("TimeUnit"), "60");
}

TEST_F(Preferences, WithoutAFallbackOnlyTheUsersOwnCounts) {
    practice.preference("![ALL]!", "Interface", "FontSize", "10");

    EXPECT_EQ(GetPreference({}, "FontSize", "Interface"), "");
    EXPECT_EQ(GetPreference({}, "FontSize", "Interface", {}, AllUsers), "10");
}

TEST_F(Preferences, ABlankDetailAsksForTheFirstOfTheCategory) {
    practice.preference("ANNA", "Interface", "FontSize", "10");
    practice.preference("ANNA", "Interface", "Sizing", "1");
    practice.sql("Update User_Preferences Set UP_OrderBy = 2 Where UP_Pref_Detail = 'FontSize'");
    practice.sql("Update User_Preferences Set UP_OrderBy = 1 Where UP_Pref_Detail = 'Sizing'");

    EXPECT_EQ(GetPreference({}, " ", "Interface"), "1");
}

TEST_F(Preferences, AnApostropheInTheUserIdFindsThatUser) {
    Session().UID = "O'BRIEN";
    practice.preference("O'BRIEN", "SchedulerGeneral", "TimeUnit", "5");

    EXPECT_EQ(read("TimeUnit"), "5");
}

TEST_F(Preferences, StoringTwiceKeepsOneRowThatTellsWhoAndWhen) {
    EXPECT_TRUE(SetPreference(" 30 ", "TimeUnit", "SchedulerGeneral"));
    EXPECT_EQ(practice.value("Select Count(*) From User_Preferences Where UP_DateModified is NULL"), "1");
    EXPECT_TRUE(SetPreference("60", "TimeUnit", "SchedulerGeneral"));

    EXPECT_EQ(practice.value("Select Count(*) From User_Preferences"), "1");
    EXPECT_EQ(practice.value("Select UP_PD_Value From User_Preferences Where UP_UserID = 'ANNA' AND UP_LastModUid = "
                             "'ANNA' AND UP_DateCreated is not NULL AND UP_DateModified is not NULL"),
              "60");
}

TEST_F(Preferences, BlanksAroundAValueAreNotStored) {
    EXPECT_TRUE(SetPreference(" 5 ", "WeekCols", "SchedulerGeneral"));
    EXPECT_EQ(practice.value("Select '<' + UP_PD_Value + '>' from User_Preferences Where UP_Pref_Detail = 'WeekCols'"),
              "<5>");
}

TEST_F(Preferences, StoringForAnotherUserIsStampedWithTheOneWhoDidIt) {
    EXPECT_TRUE(SetPreference("10", "FontSize", "Interface", AllUsers));

    EXPECT_EQ(practice.value("Select UP_UserID From User_Preferences Where UP_LastModUid = 'ANNA'"), "![ALL]!");
}

TEST_F(Preferences, AQuoteInAValueFailsSilentlyAndNothingElseBreaks) {
    ASSERT_TRUE(SetPreference("before", "eMailReminder", "SchedulerGeneral"));

    EXPECT_FALSE(SetPreference("Anna's reminder", "eMailReminder", "SchedulerGeneral"));
    EXPECT_FALSE(SetPreference("x', UP_UserID = 'BERT", "eMailReminder", "SchedulerGeneral"));
    EXPECT_FALSE(SetPreference("it's new", "Notice", "General"));

    EXPECT_EQ(read("eMailReminder"), "before");
    EXPECT_EQ(practice.value("Select Count(*) From User_Preferences"), "1");
    EXPECT_TRUE(SetPreference("after", "eMailReminder", "SchedulerGeneral"));
    EXPECT_EQ(read("eMailReminder"), "after");
}

TEST_F(Preferences, StoringWithoutADatabaseTellsOnlyTheCaller) {
    Session().Connection.Close();

    EXPECT_FALSE(SetPreference("30", "TimeUnit", "SchedulerGeneral"));
}

TEST_F(Preferences, TheSchedulersOwnAreReadIntoTheSession) {
    const std::pair<const char*, const char*> stored[] = {
        {"StartTime", "7"}, {"EndTime", "20"},        {"ShowNonPrime", "1"},     {"TaskRollOver", "True"},
        {"TimeUnit", "5"},  {"MilitaryTime", "True"}, {"eMailReminder", "Soon"}, {"WeekCols", "5"}};
    for (const auto& [detail, value] : stored)
        practice.preference("ANNA", "SchedulerGeneral", QString::fromLatin1(detail), QString::fromLatin1(value));

    getiniSettings();

    EXPECT_EQ(Session().DayStartHour, 7);
    EXPECT_EQ(Session().DayEndHour, 20);
    EXPECT_TRUE(Session().ShowNonPrime);
    EXPECT_TRUE(Session().TaskRollOver);
    EXPECT_EQ(Session().TimeUnit, 5);
    EXPECT_TRUE(Session().MilitaryTime);
    EXPECT_EQ(Session().EmailReminderText, "Soon");
}

TEST_F(Preferences, WordsThatAreNotQuiteTheOnesExpectedAreOff) {
    practice.preference("ANNA", "SchedulerGeneral", "ShowNonPrime", "yes");
    practice.preference("ANNA", "SchedulerGeneral", "TaskRollOver", "1");
    practice.preference("ANNA", "SchedulerGeneral", "MilitaryTime", "true");
    practice.preference("ANNA", "SchedulerGeneral", "TimeUnit", "7");

    getiniSettings();

    EXPECT_FALSE(Session().ShowNonPrime);
    EXPECT_FALSE(Session().TaskRollOver);
    EXPECT_FALSE(Session().MilitaryTime);
    EXPECT_EQ(Session().TimeUnit, 15);
}

TEST_F(Preferences, EveryUnitOfTheGridIsTaken) {
    for (const char* unit : {"5", "10", "15", "30", "60"}) {
        practice.sql("Delete From User_Preferences");
        practice.preference("ANNA", "SchedulerGeneral", "TimeUnit", QString::fromLatin1(unit));
        getiniSettings();
        EXPECT_EQ(Session().TimeUnit, QString::fromLatin1(unit).toInt());
    }
}

TEST_F(Preferences, HoursThatCannotBeMeantGiveADayFrom8To18) {
    const std::pair<const char*, const char*> wrong[] = {{"", ""},     {"early", "late"},    {"18", "8"},
                                                         {"9", "9"},   {"-1", "25"},         {"7.5", "x"},
                                                         {"23", "23"}, {"99999999999", "18"}};
    for (const auto& [start, end] : wrong) {
        hours(start, end);
        EXPECT_EQ(Session().DayStartHour, 8) << start;
        EXPECT_EQ(Session().DayEndHour, 18) << end;
    }
}

TEST_F(Preferences, OneWrongHourLeavesTheOther) {
    hours("10", "late");
    EXPECT_EQ(Session().DayStartHour, 10);
    EXPECT_EQ(Session().DayEndHour, 18);

    hours("early", "24");
    EXPECT_EQ(Session().DayStartHour, 8);
    EXPECT_EQ(Session().DayEndHour, 24);
}

TEST_F(Preferences, WithoutAReminderTextTheStandardOneIsStoredForTheUser) {
    getiniSettings();

    const QString standard = "This e-mail is to remind you of your appointment on [DATE] at [TIME] with [THERAPIST].";
    EXPECT_EQ(Session().EmailReminderText, standard);
    EXPECT_EQ(practice.value("Select UP_PD_Value From User_Preferences Where UP_UserID = 'ANNA' AND "
                             "UP_Pref_Category = 'SchedulerGeneral' AND UP_Pref_Detail = 'eMailReminder'"),
              standard);
}
