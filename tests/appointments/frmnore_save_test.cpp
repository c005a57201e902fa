#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QUrlQuery>

#include "appointments/appointmentconflict.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"
#include "tests/appointments/editorfixture.h"

using db::Sql;

namespace {

const QString MissingData = QStringLiteral("Missing Data");

class EditorSave : public EditorFixture {
  protected:
    void openFor(const char* id, const char* name) {
        openNew(1);
        choose(QString::fromLatin1(id), QString::fromUtf8(name));
    }
    void expectConflict(const char* title, const char* button) {
        desk.expectForm("AppointmentConflict", [title, button](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QString::fromLatin1(title));
            dialog.findChild<QPushButton*>(QString::fromLatin1(button))->click();
        });
    }
    QString audit(const char* what) {
        return database.text(Sql("Select {} from AuditLog Order by LogId Desc", db::Raw{QString::fromLatin1(what)}));
    }
    QString room(const char* what) {
        return database.text(Sql("Select {} from roomschedule", db::Raw{QString::fromLatin1(what)}));
    }
    void preferAlarm(const char* leadMinutes) {
        database.connection().Execute(
            "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('REED', 'Interfaces', 'ScheduleAlarm', '1')");
        database.connection().Execute(Sql(
            "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('REED', 'Interfaces', 'ScheduleAlarmTime', '{}')",
            leadMinutes));
    }
};

}  // namespace

