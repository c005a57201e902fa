#include "session/lastplace.h"

#include "tests/session/startupfixture.h"
#include "tests/support/triplog.h"

namespace {

/// A user of all schedules, and two others.
class ReturningUser : public StartingUp {
  protected:
    ReturningUser() {
        practice.sql("Update passwords Set pswd_screen_access = '000012006'");
        practice.addUser("LANE", "Lane", 1, "000012003");
    }
    void left(const char* view, const char* provider) {
        practice.preference("ANNA", "Scheduler", "LastView", view);
        practice.preference("ANNA", "Scheduler", "LastProvider", provider);
    }
    QString opened() { return window.calls.filter("return to").join("; "); }
};

}  // namespace

TEST_F(ReturningUser, GoesOnToTheViewAndTheProviderLeftLastWhenAllThatIsToldIsDone) {
    left("2", "LANE");

    ASSERT_TRUE(start());

    const QStringList expected{"panels Adler/Adler", "task pane ",  "ready 2026-03-11", "link",
                               "panels Adler/Lane",  "return to 2", "day view 1"};
    EXPECT_EQ(window.calls.mid(window.calls.indexOf("panels Adler/Adler")), expected);
    EXPECT_EQ(Session().ProviderId, "LANE");
    EXPECT_EQ(Session().UserName, "Adler");
}

TEST_F(ReturningUser, AProviderWhoIsGoneArchivedOrNotOfferedIsPassedOver) {
    left("2", "LANE");
    for (const char* change : {"Update provider_info Set archive = 1 Where id = 'LANE'",
                               "Update provider_info Set archive = 0, ExcludeFromScheduler = 1 Where id = 'LANE'",
                               "Delete from provider_info Where id = 'LANE'"}) {
        practice.sql(QString::fromLatin1(change));
        ResetSession();
        window.calls.clear();
        ASSERT_TRUE(start());
        EXPECT_EQ(Session().ProviderId, "ANNA") << change;
        EXPECT_EQ(opened(), "return to 2") << change;
    }
}

TEST_F(ReturningUser, WhoLostTheRightToAllSchedulesReturnsToTheOwn) {
    left("1", "LANE");
    practice.sql("Update passwords Set pswd_screen_access = '000012003' Where pswd_user_id = 'ANNA'");

    ASSERT_TRUE(start());

    EXPECT_EQ(Session().ProviderId, "ANNA");
    EXPECT_EQ(opened(), "return to 1");
}

TEST_F(ReturningUser, RubbishIsPassedOver) {
    for (const char* view : {"99", "-1", "0", "day", "2.5", "", "4|LANE", "99999999999999999999"}) {
        practice.sql("Delete From User_Preferences");
        left(view, "' or 'a'='a");
        ResetSession();
        window.calls.clear();
        ASSERT_TRUE(start());
        EXPECT_EQ(opened(), "") << view;
        EXPECT_EQ(Session().ProviderId, "ANNA");
    }
}

TEST_F(ReturningUser, AStartForAViewOrADateStaysThere) {
    left("2", "LANE");

    ASSERT_TRUE(StartUp("1|ANNA", {practice.path(), practice.file("installation.ini"), false}, window));

    EXPECT_EQ(opened(), "");
    EXPECT_EQ(Session().ProviderId, "ANNA");
}

TEST_F(ReturningUser, TheFirstStartOfWhoIsOfferedToNobodyGoesToAllProviders) {
    practice.sql("Update provider_info Set ExcludeFromScheduler = 1 Where id = 'ANNA'");

    ASSERT_TRUE(start());

    EXPECT_EQ(opened(), "return to 4");
    EXPECT_EQ(window.calls.last(), "day view 1") << "Start-up itself goes on as ever.";
}

TEST_F(ReturningUser, TheFirstStartOfAnyoneElseShowsTheDay) {
    ASSERT_TRUE(start());
    EXPECT_EQ(opened(), "");
    EXPECT_EQ(window.calls.last(), "day view 1");

    practice.sql("Update provider_info Set ExcludeFromScheduler = 1 Where id = 'ANNA'");
    practice.sql("Update passwords Set pswd_screen_access = '000012003' Where pswd_user_id = 'ANNA'");
    ResetSession();
    ASSERT_TRUE(start());
    EXPECT_EQ(opened(), "") << "All providers need the right to them.";
}

TEST_F(ReturningUser, AnAdministratorKeepsTheScheduleJustChosen) {
    practice.addLogin("ADMIN", 2, "");
    practice.preference("ADMIN", "Scheduler", "LastView", "3");
    practice.preference("ADMIN", "Scheduler", "LastProvider", "LANE");
    window.chosenId = "ANNA";

    ASSERT_TRUE(start("2|ADMIN"));

    EXPECT_EQ(Session().ProviderId, "ANNA");
    EXPECT_EQ(opened(), "return to 3");
}

TEST_F(ReturningUser, WhatIsKeptIsReadWithTheRestOfTheStart) {
    left("2", "LANE");
    practice.preference("ANNA", "SchedulerGeneral", "eMailReminder", "text");
    const auto tripsOf = [&](bool returns) {
        ResetSession();
        const TripLog trips;
        EXPECT_TRUE(StartUp("1|ANNA", {practice.path(), practice.file("installation.ini"), returns}, window));
        return trips.sent().size();
    };
    const auto without = tripsOf(false);
    EXPECT_EQ(tripsOf(true), without);
}

TEST_F(ReturningUser, WhatWasKeptLastIsFoundAgain) {
    practice.addUser("O'NEIL", "O'Neil", 1, "000012003");
    ASSERT_TRUE(start());
    for (int twice = 0; twice < 2; ++twice) {
        KeepLastView(View::Week);
        KeepLastProvider("O'NEIL");
        KeepLastView(View::Rooms);
    }

    const LastPlace place = ReadLastPlace();

    EXPECT_EQ(place.view, View::Rooms);
    EXPECT_EQ(place.providerId, "O'NEIL");
    EXPECT_EQ(place.providerName, "O'Neil");
    EXPECT_FALSE(place.offeredToNobody);
    EXPECT_EQ(practice.value("Select Count(*) from User_Preferences Where UP_Pref_Detail like 'Last%'"), "2");
}

TEST_F(ReturningUser, ADatabaseThatRefusesToKeepIsPassedOver) {
    ASSERT_TRUE(start());
    practice.database().refuse("Insert", "User_Preferences");

    KeepLastView(View::Week);

    EXPECT_EQ(ReadLastPlace().view, View::None);
}
