#include <QApplication>
#include <QCheckBox>
#include <QLayout>
#include <QPushButton>
#include <QRegularExpression>

#include "appointments/attendeelist.h"
#include "companion/companionfields.h"
#include "companion/frmfhevents.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/noticebar.h"
#include "platform/controls/textfield.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/companion/eventfixture.h"
#include "tests/support/triplog.h"

using db::Sql;

namespace {

const QString Error = QStringLiteral("Error");
const QString Saving = QStringLiteral("Error saving event. ");
const QString Modifying = QStringLiteral("Error modifying event. ");
const QString Deleting = QStringLiteral("Error deleting event. ");
const QString ChangedMeanwhile =
    QStringLiteral("Row cannot be located for updating. Some values may have been changed since it was last read.");
const QString Kept =
    QStringLiteral("The event was changed in Fernhall or at another desk meanwhile. Those changes were kept.");
const QString Unchanged = QStringLiteral("Huddle|2026-03-11|540|30|0|0");

class EventSave : public EventFixture {
  protected:
    /// A second writer changes the event, say "CEveName = 'Theirs'".
    void theySet(const char* change) { run(Sql("Update CalendarEvents Set {}", db::Raw{QString::fromLatin1(change)})); }
    [[nodiscard]] bool isOpen() const { return form->isVisible(); }
    void deleteAnswering(Answer answer) {
        desk.expectBox(QStringLiteral("Are you sure you want to delete this event?"), QStringLiteral("Delete Event"),
                       answer);
        clickDelete();
    }
    /// What was written since the log began, each by its beginning.
    static void expectWrites(const TripLog& log, const QStringList& beginnings) {
        static const QRegularExpression write(QStringLiteral("^(Insert|Update|Delete|\\(begin|\\(commit|\\(roll)"));
        const QStringList writes = log.sent().filter(write);
        ASSERT_EQ(writes.size(), beginnings.size()) << log.sent().join(QLatin1Char('\n')).toStdString();
        for (qsizetype i = 0; i < writes.size(); ++i)
            EXPECT_TRUE(writes[i].startsWith(beginnings[i])) << writes[i].toStdString();
    }
    void expectOpenAfter(const QString& trouble) {
        desk.expectBox(trouble, Error);
        ok();
        EXPECT_TRUE(isOpen());
        EXPECT_FALSE(form->IsWritten());
        EXPECT_TRUE(form->IsChanged());
    }
};

}  // namespace

// A new event.

TEST_F(EventSave, OkAsksForWhatIsMissingInItsOrder) {
    const frmFHEvents& dialog = open({});
    type(dialog.txtstarttime, QString());
    expectRefusal("Enter an event.", dialog.txtevent);
    type(dialog.txtevent, QStringLiteral("   "));
    expectRefusal("Enter an event.", dialog.txtevent);
    type(dialog.txtevent, QStringLiteral("Team huddle"));
    expectRefusal("Enter a valid date.", dialog.txtdate);
    type(dialog.txtdate, QStringLiteral("13/45/2026"));
    expectRefusal("Enter a valid date.", dialog.txtdate);
    type(dialog.txtdate, QStringLiteral("3/11/2026"));
    expectRefusal("Enter a valid time.", dialog.txtstarttime);
    type(dialog.txtstarttime, QStringLiteral("soon"));
    expectRefusal("Enter a valid time.", dialog.txtstarttime);
    type(dialog.txtstarttime, QStringLiteral("9:00 AM"));
    expectRefusal("Enter a valid duration.", dialog.txtduration);
    type(dialog.txtduration, QStringLiteral("0"));
    expectRefusal("Enter a valid duration.", dialog.txtduration);
    type(dialog.txtduration, QStringLiteral("30"));
    expectRefusal("Select at least one attendee.", dialog.List1);
    dialog.ckAllProviders->click();
    expectRefusal("Select at least one attendee.", dialog.List1);
    clickAttendee("Lane");
    ok();
    EXPECT_EQ(stored(newestKey()), QStringLiteral("Team huddle|2026-03-11|540|30|0|1"));
}

