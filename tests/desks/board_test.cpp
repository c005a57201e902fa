#include "tests/desks/deskfront.h"

namespace {

/// A front desk with visits of the computer's own day, on which the board is about. They last all day, so that nobody
/// is late at whatever time the test runs.
class BoardDesk : public FrontDesk {
  protected:
    QString due(const char* name) {
        connection.Execute(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, allday, cappttext, ncolor, clinicianid, patientid, CapptNote) Values ('{}', 0, 1440, 1, '{}', 16711681, 'REED', '10017', '|')",
            QDate::currentDate(), name));
        return QString::number(connection.LastIdentity());
    }
    QString listed(const char* list) { return desk->tell("text", QLatin1String(list)); }
    bool stands(const char* list, const char* name) {
        return soon([=, this] { return listed(list).contains(QLatin1String(name)); });
    }
    void press(const char* key) { person->press({QLatin1String(key)}); }
};

}  // namespace

// One key opens the board. Then each step is one key, and the arrival is confirmed by Enter: 2 for a check-in, 1 for a
// status after 1 to go to the place where the patient stands, 1 for the calendar.
TEST_F(BoardDesk, ByKeyboardAloneAPatientIsCheckedInAndKeptAndFoundInTheCalendar) {
    const QString anna = due("Anna");
    press("ctrl+shift+b");
    person->turnTo("frmboard");
    ASSERT_TRUE(stands("lstdue", "Anna"));
    person->picture("board-due");
    press("Down");
    press("ctrl+i");
    person->turnTo("frmarrivalTime");
    press("Return");
    person->turnTo("frmboard");
    EXPECT_TRUE(soon([&] { return status(anna) == 0xFFFFFF; }));
    ASSERT_TRUE(stands("lstwaiting", "Anna"));
    person->picture("board-waiting");
    press("Right");
    press("ctrl+k");
    EXPECT_TRUE(soon([&] { return status(anna) == 0xC000; }));
    ASSERT_TRUE(stands("lstinsession", "Anna"));
    press("Right");
    press("Return");
    person->turnTo("frmnore");
    press("Escape");
    person->turnTo("frmboard");
    press("ctrl+g");
    person->turnTo("mdisched");
    EXPECT_TRUE(soon([&] { return desk->tell("items").contains(QStringLiteral("Anna")); })) << "Its day is open.";
    press("ctrl+shift+b");
    person->turnTo("frmboard");
    EXPECT_TRUE(stands("lstinsession", "Anna")) << "It stands as it was left.";
}

// Two clicks open the board. Then a status is one click on the button of the card, or one on the card and one above.
TEST_F(BoardDesk, ByMouseAloneAPatientIsCheckedInAndAnotherIsMissed) {
    const QString anna = due("Anna");
    person->click(desk->tell("menuPlace", QStringLiteral("mnuView")));
    person->turnTo("popup");
    person->click(desk->tell("entryPlace", QStringLiteral("mnuVBoard")));
    person->turnTo("frmboard");
    ASSERT_TRUE(stands("lstdue", "Anna"));
    person->click(desk->tell("rowPlace", QStringLiteral("lstdue"), QStringLiteral("0")));
    ASSERT_TRUE(soon([&] { return desk->tell("shows", QStringLiteral("cardMissed")) == QLatin1String("yes"); }));
    person->picture("board-buttons");
    person->click(desk->tell("widgetPlace", QStringLiteral("cardMissed")));
    EXPECT_TRUE(soon([&] { return status(anna) == 0xC0; }));
    ASSERT_TRUE(stands("lstnotcoming", "Anna"));
    const QString bo = due("Bo");
    person->click(desk->tell("widgetPlace", QStringLiteral("cmdRefresh")));
    ASSERT_TRUE(stands("lstdue", "Bo"));
    person->click(desk->tell("rowPlace", QStringLiteral("lstdue"), QStringLiteral("0")));
    person->click(desk->tell("widgetPlace", QStringLiteral("cmdCheckIn")));
    person->turnTo("frmarrivalTime");
    person->click(desk->tell("widgetPlace", QStringLiteral("cmdOk")));
    person->turnTo("frmboard");
    EXPECT_TRUE(soon([&] { return status(bo) == 0xFFFFFF; }));
    EXPECT_TRUE(stands("lstwaiting", "Bo"));
}

TEST_F(BoardDesk, WhatAnotherDeskWritesIsThereAfterF5AndTheCalendarFollowsTheBoard) {
    press("ctrl+shift+b");
    person->turnTo("frmboard");
    due("Anna");
    press("F5");
    EXPECT_TRUE(stands("lstdue", "Anna"));
}
