#include <QFocusEvent>

#include "data/codes.h"
#include "platform/database/waiting.h"
#include "session/databasewait.h"
#include "session/session.h"
#include "tests/views/dayhand.h"

namespace {

constexpr char deletedByOthers[] = "Unable to save. Appointment not found. It may have been deleted by another user.";
constexpr char changedByOthers[] =
    "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read.";

AppointmentRow anEvent(const char* text) {
    return anAppointment(text).status(ncolor::Activity);
}

}  // namespace

/// Texts changed in place, which are stored by saveappt.
class DayText : public DayHand {
  protected:
    DayText() {
        Session().UID = QStringLiteral("LANE");
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
    }
};

TEST_F(DayText, WhatIsTypedIntoAnEventIsStoredWithWhoAndWhen) {
    const qint64 key = add(anEvent("Meeting").with("lastmodifieduid", "'REED'"));
    openByHand();

    type("Meeting", QStringLiteral("Team's meeting"));

    EXPECT_EQ(stored(key, "cappttext"), "Team's meeting");
    EXPECT_EQ(stored(key, "lastmodifieduid"), "LANE");
    EXPECT_EQ(stored(key, "lastmodifieddate"), "2026-03-11 10:30:00");
    EXPECT_EQ(itemTexts(), QStringList{"Team's meeting"});
    EXPECT_EQ(info().first(), "Appointment;Team's meeting");
}

TEST_F(DayText, EverythingElseOfTheRowStaysAsItIs) {
    const qint64 key = add(anEvent("Meeting")
                               .with("CapptNote", "'Svc|Bring chairs|and tables'")
                               .with("CLOCATION", "'Hall'")
                               .with("BLOCATEICO", "1")
                               .with("BremindIco", "1")
                               .with("patientid", "'10017'")
                               .with("PatientAcct", "'A-7'"));
    openByHand();

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(stored(key, "CapptNote"), "Svc|Bring chairs|and tables");
    EXPECT_EQ(stored(key, "CLOCATION"), "Hall");
    EXPECT_EQ(stored(key, "BLOCATEICO"), "1");
    EXPECT_EQ(stored(key, "BremindIco"), "1");
    EXPECT_EQ(stored(key, "patientid"), "10017");
    EXPECT_EQ(stored(key, "PatientAcct"), "A-7");
    EXPECT_EQ(stored(key, "ncolor"), QString::number(ncolor::Activity));
    EXPECT_EQ(stored(key, "clinicianid"), "REED");
    EXPECT_EQ(stored(key, "nStartTime"), "540");
    EXPECT_EQ(stored(key, "nEndTime"), "590");
}

TEST_F(DayText, WhatWasTypedIsStoredAfterAWaitForTheDatabaseAndNotWithinIt) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    beginTyping("Meeting", QStringLiteral("Team"));
    ShowDatabaseWaits();
    auto wait = db::ShowWaiting()();
    db::ShowWaiting() = {};
    QFocusEvent out(QEvent::FocusOut);
    if (editor() != nullptr)  // The box has taken the focus where the desktop lets it.
        QCoreApplication::sendEvent(editor(), &out);

    EXPECT_TRUE(wait->GoesOn());
    EXPECT_EQ(stored(key, "cappttext"), "Meeting");

    wait.reset();
    settle();
    EXPECT_EQ(stored(key, "cappttext"), "Team");
}

TEST_F(DayText, OnlyTheFirst100CharactersAreStored) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();

    type("Meeting", QString(130, QLatin1Char('x')));

    EXPECT_EQ(stored(key, "cappttext"), QString(100, QLatin1Char('x')));
}

TEST_F(DayText, AnEmojiOnTheHundredthPlaceIsNotCutInHalf) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();

    type("Meeting", QString(99, QLatin1Char('x')) + QStringLiteral("\U0001F600"));

    EXPECT_EQ(stored(key, "cappttext"), QString(99, QLatin1Char('x')));
}

