#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QRegularExpression>

#include "appointments/frmnore.h"
#include "data/codes.h"
#include "followup/frmsnotetype.h"
#include "platform/calendar/ctweek.h"
#include "platform/controls/notefield.h"
#include "rooms/frmrooms.h"
#include "tests/support/triplog.h"
#include "tests/views/dayhand.h"
#include "views/frmall.h"
#include "views/frmmtv.h"
#include "views/frmweekv.h"

namespace {

/// What a branch office pays for: how often each action asks the server, on a day of REED's with all that a day can
/// hold: patients with their telephones, courtesy calls, a group, a booked room, working hours, a holiday, tasks.
class Trips : public DayHand {
  protected:
    Trips() {
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        Session().ALEnabled = true;
        Session().AllProviders = true;
        run("Insert Into provider_info (id, prov_lastname, archive) Values('REED', 'Reed', 0)");
        run("Insert Into provider_info (id, prov_lastname, archive) Values('LANE', 'Lane', 0)");
        run("Insert Into patient_info (id, last_name, first_name, telephone_h, Other_Phone, Other_Phone_Type) Values('P1', 'Jones', 'Anna', '5551234567', '5557654321', 'Mobile')");
        run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('CP', 'LM', 1, 'Left message')");
        run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('CP', 'NA', 2, 'No answer')");
        for (int day = 1; day <= 7; ++day)
            run(QStringLiteral(
                    "Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', %1, 540, 1020)")
                    .arg(day));
        run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders', '2020/03/11', 1)");
        run("Insert Into ToDo (ToDo, ClinicianId, Priority, Completed) Values('Call back', 'REED', 3, 0)");
        run("Insert Into rooms (Room) Values('Blue')");
        anna = add(patient("Anna").with("CourtesyCallStatus", "'LM'"));
        bert = add(patient("Bert").at(11, 0).with("CourtesyCallStatus", "'NA'"));
        run(QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, croomtext, nStartTime, nEndTime, nApptDate) Values(%1, 1, 'Reed', 660, 710, '2026/03/11')")
                .arg(bert));
        group = add(anAppointment("Grief").at(14, 0).status(ncolor::Group));
        run(QStringLiteral(
                "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept) Values(%1, 'P1', 'Jones, Anna', 0)")
                .arg(group));
        add(patient("Cora").on(QDate(2026, 3, 12)).with("CourtesyCallStatus", "'LM'"));
    }
    static AppointmentRow patient(const char* text) {
        return anAppointment(text).status(ncolor::Pending).with("patientid", "'P1'").with("CapptNote", "'90834|Note'");
    }
    template <class Form>
    std::unique_ptr<Form> make() {
        return std::make_unique<Form>(main);
    }
    void trigger(const char* name) {
        command(name).trigger();
        settle();
    }
    /// The columns of the tables that are written to are looked up once a run; that is done here.
    void warmUp() {
        openByHand();
        moveTo("Anna", 570);
        moveTo("Anna", 540);
        moveTo("Bert", 720);
        moveTo("Bert", 660);
    }

    qint64 anna = 0, bert = 0, group = 0;
};

}  // namespace

TEST_F(Trips, ADayIsOneAndOneMoreForItsCourtesyCalls) {
    EXPECT_TRUE(TakesAtMost(2, [&] { open(); }));
    EXPECT_EQ(itemTexts().size(), 4) << "with the holiday";
    EXPECT_EQ(item("Bert").ItemStatusIcon, 4);
    EXPECT_EQ(view_->findChild<ctList*>(QStringLiteral("ctList1"))->RowCount(), 1);
}

TEST_F(Trips, AStepToAnotherDayIsOne) {
    open();
    EXPECT_TRUE(TakesAtMost(1, [&] {
        main.SetDate(QDate(2026, 3, 12));
        view_->Reload();
    }));
    EXPECT_EQ(item("Cora").ItemStatusIcon, 7);
}

TEST_F(Trips, ASelectedAppointmentIsOne) {
    open();
    EXPECT_TRUE(TakesAtMost(1, [&] { select("Bert"); }));
    EXPECT_TRUE(info().contains("Room;Blue"));
    EXPECT_TRUE(info().contains("Courtesy Call Status;No answer"));
    EXPECT_TRUE(TakesAtMost(1, [&] { select("Grief"); }));
    EXPECT_TRUE(info().contains("Members;Jones, Anna"));
}

