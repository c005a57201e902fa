#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "tests/appointments/editorfixture.h"

using db::Sql;

namespace {

class EditorLoad : public EditorFixture {
  protected:
    static QStringList itemsOf(const CompletingCombo* box) {
        QStringList items;
        for (int i = 0; i < box->count(); ++i)
            items << box->itemText(i);
        return items;
    }
    int visiblePage() const {
        int shown = -1;
        for (int page = 0; page < frmnore::KindCount; ++page)
            if (form->fraappttype[static_cast<std::size_t>(page)]->isVisible()) {
                EXPECT_EQ(shown, -1) << "Two pages are shown.";
                shown = page;
            }
        return shown;
    }
    void preferAlarm(const char* provider, const char* detail, const char* value) {
        database.connection().Execute(Sql(
            "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('{}', 'Interfaces', '{}', '{}')",
            provider, detail, value));
    }
    void setColumn(int key, const char* assignment) {
        database.connection().Execute(
            Sql("Update appointments Set {} Where nkeyid = {}", db::Raw{QString::fromLatin1(assignment)}, key));
    }
};

}  // namespace

TEST_F(EditorLoad, ANewPatientAppointmentOpensPendingOnThePatientsName) {
    openNew(1);
    EXPECT_EQ(form->windowTitle(), QStringLiteral("New Appointment"));
    EXPECT_EQ(visiblePage(), 0);
    EXPECT_TRUE(form->txtpatients->hasFocus());
    EXPECT_EQ(form->cbostatus->Text(), QStringLiteral("Pending"));
    EXPECT_EQ(itemsOf(form->cbocpt),
              (QStringList{QStringLiteral("00000  No charge"), QStringLiteral("90791  Evaluation"),
                           QStringLiteral("90834  Psychotherapy")}));
    EXPECT_EQ(itemsOf(form->cbolocation),
              (QStringList{QStringLiteral("Annex"), QStringLiteral("Home visit"), QStringLiteral("Main Office")}));
    EXPECT_EQ(itemsOf(form->cborooms), (QStringList{QStringLiteral("Blue Room"), QStringLiteral("Room 2")}));
    EXPECT_EQ(itemsOf(form->cboapttype), (QStringList{QStringLiteral("Follow-up"), QStringLiteral("Intake")}));
    EXPECT_FALSE(form->SSCheck1->isEnabled());
    EXPECT_TRUE(form->cmdnewpat->isVisible());
}

TEST_F(EditorLoad, TheStatusListHasItsEightItems) {
    openNew(1);
    EXPECT_EQ(itemsOf(form->cbostatus),
              (QStringList{QString(), QStringLiteral("Tentative"), QStringLiteral("Pending"),
                           QStringLiteral("Checked-In"), QStringLiteral("Kept"), QStringLiteral("Missed"),
                           QStringLiteral("Patient Cancelled"), QStringLiteral("Therapist Cancelled")}));
}

TEST_F(EditorLoad, ANewEventAsksForEventTimePlaceAndNote) {
    openNew(2);
    EXPECT_EQ(visiblePage(), 1);
    EXPECT_TRUE(form->cboevents->hasFocus());
    EXPECT_EQ(itemsOf(form->cboevents), (QStringList{QStringLiteral("Staff Meeting"), QStringLiteral("Training")}));
    EXPECT_EQ(form->cbolocation->count(), 3);
    EXPECT_EQ(form->cborooms->count(), 2);
    EXPECT_TRUE(form->SSCheck1->isEnabled());
    EXPECT_FALSE(form->cbocpt->isVisible());
    EXPECT_FALSE(form->cbostatus->isVisible());
    EXPECT_FALSE(form->ckemail->isVisible());
}

TEST_F(EditorLoad, UnavailableTimeHasNeitherLocationNorRoom) {
    openNew(3);
    EXPECT_EQ(visiblePage(), 2);
    EXPECT_TRUE(form->cboavail->hasFocus());
    EXPECT_EQ(itemsOf(form->cboavail), (QStringList{QStringLiteral("Lunch"), QStringLiteral("Vacation")}));
    EXPECT_FALSE(form->Frame1->isVisible());
    EXPECT_FALSE(form->XPFrame201->isVisible());
}

TEST_F(EditorLoad, ASlotOfATypeShowsTheColourOfTheTypeChosen) {
    openNew(4);
    EXPECT_EQ(visiblePage(), 3);
    EXPECT_EQ(itemsOf(form->cbocats), (QStringList{QStringLiteral("Follow-up"), QStringLiteral("Intake")}));
    type(form->cbocats, QStringLiteral("int"));
    EXPECT_EQ(form->lblaptcolor->palette().color(form->lblaptcolor->backgroundRole()), QColor(255, 0, 0));
    EXPECT_FALSE(form->cbocats->itemIcon(0).isNull());
}