TEST_F(EventSave, ANewEventIsOneRowWithARowForEachAttendee) {
    openFilled();
    clickAttendee("O'Brien");
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(form->IsWritten());
    const int key = newestKey();
    EXPECT_EQ(form->SavedKey(), key);
    EXPECT_EQ(stored(key), QStringLiteral("Team huddle|2026-03-11|540|60|0|0"));
    EXPECT_EQ(column("CEveEndDate", key), column("CEveDate", key));
    EXPECT_EQ(column("CEveTime", key), QStringLiteral("2026-03-11 09:00:00"));
    for (const char* none : {"CEveReminderInd", "CEveReminderLeadMinutes", "RecrId"})
        EXPECT_EQ(column(none, key), QStringLiteral("0")) << none;
    for (const char* user : {"UserIDCreated", "UserIDLastModified"})
        EXPECT_EQ(column(user, key), QStringLiteral("4711")) << user;
    for (const char* moment : {"DateCreated", "LastModifiedDate"})
        EXPECT_EQ(column(moment, key), QStringLiteral("2026-03-10 08:30:00")) << moment;
    EXPECT_EQ(attendees(key), QStringLiteral("2 4"));
}

TEST_F(EventSave, AllDayAndAllProvidersAreWritten) {
    openFilled();
    form->ckallday->click();
    form->ckAllProviders->click();
    ok();
    EXPECT_EQ(stored(newestKey()), QStringLiteral("Team huddle|2026-03-11|540|60|1|1"));
}

TEST_F(EventSave, EachTimeOfDayIsReadBackAsItWasTyped) {
    for (const int minutes : {0, 1, 59, 60, 719, 720, 721, 779, 780, 1439}) {
        openFilled();
        form->txtstarttime->setTime(minutes);
        ok();
        ASSERT_FALSE(isOpen()) << minutes;
        EXPECT_EQ(stored(newestKey()), QStringLiteral("Team huddle|2026-03-11|%1|60|0|0").arg(minutes));
        openEvent(newestKey());
        EXPECT_EQ(form->txtstarttime->Time(), minutes);
    }
}

TEST_F(EventSave, TheEndOfTheDayIsNoStart) {
    openFilled();
    type(form->txtstarttime, QStringLiteral("24:00"));
    expectRefusal("Enter a valid time.", form->txtstarttime);
}

TEST_F(EventSave, QuotesAndPicturesInTheNameAreKept) {
    openNew();
    const QString name = QStringLiteral("O'Brien's \"50 %\" day \U0001F389 [x] ; Zoë");
    form->txtevent->setText(name);
    ok();
    EXPECT_EQ(column("CEveName", newestKey()), name);
    openEvent(newestKey());
    EXPECT_EQ(form->txtevent->text(), name);
}

TEST_F(EventSave, ALongNameIsCutWhereItIsTyped) {
    openNew();
    type(form->txtevent, QString(300, u'n'));
    ok();
    EXPECT_EQ(column("CEveName", newestKey()), QString(255, u'n'));
}

TEST_F(EventSave, ANewEventIsWrittenInItsOrderWithinOneTransaction) {
    openFilled();
    clickAttendee("Lane");
    const TripLog log;
    ok();
    const int key = form->SavedKey();
    EXPECT_TRUE(log.sent().contains(QStringLiteral("Select * from CalendarEvents Where 0=1")));
    expectWrites(log, {QStringLiteral("(begin)"), QStringLiteral("Insert Into [CalendarEvents] "),
                       Sql("Insert Into CalendarProviderEvents (ceveID, provid) Values({}, 1)", key),
                       Sql("Insert Into CalendarProviderEvents (ceveID, provid) Values({}, 4)", key),
                       QStringLiteral("(commit)")});
}

