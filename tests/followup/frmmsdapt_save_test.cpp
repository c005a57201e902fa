#include <QDateTime>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"
#include "platform/database/recordset.h"
#include "session/session.h"
#include "tests/followup/missednotefixture.h"

using db::Sql;

namespace {

const QString Saving = QStringLiteral("Error saving note. ");
const QString ErrorSaving = QStringLiteral("Error Saving");
const QString NoteDeleted = QStringLiteral("Note Deleted");
const QString Deleted = QStringLiteral("Another user has deleted this note.");
const QString AsNewNote = QStringLiteral("Do you want to save it as a new note?");
const QString Discard = QStringLiteral("Close without saving what you have changed?");
const QString ChangedMeanwhile =
    QStringLiteral("Row cannot be located for updating. Some values may have been changed since it was last read.");

class MissedNoteSave : public MissedNoteFixture {
  protected:
    QDateTime modifiedMoment(int note) {
        return db::Recordset(Sql("Select ModifiedDate from sessions Where id = {}", note), database.connection())[0]
            .dateTime();
    }
    QDateTime serverTime() {
        return db::Recordset(QStringLiteral("Select GetDate()"), database.connection())[0].dateTime();
    }
    /// Nothing of a new note is there, and the text is still in the form.
    void expectNothingSaved(const QString& reason) {
        EXPECT_EQ(rowCount("sessions"), 0);
        EXPECT_EQ(rowCount("MissedAppt"), 0);
        EXPECT_EQ(text(QStringLiteral("Select NoteID from appointments")), QString());
        EXPECT_TRUE(isOpen());
        EXPECT_EQ(form->txtreason->toPlainText(), reason);
        EXPECT_FALSE(form->NoteSaved());
        EXPECT_EQ(auditLines(), QStringList());
    }
};

}  // namespace

// The checks of OK.

TEST_F(MissedNoteSave, OkAsksForTheProviderThenTheReasonThenTheDate) {
    open();
    form->cboprovider->SetListIndex(-1);
    form->ctdate->setText(QStringLiteral("soon"));
    desk.expectBox(QStringLiteral("Enter who appointment was with."), QStringLiteral("Provider"));
    ok();
    EXPECT_TRUE(form->cboprovider->hasFocus());
    QTest::keyClicks(form->cboprovider, QStringLiteral("ree"));
    for (const char* blank : {"", "  "}) {
        type(QString::fromLatin1(blank));
        desk.expectBox(QStringLiteral("Enter a Reason for Missed Appointment."), QStringLiteral("Reason"));
        ok();
        EXPECT_TRUE(form->txtreason->hasFocus());
    }
    type(QStringLiteral("Ill"));
    desk.expectBox(QStringLiteral("Enter a valid date."), QStringLiteral("Solvane"));
    ok();
    EXPECT_TRUE(form->ctdate->hasFocus());
    expectNothingSaved(QStringLiteral("Ill"));
    form->ctdate->setDate(day);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(rowCount("sessions"), 1);
}

// A new note.

TEST_F(MissedNoteSave, ANewNoteIsOneRowInEachTableAndTiedToTheAppointment) {
    open();
    type(QStringLiteral("Car broke down"));
    form->ctdate->setDate(QDate(2026, 3, 10));
    form->cboprovider->SetText(QStringLiteral("O'Brien"));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(form->NoteSaved());
    const int note = form->NoteId();
    EXPECT_EQ(rowCount("sessions"), 1);
    EXPECT_EQ(number(QStringLiteral("Select id from sessions")), note);
    EXPECT_EQ(newest("stype", "sessions"), QStringLiteral("6"));
    EXPECT_EQ(newest("Patient", "sessions"), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(newest("incident", "sessions"), QStringLiteral("3"));
    EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("OBRIEN"));
    EXPECT_EQ(newest("DateMarker", "sessions").left(10), QStringLiteral("2026-03-10"));
    for (const char* column : {"ModifiedDate", "SignatureDate", "patientid", "CPTCode"})
        EXPECT_EQ(newest(column, "sessions"), QString()) << column;
    EXPECT_EQ(number(QStringLiteral("Select id from MissedAppt")), note);
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Car broke down"));
    EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), note);
    EXPECT_EQ(
        auditLines(),
        QStringList{QStringLiteral("Add: Added new Missed Appointment Note of 03/10/2026 for patient, Jones, Mary")});
}