TEST_F(EditorLoad, TheDayViewHidesTheDateAndOtherViewsShowIt) {
    openNew(1);
    EXPECT_FALSE(form->ctedate->isVisible());
    EXPECT_FALSE(form->lbldate->isVisible());
    EXPECT_EQ(form->ctedate->Date(), day);
    Session().CurrentView = View::Week;
    openNew(1);
    EXPECT_TRUE(form->ctedate->isVisible());
    EXPECT_TRUE(form->lbldate->isVisible());
}

TEST_F(EditorLoad, TheCaptionsSpeakOfClientsAndOfTheFacesheetsAccount) {
    Session().WordUsage = QStringLiteral("Client");
    database.connection().Execute("Update facesheet Set facesheetitem = 'Chart No.' Where FacesheetId = 2");
    openNew(1);
    EXPECT_EQ(form->Label1->text(), QStringLiteral("&Client:"));
    EXPECT_EQ(form->cmdnewpat->text(), QStringLiteral("Add Ne&w Client"));
    EXPECT_EQ(form->Label14->text(), QStringLiteral("Chart No."));
    EXPECT_EQ(form->ctList1->Header(2), QStringLiteral("Chart No."));
}

TEST_F(EditorLoad, ThePatientListHasItsSevenColumnsAndTheBirthDate) {
    openNew(1);
    QStringList headers;
    for (int column = 1; column <= form->ctList1->ColumnCount(); ++column)
        headers << form->ctList1->Header(column);
    EXPECT_EQ(headers, (QStringList{QStringLiteral("Name"), QStringLiteral("Account #"), QStringLiteral("Home Phone"),
                                    QStringLiteral("Work Phone"), QStringLiteral("CPT"), QStringLiteral("Other Phone"),
                                    QStringLiteral("Email"), QStringLiteral("Birth Date")}));
    EXPECT_FALSE(form->pnlpatlist->isVisible());
}

TEST_F(EditorLoad, TheAlarmFollowsTheProviderWhoseScheduleIsShown) {
    preferAlarm("FRONT", "ScheduleAlarm", "1");
    openNew(1);
    EXPECT_FALSE(form->ckAlarm->isChecked());
    preferAlarm("REED", "ScheduleAlarm", "1");
    openNew(1);
    EXPECT_TRUE(form->ckAlarm->isChecked());
}

TEST_F(EditorLoad, AWrittenSlotIsAChangeAndALoadIsNone) {
    openNew(1);
    EXPECT_EQ(form->ctstart->Time(), 540);
    EXPECT_EQ(form->ctend->Time(), 600);
    EXPECT_TRUE(form->dirty);
    openRow(savedPatientAppointment(), 1);
    EXPECT_FALSE(form->dirty);
}

TEST_F(EditorLoad, APatientAppointmentComesBackAsItWasSaved) {
    openRow(savedPatientAppointment(), 1);
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Edit Appointment"));
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10017"));
    EXPECT_TRUE(form->txtpatients->isReadOnly());
    EXPECT_FALSE(form->cmdpatients->isEnabled());
    EXPECT_FALSE(form->cmdPatientList->isEnabled());
    EXPECT_FALSE(form->cmdnewpat->isVisible());
    EXPECT_EQ(form->ctedate->Date(), day);
    EXPECT_EQ(form->ctstart->Time(), 540);
    EXPECT_EQ(form->ctend->Time(), 600);
    EXPECT_EQ(form->cbocpt->Text(), QStringLiteral("90834  Psychotherapy"));
    EXPECT_EQ(form->cbolocation->Text(), QStringLiteral("Annex"));
    EXPECT_EQ(form->cborooms->Text(), QStringLiteral("Room 2"));
    EXPECT_EQ(form->cbostatus->Text(), QStringLiteral("Pending"));
    EXPECT_EQ(form->txtnotes->toPlainText(), QStringLiteral("Bring the forms"));
    EXPECT_EQ(form->lblcreated->text(), QStringLiteral("Created: 3/10/2026 8:30 AM (FRONT)"));
    EXPECT_EQ(form->lblmodified->text(), QStringLiteral("Last Modified: 3/10/2026 8:30 AM (FRONT)"));
    EXPECT_TRUE(form->ctstart->hasFocus());
}

