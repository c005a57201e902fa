#include "tests/companion/commandsfixture.h"

namespace {

const QDate Wednesday{2026, 3, 11};
const char* const NoRights = "You do not have rights to modify appointments or events.";
const char* const IsCharged =
    "This appointment has been charged. You cannot modify an appointment once it has been charged.";
const char* const Recurs =
    "You cannot modify a recurring appointment in Solvane. Use Fernhall to modify this appointment.";
const char* const EventRecurs = "You cannot modify a recurring event in Solvane. Use Fernhall to modify this event.";
const char* const NoteStays =
    "This appointment has a corresponding note in Solvane.\n\nThe change you made to the provider will not be reflected in the note.";
const QString Failed = QStringLiteral("Error updating appointment in Fernhall. Error ");

class CompanionDrag : public CommandsFixture {
  protected:
    void expectStored(int key, QDate day, QTime time, int duration, int provider) {
        EXPECT_EQ(storedTime(key, "CtrnDate").date(), day);
        EXPECT_EQ(storedTime(key, "CtrnTime"), QDateTime(day, time, Qt::UTC));
        EXPECT_EQ(stored(key, "CtrnDuration"), QString::number(duration));
        EXPECT_EQ(stored(key, "ProvId"), QString::number(provider));
    }
    void expectUntouched(int key) {
        expectStored(key, Wednesday, QTime(9, 0), 50, 1);
        EXPECT_EQ(stored(key, "LastModifiedDate"), "");
    }
};

}  // namespace