TEST_F(EventSave, ANewOneIsWrittenWithItsAttendeesOrNotAtAllAndNothingTypedIsLost) {
    for (const char* table : {"CalendarEvents", "CalendarProviderEvents"}) {
        run(QStringLiteral("Delete from CalendarProviderEvents"));
        run(QStringLiteral("Delete from CalendarEvents"));
        openFilled();
        const QString why = companion.refuse(QStringLiteral("Insert"), QString::fromLatin1(table));
        expectOpenAfter(Saving + why);
        EXPECT_EQ(companion.number(QStringLiteral("Select Count(*) from CalendarEvents")), 0) << table;
        EXPECT_EQ(companion.number(QStringLiteral("Select Count(*) from CalendarProviderEvents")), 0) << table;
        EXPECT_EQ(form->txtevent->text(), QStringLiteral("Team huddle"));
        companion.allow(QStringLiteral("Insert"), QString::fromLatin1(table));
        ok();
        EXPECT_EQ(stored(newestKey()), QStringLiteral("Team huddle|2026-03-11|540|60|0|0")) << table;
        EXPECT_EQ(attendees(newestKey()), QStringLiteral("4")) << table;
    }
}

TEST_F(EventSave, ACompanionThatIsAwayIsToldAndNothingTypedIsLost) {
    openFilled();
    const QString text = Session().FHConnectionString;
    expectOpenAfter(Saving + loseCompanion());
    Session().FHConnectionString = text;
    QCoreApplication::processEvents();
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(attendees(newestKey()), QStringLiteral("4"));
}

// An event that stands.

TEST_F(EventSave, AnEditedEventKeepsItsLastDayAndLosesItsReminder) {
    const int key = huddle({Lane, Reed});
    openEvent(key);
    type(form->txtevent, QStringLiteral("Huddle of all"));
    type(form->txtdate, QStringLiteral("3/20/2026"));
    type(form->txtstarttime, QStringLiteral("2:15 PM"));
    type(form->txtduration, QStringLiteral("45"));
    form->ckallday->click();
    form->ckAllProviders->click();
    clickAttendee("Lane");
    clickAttendee("Quintana");
    ok();
    EXPECT_TRUE(form->IsWritten());
    EXPECT_EQ(form->SavedKey(), key);
    EXPECT_EQ(stored(key), QStringLiteral("Huddle of all|2026-03-20|855|45|1|1"));
    EXPECT_EQ(column("CEveEndDate", key).left(10), QStringLiteral("2026-03-13")) << "before the edited day";
    EXPECT_EQ(column("CEveReminderInd", key), QStringLiteral("0"));
    EXPECT_EQ(column("CEveReminderLeadMinutes", key), QStringLiteral("15")) << "written on insert only";
    EXPECT_EQ(column("DateCreated", key).left(10), QStringLiteral("2026-01-02"));
    EXPECT_EQ(column("UserIDCreated", key), QStringLiteral("9"));
    EXPECT_EQ(column("LastModifiedDate", key), QStringLiteral("2026-03-10 08:30:00"));
    EXPECT_EQ(column("UserIDLastModified", key), QStringLiteral("4711"));
    EXPECT_EQ(attendees(key), QStringLiteral("3 4"));
}

TEST_F(EventSave, OkWithoutAChangeStillTakesTheReminder) {
    const int key = huddle({Lane, Reed});
    openEvent(key);
    ok();
    EXPECT_EQ(stored(key), Unchanged);
    EXPECT_EQ(column("CEveReminderInd", key), QStringLiteral("0"));
    EXPECT_EQ(column("UserIDLastModified", key), QStringLiteral("4711"));
    EXPECT_EQ(attendees(key), QStringLiteral("1 4"));
}

TEST_F(EventSave, AnEditIsWrittenInItsOrder) {
    const int key = huddle({Lane, Reed});
    openEvent(key);
    const TripLog log;
    ok();
    EXPECT_TRUE(log.sent().contains(Sql("Select * from CalendarEvents Where ceveid = {}", key)));
    expectWrites(log, {QStringLiteral("(begin)"), QStringLiteral("Update [CalendarEvents] "),
                       Sql("Delete from CalendarProviderEvents Where ceveID = {}", key),
                       Sql("Insert Into CalendarProviderEvents (ceveID, provid) Values({}, 1)", key),
                       Sql("Insert Into CalendarProviderEvents (ceveID, provid) Values({}, 4)", key),
                       QStringLiteral("(commit)")});
}

