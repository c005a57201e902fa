#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"
#include "platform/controls/noticebar.h"
#include "tests/appointments/editorfixture.h"

using db::Sql;

namespace {

const QString Error = QStringLiteral("Error");
const QString SaveFailed = QStringLiteral("Error saving appointment. ");
const QString ChangedByAnother =
    SaveFailed +
    QStringLiteral("Row cannot be located for updating. Some values may have been changed since it was last read.");

class EditorFailure : public EditorFixture {
  protected:
    /// The saved appointment opened, moved to eleven, with another room.
    int openMoved() {
        const int key = savedPatientAppointment();
        openRow(key, 1);
        form->ctend->setTime(720);
        form->ctstart->setTime(660);
        form->cborooms->SetListIndex(0);
        return key;
    }
    void otherDesk(const char* assignment, int key) {
        database.connection().Execute(
            Sql("Update appointments Set {} Where nkeyid = {}", db::Raw{QString::fromUtf8(assignment)}, key));
    }
    QString refuse(const char* operation, const char* table) {
        return database.refuse(QString::fromLatin1(operation), QString::fromLatin1(table));
    }
};

}  // namespace

TEST_F(EditorFailure, WithoutTheDatabaseNothingIsBookedAndWhatWasTypedStays) {
    openNew(2);
    type(form->cboevents, QStringLiteral("staff"));
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error checking for conflicts. Nothing has been saved. ") + why, Error);
    clickOk();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->cboevents->Text(), QStringLiteral("Staff Meeting"));
}

TEST_F(EditorFailure, WhereNobodyAnswersThePatientIsNotTakenForUnknown) {
    if (database.isOnServer())
        GTEST_SKIP() << "A server's database has no file here.";
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    form->txtaccount->setText(QStringLiteral("A-7"));
    ASSERT_TRUE(QFile::rename(database.file(), database.file() + ".away"));
    desk.expectBox(
        QStringLiteral(
            "Error reading patient list. The file of the database \"test\" was moved, deleted or replaced while it was open. Nothing is saved until it is opened again."),
        Error);
    clickOk();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->txtaccount->text(), QStringLiteral("A-7"));
}

TEST_F(EditorFailure, PatientsThatCannotBeReadAreSaidAndAskedForAndNoFieldIsEmptied) {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    form->txtaccount->setText(QStringLiteral("A-7"));
    const QString why = DropTable(database.connection(), QStringLiteral("patient_info"));
    desk.expectBox(QStringLiteral("Error reading patient list. ") + why, Error);
    desk.expectBox(QStringLiteral("Patient not found in database. Add patient now?"), QStringLiteral("Solvane"),
                   Answer::No);
    clickOk();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->txtaccount->text(), QStringLiteral("A-7"));
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(EditorFailure, ANewRowThatIsRefusedLeavesNothingAndAsksForNoEMail) {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    form->cborooms->SetListIndex(0);
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    desk.expectBox(SaveFailed + refuse("Insert", "appointments"), Error);
    clickOk();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(rowCount("appointments"), 0);
    EXPECT_EQ(rowCount("roomschedule"), 0);
    EXPECT_EQ(rowCount("AuditLog"), 0);
}

TEST_F(EditorFailure, ANewRowWhoseRoomIsRefusedIsNotThereEither) {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    form->cborooms->SetListIndex(0);
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    desk.expectBox(SaveFailed + refuse("Insert", "roomschedule"), Error);
    clickOk();
    EXPECT_EQ(rowCount("appointments"), 0);
    EXPECT_EQ(rowCount("roomschedule"), 0);
    EXPECT_EQ(rowCount("AuditLog"), 0);
}

TEST_F(EditorFailure, ARoomThatCannotBeTakenAwayLeavesRowAndRoom) {
    const int key = openMoved();
    desk.expectBox(SaveFailed + refuse("Delete", "roomschedule"), Error);
    clickOk();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(column("nStartTime", key), QStringLiteral("540"));
    EXPECT_EQ(database.number(QStringLiteral("Select croomid from roomschedule")), office);
}

TEST_F(EditorFailure, ARowThatIsRefusedKeepsItsRoom) {
    const int key = openMoved();
    desk.expectBox(SaveFailed + refuse("Update", "appointments"), Error);
    clickOk();
    EXPECT_EQ(column("nStartTime", key), QStringLiteral("540"));
    EXPECT_EQ(database.number(QStringLiteral("Select nStartTime from roomschedule")), 540);
    EXPECT_EQ(rowCount("AuditLog"), 1);
}