TEST_F(MissedNoteSave, TheTypeOfTheNoteFollowsTheAppointment) {
    for (const int type : {6, 7, 8}) {
        run(QStringLiteral("Update appointments Set NoteID = null"));
        request.ItemColor = 192 + type - 6;
        open();
        form->txtreason->setPlainText(QStringLiteral("Ill"));
        ok();
        EXPECT_EQ(newest("stype", "sessions").toInt(), type);
    }
}

TEST_F(MissedNoteSave, APatientWithoutAnIncidentGivesANoteWithoutOne) {
    for (const char* statement : {"Update patient_info Set incident_nbr = null", "Delete from patient_info",
                                  "Update appointments Set patientid = null"}) {
        run(QString::fromLatin1(statement));
        run(QStringLiteral("Update appointments Set NoteID = null"));
        open();
        type(QStringLiteral("Ill"));
        ok();
        EXPECT_FALSE(isOpen()) << statement;
        EXPECT_EQ(newest("incident", "sessions"), QString()) << statement;
    }
}

TEST_F(MissedNoteSave, ALongReasonWithQuotesBarsAndPicturesIsKeptWhole) {
    QString reason = QStringLiteral("Mrs. O'Brien said: \"no; | not ''today''\" \U0001F600 \u00e9\n");
    while (reason.size() < 100000)
        reason += reason;
    open();
    form->txtreason->insertPlainText(reason);
    ok();
    EXPECT_FALSE(isOpen());
    const QString stored =
        db::Recordset(QStringLiteral("Select reason from MissedAppt"), database.connection())[0].text();
    EXPECT_GT(stored.size(), 100000);
    EXPECT_EQ(stored, QString(reason).replace(QLatin1Char('\n'), QStringLiteral("\r\n")));
    request.NoteId = form->NoteId();
    EXPECT_EQ(open().txtreason->toPlainText(), reason);
}

TEST_F(MissedNoteSave, BarsAndSemicolonsCanBeTyped) {
    open();
    type(QStringLiteral("a|b;c"));
    ok();
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("a|b;c"));
}

TEST_F(MissedNoteSave, ANewNoteIsWrittenWithAllItsRowsOrNotAtAll) {
    const std::pair<const char*, const char*> steps[] = {
        {"Insert", "sessions"}, {"Insert", "MissedAppt"}, {"Update", "appointments"}};
    for (const auto& [operation, table] : steps) {
        open();
        type(QStringLiteral("Ill"));
        desk.expectBox(Saving + database.refuse(QString::fromLatin1(operation), QString::fromLatin1(table)),
                       ErrorSaving);
        ok();
        expectNothingSaved(QStringLiteral("Ill"));
        database.allow(QString::fromLatin1(operation), QString::fromLatin1(table));
    }
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), form->NoteId());
}

TEST_F(MissedNoteSave, ALostDatabaseIsToldAndNothingTypedIsLost) {
    open();
    type(QStringLiteral("Ill"));
    desk.expectBox(Saving + loseDatabase(), ErrorSaving);
    ok();
    expectNothingSaved(QStringLiteral("Ill"));
    Session().Connection.Open(database.connectionText());
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(rowCount("MissedAppt"), 1);
}

TEST_F(MissedNoteSave, AFormThatOpenedWithoutADatabaseSavesTheNameOnceItIsBack) {
    loseDatabase();
    open();
    Session().Connection.Open(database.connectionText());
    type(QStringLiteral("Ill"));
    desk.expectBox(QStringLiteral("Enter who appointment was with."), QStringLiteral("Provider"));
    ok();
    form->LoadProviders();
    ok();
    EXPECT_EQ(newest("Patient", "sessions"), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(newest("incident", "sessions"), QStringLiteral("3"));
}

TEST_F(MissedNoteSave, AnAppointmentThatAnotherUserDeletedGetsNoNote) {
    open();
    type(QStringLiteral("Ill"));
    run(QStringLiteral("Delete from appointments"));
    desk.expectBox(Saving + QStringLiteral("Another user has deleted this appointment."), ErrorSaving);
    ok();
    EXPECT_EQ(rowCount("sessions"), 0);
    EXPECT_EQ(rowCount("MissedAppt"), 0);
    EXPECT_TRUE(isOpen());
}

TEST_F(MissedNoteSave, ANoteThatAnotherUserWroteMeanwhileStaysTheAppointmentsNote) {
    open();
    type(QStringLiteral("Ill"));
    const int theirs = addNote(QStringLiteral("On holiday"));
    desk.expectBox(Saving + QStringLiteral("Another user has written a note for this appointment."), ErrorSaving);
    ok();
    EXPECT_EQ(rowCount("sessions"), 1);
    EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), theirs);
    EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("Ill"));
}