TEST_F(EventSave, CancelWritesNothing) {
    const int key = huddle({Reed});
    openEvent(key);
    clickAttendee("Lane");
    press(form->cmdCancel, Qt::Key_Space);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(form->IsWritten());
    EXPECT_EQ(form->SavedKey(), 0);
    EXPECT_EQ(attendees(key), QStringLiteral("4"));
    EXPECT_EQ(column("CEveReminderInd", key), QStringLiteral("1"));
}

TEST_F(EventSave, AnOldOneIsChangedWithItsAttendeesOrNotAtAllAndNothingTypedIsLost) {
    const std::pair<const char*, const char*> steps[] = {
        {"Update", "CalendarEvents"}, {"Delete", "CalendarProviderEvents"}, {"Insert", "CalendarProviderEvents"}};
    for (const auto& [operation, table] : steps) {
        const int key = huddle({Reed});
        openEvent(key);
        type(form->txtevent, QStringLiteral("Mine"));
        clickAttendee("Lane");
        const QString why = companion.refuse(QString::fromLatin1(operation), QString::fromLatin1(table));
        expectOpenAfter(Modifying + why);
        EXPECT_EQ(stored(key), Unchanged) << operation << table;
        EXPECT_EQ(column("CEveReminderInd", key), QStringLiteral("1")) << operation << table;
        EXPECT_EQ(attendees(key), QStringLiteral("4")) << operation << table;
        EXPECT_EQ(form->txtevent->text(), QStringLiteral("Mine"));
        companion.allow(QString::fromLatin1(operation), QString::fromLatin1(table));
        ok();
        EXPECT_EQ(column("CEveName", key), QStringLiteral("Mine")) << operation << table;
        EXPECT_EQ(attendees(key), QStringLiteral("1 4")) << operation << table;
    }
}

// The companion, or another desk, writes meanwhile.

TEST_F(EventSave, TheirChangeOfAnotherFieldStaysAndIsTold) {
    QWidget window;
    const NoticeBar bar(&window);
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtstarttime, QStringLiteral("10:00 AM"));
    theySet("CEveName = 'Theirs', CEveDuration = 90, CEveAllDayInd = 1");
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(key), QStringLiteral("Theirs|2026-03-11|600|90|1|0"));
    EXPECT_EQ(bar.Texts(), QStringList{Kept});
}

TEST_F(EventSave, TheSameChangeOfBothIsNoClash) {
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtevent, QStringLiteral("Ours"));
    theySet("CEveName = 'Ours'");
    ok();
    EXPECT_EQ(column("CEveName", key), QStringLiteral("Ours"));
}

TEST_F(EventSave, AFieldThatBothChangedIsNotWrittenOver) {
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtevent, QStringLiteral("Mine"));
    theySet("CEveName = 'Theirs'");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    EXPECT_EQ(column("CEveName", key), QStringLiteral("Theirs"));
    EXPECT_EQ(column("CEveReminderInd", key), QStringLiteral("1"));
    EXPECT_EQ(form->txtevent->text(), QStringLiteral("Mine"));
}

TEST_F(EventSave, ADayOfTheirsAndATimeOfOursAreNotMixed) {
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtstarttime, QStringLiteral("10:00 AM"));
    theySet("CEveDate = '2026/03/18'");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    EXPECT_EQ(stored(key), QStringLiteral("Huddle|2026-03-18|540|30|0|0"));
}

TEST_F(EventSave, ANoticeTakesNoHeightFromTheFields) {
    const int key = huddle({Reed});
    openEvent(key);
    const int list = form->List1->height();
    const int before = form->height();
    type(form->txtevent, QStringLiteral("Mine"));
    theySet("CEveName = 'Theirs'");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    QApplication::processEvents();
    EXPECT_EQ(form->List1->height(), list);
    const int grown = form->height();
    EXPECT_EQ(grown, before + form->lblnotice->parentWidget()->height() + form->layout()->spacing());
    theySet("CEveName = 'Others'");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    QApplication::processEvents();
    EXPECT_EQ(form->height(), grown);
}