TEST_F(Trips, WhichOneOfItsSeriesAnAppointmentIsIsReadWithItsDetailsAndForItsTipOnce) {
    database_.connection().Execute("Update appointments Set repeating = 1, repeating_ref = 1");
    EXPECT_TRUE(TakesAtMost(2, [&] { open(); }));
    EXPECT_TRUE(TakesAtMost(1, [&] { select("Bert"); }));
    EXPECT_TRUE(info().contains(QRegularExpression("^Series;[0-9] of [0-9]$")));
    const int grief = calendar().IndexOfKey(item("Grief").ItemKey);
    EXPECT_TRUE(TakesAtMost(1, [&] { EXPECT_TRUE(calendar().ToolTipOf(grief).contains("Series: ")); }));
    EXPECT_TRUE(TakesAtMost(0, [&] { EXPECT_TRUE(calendar().ToolTipOf(grief).contains("Series: ")); }));
    make<frmweekv>();
    EXPECT_TRUE(TakesAtMost(1, [&] { EXPECT_TRUE(calendar().ToolTipOf(1).contains("Series: ")); }));
}

TEST_F(Trips, AReloadWithASelectedAppointmentIsOne) {
    open();
    select("Bert");
    EXPECT_TRUE(TakesAtMost(1, [&] { view_->Reload(); }));
    EXPECT_TRUE(info().contains("Courtesy Call Status;No answer"));
}

TEST_F(Trips, EachOtherViewIsOneAndOneMoreForItsCourtesyCalls) {
    EXPECT_TRUE(TakesAtMost(2, [&] { make<frmweekv>(); }));
    EXPECT_TRUE(TakesAtMost(2, [&] { make<frmall>(); }));
    EXPECT_TRUE(TakesAtMost(1, [&] { make<frmmtv>(); }));
    EXPECT_TRUE(TakesAtMost(2, [&] { make<frmrooms>(); }));
    Session().CurrentView = View::Week;
    const auto week = make<frmweekv>();
    EXPECT_TRUE(TakesAtMost(1, [&] {
        main.SetDate(QDate(2026, 3, 18));
        week->Reload();
    }));
}

TEST_F(Trips, TheRoomThatWasShownLastIsReadWithTheListOfRooms) {
    run("Insert Into rooms (Room) Values('Green')");
    make<frmrooms>()->findChild<QComboBox*>(QStringLiteral("cborooms"))->setCurrentIndex(1);
    EXPECT_TRUE(TakesAtMost(1, [&] { make<frmrooms>(); }));
}

TEST_F(Trips, ADragIsFourAndTenWithARoom) {
    warmUp();
    select("Anna");
    EXPECT_TRUE(TakesAtMost(4, [&] { moveTo("Anna", 570); })) << "read, write, audit line";
    select("Bert");
    EXPECT_TRUE(TakesAtMost(10, [&] { moveTo("Bert", 720); }))
        << "the room's conflicts, its slot and its name too, and the transaction";
    EXPECT_EQ(stored(bert, "nStartTime"), "720");
}

TEST_F(Trips, AStatusIsThree) {
    warmUp();
    select("Anna");
    EXPECT_TRUE(TakesAtMost(3, [&] { trigger("mnuAKept"); }));
    EXPECT_TRUE(TakesAtMost(3, [&] { trigger("mnuAMissed"); }));
    EXPECT_EQ(stored(anna, "ncolor"), QString::number(ncolor::Missed));
}

TEST_F(Trips, ANewNoteIsElevenAndOneThatExistsTwo) {
    run("Insert Into NoteTypes (NoteType, applyauths) Values('Progress Note', 1)");
    warmUp();
    select("Anna");
    trigger("mnuAKept");
    desk.expectForm("frmSNoteType", [](QDialog& dialog) {
        auto& form = dynamic_cast<frmSNoteType&>(dialog);
        form.List1->SelectRow(0);
        form.cmdOk->click();
    });
    EXPECT_TRUE(TakesAtMost(12, [&] { trigger("mnuANote"); }))
        << "the appointment, the types, the patient, and the transaction";
    EXPECT_TRUE(TakesAtMost(2, [&] { trigger("mnuANote"); }));
    EXPECT_EQ(desk.started.size(), 2);
}

TEST_F(Trips, TheEditorOfAnAppointmentAndTheDayBehindItAreFour) {
    warmUp();
    select("Anna");
    desk.expectForm("frmnore", [](QDialog& form) { form.reject(); });
    EXPECT_TRUE(TakesAtMost(4, [&] { trigger("mnuAEdit"); }));
}

TEST_F(Trips, ASavedEditIsNineBesidesItsEditor) {
    warmUp();
    select("Anna");
    desk.expectForm("frmnore", [](QDialog& form) {
        static_cast<frmnore&>(form).txtnotes->setPlainText("Bring the forms");
        EXPECT_TRUE(TakesAtMost(9, [&] { form.findChild<QPushButton*>("cmdOk")->click(); }));
    });
    trigger("mnuAEdit");
    EXPECT_EQ(stored(anna, "CapptNote"), "90834|Bring the forms");
}