TEST_F(EditorFailure, ARowWhoseNewRoomIsRefusedStaysWhereItWasWithItsOldOne) {
    const int key = openMoved();
    desk.expectBox(SaveFailed + refuse("Insert", "roomschedule"), Error);
    clickOk();
    EXPECT_EQ(column("nStartTime", key), QStringLiteral("540"));
    EXPECT_EQ(database.number(QStringLiteral("Select nStartTime from roomschedule")), 540);
    EXPECT_EQ(rowCount("AuditLog"), 1);
}

TEST_F(EditorFailure, AFailedSaveLeavesNoTransactionOpen) {
    openMoved();
    desk.expectBox(SaveFailed + refuse("Insert", "roomschedule"), Error);
    clickOk();
    EXPECT_NO_THROW(Session().Connection.BeginTrans());
    EXPECT_NO_THROW(Session().Connection.RollbackTrans());
}

TEST_F(EditorFailure, WhatAFailedSaveClosedCanBeOpenedAndSavedAgain) {
    const int key = openMoved();
    form->txtnotes->setPlainText(QStringLiteral("Mary's card"));
    desk.expectBox(SaveFailed + refuse("Insert", "roomschedule"), Error);
    clickOk();
    EXPECT_TRUE(form->IsUnsaved());
    EXPECT_EQ(form->Subject(), QStringLiteral("appointment on 03/11/2026 at 11:00 AM"));
    database.allow(QStringLiteral("Insert"), QStringLiteral("roomschedule"));
    view.selectedKey = 0;
    Session().CurrentView = View::Month;
    form->show();
    EXPECT_FALSE(form->IsUnsaved());
    clickOk();
    EXPECT_FALSE(form->IsUnsaved());
    EXPECT_EQ(column("nStartTime", key), QStringLiteral("660"));
    EXPECT_EQ(column("CapptNote", key), QStringLiteral("90834  Psychotherapy|Mary's card"));
    EXPECT_EQ(rowCount("appointments"), 1);
    EXPECT_EQ(rowCount("roomschedule"), 1);
}

TEST_F(EditorFailure, WhatIsOpenedAgainIsNotWrittenOverAnotherDesksWork) {
    const int key = openMoved();
    desk.expectBox(SaveFailed + refuse("Insert", "roomschedule"), Error);
    clickOk();
    database.allow(QStringLiteral("Insert"), QStringLiteral("roomschedule"));
    otherDesk("CapptNote = '|theirs'", key);
    form->show();
    desk.expectBox(ChangedByAnother, Error);
    clickOk();
    EXPECT_EQ(column("CapptNote", key), QStringLiteral("|theirs"));
}

TEST_F(EditorFailure, AnAuditLineThatIsRefusedStopsNothing) {
    refuse("Insert", "AuditLog");
    const int key = savedPatientAppointment();
    EXPECT_GT(key, 0);
    EXPECT_EQ(rowCount("roomschedule"), 1);
}

TEST_F(EditorFailure, ATableThatIsGoneIsSaid) {
    openNew(2);
    type(form->cboevents, QStringLiteral("staff"));
    desk.expectBox(SaveFailed + DropTable(database.connection(), QStringLiteral("appointments")), Error);
    EXPECT_FALSE(form->saveappt(0, QStringLiteral("REED")));
}

TEST_F(EditorFailure, WhatAnotherDeskChangedMeanwhileIsNotWrittenOver) {
    for (const char* change : {"CapptNote = '|theirs'", "ncolor = 49152", "nStartTime = 555",
                               "dapptdate = '2026/03/12'", "CLOCATION = 'Elsewhere'", "lastmodifieduid = 'BACK'",
                               "cappttext = 'jones, mary'", "clinicianid = 'OBRIEN'", "appointment_type = 255"}) {
        database.connection().Execute("Delete from appointments");
        database.connection().Execute("Delete from roomschedule");
        const int key = openMoved();
        otherDesk(change, key);
        form->txtnotes->setPlainText(QStringLiteral("mine"));
        desk.expectBox(ChangedByAnother, Error);
        clickOk();
        EXPECT_FALSE(form->isVisible()) << change;
        EXPECT_NE(column("CapptNote", key), QStringLiteral("90834  Psychotherapy|mine")) << change;
        EXPECT_EQ(database.number(QStringLiteral("Select croomid from roomschedule")), office) << change;
        EXPECT_EQ(rowCount("appointments"), 1) << change;
    }
}

TEST_F(EditorFailure, WhatTheEditorDoesNotWriteMayChangeMeanwhileAndIsKept) {
    const int key = openMoved();
    otherDesk("CourtesyCallStatus = 'LM', NoteID = 7, repeating_ref = 3", key);
    clickOk();
    EXPECT_EQ(column("nStartTime", key), QStringLiteral("660"));
    EXPECT_EQ(column("CourtesyCallStatus", key), QStringLiteral("LM"));
    EXPECT_EQ(column("NoteID", key), QStringLiteral("7"));
}