TEST_F(EventSave, ASecondOkWritesWhatClashedAndKeepsTheirOtherChanges) {
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtevent, QStringLiteral("Mine"));
    theySet("CEveName = 'Theirs', CEveDuration = 90");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    EXPECT_TRUE(form->lblnotice->isVisible());
    EXPECT_TRUE(form->lblnotice->text().contains("OK"));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(key), QStringLiteral("Mine|2026-03-11|540|90|0|0"));
}

TEST_F(EventSave, ASecondOkIsRefusedWhenTheyChangedItOnceMore) {
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtevent, QStringLiteral("Mine"));
    theySet("CEveName = 'Theirs'");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    theySet("CEveName = 'Theirs again'");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    EXPECT_EQ(column("CEveName", key), QStringLiteral("Theirs again"));
    ok();
    EXPECT_EQ(column("CEveName", key), QStringLiteral("Mine"));
}

TEST_F(EventSave, ASecondOkWritesTheFirstNameWhenItWasTypedAgain) {
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtevent, QStringLiteral("Mine"));
    type(form->txtstarttime, QStringLiteral("10:00 AM"));
    theySet("CEveName = 'Theirs'");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    type(form->txtevent, QStringLiteral("Huddle"));
    ok();
    EXPECT_EQ(stored(key), QStringLiteral("Huddle|2026-03-11|600|30|0|0"));
}

TEST_F(EventSave, ASecondOkWritesDayAndStartOfOurs) {
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtstarttime, QStringLiteral("10:00 AM"));
    theySet("CEveDate = '2026/03/18'");
    expectOpenAfter(Modifying + ChangedMeanwhile);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(key), QStringLiteral("Huddle|2026-03-11|600|30|0|0"));
}

TEST_F(EventSave, ASecondOkWritesTheAttendeesAsTheFormShowsThem) {
    const int key = huddle({Lane, Reed});
    openEvent(key);
    clickAttendee("Reed");
    run(QStringLiteral("Delete from CalendarProviderEvents Where ProvId = 1"));
    expectOpenAfter(Modifying + ChangedMeanwhile);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(attendees(key), QStringLiteral("1"));
}

TEST_F(EventSave, WhomTheyAddedAttendsAndWhomTheyTookAwayDoesNot) {
    const int key = huddle({Lane, Reed});
    openEvent(key);
    clickAttendee("O'Brien");
    run(QStringLiteral("Delete from CalendarProviderEvents Where ProvId = 1"));
    run(Sql("Insert Into CalendarProviderEvents (CEveId, ProvId) Values ({}, 3)", key));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(attendees(key), QStringLiteral("2 3 4"));
}

TEST_F(EventSave, AnEventIsNotLeftWithoutAttendees) {
    const int key = huddle({Lane, Reed});
    openEvent(key);
    clickAttendee("Reed");
    run(QStringLiteral("Delete from CalendarProviderEvents Where ProvId = 1"));
    expectOpenAfter(Modifying + ChangedMeanwhile);
    EXPECT_EQ(attendees(key), QStringLiteral("4"));
}

TEST_F(EventSave, AnEventThatTheyDeletedStaysDeletedAndNothingTypedIsLost) {
    openEvent(huddle({Reed}));
    type(form->txtevent, QStringLiteral("Mine"));
    run(QStringLiteral("Delete from CalendarEvents"));
    run(QStringLiteral("Delete from CalendarProviderEvents"));
    for (int twice = 0; twice < 2; ++twice)
        expectOpenAfter(Modifying + QStringLiteral("Another user may have deleted this event. "));
    EXPECT_EQ(companion.number(QStringLiteral("Select Count(*) from CalendarProviderEvents")), 0);
    EXPECT_EQ(form->txtevent->text(), QStringLiteral("Mine"));
}