// An existing note.

TEST_F(MissedNoteSave, OkWithoutAChangeWritesNothing) {
    const int note = addNote(QStringLiteral("Odd \r ends\n and\ttabs "));
    run(QStringLiteral("Update sessions Set DateMarker = '2026/03/11 09:30'"));
    open();
    auditLines();
    database.refuse(QStringLiteral("Update"), QStringLiteral("sessions"));
    database.refuse(QStringLiteral("Update"), QStringLiteral("MissedAppt"));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(form->NoteSaved());
    EXPECT_EQ(modified(note), QStringLiteral("2026-03-11 15:05"));
    EXPECT_EQ(auditLines(), QStringList());
}

TEST_F(MissedNoteSave, AChangeIsWrittenAndTheRestStaysAsItIsStored) {
    const int note = addNote();
    run(QStringLiteral("Update sessions Set DateMarker = '2026/03/11 09:30', providerid = 'reed', CPTCode = '90834'"));
    open();
    auditLines();
    type(QStringLiteral("Bus was late"));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(form->NoteSaved());
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Bus was late"));
    EXPECT_EQ(newest("DateMarker", "sessions"), QStringLiteral("2026-03-11 09:30:00"));
    EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("reed"));
    EXPECT_EQ(newest("CPTCode", "sessions"), QStringLiteral("90834"));
    EXPECT_EQ(rowCount("sessions"), 1);
    EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), note);
    EXPECT_EQ(
        auditLines(),
        QStringList{QStringLiteral("Modify: Modified Missed Appointment Note of 03/11/2026 for patient, Jones, Mary")});
}

TEST_F(MissedNoteSave, AReasonThatWasLeftAloneKeepsItsLineEnds) {
    const QString odd = QStringLiteral("Odd \r ends\n and\ttabs\u00a0");
    addNote(odd);
    open();
    form->ctdate->setDate(QDate(2026, 3, 9));
    ok();
    EXPECT_EQ(newest("DateMarker", "sessions").left(10), QStringLiteral("2026-03-09"));
    EXPECT_EQ(newest("reason", "MissedAppt"), odd);
}

TEST_F(MissedNoteSave, AProviderWhoIsArchivedMeanwhileStaysTheNotesProvider) {
    open();
    type(QStringLiteral("Ill"));
    form->cboprovider->SetText(QStringLiteral("O'Brien"));
    run(QStringLiteral("Update provider_info Set archive = 1 Where id = 'OBRIEN'"));
    ok();
    EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("OBRIEN"));
    request.NoteId = form->NoteId();
    EXPECT_EQ(open().cboprovider->Text(), QStringLiteral("O'Brien (no longer on the list)"));
}

TEST_F(MissedNoteSave, AnotherDateOrProviderIsAChangeToo) {
    const int note = addNote();
    open();
    form->ctdate->setDate(QDate(2026, 3, 9));
    ok();
    EXPECT_EQ(newest("DateMarker", "sessions").left(10), QStringLiteral("2026-03-09"));
    const QString first = modified(note);
    EXPECT_NE(first, QStringLiteral("2026-03-11 15:05"));
    open();
    form->cboprovider->SetText(QStringLiteral("O'Brien"));
    ok();
    EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("OBRIEN"));
    EXPECT_NE(modified(note), first);
}

