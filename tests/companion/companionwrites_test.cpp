#include "companion/companionwrites.h"

#include "tests/companion/writesfixture.h"

namespace {

const QDate Wednesday{2026, 3, 11};
const QDate Thursday{2026, 3, 12};

using End = WriteOutcome::End;

/// The appointment at 9:00 of provider 1, dragged to another place.
class CompanionMove : public WritesFixture {
  protected:
    const CompanionPlace seen{Wednesday, 540, 590, 1};
    int key = add({});

    CompanionOutcome moveTo(const CompanionPlace& to) { return MoveFHAppointment(key, seen, to); }
    void expectUntouched() {
        EXPECT_EQ(storedTime(key, "CtrnTime"), QDateTime(Wednesday, QTime(9, 0), Qt::UTC));
        EXPECT_EQ(stored(key, "CtrnDuration"), "50");
        EXPECT_EQ(stored(key, "LastModifiedDate"), "");
    }
};

class CompanionAppointmentDeletion : public WritesFixture {};
class CompanionEventDeletion : public WritesFixture {
  protected:
    [[nodiscard]] QStringList attendees(int event) {
        QStringList providers;
        db::Recordset rows(
            db::Sql("Select ProvId from CalendarProviderEvents Where CEveId = {} Order by ProvId", event),
            companion.connection());
        for (; !rows.Eof(); rows.MoveNext())
            providers << rows[0].text();
        return providers;
    }
};

}  // namespace

TEST_F(CompanionMove, WritesTimeProviderLengthAndWhoDidItWhen) {
    Session().FHProviderId = 2;
    const CompanionOutcome outcome = moveTo({Wednesday, 615, 700, 2});
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_FALSE(outcome.replaced);
    EXPECT_EQ(storedTime(key, "CtrnTime"), QDateTime(Wednesday, QTime(10, 15), Qt::UTC));
    EXPECT_EQ(stored(key, "ProvId"), "2");
    EXPECT_EQ(stored(key, "CtrnDuration"), "85");
    EXPECT_EQ(storedTime(key, "LastModifiedDate"), QDateTime(Wednesday, QTime(14, 7, 9), Qt::UTC));
    EXPECT_EQ(stored(key, "UserIdLastModified"), "2");
}

TEST_F(CompanionMove, LeavesTheDayAsTheRowHasItWhenTheDayIsTheSame) {
    there("Update ClientTransactions Set CtrnDate = '2026-03-11 07:30'");
    EXPECT_TRUE(moveTo({Wednesday, 600, 650, 1}).IsDone());
    EXPECT_EQ(storedTime(key, "CtrnDate"), QDateTime(Wednesday, QTime(7, 30), Qt::UTC));
}

TEST_F(CompanionMove, ToAnotherDayWritesTheDayToo) {
    EXPECT_TRUE(moveTo({Thursday, 600, 650, 1}).IsDone());
    EXPECT_EQ(storedTime(key, "CtrnDate"), QDateTime(Thursday, QTime(0, 0), Qt::UTC));
    EXPECT_EQ(storedTime(key, "CtrnTime"), QDateTime(Thursday, QTime(10, 0), Qt::UTC));
}

TEST_F(CompanionMove, ToAnyMinuteIsReadBackAsThatMinute) {
    for (const int minute : {0, 1, 59, 60, 719, 720, 721, 779, 780, 1439}) {
        key = add({});
        EXPECT_TRUE(moveTo({Wednesday, minute, minute + 15, 1}).IsDone()) << minute;
        EXPECT_EQ(storedTime(key, "CtrnTime"), QDateTime(Wednesday, QTime(minute / 60, minute % 60), Qt::UTC));
        EXPECT_EQ(stored(key, "CtrnDuration"), "15");
    }
}

TEST_F(CompanionMove, LeavesOtherRowsAlone) {
    const int other = add({});
    EXPECT_TRUE(moveTo({Wednesday, 600, 650, 2}).IsDone());
    key = other;
    expectUntouched();
}

TEST_F(CompanionMove, OfAnAppointmentThatIsGoneWritesNothing) {
    there("Delete from ClientTransactions");
    EXPECT_EQ(moveTo({Wednesday, 600, 650, 1}).end, End::Gone);
    EXPECT_EQ(countThere("ClientTransactions"), 0);
}

TEST_F(CompanionMove, OfAnAppointmentChargedMeanwhileWritesNothing) {
    there("Update ClientTransactions Set CtrnStatus = 'C'");
    EXPECT_EQ(moveTo({Thursday, 600, 650, 1}).hitch, CompanionHitch::Charged);
    expectUntouched();
}