TEST_F(EventSave, AnEventThatTheyMadeASeriesIsLeftToThem) {
    const int key = huddle({Reed});
    openEvent(key);
    type(form->txtevent, QStringLiteral("Mine"));
    theySet("RecrId = 3");
    desk.expectBox(QStringLiteral("You cannot modify a recurring event in Solvane. Use Fernhall to modify this event."),
                   QStringLiteral("Solvane"));
    ok();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(stored(key), Unchanged);
    desk.expectBox(QStringLiteral("Are you sure you want to delete this event?"), QStringLiteral("Delete Event"),
                   Answer::Yes);
    desk.expectBox(QStringLiteral("Unable to delete a recurring event in Solvane. Use Fernhall to delete this event."),
                   QStringLiteral("Solvane"));
    clickDelete();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(stored(key), Unchanged);
}

// Deleting.

TEST_F(EventSave, DeletingAsksAndThenRemovesTheEventForAll) {
    const int other = huddle({Lane});
    const int key = huddle({Lane, Reed});
    openEvent(key);
    deleteAnswering(Answer::No);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(stored(key), Unchanged);
    const TripLog log;
    deleteAnswering(Answer::Yes);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(form->IsWritten());
    EXPECT_EQ(form->SavedKey(), 0);
    expectWrites(log, {QStringLiteral("(begin)"), Sql("Delete from CalendarEvents Where ceveid = {}", key),
                       Sql("Delete from CalendarProviderEvents Where ceveID = {}", key), QStringLiteral("(commit)")});
    EXPECT_EQ(stored(key), QStringLiteral("(none)"));
    EXPECT_EQ(attendees(key), QString());
    EXPECT_EQ(stored(other), Unchanged);
    EXPECT_EQ(attendees(other), QStringLiteral("1"));
}

TEST_F(EventSave, ADeleteThatFailsLeavesTheEventWhole) {
    const int key = huddle({Reed});
    openEvent(key);
    for (const char* table : {"CalendarEvents", "CalendarProviderEvents"}) {
        const QString why = companion.refuse(QStringLiteral("Delete"), QString::fromLatin1(table));
        desk.expectBox(QStringLiteral("Are you sure you want to delete this event?"), QStringLiteral("Delete Event"),
                       Answer::Yes);
        desk.expectBox(Deleting + why, Error);
        clickDelete();
        EXPECT_TRUE(isOpen()) << table;
        EXPECT_FALSE(form->IsWritten()) << table;
        EXPECT_EQ(stored(key), Unchanged) << table;
        EXPECT_EQ(attendees(key), QStringLiteral("4")) << table;
        companion.allow(QStringLiteral("Delete"), QString::fromLatin1(table));
    }
    deleteAnswering(Answer::Yes);
    EXPECT_EQ(stored(key), QStringLiteral("(none)"));
}

TEST_F(EventSave, WhatTheyChangedIsNotDeletedUnseen) {
    const int key = huddle({Reed});
    for (const char* change :
         {"Update CalendarEvents Set CEveName = 'Theirs'",
          "Insert Into CalendarProviderEvents (CEveId, ProvId) Select Max(CEveId), 2 from CalendarEvents"}) {
        openEvent(key);
        run(QString::fromLatin1(change));
        desk.expectBox(QStringLiteral("Are you sure you want to delete this event?"), QStringLiteral("Delete Event"),
                       Answer::Yes);
        desk.expectBox(Deleting + ChangedMeanwhile, Error);
        clickDelete();
        EXPECT_TRUE(isOpen()) << change;
    }
    EXPECT_EQ(column("CEveName", key), QStringLiteral("Theirs"));
    EXPECT_EQ(attendees(key), QStringLiteral("2 4"));
}

TEST_F(EventSave, AnEventThatTheyDeletedIsDeletedWithoutAWord) {
    openEvent(huddle({Reed}));
    run(QStringLiteral("Delete from CalendarEvents"));
    run(QStringLiteral("Delete from CalendarProviderEvents"));
    deleteAnswering(Answer::Yes);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(form->IsWritten());
}