TEST_F(MissedNoteSave, AChangeMovesTheModifiedDateToTheServersTime) {
    const int note = addNote();
    for (const char* before : {"null", "'2020/01/01 08:00'"}) {
        run(Sql("Update sessions Set ModifiedDate = {}", db::Raw{QString::fromLatin1(before)}));
        open();
        type(QStringLiteral("Ill, ") + QString::fromLatin1(before));
        const QDateTime from = serverTime();
        ok();
        EXPECT_GE(modifiedMoment(note), from) << before;
        EXPECT_LE(modifiedMoment(note), serverTime()) << before;
    }
}

TEST_F(MissedNoteSave, TwoChangesInAMinuteAreAMinuteApart) {
    const int note = addNote();
    open();
    type(QStringLiteral("Ill"));
    ok();
    const QDateTime first = modifiedMoment(note);
    open();
    type(QStringLiteral("Very ill"));
    ok();
    EXPECT_GE(first.secsTo(modifiedMoment(note)), 60);
    // A clock that was set back does not bring an old key back either.
    run(QStringLiteral("Update sessions Set ModifiedDate = '2050/01/01 08:00'"));
    open();
    type(QStringLiteral("Better"));
    ok();
    EXPECT_EQ(modified(note), QStringLiteral("2050-01-01 08:01"));
}

TEST_F(MissedNoteSave, AnOldNoteIsChangedInBothTablesOrNotAtAll) {
    const int note = addNote();
    for (const char* table : {"sessions", "MissedAppt"}) {
        open();
        auditLines();
        type(QStringLiteral("Ill"));
        form->cboprovider->SetText(QStringLiteral("O'Brien"));
        desk.expectBox(Saving + database.refuse(QStringLiteral("Update"), QString::fromLatin1(table)), ErrorSaving);
        ok();
        EXPECT_TRUE(isOpen()) << table;
        EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("Ill")) << table;
        EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Car broke down")) << table;
        EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("REED")) << table;
        EXPECT_EQ(modified(note), QStringLiteral("2026-03-11 15:05")) << table;
        EXPECT_EQ(auditLines(), QStringList()) << table;
        database.allow(QStringLiteral("Update"), QString::fromLatin1(table));
    }
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Ill"));
    EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("OBRIEN"));
}

TEST_F(MissedNoteSave, ALostDatabaseIsToldWhereANoteIsChangedToo) {
    addNote();
    open();
    type(QStringLiteral("Ill"));
    desk.expectBox(Saving + loseDatabase(), ErrorSaving);
    ok();
    EXPECT_TRUE(isOpen());
    Session().Connection.Open(database.connectionText());
    ok();
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Ill"));
}

// Another desk.

TEST_F(MissedNoteSave, ADeletedNoteIsToldAndSavedAnewWhereTheUserWants) {
    for (const char* table : {"sessions", "MissedAppt"}) {
        const int note = addNote();
        open();
        auditLines();
        type(QStringLiteral("Ill"));
        run(Sql("Delete from {}", db::Raw{QString::fromLatin1(table)}));
        desk.expectBox(Deleted, NoteDeleted);
        desk.expectBox(AsNewNote, NoteDeleted, Answer::No);
        ok();
        EXPECT_TRUE(isOpen()) << table;
        EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("Ill")) << table;
        EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), note) << table;
        EXPECT_EQ(auditLines(), QStringList()) << table;
        desk.expectBox(Deleted, NoteDeleted);
        desk.expectBox(AsNewNote, NoteDeleted, Answer::Yes);
        ok();
        EXPECT_FALSE(isOpen()) << table;
        EXPECT_NE(form->NoteId(), note) << table;
        EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Ill")) << table;
        EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), form->NoteId()) << table;
        EXPECT_EQ(auditLines(), QStringList{QStringLiteral(
                                    "Add: Added new Missed Appointment Note of 03/11/2026 for patient, Jones, Mary")});
        run(QStringLiteral("Delete from sessions"));
        run(QStringLiteral("Delete from MissedAppt"));
    }
}

TEST_F(MissedNoteSave, ADeletedNoteThatWasUnlinkedTooCanBeSavedAnew) {
    addNote();
    open();
    type(QStringLiteral("Ill"));
    run(QStringLiteral("Delete from sessions"));
    run(QStringLiteral("Update appointments Set NoteID = NULL"));
    desk.expectBox(Deleted, NoteDeleted);
    desk.expectBox(AsNewNote, NoteDeleted, Answer::Yes);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Ill"));
    EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), form->NoteId());
}