TEST_F(CompanionMove, OfAnAppointmentWithoutAStatusWritesNothing) {
    there("Update ClientTransactions Set CtrnStatus = Null");
    EXPECT_EQ(moveTo({Wednesday, 600, 650, 1}).hitch, CompanionHitch::Charged);
    expectUntouched();
}

TEST_F(CompanionMove, OfAnAppointmentOfASeriesByNowWritesNothing) {
    there("Update ClientTransactions Set RecurTranId = 7");
    EXPECT_EQ(moveTo({Wednesday, 600, 650, 1}).hitch, CompanionHitch::Recurring);
    expectUntouched();
}

TEST_F(CompanionMove, OfAnAppointmentOnAnotherDayByNowWritesNothing) {
    there("Update ClientTransactions Set CtrnDate = '2026/03/18'");
    EXPECT_EQ(moveTo({Thursday, 600, 650, 1}).hitch, CompanionHitch::OnOtherDay);
    EXPECT_EQ(storedTime(key, "CtrnDate"), QDateTime(QDate(2026, 3, 18), QTime(0, 0), Qt::UTC));
    expectUntouched();
}

TEST_F(CompanionMove, OverAnotherUsersChangeWinsAndSaysSo) {
    for (const char* change : {"CtrnTime = '2026/03/11 8:00 AM'", "CtrnTime = Null", "CtrnDuration = 90",
                               "CtrnDuration = Null", "ProvId = 3", "ProvId = Null"}) {
        key = add({});
        there(db::Sql("Update ClientTransactions Set {} Where CtrnId = {}", db::Raw{QLatin1String(change)}, key));
        const CompanionOutcome outcome = moveTo({Wednesday, 600, 650, 1});
        EXPECT_TRUE(outcome.IsDone()) << change;
        EXPECT_TRUE(outcome.replaced) << change;
        EXPECT_EQ(storedTime(key, "CtrnTime"), QDateTime(Wednesday, QTime(10, 0), Qt::UTC));
        EXPECT_EQ(stored(key, "ProvId"), "1");
        EXPECT_EQ(stored(key, "CtrnDuration"), "50");
    }
}

TEST_F(CompanionMove, InTheScheduleOfTheSecondProviderReplacesNothingOfAnotherUsers) {
    key = add({.provider = 3, .second = 1});
    EXPECT_FALSE(moveTo({Wednesday, 600, 650, 1}).replaced);
}

TEST_F(CompanionMove, ThatFailsLeavesEverythingAndTellsTheReason) {
    const QString reason = companion.refuse("Update", "ClientTransactions");
    const CompanionOutcome outcome = moveTo({Thursday, 600, 650, 2});
    EXPECT_EQ(outcome.end, End::Failed);
    ASSERT_TRUE(outcome.failure);
    EXPECT_TRUE(outcome.failure->description.contains(reason));
    expectUntouched();
}

TEST_F(CompanionMove, WhoseDayCannotBeWrittenLeavesTheTimeToo) {
    add({.day = "2026/03/12"});
    there("Create Unique Index one_a_day On ClientTransactions (CtrnDate)");
    const CompanionOutcome outcome = moveTo({Thursday, 600, 650, 1});
    there("Drop Index one_a_day On ClientTransactions");
    EXPECT_EQ(outcome.end, End::Failed);
    expectUntouched();
}

TEST_F(CompanionMove, WithoutTheCompanionFails) {
    Session().FHConnectionString = QStringLiteral("Data Source=/no/such/folder;Initial Catalog=none");
    const CompanionOutcome outcome = moveTo({Wednesday, 600, 650, 1});
    EXPECT_EQ(outcome.end, End::Failed);
    EXPECT_TRUE(outcome.failure);
    expectUntouched();
}

TEST_F(CompanionAppointmentDeletion, RemovesTheRowAlone) {
    const int key = add({});
    const int other = add({});
    EXPECT_TRUE(DeleteFHAppointment(key).IsDone());
    EXPECT_EQ(countThere("ClientTransactions"), 1);
    EXPECT_EQ(stored(other, "ClntId"), "1");
}

TEST_F(CompanionAppointmentDeletion, LeavesAChargedRow) {
    const int key = add({.status = "C"});
    EXPECT_EQ(DeleteFHAppointment(key).hitch, CompanionHitch::Charged);
    EXPECT_EQ(countThere("ClientTransactions"), 1);
}

TEST_F(CompanionAppointmentDeletion, OfARowThatIsGoneSaysSo) {
    EXPECT_EQ(DeleteFHAppointment(99).end, End::Gone);
}

