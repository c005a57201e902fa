#include <gtest/gtest.h>

#include "tests/support/scripteddesk.h"

TEST(Desktop, AnExpectedQuestionIsAnsweredFromTheScript) {
    ScriptedDesk desk;
    desk.expectBox("Continue?", "Solvane", Answer::Yes);

    EXPECT_EQ(MsgBox("Continue?", YesNoBox, "Solvane"), Answer::Yes);
}

TEST(Desktop, TheClockStandsStillInATest) {
    ScriptedDesk desk;
    desk.setNow(QDateTime(QDate(2026, 2, 28), QTime(23, 59)));

    EXPECT_EQ(Today(), QDate(2026, 2, 28));
    EXPECT_EQ(Now().time(), QTime(23, 59));
}