TEST_F(DayText, ATextThatIsTakenAwayComesBackAndNothingIsWritten) {
    const qint64 key = add(anEvent("Meeting").with("lastmodifieduid", "'REED'"));
    openByHand();

    type("Meeting", QString());
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
    type("Meeting", QStringLiteral("   "));

    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
    EXPECT_EQ(stored(key, "cappttext"), "Meeting");
    EXPECT_EQ(stored(key, "lastmodifieduid"), "REED");
}

TEST_F(DayText, EscapeWritesNothing) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();

    beginTyping("Meeting", QStringLiteral("Never mind"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    settle();

    EXPECT_EQ(stored(key, "cappttext"), "Meeting");
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
}

TEST_F(DayText, TheRoomsBookingTakesTheTextAndTheTime) {
    const qint64 key = add(anEvent("Meeting"));
    run(QStringLiteral(
            "Insert Into roomschedule (apptid, croomid, croomtext, nStartTime, nEndTime, nApptDate) Values(%1, 3, 'Old', 100, 200, '2026/03/01')")
            .arg(key));
    openByHand();

    type("Meeting", QStringLiteral("Team's meeting"));

    EXPECT_EQ(database_.text("Select croomtext from roomschedule"), "Team's meeting");
    EXPECT_EQ(database_.number("Select nStartTime from roomschedule"), 540);
    EXPECT_EQ(database_.number("Select nEndTime from roomschedule"), 590);
    EXPECT_EQ(database_.text("Select nApptDate from roomschedule"), "2026-03-11 00:00:00");
}

TEST_F(DayText, AnActivityOfSeveralProvidersIsNotHandedToTheOneWhoRenamesIt) {
    const qint64 key = add(anEvent("Staff meeting").of("~EVT"));
    run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, 'REED')").arg(key));
    openByHand();

    type("Staff meeting", QStringLiteral("Staff lunch"));

    EXPECT_EQ(stored(key, "cappttext"), "Staff lunch");
    EXPECT_EQ(stored(key, "clinicianid"), "~EVT");
}

TEST_F(DayText, ARowThatAnotherDeskDeletedIsToldAndLeavesTheDay) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    otherDeskDeletes(key);
    desk.expectBox(deletedByOthers, "Appointment not found");

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_EQ(info(), QStringList{";No Appointment Selected"});
    EXPECT_EQ(database_.number("Select Count(*) from appointments"), 0);
}

TEST_F(DayText, WhatAnotherDeskChangedElsewhereInTheRowIsKeptAndShown) {
    const qint64 key = add(anEvent("Meeting").with("CLOCATION", "'Hall'").with("BLOCATEICO", "1"));
    openByHand();
    otherDeskSets(key, QStringLiteral("CLOCATION = 'Annex', CapptNote = '|Bring chairs'"));

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(stored(key, "cappttext"), "Team");
    EXPECT_EQ(stored(key, "CLOCATION"), "Annex");
    EXPECT_EQ(stored(key, "CapptNote"), "|Bring chairs");
    EXPECT_EQ(item("Team").ItemLocation, "Annex");
    EXPECT_TRUE(item("Team").ItemNoteIcon);
}

TEST_F(DayText, AnEventThatAnotherDeskMovedMeanwhileStaysWhereThatDeskPutIt) {
    const qint64 key = add(anEvent("Meeting"));
    run(QStringLiteral(
            "Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values(%1, 3, 720, 780, '2026/03/11')")
            .arg(key));
    openByHand();
    otherDeskSets(key, QStringLiteral("nStartTime = 720, nEndTime = 780"));

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(stored(key, "cappttext"), "Team");
    EXPECT_EQ(stored(key, "nStartTime"), "720");
    EXPECT_EQ(item("Team").ItemStart, 720);
    EXPECT_EQ(database_.number("Select nStartTime from roomschedule"), 720);
}

TEST_F(DayText, AnEventThatAnotherDeskPutOnAnotherDayKeepsThatDayAndLeavesThisOne) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    otherDeskSets(key, QStringLiteral("dapptdate = '2026/03/18'"));

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(stored(key, "cappttext"), "Team");
    EXPECT_EQ(stored(key, "dapptdate"), "2026-03-18 00:00:00");
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayText, ATextThatBothDesksChangedIsToldAndTheOthersStands) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    otherDeskSets(key, QStringLiteral("cappttext = 'Lunch'"));
    desk.expectBox(changedByOthers, "Error");

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(stored(key, "cappttext"), "Lunch");
    EXPECT_EQ(itemTexts(), QStringList{"Lunch"});
}