TEST_F(CompanionDrag, StoresTheNewTimeAndKeepsTheItemThere) {
    const int key = add({});
    open();
    dragTo(scheduled(key), Reed, 660);
    expectStored(key, Wednesday, QTime(11, 0), 50, 1);
    EXPECT_EQ(at(scheduled(key)).ItemStart, 660);
    dragTo(scheduled(key), Reed, 720);
    expectStored(key, Wednesday, QTime(12, 0), 50, 1);
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(CompanionDrag, ToAnotherColumnGivesTheAppointmentToItsProvider) {
    const int key = add({});
    open();
    dragTo(scheduled(key), Lane, 540);
    expectStored(key, Wednesday, QTime(9, 0), 50, 2);
    EXPECT_EQ(calendar().ColumnOfItem(scheduled(key)), Lane);
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(CompanionDrag, OfTheLowerEdgeStoresTheNewLength) {
    const int key = add({});
    open();
    dragEdgeTo(scheduled(key), 630);
    expectStored(key, Wednesday, QTime(9, 0), 90, 1);
}

TEST_F(CompanionDrag, ByKeyStoresToo) {
    const int key = add({});
    open();
    select(scheduled(key));
    this->key(Qt::Key_Down, Qt::ControlModifier);
    this->key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(at(scheduled(key)).ItemStart, 570);
    expectStored(key, Wednesday, QTime(9, 30), 50, 1);
}

TEST_F(CompanionDrag, InTheWeekToAnotherDayTakesTheDayAlong) {
    const int key = add({});
    openWeek();
    const int column = calendar().ColumnOfItem(scheduled(key));
    dragTo(scheduled(key), column + 1, 600);
    expectStored(key, Wednesday.addDays(1), QTime(10, 0), 50, 1);
    EXPECT_EQ(calendar().ColumnOfItem(scheduled(key)), column + 1);
    dragTo(scheduled(key), column, 540);
    expectStored(key, Wednesday, QTime(9, 0), 50, 1);
}

TEST_F(CompanionDrag, WithoutTheRightIsRefused) {
    const int key = add({});
    for (const int rights : {1, 0}) {
        Session().ScreenAccess = rights;
        open();
        expectInformation(NoRights);
        dragTo(scheduled(key), Reed, 660);
        expectInformation(NoRights);
        dragTo(scheduled(key), Lane, 540);
        EXPECT_EQ(at(scheduled(key)).ItemStart, 540);
        view_.reset();
    }
    expectUntouched(key);
}

TEST_F(CompanionDrag, OfWhatCannotBeMovedSaysWhy) {
    const int charge = add({.status = "C"});
    const int series = add({.time = "2026/03/11 10:00 AM", .series = 3});
    const int meeting = addEvent({});
    open();
    expectInformation(IsCharged);
    dragTo(charged(charge), Reed, 660);
    expectInformation(Recurs);
    dragTo(scheduled(series), Reed, 660);
    dragTo(event(meeting), Reed, 660);
    EXPECT_EQ(bar.Texts(), QStringList{"An event cannot be dragged. Open it to change its time."});
    expectUntouched(charge);
    EXPECT_EQ(stored(series, "LastModifiedDate"), "");
    EXPECT_EQ(companion.text("Select LastModifiedDate from CalendarEvents"), "");
}

TEST_F(CompanionDrag, OfANotedAppointmentToAnotherProviderWarnsAndSaves) {
    const int key = add({.session = 41});
    open();
    dragTo(scheduled(key), Reed, 660);
    desk.expectBox(QString::fromLatin1(NoteStays), QStringLiteral("Solvane-Fernhall"));
    dragTo(scheduled(key), Lane, 660);
    expectStored(key, Wednesday, QTime(11, 0), 50, 2);
}

TEST_F(CompanionDrag, OfANotedAppointmentOfTheSecondProviderWarnsBecauseItsProviderChanges) {
    const int key = add({.provider = 2, .second = 1, .session = 41});
    open();
    desk.expectBox(QString::fromLatin1(NoteStays), QStringLiteral("Solvane-Fernhall"));
    dragTo(scheduled(key, Reed), Reed, 660);
    expectStored(key, Wednesday, QTime(11, 0), 50, 1);
}

TEST_F(CompanionDrag, OfANotedAppointmentInTheWeekOfAnotherProviderWarns) {
    const int key = add({.provider = 2, .second = 1, .session = 41});
    openWeek();
    desk.expectBox(QString::fromLatin1(NoteStays), QStringLiteral("Solvane-Fernhall"));
    dragTo(scheduled(key), calendar().ColumnOfItem(scheduled(key)), 660);
    expectStored(key, Wednesday, QTime(11, 0), 50, 1);
}

TEST_F(CompanionDrag, OfOneOfTwoItemsOfARowMovesTheOtherOrTakesItAway) {
    const int key = add({.provider = 2, .second = 1});
    open();
    dragTo(scheduled(key, Lane), Lane, 660);
    EXPECT_EQ(at(scheduled(key, Reed)).ItemStart, 660);
    EXPECT_TRUE(bar.Texts().isEmpty());
    dragTo(scheduled(key, Reed), Reed, 720);
    EXPECT_EQ(scheduled(key, Lane), 0);
    EXPECT_EQ(stored(key, "ProvId"), "1");
    EXPECT_EQ(bar.Texts().size(), 1);
}

TEST_F(CompanionDrag, OfAnAppointmentChargedMeanwhileIsRefusedAndShowsIt) {
    const int key = add({});
    open();
    there("Update ClientTransactions Set CtrnStatus = 'C'");
    expectInformation(IsCharged);
    dragTo(scheduled(key), Lane, 660);
    EXPECT_EQ(at(charged(key)).ItemStart, 540);
    expectUntouched(key);
}

TEST_F(CompanionDrag, OfAnAppointmentOfASeriesByNowIsRefused) {
    const int key = add({});
    open();
    there("Update ClientTransactions Set RecurTranId = 4");
    expectInformation(Recurs);
    dragTo(scheduled(key), Lane, 660);
    expectUntouched(key);
}

TEST_F(CompanionDrag, OfAnAppointmentDeletedMeanwhileShowsThatItIsGone) {
    const int key = add({});
    open();
    there("Delete from ClientTransactions");
    dragTo(scheduled(key), Reed, 660);
    EXPECT_EQ(scheduled(key), 0);
    EXPECT_EQ(bar.Texts(), QStringList{"The appointment was not moved. Another user has deleted it meanwhile."});
}

TEST_F(CompanionDrag, OfAnAppointmentPutOnAnotherDayMeanwhileLeavesItThere) {
    const int key = add({});
    open();
    there("Update ClientTransactions Set CtrnDate = '2026/03/12'");
    dragTo(scheduled(key), Reed, 660);
    EXPECT_EQ(scheduled(key), 0);
    EXPECT_EQ(storedTime(key, "CtrnTime").time(), QTime(9, 0));
    EXPECT_EQ(bar.Texts().size(), 1);
}

TEST_F(CompanionDrag, OverAnotherUsersChangeSaysThatItWasReplaced) {
    const int key = add({});
    open();
    there("Update ClientTransactions Set CtrnDuration = 80");
    dragTo(scheduled(key), Reed, 660);
    expectStored(key, Wednesday, QTime(11, 0), 50, 1);
    EXPECT_EQ(
        bar.Texts(),
        QStringList{
            "Another user had changed the time or the provider of the appointment meanwhile. Your change has replaced theirs."});
    dragTo(scheduled(key), Reed, 720);
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(CompanionDrag, ThatFailsIsToldAndTheItemJumpsBack) {
    const int key = add({});
    open();
    companion.refuse("Update", "ClientTransactions");
    const QString reason =
        FailureOf(companion.connection(), QStringLiteral("Update ClientTransactions Set CtrnDuration = 1"));
    for (int time = 0; time < 2; ++time) {
        desk.expectBox(Failed + reason, QStringLiteral("Error"));
        dragTo(scheduled(key), Lane, 660);
        EXPECT_EQ(at(scheduled(key)).ItemStart, 540);
        EXPECT_EQ(calendar().ColumnOfItem(scheduled(key)), Reed);
    }
    expectUntouched(key);
    companion.allow("Update", "ClientTransactions");
    dragTo(scheduled(key), Lane, 660);
    expectStored(key, Wednesday, QTime(11, 0), 50, 2);
}

TEST_F(CompanionDrag, WhoseNoteCannotBeLookedUpIsToldAndTheItemJumpsBack) {
    const int key = add({.session = 41});
    open();
    select(scheduled(key));
    const QString text = Session().FHConnectionString;
    Session().FHConnectionString = QStringLiteral("Data Source=/no/such/folder;Initial Catalog=none");
    QString reason;
    try {
        db::Connection lost;
        lost.Open(Session().FHConnectionString);
    } catch (const db::DatabaseError& error) {
        reason = error.description;
    }
    desk.expectBox(Failed + reason, QStringLiteral("Error"));
    desk.expectBox(QStringLiteral("Error loading appointments. ") + reason, QStringLiteral("Error"));
    dragTo(scheduled(key), Lane, 660);
    Session().FHConnectionString = text;
    view_->Reload();
    EXPECT_EQ(at(scheduled(key)).ItemStart, 540);
    expectUntouched(key);
}

TEST_F(CompanionDrag, OfAnAppointmentBeyondMidnightKeepsItsLength) {
    const int key = add({.duration = 2000});
    open();
    dragTo(scheduled(key), Reed, 480);
    expectStored(key, Wednesday, QTime(8, 0), 2000, 1);
}

TEST_F(CompanionDrag, ToMidnightIsStoredAndSaysThatItIsNotShown) {
    const int key = add({.time = "2026/03/11 00:30"});
    open();
    select(scheduled(key));
    this->key(Qt::Key_Up, Qt::ControlModifier);
    expectStored(key, Wednesday, QTime(0, 15), 50, 1);
    this->key(Qt::Key_Up, Qt::ControlModifier);
    expectStored(key, Wednesday, QTime(0, 0), 50, 1);
    EXPECT_EQ(scheduled(key), 0);
    EXPECT_EQ(bar.Texts().size(), 1);
}