TEST_F(MissedNoteSave, ADeletedNoteThatNobodyChangedClosesWhereItIsNotWanted) {
    addNote();
    open();
    run(QStringLiteral("Delete from sessions"));
    desk.expectBox(Deleted, NoteDeleted);
    desk.expectBox(AsNewNote, NoteDeleted, Answer::No);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(form->NoteSaved());
}

TEST_F(MissedNoteSave, ANoteThatWasGoneAtOnceIsToldAgainAtSaving) {
    addNote();
    run(QStringLiteral("Delete from sessions"));
    desk.expectBox(Deleted, QStringLiteral("Solvane"));
    open();
    type(QStringLiteral("Ill"));
    desk.expectBox(Deleted, NoteDeleted);
    desk.expectBox(AsNewNote, NoteDeleted, Answer::Yes);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(newest("Patient", "sessions"), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(newest("stype", "sessions"), QStringLiteral("6"));
    EXPECT_EQ(number(QStringLiteral("Select NoteID from appointments")), form->NoteId());
}

TEST_F(MissedNoteSave, WhatAnotherDeskChangedInAnotherFieldStays) {
    addNote();
    open();
    type(QStringLiteral("Ill"));
    run(QStringLiteral("Update sessions Set providerid = 'OBRIEN', ModifiedDate = '2026/03/11 15:09'"));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(newest("providerid", "sessions"), QStringLiteral("OBRIEN"));
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Ill"));
}

TEST_F(MissedNoteSave, AReasonThatBothDesksChangedIsNotWrittenOver) {
    const int note = addNote();
    open();
    type(QStringLiteral("Ill"));
    run(QStringLiteral("Update MissedAppt Set reason = 'On holiday'"));
    desk.expectBox(Saving + ChangedMeanwhile, ErrorSaving);
    ok();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(form->txtreason->toPlainText(), QStringLiteral("Ill"));
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("On holiday"));
    EXPECT_EQ(modified(note), QStringLiteral("2026-03-11 15:05"));
}

TEST_F(MissedNoteSave, TheSameChangeByBothDesksIsNoChange) {
    const int note = addNote();
    open();
    type(QStringLiteral("Ill"));
    run(QStringLiteral("Update MissedAppt Set reason = 'Ill'"));
    auditLines();
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(modified(note), QStringLiteral("2026-03-11 15:05"));
    EXPECT_EQ(auditLines(), QStringList());
}

// Leaving.

TEST_F(MissedNoteSave, EscapeAsksBeforeWhatWasTypedIsLost) {
    open();
    type(QStringLiteral("Ill"));
    desk.expectBox(Discard, QStringLiteral("Missed Appointment Note"), Answer::No);
    QTest::keyClick(form->txtreason, Qt::Key_Escape);
    EXPECT_TRUE(isOpen());
    desk.expectBox(Discard, QStringLiteral("Missed Appointment Note"), Answer::Yes);
    QTest::keyClick(form->txtreason, Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(rowCount("sessions"), 0);
}

TEST_F(MissedNoteSave, EscapeAndCancelCloseWithoutAQuestionWhereNothingIsLost) {
    addNote();
    open();
    QTest::keyClick(form->txtreason, Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    open();
    type(QStringLiteral("Ill"));
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(form->NoteSaved());
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Car broke down"));
}

TEST_F(MissedNoteSave, ControlEnterInTheTextIsOk) {
    open();
    type(QStringLiteral("Ill"));
    QTest::keyClick(form->txtreason, Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    QTest::keyClicks(form->txtreason, QStringLiteral("since Monday"));
    QTest::keyClick(form->txtreason, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(newest("reason", "MissedAppt"), QStringLiteral("Ill\r\nsince Monday"));
}

TEST_F(MissedNoteSave, ADateThatIsStillBeingTypedCounts) {
    open();
    type(QStringLiteral("Ill"));
    form->ctdate->setFocus();
    QTest::keyClicks(form->ctdate, QStringLiteral("3/9/26"));
    QTest::keyClick(form->ctdate, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(newest("DateMarker", "sessions").left(10), QStringLiteral("2026-03-09"));
}