TEST_F(CompanionAppointmentDeletion, ThatFailsLeavesTheRow) {
    const int key = add({});
    const QString reason = companion.refuse("Delete", "ClientTransactions");
    const CompanionOutcome outcome = DeleteFHAppointment(key);
    ASSERT_TRUE(outcome.failure);
    EXPECT_TRUE(outcome.failure->description.contains(reason));
    EXPECT_EQ(countThere("ClientTransactions"), 1);
}

TEST_F(CompanionEventDeletion, OfOneOfSeveralAttendeesLeavesTheEventToTheOthers) {
    const int event = addEvent({.attendees = {1, 2, 3}});
    EXPECT_TRUE(DeleteFHEvent(event, 2).IsDone());
    EXPECT_EQ(attendees(event), (QStringList{"1", "3"}));
    EXPECT_TRUE(DeleteFHEvent(event, 1).IsDone());
    EXPECT_EQ(attendees(event), QStringList{"3"});
    EXPECT_EQ(countThere("CalendarEvents"), 1);
}

TEST_F(CompanionEventDeletion, OfTheLastAttendeeRemovesTheEvent) {
    const int event = addEvent({});
    const int other = addEvent({});
    EXPECT_EQ(DeleteFHEvent(event, 1).hitch, CompanionHitch::None);
    EXPECT_EQ(countThere("CalendarEvents"), 1);
    EXPECT_TRUE(attendees(event).isEmpty());
    EXPECT_EQ(attendees(other), QStringList{"1"});
}

TEST_F(CompanionEventDeletion, OfAnEventForAllProvidersWithOneAttendeeRemovesItFromAnyColumn) {
    const int event = addEvent({.attendees = {2}, .allProviders = true});
    const CompanionOutcome outcome = DeleteFHEvent(event, 1);
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_FALSE(outcome.allProviders);
    EXPECT_EQ(countThere("CalendarEvents"), 0);
}

TEST_F(CompanionEventDeletion, OfAnAttendeeLeavesAnEventForAllProvidersWhereItIs) {
    const int event = addEvent({.attendees = {1, 2}, .allProviders = true});
    const CompanionOutcome outcome = DeleteFHEvent(event, 1);
    EXPECT_EQ(outcome.hitch, CompanionHitch::None);
    EXPECT_TRUE(outcome.allProviders);
    EXPECT_EQ(attendees(event), QStringList{"2"});
}

TEST_F(CompanionEventDeletion, WithoutAttendeesDoesNothing) {
    const int event = addEvent({.attendees = {}});
    EXPECT_EQ(DeleteFHEvent(event, 1).hitch, CompanionHitch::NoAttendees);
    EXPECT_EQ(countThere("CalendarEvents"), 1);
}

TEST_F(CompanionEventDeletion, OfAProviderWhoWasTakenOutMeanwhileLeavesTheEventToTheOthers) {
    const int one = addEvent({.attendees = {2}});
    EXPECT_EQ(DeleteFHEvent(one, 1).hitch, CompanionHitch::NotAttending);
    const int two = addEvent({.attendees = {2, 3}});
    EXPECT_EQ(DeleteFHEvent(two, 1).hitch, CompanionHitch::NotAttending);
    EXPECT_EQ(countThere("CalendarEvents"), 2);
    EXPECT_EQ(countThere("CalendarProviderEvents"), 3);
}

TEST_F(CompanionEventDeletion, OfASeriesByNowDoesNothing) {
    const int event = addEvent({.series = 4});
    EXPECT_EQ(DeleteFHEvent(event, 1).hitch, CompanionHitch::Recurring);
    EXPECT_EQ(attendees(event), QStringList{"1"});
}

TEST_F(CompanionEventDeletion, OfAnEventThatIsGoneSaysSo) {
    EXPECT_EQ(DeleteFHEvent(99, 1).end, End::Gone);
}

TEST_F(CompanionEventDeletion, ThatFailsAtAnyStatementLeavesEventAndAttendees) {
    const int one = addEvent({});
    const int two = addEvent({.attendees = {1, 2}});
    const QString whole = companion.refuse("Delete", "CalendarEvents");
    EXPECT_TRUE(DeleteFHEvent(one, 1).failure.value().description.contains(whole));
    companion.allow("Delete", "CalendarEvents");
    const QString attendee = companion.refuse("Delete", "CalendarProviderEvents");
    for (const int event : {one, two})
        EXPECT_TRUE(DeleteFHEvent(event, 1).failure.value().description.contains(attendee));
    EXPECT_EQ(countThere("CalendarEvents"), 2);
    EXPECT_EQ(attendees(one), QStringList{"1"});
    EXPECT_EQ(attendees(two), (QStringList{"1", "2"}));
}