TEST_F(DayText, TheSameTextFromBothDesksIsNoConflict) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    otherDeskSets(key, QStringLiteral("cappttext = 'Team'"));

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(stored(key, "cappttext"), "Team");
    EXPECT_EQ(itemTexts(), QStringList{"Team"});
}

TEST_F(DayText, ARowThatCannotBeReadIsToldAndTheTextComesBack) {
    add(anEvent("Meeting"));
    openByHand();
    Session().Connection.Close();
    desk.expectBox(
        "Error saving appointment. The connection cannot be used to perform this operation. It is either closed or invalid in this context.",
        "Error");

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
}

TEST_F(DayText, ARefusedUpdateIsToldAndTheTextComesBack) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    desk.expectBox("Error saving appointment. " + database_.refuse("Update", "appointments"), "Error");

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
    EXPECT_EQ(stored(key, "cappttext"), "Meeting");
    EXPECT_EQ(info().first(), "Appointment;Meeting");
}

TEST_F(DayText, ATextThatCannotBeStoredIsKeptForAnotherTry) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    NoticeBar bar;
    const QString trouble = "Error saving appointment. ";
    desk.expectBox(trouble + database_.refuse("Update", "appointments"), "Error");
    type("Meeting", QStringLiteral("Team"));
    const QStringList kept{QStringLiteral("Not saved: the text of the appointment on 3/11/2026 at 9:00 AM")};
    EXPECT_EQ(bar.Texts(), kept);
    EXPECT_FALSE(kept.front().contains("Team"));
    desk.expectBox(QStringLiteral("Throw away what was typed and not saved?"), QStringLiteral("Solvane Scheduler"),
                   Answer::No);
    EXPECT_FALSE(bar.MayLeave());

    // Another view may be open by then.
    database_.allow("Update", "appointments");
    view_.reset();
    otherDeskSets(key, QStringLiteral("cappttext = 'Board'"));
    desk.expectBox(QLatin1String(changedByOthers), "Error");
    takeNotice(bar);
    EXPECT_EQ(stored(key, "cappttext"), "Board");
    EXPECT_EQ(bar.Texts(), kept);
    takeNotice(bar);
    EXPECT_EQ(stored(key, "cappttext"), "Team");
    EXPECT_EQ(bar.Texts(), QStringList());
    EXPECT_TRUE(main.asked.contains("cycledate 2"));
}

TEST_F(DayText, ARoomThatCannotTakeTheTextIsToldAndTheAppointmentKeepsItsOwn) {
    const qint64 key = add(anEvent("Meeting"));
    run(QStringLiteral("Insert Into roomschedule (apptid, croomid, nStartTime) Values(%1, 3, 100)").arg(key));
    openByHand();
    desk.expectBox("Error saving room schedule. " + database_.refuse("Update", "roomschedule"), "Error");

    type("Meeting", QStringLiteral("Team"));

    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
    EXPECT_EQ(stored(key, "cappttext"), "Meeting");
}

TEST_F(DayText, AnEventWithoutATextTakesOne) {
    const qint64 key = add(anEvent(""));
    openByHand();

    type("", QStringLiteral("Meeting"));

    EXPECT_EQ(stored(key, "cappttext"), "Meeting");
}

TEST_F(DayText, LeavingTheDayStoresWhatWasBeingTyped) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    beginTyping("Meeting", QStringLiteral("Team"));

    main.SetDate(QDate(2026, 3, 12));
    day().LoadDayView();

    EXPECT_EQ(stored(key, "cappttext"), "Team");
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayText, ClosingTheViewStoresWhatWasBeingTyped) {
    const qint64 key = add(anEvent("Meeting"));
    openByHand();
    beginTyping("Meeting", QStringLiteral("Team"));

    view_->close();

    EXPECT_EQ(stored(key, "cappttext"), "Team");
}
