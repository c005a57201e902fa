#include <QPlainTextEdit>

#include "data/codes.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

class DayInfo : public DayFixture {
  protected:
    void addPatient() {
        run("Insert Into patient_info (id, last_name, first_name, telephone_h, telephone_b, Other_Phone, Other_Phone_Type, EmailAddress, PreferredContactMode) Values('P7', 'O''Brien', 'Anna', '5551234567', '555987654312', '5550001111', 'Cell', 'anna@example.org', 'E-Mail')");
        Session().PhoneMask = "(###) ###-####";
    }
    static AppointmentRow annas() {
        return anAppointment("O'Brien, Anna")
            .with("CapptNote", "'90834  Psychotherapy 45|call first'")
            .with("patientid", "'P7'");
    }
    [[nodiscard]] QString note() const {
        return view_->findChild<QPlainTextEdit*>(QStringLiteral("txtnote"))->toPlainText();
    }
};

TEST_F(DayInfo, NothingIsSelectedAtFirst) {
    open();

    EXPECT_EQ(info(), QStringList{";No Appointment Selected"});
    EXPECT_EQ(note(), "Appointment Note");
}

TEST_F(DayInfo, APatientsAppointmentShowsTimeServiceRoomAndContacts) {
    addPatient();
    const qint64 key = add(annas().at(9, 5).until(9, 50).status(ncolor::Pending).with("CourtesyCallStatus", "'C'"));
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('CP', 'C', 1, 'Confirmed by phone')");
    run("Insert Into rooms (Room) Values('Blue room')");
    run(QStringLiteral(
            "Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values(%1, 1, 545, 590, '2026/03/11')")
            .arg(key));

    open();
    select("O'Brien, Anna");

    EXPECT_EQ(info(), (QStringList{"Appointment;O'Brien, Anna", "Time;9:05 AM - 9:50 AM", "Length;45 mins.",
                                   "Service;90834  Psychotherapy 45", "Room;Blue room", "Home Phone;(555) 123-4567",
                                   "Work Phone;(555) 987-6543 12", "Cell;(555) 000-1111", "E-Mail;anna@example.org",
                                   "Preferred Contact Method;E-Mail", "Courtesy Call Status;Confirmed by phone",
                                   "Status;Pending"}));
    EXPECT_EQ(note(), "Appointment Note\ncall first");
}

TEST_F(DayInfo, AnAppointmentOfASeriesSaysWhichOfThoseThatExistItIs) {
    addPatient();
    std::vector<qint64> keys;
    for (const QDate date : {QDate(2026, 3, 4), QDate(2026, 3, 11), QDate(2026, 3, 18)})
        keys.push_back(add(annas().on(date).at(9, 0).until(9, 50)));
    const qint64 sameDay = add(anAppointment("Later").at(11, 0).until(11, 50));
    const qint64 alone = add(anAppointment("Alone").at(13, 0).until(13, 50));
    run(db::Sql("Update appointments Set repeating = 1, repeating_ref = {} Where nkeyid <> {}", keys[0], alone));
    open();
    const auto tip = [this](const char* text) {
        return calendar().ToolTipOf(calendar().IndexOfKey(item(text).ItemKey));
    };

    select("O'Brien, Anna");
    EXPECT_TRUE(info().contains("Series;2 of 4")) << info().join(u'\n').toStdString();
    EXPECT_TRUE(tip("O'Brien, Anna").contains("Series: 2 of 4"));
    EXPECT_TRUE(tip("Later").contains("Series: 3 of 4"));
    select("Alone");
    EXPECT_FALSE(info().join(u'\n').contains("Series"));
    EXPECT_FALSE(tip("Alone").contains("Series"));

    run(db::Sql("Delete from appointments Where nkeyid = {}", keys[0]));
    view_->Reload();
    select("O'Brien, Anna");
    EXPECT_TRUE(info().contains("Series;1 of 3"));
    EXPECT_TRUE(tip("Later").contains("Series: 2 of 3"));

    run(db::Sql("Update appointments Set repeating = 0 Where nkeyid = {}", sameDay));
    select("Later");
    EXPECT_FALSE(info().join(u'\n').contains("Series")) << "Another desk has taken it out of the series.";
}