TEST_F(EditorLoad, ThePatientsPresentNumberWinsOverTheCopyInTheRow) {
    const int key = savedPatientAppointment();
    database.connection().Execute("Update patient_info Set telephone_h = '5550001111' Where id = '10017'");
    setColumn(key, "hphone = '(555) 999-9999'");
    openRow(key, 1);
    EXPECT_EQ(form->lblHPhone->text(), QStringLiteral("(555) 000-1111"));
    EXPECT_EQ(form->lblwphone->text().trimmed(), QStringLiteral("(555) 987-6543"));
    EXPECT_EQ(form->lblcphone->text(), QString());
    EXPECT_EQ(form->lblemail->text(), QStringLiteral("mary@example.org"));
}

TEST_F(EditorLoad, EachStatusIsReadByItsCode) {
    const int key = savedPatientAppointment();
    const std::array<const char*, 8> assignments{"ncolor = 16711680", "ncolor = 126322256", "ncolor = 16711681",
                                                 "ncolor = 16777215", "ncolor = 49152",     "ncolor = 192",
                                                 "ncolor = 193",      "ncolor = 194"};
    for (std::size_t index = 0; index < assignments.size(); ++index) {
        setColumn(key, assignments[index]);
        openRow(key, 1);
        EXPECT_EQ(form->cbostatus->ListIndex(), static_cast<int>(index));
    }
    setColumn(key, "ncolor = 12345");
    openRow(key, 1);
    EXPECT_EQ(form->cbostatus->ListIndex(), -1);
}

TEST_F(EditorLoad, AnAuthorizationIsToldForTheAppointmentsDay) {
    const int key = savedPatientAppointment();
    openRow(key, 1);
    EXPECT_EQ(form->lblAuthorization->text(), QStringLiteral("No current active authorizations found for patient."));
    database.connection().Execute(
        "Insert Into authorizations (patient_id, sess_remaining, start_date, end_date) Values ('10017', 7, '2026/03/11', '2026/03/11')");
    Session().CurrentView = View::Week;
    openRow(key, 1);
    EXPECT_EQ(form->lblAuthorization->text(), QStringLiteral("7 sessions remaining in current authorization"));
    type(form->ctedate, QStringLiteral("3/12/2026"));
    press(form->ctedate, Qt::Key_Tab);
    EXPECT_EQ(form->lblAuthorization->text(), QStringLiteral("No current active authorizations found for patient."));
}

TEST_F(EditorLoad, AnEventAndABlockComeBackByTheirText) {
    const int event = appointment({.text = QStringLiteral("Fire drill; O'Neil"), .patient = QString()});
    openRow(event, 2);
    EXPECT_EQ(form->cboevents->Text(), QStringLiteral("Fire drill; O'Neil"));
    EXPECT_EQ(visiblePage(), 1);
    const int block = appointment({.text = QStringLiteral("Lunch"), .patient = QString()});
    openRow(block, 3);
    EXPECT_EQ(form->cboavail->Text(), QStringLiteral("Lunch"));
    EXPECT_EQ(form->cboavail->ListIndex(), 0);
}

TEST_F(EditorLoad, ACategoryThatWasRemovedStillShowsForThisOpening) {
    const int key = appointment({.text = QStringLiteral("Old type"), .patient = QString(), .kind = 4});
    setColumn(key, "appointment_type = 65535");
    openRow(key, 4);
    EXPECT_EQ(form->cbocats->Text(), QStringLiteral("Old type"));
    EXPECT_EQ(form->cbocats->ItemData(), 65535);
    EXPECT_EQ(form->lblaptcolor->palette().color(form->lblaptcolor->backgroundRole()), QColor(255, 255, 0));
    openNew(4);
    EXPECT_EQ(form->cbocats->count(), 2);
}

TEST_F(EditorLoad, ThePatientsTypeIsSelectedByItsColour) {
    const int key = savedPatientAppointment();
    setColumn(key, "appointment_type = 255");
    openRow(key, 1);
    EXPECT_EQ(form->cboapttype->Text(), QStringLiteral("Intake"));
}

TEST_F(EditorLoad, ATypeOrRoomThatIsOnNoListAnyMoreIsKept) {
    const int key = savedPatientAppointment();
    setColumn(key, "appointment_type = 4711");
    database.connection().Execute(Sql("Delete from rooms Where RoomID = {}", office));
    openRow(key, 1);
    EXPECT_EQ(form->cboapttype->ItemData(), 4711);
    EXPECT_EQ(form->cborooms->ItemData(), office);
    type(form->txtnotes, QStringLiteral("Later"));
    clickOk();
    EXPECT_EQ(column("appointment_type", key), QStringLiteral("4711"));
    EXPECT_EQ(database.number(QStringLiteral("Select croomid from roomschedule")), office);
}

TEST_F(EditorLoad, WithoutRoomsTheRoomCannotBeChosen) {
    database.connection().Execute("Delete from rooms");
    openNew(1);
    EXPECT_FALSE(form->cborooms->isEnabled());
    EXPECT_FALSE(form->cmdrooms->isEnabled());
}