TEST_F(EditorFailure, ARowThatAnotherDeskDeletedBecomesANewOneAndThatIsSaid) {
    const NoticeBar bar;
    const int key = openMoved();
    database.connection().Execute("Delete from appointments");
    database.connection().Execute("Delete from roomschedule");
    clickOk();
    EXPECT_EQ(rowCount("appointments"), 1);
    EXPECT_NE(newestKey(), key);
    EXPECT_EQ(column("nStartTime", newestKey()), QStringLiteral("660"));
    EXPECT_EQ(column("createduid", newestKey()), QStringLiteral("FRONT"));
    EXPECT_EQ(database.number(QStringLiteral("Select apptid from roomschedule")), newestKey());
    EXPECT_EQ(database.text(QStringLiteral("Select LogListId from AuditLog Order by LogId Desc")),
              QStringLiteral("Add Appointment"));
    EXPECT_EQ(bar.Texts(),
              QStringList(QStringLiteral(
                  "The appointment had been deleted at another desk and was added again as a new appointment.")));
}

TEST_F(EditorFailure, ASelectionThatMovedMeanwhileDoesNotMoveTheSave) {
    const int key = appointment({.text = QStringLiteral("Staff Meeting"), .patient = QString()});
    const int other = appointment({.start = 800, .end = 860, .text = QStringLiteral("Training")});
    openRow(key, 2);
    view.selectedKey = other;
    type(form->cboevents, QStringLiteral("lost"));
    desk.expectBox(QStringLiteral("Event is not on the list. Do you want to add it?"), QStringLiteral("Item Not Found"),
                   Answer::No);
    clickOk();
    EXPECT_EQ(column("cappttext", other), QStringLiteral("Training"));
    EXPECT_EQ(column("cappttext", key), QStringLiteral("lost"));
}

TEST_F(EditorFailure, AViewThatLostItsSelectionDoesNotDoubleTheAppointment) {
    const int key = openMoved();
    view.selectedKey = 0;
    clickOk();
    EXPECT_EQ(rowCount("appointments"), 1);
    EXPECT_EQ(column("nStartTime", key), QStringLiteral("660"));
}

TEST_F(EditorFailure, ARoomThatCouldNotBeReadIsNotTakenAway) {
    const int key = savedPatientAppointment();
    desk.expectBox(QStringLiteral("Error reading room schedule. ") +
                       DropTable(database.connection(), QStringLiteral("roomschedule")),
                   Error);
    openRow(key, 1);
    database.connection().Execute(
        "Create Table roomschedule (nkeyid int identity(1,1) not null primary key, apptid int null, croomid int null)");
    database.connection().Execute(Sql("Insert Into roomschedule (apptid, croomid) Values ({}, {})", key, office));
    type(form->txtnotes, QStringLiteral("Later"));
    clickOk();
    EXPECT_EQ(column("CapptNote", key), QStringLiteral("90834  Psychotherapy|Later"));
    EXPECT_EQ(rowCount("roomschedule"), 1);
}

TEST_F(EditorFailure, APatientWhoWasRemovedIsAskedFor) {
    openRow(savedPatientAppointment(), 1);
    database.connection().Execute("Delete from patient_info");
    type(form->txtnotes, QStringLiteral("Later"));
    desk.expectBox(QStringLiteral("Patient not found in database. Add patient now?"), QStringLiteral("Solvane"),
                   Answer::No);
    clickOk();
    EXPECT_TRUE(form->isVisible());
}

TEST_F(EditorFailure, AServiceAndALocationThatWereRemovedAreKeptAsText) {
    const int key = savedPatientAppointment();
    database.connection().Execute("Delete from session_types");
    database.connection().Execute("Delete from Locations");
    openRow(key, 1);
    type(form->txtnotes, QStringLiteral("Later"));
    clickOk();
    EXPECT_EQ(column("CapptNote", key), QStringLiteral("90834  Psychotherapy|Later"));
    EXPECT_EQ(column("CLOCATION", key), QStringLiteral("Annex"));
}

TEST_F(EditorFailure, AProviderWhoWasRemovedCanStillBeBookedAndWrittenFor) {
    database.connection().Execute("Delete from provider_info");
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    desk.expectBox(
        QStringLiteral(
            "To: mary@example.org\nThis e-mail is to remind you of your appointment on 03/11/2026 at 9:00 AM with Reed."),
        QStringLiteral("Send e-mail?"), Answer::No);
    clickOk();
    EXPECT_EQ(column("clinicianid", newestKey()), QStringLiteral("REED"));
}