TEST_F(DayInfo, EveryStatusHasItsWordAndABlankOneHasNone) {
    addPatient();
    const std::vector<std::pair<int, QString>> words{{ncolor::Pending, "Status;Pending"},
                                                     {ncolor::Tentative, "Status;Tentative"},
                                                     {ncolor::Missed, "Status;Missed"},
                                                     {ncolor::PatientCancelled, "Status;Cancelled"},
                                                     {ncolor::TherapistCancelled, "Status;Cancelled"},
                                                     {ncolor::Kept, "Status;Kept"},
                                                     {ncolor::CheckedIn, "Status;Checked-In"}};
    for (const auto& [code, word] : words)
        add(anAppointment(qPrintable(QString::number(code))).status(code).with("patientid", "'P7'"));
    add(anAppointment("Blank").status(ncolor::Blank).with("patientid", "'P7'"));

    open();

    for (const auto& [code, word] : words) {
        select(qPrintable(QString::number(code)));
        EXPECT_EQ(info().last().toStdString(), word.toStdString());
    }
    select("Blank");
    EXPECT_EQ(info().last(), "Preferred Contact Method;E-Mail");
}

TEST_F(DayInfo, AGroupShowsItsMembersInPlaceOfContacts) {
    const qint64 key = add(anAppointment("Monday group").status(ncolor::Group));
    run(QStringLiteral(
            "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept) Values(%1, 'P2', 'Young, Zoë', 0)")
            .arg(key));
    run(QStringLiteral(
            "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept) Values(%1, 'P1', 'Abbott, Ike', 1)")
            .arg(key));

    open();
    select("Monday group");

    EXPECT_EQ(info(), (QStringList{"Appointment;Monday group", "Time;9:00 AM - 9:50 AM", "Length;50 mins.",
                                   "Service;Group Therapy", "Room;", "Members;Abbott, Ike (Kept)", ";Young, Zoë"}));
}

TEST_F(DayInfo, ATypeSlotShowsNoServiceNoPhonesAndNoStatus) {
    add(anAppointment("Intake slot").status(0x336699).with("appttype", "4"));

    open();
    select("Intake slot");

    EXPECT_EQ(info(), (QStringList{"Appointment;Intake slot", "Time;9:00 AM - 9:50 AM", "Length;50 mins.", "Room;"}));
}

TEST_F(DayInfo, AnActivityShowsNoContacts) {
    add(anAppointment("Staff meeting").status(ncolor::Activity));

    open();
    select("Staff meeting");

    EXPECT_EQ(info().last(), "Room;");
}

TEST_F(DayInfo, SemicolonsInATextBecomeCommasAndLineEndsBlanks) {
    add(anAppointment("Meeting; bring\r\nslides\nand notes").status(ncolor::Activity));

    open();
    calendar().setSelectedItem(1);

    EXPECT_EQ(info().first(), "Appointment;Meeting, bring slides and notes");
}

TEST_F(DayInfo, APatientWhoWasRemovedLeavesTheContactsEmpty) {
    add(annas());

    open();
    select("O'Brien, Anna");

    EXPECT_TRUE(info().contains("Home Phone;"));
    EXPECT_TRUE(info().contains("E-Mail;"));
}

TEST_F(DayInfo, TimesFollowTheTwentyFourHourPreference) {
    Session().MilitaryTime = true;
    add(annas().at(14, 5).until(14, 50));

    open();
    select("O'Brien, Anna");

    EXPECT_EQ(info().at(1), "Time;14:05 - 14:50");
}

TEST_F(DayInfo, SelectingNothingEmptiesTheDetails) {
    add(annas());
    open();
    select("O'Brien, Anna");

    calendar().clearSelection();

    EXPECT_EQ(info(), QStringList{";No Appointment Selected"});
    EXPECT_EQ(note(), "Appointment Note");
}