TEST_F(EditorLoad, ARowThatAnotherDeskDeletedLeavesTheDialogInItsDefaults) {
    openRow(4711, 1);
    EXPECT_EQ(form->txtpatients->text(), QString());
    EXPECT_FALSE(form->txtpatients->isReadOnly());
    EXPECT_EQ(form->ctstart->Time(), -1);
    EXPECT_FALSE(form->dirty);
}

TEST_F(EditorLoad, EmptyColumnsReadAsNothing) {
    database.connection().Execute("Insert Into appointments (clinicianid, dapptdate) Values ('REED', '2026/03/11')");
    openRow(newestKey(), 1);
    EXPECT_EQ(form->lblcreated->text(), QStringLiteral("Created:  ()"));
    EXPECT_EQ(form->txtpatients->text(), QString());
    EXPECT_EQ(form->ctstart->Time(), 0);
    EXPECT_EQ(form->txtnotes->toPlainText(), QString());
}

TEST_F(EditorLoad, ANoteWithoutAPipeIsAServiceAlone) {
    const int key = savedPatientAppointment();
    setColumn(key, "CapptNote = '90834'");
    openRow(key, 1);
    EXPECT_EQ(form->cbocpt->Text(), QStringLiteral("90834"));
    EXPECT_EQ(form->txtnotes->toPlainText(), QString());
}

TEST_F(EditorLoad, AnArchivedPatientWithoutTelephonesIsShownAll) {
    const int key = savedPatientAppointment();
    database.connection().Execute(
        "Update patient_info Set archive = 1, telephone_h = null, telephone_b = '', EmailAddress = null Where id = '10017'");
    openRow(key, 1);
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(form->lblHPhone->text(), QString());
    EXPECT_EQ(form->lblwphone->text(), QString());
    EXPECT_EQ(form->lblemail->text(), QString());
}

TEST_F(EditorLoad, EachListThatCannotBeReadSaysSoAndTheDialogGoesOn) {
    const QString types = DropTable(database.connection(), QStringLiteral("session_types"));
    const QString locations = DropTable(database.connection(), QStringLiteral("locations"));
    const QString rooms = DropTable(database.connection(), QStringLiteral("rooms"));
    const QString categories = DropTable(database.connection(), QStringLiteral("AptCategories"));
    desk.expectBox(QStringLiteral("Error loading session types. ") + types, QStringLiteral("Error"));
    desk.expectBox(QStringLiteral("Error loading locations. ") + locations, QStringLiteral("Error"));
    desk.expectBox(QStringLiteral("Error loading room list. ") + rooms, QStringLiteral("Error"));
    desk.expectBox(QStringLiteral("Error loading appointment categories. ") + categories, QStringLiteral("Error"));
    openNew(1);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->cbostatus->Text(), QStringLiteral("Pending"));
}

TEST_F(EditorLoad, EventsAndBlocksThatCannotBeReadSaySo) {
    const QString events = DropTable(database.connection(), QStringLiteral("events"));
    const QString blocks = DropTable(database.connection(), QStringLiteral("availability"));
    desk.expectBox(QStringLiteral("Error loading events items. ") + events, QStringLiteral("Error"));
    openNew(2);
    desk.expectBox(QStringLiteral("Error loading availability items. ") + blocks, QStringLiteral("Error"));
    openNew(3);
}

TEST_F(EditorLoad, AnAppointmentThatCannotBeReadSaysSo) {
    const QString why = DropTable(database.connection(), QStringLiteral("appointments"));
    desk.expectBox(QStringLiteral("Error setting appointment type. ") + why, QStringLiteral("Error"));
    desk.expectBox(QStringLiteral("Error loading appointment. ") + why, QStringLiteral("Error"));
    openRow(1, 1);
    EXPECT_FALSE(form->dirty);
}

TEST_F(EditorLoad, AnAuthorizationThatCannotBeReadSaysSo) {
    const int key = savedPatientAppointment();
    const QString why = DropTable(database.connection(), QStringLiteral("authorizations"));
    desk.expectBox(QStringLiteral("Error retrieving patient authorization information. ") + why,
                   QStringLiteral("Error"));
    openRow(key, 1);
    EXPECT_EQ(form->lblAuthorization->text(), QString());
}

TEST_F(EditorLoad, FitsTheSmallestScreen) {
    for (int kind = 1; kind <= frmnore::KindCount; ++kind) {
        openNew(kind);
        EXPECT_LE(form->width(), 640) << kind;
        EXPECT_LE(form->minimumSizeHint().height(), 400) << kind;
    }
}