TEST_F(EditorSave, APatientAppointmentIsWrittenWholeWithItsRoomAndAuditLine) {
    const int key = savedPatientAppointment();
    EXPECT_EQ(column("nStartTime", key), QStringLiteral("540"));
    EXPECT_EQ(column("nEndTime", key), QStringLiteral("600"));
    EXPECT_EQ(column("dapptdate", key), QStringLiteral("2026-03-11 00:00:00"));
    EXPECT_EQ(column("cappttext", key), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(column("CapptNote", key), QStringLiteral("90834  Psychotherapy|Bring the forms"));
    EXPECT_EQ(column("ncolor", key), QStringLiteral("16711681"));
    EXPECT_EQ(column("appttype", key), QStringLiteral("0"));
    EXPECT_EQ(column("appointment_type", key), QString());
    EXPECT_EQ(column("clinicianid", key), QStringLiteral("REED"));
    EXPECT_EQ(column("patientid", key), QStringLiteral("10017"));
    EXPECT_EQ(column("CLOCATION", key), QStringLiteral("Annex"));
    EXPECT_EQ(column("BLOCATEICO", key), QStringLiteral("1"));
    EXPECT_EQ(column("BremindIco", key), QStringLiteral("0"));
    EXPECT_EQ(column("ReminderTime", key), QString());
    EXPECT_EQ(column("BPrivateIco", key), QStringLiteral("0"));
    EXPECT_EQ(column("BTentIco", key), QStringLiteral("0"));
    EXPECT_EQ(column("createddate", key), QStringLiteral("2026-03-10 08:30:00"));
    EXPECT_EQ(column("createduid", key), QStringLiteral("FRONT"));
    EXPECT_EQ(column("lastmodifieddate", key), QStringLiteral("2026-03-10 08:30:00"));
    EXPECT_EQ(column("lastmodifieduid", key), QStringLiteral("FRONT"));

    EXPECT_EQ(rowCount("roomschedule"), 1);
    EXPECT_EQ(room("apptid").toInt(), key);
    EXPECT_EQ(room("croomid").toInt(), office);
    EXPECT_EQ(room("croomtext"), QStringLiteral("Reed"));
    EXPECT_EQ(room("nStartTime"), QStringLiteral("540"));
    EXPECT_EQ(room("nEndTime"), QStringLiteral("600"));
    EXPECT_EQ(room("nApptDate"), QStringLiteral("2026-03-11 00:00:00"));

    EXPECT_EQ(audit("LogListId"), QStringLiteral("Add Appointment"));
    EXPECT_EQ(audit("LogLocation"), QStringLiteral("Scheduler"));
    EXPECT_EQ(audit("LogUser"), QStringLiteral("FRONT"));
    EXPECT_EQ(audit("LogDescription"), QStringLiteral("Added Appointment on 03/11/2026 at 9:00 AM for Jones, Mary"));
}

TEST_F(EditorSave, AnEditRewritesTheRowAndItsRoomAndSaysWhatChanged) {
    const int key = savedPatientAppointment();
    desk.setNow(QDateTime(QDate(2026, 3, 10), QTime(16, 45)));
    Session().UID = QStringLiteral("BACK");
    openRow(key, 1);
    type(form->ctstart, QStringLiteral("11a"));
    type(form->ctend, QStringLiteral("11:50a"));
    type(form->cborooms, QStringLiteral("Blue"));
    clickOk();
    EXPECT_EQ(rowCount("appointments"), 1);
    EXPECT_EQ(column("nStartTime", key), QStringLiteral("660"));
    EXPECT_EQ(column("nEndTime", key), QStringLiteral("710"));
    EXPECT_EQ(column("createduid", key), QStringLiteral("FRONT"));
    EXPECT_EQ(column("lastmodifieddate", key), QStringLiteral("2026-03-10 16:45:00"));
    EXPECT_EQ(column("lastmodifieduid", key), QStringLiteral("BACK"));
    EXPECT_EQ(rowCount("roomschedule"), 1);
    EXPECT_NE(room("croomid").toInt(), office);
    EXPECT_EQ(room("nStartTime"), QStringLiteral("660"));
    EXPECT_EQ(audit("LogListId"), QStringLiteral("Modify Appointment"));
    EXPECT_EQ(audit("LogDescription"),
              QStringLiteral("Modified Appointment (03/11/2026 at 9:00 AM) to 03/11/2026 at 11:00 AM for Jones, Mary"));
}

TEST_F(EditorSave, OkWithoutAChangeClosesAndWritesNothing) {
    const int key = savedPatientAppointment();
    desk.setNow(QDateTime(QDate(2026, 3, 10), QTime(16, 45)));
    openRow(key, 1);
    clickOk();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(column("lastmodifieddate", key), QStringLiteral("2026-03-10 08:30:00"));
    EXPECT_EQ(rowCount("AuditLog"), 1);
}

TEST_F(EditorSave, EnterIsOk) {
    openFor("10017", "Jones, Mary");
    press(form->ctend, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(rowCount("appointments"), 1);
}

TEST_F(EditorSave, EnterInAListIsOkForWhatWasTypedThere) {
    openNew(4);
    type(form->cbocats, QStringLiteral("fol"));
    press(form->cbocats, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(column("cappttext", newestKey()), QStringLiteral("Follow-up"));
}

TEST_F(EditorSave, TheBeginningOfATypeIsTheTypeThoughTheFieldIsNotLeft) {
    openNew(4);
    type(form->cbocats, QStringLiteral("fol"));
    press(form->cbocats, Qt::Key_Backspace);
    form->cmdOk->click();
    EXPECT_EQ(column("cappttext", newestKey()), QStringLiteral("Follow-up"));
    EXPECT_EQ(column("ncolor", newestKey()).toInt(), 65280);
}

TEST_F(EditorSave, AnUnknownLocationIsOfferedBeforeEnterSaves) {
    openFor("10017", "Jones, Mary");
    type(form->cbolocation, QStringLiteral("Attic"));
    desk.expectBox(QStringLiteral("Location is not on the list. Do you want to add it?"),
                   QStringLiteral("Item Not Found"), Answer::Yes);
    press(form->cbolocation, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(column("CLOCATION", newestKey()), QStringLiteral("Attic"));
    EXPECT_EQ(rowCount("Locations"), 4);
}

TEST_F(EditorSave, ATimeIsToldInFullThoughItsFieldIsNotLeft) {
    openFor("10017", "Jones, Mary");
    type(form->ctstart, QStringLiteral("915"));
    form->cmdOk->click();
    EXPECT_EQ(column("nStartTime", newestKey()), QStringLiteral("555"));
    EXPECT_EQ(audit("LogDescription"), QStringLiteral("Added Appointment on 03/11/2026 at 9:15 AM for Jones, Mary"));
}

TEST_F(EditorSave, CtrlEnterSavesFromTheNote) {
    openFor("10017", "Jones, Mary");
    form->txtnotes->setFocus();
    QTest::keyClicks(form->txtnotes, QStringLiteral("one"));
    press(form->txtnotes, Qt::Key_Return);
    QTest::keyClicks(form->txtnotes, QStringLiteral("two"));
    press(form->txtnotes, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(column("CapptNote", newestKey()), QStringLiteral("|one\r\ntwo"));
}

TEST_F(EditorSave, AnEmptiedRoomIsNoRoomThoughOneHasNoName) {
    database.connection().Execute("Insert Into rooms (Room) Values ('')");
    openFor("10017", "Jones, Mary");
    type(form->cborooms, QStringLiteral("blue"));
    press(form->cborooms, Qt::Key_A, Qt::ControlModifier);
    press(form->cborooms, Qt::Key_Delete);
    clickOk();
    EXPECT_EQ(rowCount("roomschedule"), 0);
}

TEST_F(EditorSave, OkOnANewEntryWithNothingChosenDoesNothingAtAll) {
    for (int kind = 1; kind <= frmnore::KindCount; ++kind) {
        openNew(kind);
        clickOk();
        EXPECT_TRUE(form->isVisible()) << kind;
    }
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(EditorSave, EveryChoiceInTheDialogIsAChange) {
    const int key = savedPatientAppointment();
    const auto changes = [&](auto&& change) {
        openRow(key, 1);
        change();
        return form->dirty;
    };
    EXPECT_TRUE(changes([&] { form->cborooms->SetListIndex(0); }));
    EXPECT_TRUE(changes([&] { form->cboapttype->SetListIndex(0); }));
    EXPECT_TRUE(changes([&] { QTest::keyClick(form->ckemail, Qt::Key_Space); }));
    EXPECT_TRUE(changes([&] { QTest::keyClick(form->ckAlarm, Qt::Key_Space); }));
    EXPECT_TRUE(changes([&] { QTest::keyClicks(form->txtnotes, QStringLiteral("x")); }));
    EXPECT_TRUE(changes([&] { QTest::keyClick(form->ctstart, Qt::Key_Up); }));
    EXPECT_TRUE(changes([&] { form->cbostatus->SetListIndex(4); }));
    EXPECT_TRUE(changes([&] { QTest::keyClicks(form->txtaccount, QStringLiteral("1")); }));
}

TEST_F(EditorSave, EachStatusIsWrittenByItsCode) {
    const std::array<int, 8> codes{16711680, 126322256, 16711681, 16777215, 49152, 192, 193, 194};
    const int key = savedPatientAppointment();
    for (std::size_t index = 0; index < codes.size(); ++index) {
        openRow(key, 1);
        form->cbostatus->SetListIndex(static_cast<int>(index));
        form->dirty = true;
        clickOk();
        EXPECT_EQ(column("ncolor", key).toInt(), codes[index]);
        EXPECT_EQ(column("BTentIco", key), index == 1 ? QStringLiteral("1") : QStringLiteral("0"));
    }
}

TEST_F(EditorSave, ABlankStatusIsTheBlueOfNoStatus) {
    openFor("10017", "Jones, Mary");
    form->cbostatus->SetListIndex(0);
    clickOk();
    EXPECT_EQ(column("ncolor", newestKey()).toInt(), 0xFF0000);
}

TEST_F(EditorSave, AnUnknownStatusStaysAsItIs) {
    const int key = savedPatientAppointment();
    database.connection().Execute("Update appointments Set ncolor = 12345");
    openRow(key, 1);
    type(form->txtnotes, QStringLiteral("Later"));
    clickOk();
    EXPECT_EQ(column("ncolor", key).toInt(), 12345);
}

TEST_F(EditorSave, AnEventIsCyanAndItsRoomTellsItsName) {
    openNew(2);
    type(form->cboevents, QStringLiteral("staff"));
    type(form->cborooms, QStringLiteral("room 2"));
    clickOk();
    const int key = newestKey();
    EXPECT_EQ(column("cappttext", key), QStringLiteral("Staff Meeting"));
    EXPECT_EQ(column("ncolor", key).toInt(), 0xFFFF80);
    EXPECT_EQ(column("patientid", key), QString());
    EXPECT_EQ(column("CapptNote", key), QStringLiteral("|"));
    EXPECT_EQ(room("croomtext"), QStringLiteral("Staff Meeting"));
}

TEST_F(EditorSave, ABlockIsPinkWithoutLocationAndRoom) {
    openNew(3);
    type(form->cboavail, QStringLiteral("lun"));
    clickOk();
    const int key = newestKey();
    EXPECT_EQ(column("cappttext", key), QStringLiteral("Lunch"));
    EXPECT_EQ(column("ncolor", key).toInt(), 0xFF80FF);
    EXPECT_EQ(column("CLOCATION", key), QString());
    EXPECT_EQ(column("BLOCATEICO", key), QStringLiteral("0"));
    EXPECT_EQ(rowCount("roomschedule"), 0);
}

TEST_F(EditorSave, ASlotOfATypeHasTheTypesColourTwiceAndItsKind) {
    openNew(4);
    type(form->cbocats, QStringLiteral("fol"));
    type(form->cborooms, QStringLiteral("blue"));
    clickOk();
    const int key = newestKey();
    EXPECT_EQ(column("cappttext", key), QStringLiteral("Follow-up"));
    EXPECT_EQ(column("ncolor", key).toInt(), 65280);
    EXPECT_EQ(column("appointment_type", key).toInt(), 65280);
    EXPECT_EQ(column("appttype", key), QStringLiteral("4"));
    EXPECT_EQ(room("croomtext"), QStringLiteral("Follow-up"));
}

TEST_F(EditorSave, TheTypeOfAPatientAppointmentIsItsColour) {
    openFor("10017", "Jones, Mary");
    type(form->cboapttype, QStringLiteral("int"));
    clickOk();
    EXPECT_EQ(column("appointment_type", newestKey()).toInt(), 255);
    EXPECT_EQ(column("ncolor", newestKey()).toInt(), 0xFF0001);
}

TEST_F(EditorSave, ARoomTakenAwayIsGone) {
    const int key = savedPatientAppointment();
    openRow(key, 1);
    form->cborooms->setFocus();
    press(form->cborooms, Qt::Key_A, Qt::ControlModifier);
    press(form->cborooms, Qt::Key_Delete);
    clickOk();
    EXPECT_EQ(rowCount("roomschedule"), 0);
    EXPECT_EQ(rowCount("appointments"), 1);
}

TEST_F(EditorSave, ThePatientsNumbersAndAccountAreCopiedIntoTheRow) {
    openFor("10017", "Jones, Mary");
    form->txtaccount->setText(QStringLiteral("A-17"));
    form->lblHPhone->setText(QStringLiteral("(555) 123-4567"));
    form->lblwphone->setText(QString(60, u'9'));
    clickOk();
    EXPECT_EQ(column("PatientAcct", newestKey()), QStringLiteral("A-17"));
    EXPECT_EQ(column("hphone", newestKey()), QStringLiteral("(555) 123-4567"));
    EXPECT_EQ(column("wphone", newestKey()), QString(40, u'9'));
}

TEST_F(EditorSave, AnAlarmWithoutALeadRingsTenMinutesBefore) {
    preferAlarm("0");
    openFor("10017", "Jones, Mary");
    clickOk();
    EXPECT_EQ(column("BremindIco", newestKey()), QStringLiteral("1"));
    EXPECT_EQ(column("ReminderTime", newestKey()), QStringLiteral("530"));
}

TEST_F(EditorSave, AnAlarmRingsByTheLeadEvenBeforeTheDay) {
    preferAlarm("600");
    openFor("10017", "Jones, Mary");
    clickOk();
    EXPECT_EQ(column("ReminderTime", newestKey()), QStringLiteral("-60"));
}

TEST_F(EditorSave, TextsOfEveryKindArriveAsTyped) {
    Session().ProviderName = QStringLiteral("O'Brien");
    openFor("10018", "O'Neil, Zoë");
    form->txtnotes->setPlainText(QStringLiteral("She said \"no\"; it's 100%\nüber 🏠 -- '"));
    form->cbolocation->SetText(QStringLiteral("Peter's \"Café\" 🏠"));
    type(form->cborooms, QStringLiteral("blue"));
    desk.expectBox(QStringLiteral("Location is not on the list. Do you want to add it?"),
                   QStringLiteral("Item Not Found"), Answer::No);
    clickOk();
    const int key = newestKey();
    EXPECT_EQ(column("cappttext", key), QStringLiteral("O'Neil, Zoë"));
    EXPECT_EQ(column("CapptNote", key), QStringLiteral("|She said \"no\"; it's 100%\r\nüber 🏠 -- '"));
    EXPECT_EQ(column("CLOCATION", key), QStringLiteral("Peter's \"Café\" 🏠"));
    EXPECT_EQ(room("croomtext"), QStringLiteral("O'Brien"));
    EXPECT_EQ(audit("LogDescription"), QStringLiteral("Added Appointment on 03/11/2026 at 9:00 AM for O'Neil, Zoë"));
}

TEST_F(EditorSave, TheAllProvidersViewBooksForTheProviderChosenThere) {
    Session().CurrentView = View::AllProviders;
    view.chosenProvider = {QStringLiteral("OBRIEN"), QStringLiteral("O'Brien")};
    openFor("10017", "Jones, Mary");
    type(form->cborooms, QStringLiteral("blue"));
    clickOk();
    EXPECT_EQ(column("clinicianid", newestKey()), QStringLiteral("OBRIEN"));
    EXPECT_EQ(room("croomtext"), QStringLiteral("O'Brien"));
}

TEST_F(EditorSave, OtherViewsSaveNothing) {
    Session().CurrentView = View::Month;
    openFor("10017", "Jones, Mary");
    appointment({});
    clickOk();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(rowCount("appointments"), 1);
}

TEST_F(EditorSave, AConflictThatIsNotAcceptedKeepsTheDialogOpen) {
    appointment({.text = QStringLiteral("Miller, Ann"), .patient = QStringLiteral("10099")});
    openFor("10017", "Jones, Mary");
    expectConflict("Appointment Conflict", "cmdreschedule");
    clickOk();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(rowCount("appointments"), 1);
    expectConflict("Appointment Conflict", "cmdaccept");
    clickOk();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(rowCount("appointments"), 2);
}

TEST_F(EditorSave, ThePatientsOtherAppointmentConflictsToo) {
    appointment({.provider = QStringLiteral("OBRIEN")});
    openFor("10017", "Jones, Mary");
    expectConflict("Appointment Conflict", "cmdreschedule");
    clickOk();
}

TEST_F(EditorSave, AnEditedRowIsNotInItsOwnWay) {
    openRow(savedPatientAppointment(), 1);
    type(form->txtnotes, QStringLiteral("Later"));
    clickOk();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(EditorSave, TheRoomIsAskedAfterTheProvider) {
    appointment({.text = QStringLiteral("Miller, Ann"), .patient = QString()});
    booking(office, 540, 600, QStringLiteral("O'Brien"));
    openFor("10017", "Jones, Mary");
    type(form->cborooms, QStringLiteral("room 2"));
    expectConflict("Appointment Conflict", "cmdaccept");
    expectConflict("Room Conflict", "cmdreschedule");
    clickOk();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(rowCount("appointments"), 1);
}

TEST_F(EditorSave, MidnightIsNoStart) {
    openFor("10017", "Jones, Mary");
    form->ctstart->setTime(0);
    desk.expectBox(QStringLiteral("Enter valid start time."), MissingData);
    clickOk();
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->ctstart->hasFocus());
}

TEST_F(EditorSave, EmptyAndImpossibleTimesAreRefusedOneAfterTheOther) {
    openFor("10017", "Jones, Mary");
    type(form->ctstart, QStringLiteral("99:99"));
    type(form->ctend, QStringLiteral("soon"));
    desk.expectBox(QStringLiteral("Enter valid start time."), MissingData);
    clickOk();
    type(form->ctstart, QStringLiteral("10a"));
    desk.expectBox(QStringLiteral("Enter valid end time."), MissingData);
    clickOk();
    EXPECT_TRUE(form->ctend->hasFocus());
    form->ctend->setText({});
    desk.expectBox(QStringLiteral("Enter valid end time."), MissingData);
    clickOk();
    type(form->ctend, QStringLiteral("10a"));
    desk.expectBox(QStringLiteral("End time must be greater than start time"), MissingData);
    clickOk();
    EXPECT_TRUE(form->ctstart->hasFocus());
    type(form->ctend, QStringLiteral("9a"));
    desk.expectBox(QStringLiteral("End time must be greater than start time"), MissingData);
    clickOk();
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(EditorSave, ConflictsAreAskedBeforeTheTimesAreChecked) {
    appointment({.text = QStringLiteral("Miller, Ann"), .patient = QString()});
    openFor("10017", "Jones, Mary");
    type(form->ctend, QStringLiteral("9a"));
    expectConflict("Appointment Conflict", "cmdaccept");
    desk.expectBox(QStringLiteral("End time must be greater than start time"), MissingData);
    clickOk();
}

TEST_F(EditorSave, AnImpossibleDateIsRefusedWhereADateIsShown) {
    for (const View shownIn : {View::Week, View::AllProviders}) {
        Session().CurrentView = shownIn;
        openFor("10017", "Jones, Mary");
        type(form->ctedate, QStringLiteral("2/31/2026"));
        desk.expectBox(QStringLiteral("Enter a valid date."), MissingData);
        clickOk();
        EXPECT_TRUE(form->ctedate->hasFocus()) << static_cast<int>(shownIn);
    }
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(EditorSave, TheDayViewTakesTheDayThatItShows) {
    openFor("10017", "Jones, Mary");
    clickOk();
    EXPECT_EQ(column("dapptdate", newestKey()), QStringLiteral("2026-03-11 00:00:00"));
}

TEST_F(EditorSave, ANameThatIsNobodysIsNotBooked) {
    openNew(1);
    form->txtpatients->setText(QStringLiteral("Nobody, Ned"));
    form->lblHPhone->setText(QStringLiteral("1"));
    form->txtaccount->setText(QStringLiteral("2"));
    desk.expectBox(QStringLiteral("Patient not found in database. Add patient now?"), QStringLiteral("Solvane"),
                   Answer::No);
    clickOk();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->lblHPhone->text(), QString());
    EXPECT_EQ(form->txtaccount->text(), QString());
    EXPECT_TRUE(form->txtpatients->hasFocus());
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(EditorSave, AMessageIsHandedToTheMailProgram) {
    openFor("10017", "Jones, Mary");
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    desk.expectBox(
        QStringLiteral(
            "To: mary@example.org\nThis e-mail is to remind you of your appointment on 03/11/2026 at 9:00 AM with Anna Reed."),
        QStringLiteral("Send e-mail?"), Answer::Yes);
    clickOk();
    EXPECT_EQ(
        desk.opened,
        QStringList{QStringLiteral(
            "mailto:mary@example.org?subject=Appointment Confirmation&body=This e-mail is to remind you of your appointment on 03/11/2026 at 9:00 AM with Anna Reed.")});
    EXPECT_EQ(rowCount("appointments"), 1);
}

TEST_F(EditorSave, AMessageWithMarksOfItsOwnReachesTheMailProgramWhole) {
    Session().EmailReminderText = QStringLiteral("Questions & wishes: 100% yours + #1\r\n[TIME]");
    openFor("10017", "Jones, Mary");
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    desk.expectBox(QStringLiteral("To: mary@example.org\nQuestions & wishes: 100% yours + #1\r\n9:00 AM"),
                   QStringLiteral("Send e-mail?"), Answer::Yes);
    clickOk();
    ASSERT_EQ(desk.opened.size(), 1);
    const QUrlQuery fields(QUrl(desk.opened.first()));
    EXPECT_EQ(fields.queryItemValue(QStringLiteral("body"), QUrl::FullyDecoded),
              QStringLiteral("Questions & wishes: 100% yours + #1\r\n9:00 AM"));
}

TEST_F(EditorSave, ThePracticesOwnReminderIsFilledInEverywhere) {
    Session().EmailReminderText = QStringLiteral("[DATE] [TIME] [THERAPIST] [DATE] [date]");
    openFor("10017", "Jones, Mary");
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    desk.expectBox(QStringLiteral("To: mary@example.org\n03/11/2026 9:00 AM Anna Reed 03/11/2026 [date]"),
                   QStringLiteral("Send e-mail?"), Answer::No);
    clickOk();
    EXPECT_TRUE(desk.opened.isEmpty());
}

TEST_F(EditorSave, AMissingMailProgramIsTold) {
    Desktop().openWithShell = [](const QString&) { return false; };
    openFor("10017", "Jones, Mary");
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    desk.expectBox(
        QStringLiteral(
            "To: mary@example.org\nThis e-mail is to remind you of your appointment on 03/11/2026 at 9:00 AM with Anna Reed."),
        QStringLiteral("Send e-mail?"), Answer::Yes);
    desk.expectBox(QStringLiteral("Error Occurred in sending email. No mail program could be opened."),
                   QStringLiteral("Error"));
    clickOk();
    EXPECT_EQ(rowCount("appointments"), 1);
}
