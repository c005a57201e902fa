#include "data/codes.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

class DayItems : public DayFixture {};

TEST_F(DayItems, PatientRowsAreColouredByStatus) {
    for (const int code : ncolor::PatientRows)
        add(anAppointment(qPrintable(QString::number(code))).status(code));

    open();

    for (const int code : ncolor::PatientRows) {
        const CalendarItem& row = item(qPrintable(QString::number(code)));
        EXPECT_EQ(row.ItemColor, code);
        EXPECT_FALSE(row.ItemBackColor.has_value());
        EXPECT_EQ(row.ItemTextColor, TextColor::Normal);
    }
}

TEST_F(DayItems, HiddenNamesCannotBeReadOnPatientRowsAlone) {
    Session().HidePatientNames = true;
    for (const int code : ncolor::PatientRows)
        add(anAppointment(qPrintable(QString::number(code))).status(code));
    add(anAppointment("Meeting").status(ncolor::Activity));
    add(anAppointment("Lunch").status(ncolor::Unavailable));
    add(anAppointment("Thursday group").status(ncolor::Group));

    open();

    for (const int code : ncolor::PatientRows)
        EXPECT_EQ(item(qPrintable(QString::number(code))).ItemTextColor, TextColor::SameAsBackground);
    for (const char* text : {"Meeting", "Lunch", "Thursday group"})
        EXPECT_EQ(item(text).ItemTextColor, TextColor::Normal);
}

TEST_F(DayItems, ActivitiesUnavailableTimeAndGroupsKeepTheirColours) {
    add(anAppointment("Meeting").status(ncolor::Activity));
    add(anAppointment("Lunch").status(ncolor::Unavailable));
    add(anAppointment("Group").status(ncolor::Group));

    open();

    EXPECT_EQ(item("Meeting").ItemColor, 16777088);
    EXPECT_EQ(item("Lunch").ItemColor, 16744703);
    EXPECT_EQ(item("Group").ItemColor, 12632064);
    EXPECT_FALSE(item("Meeting").ItemBackColor.has_value());
}

TEST_F(DayItems, ATypeSlotIsPaleYellowOnItsTypesColour) {
    add(anAppointment("Intake slot").status(0x336699).with("appttype", "4"));

    open();

    EXPECT_EQ(item("Intake slot").ItemColor, 8454143);
    EXPECT_EQ(item("Intake slot").ItemBackColor, 0x336699);
}

TEST_F(DayItems, AnUnknownCodeColoursBoth) {
    add(anAppointment("Odd").status(0x112233));

    open();

    EXPECT_EQ(item("Odd").ItemColor, 0x112233);
    EXPECT_EQ(item("Odd").ItemBackColor, 0x112233);
}

TEST_F(DayItems, AnAppointmentTypeFillsTheItem) {
    add(anAppointment("Typed").with("appointment_type", "3355443"));
    add(anAppointment("Untyped").with("appointment_type", "0"));

    open();

    EXPECT_EQ(item("Typed").ItemBackColor, 3355443);
    EXPECT_FALSE(item("Untyped").ItemBackColor.has_value());
}

TEST_F(DayItems, ACheckedInPatientShowsThePicture) {
    add(anAppointment("Here").status(ncolor::CheckedIn));
    add(anAppointment("Not here"));

    open();

    EXPECT_EQ(item("Here").ItemStatusIcon, 3);
    EXPECT_EQ(item("Not here").ItemStatusIcon, 0);
}

TEST_F(DayItems, TheCourtesyCallsPictureFollowsItsCategory) {
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('CP', 'C', 1, 'Confirmed')");
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('CP', 'L', 2, 'Left message')");
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('CP', 'N', 3, 'No answer')");
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('CP', 'D', 4, 'Declined')");
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('XX', 'Z', 1, 'Of another service')");
    for (const char* code : {"C", "L", "N", "D", "Z"})
        add(anAppointment(code).with("CourtesyCallStatus", QStringLiteral("'%1'").arg(QLatin1String(code))));

    open();

    EXPECT_EQ(item("C").ItemStatusIcon, 7);
    EXPECT_EQ(item("L").ItemStatusIcon, 4);
    EXPECT_EQ(item("N").ItemStatusIcon, 5);
    EXPECT_EQ(item("D").ItemStatusIcon, 6);
    EXPECT_EQ(item("Z").ItemStatusIcon, -1);
}

TEST_F(DayItems, NotePatientAndAccountTravelWithTheItem) {
    add(anAppointment("Noted")
            .with("CapptNote", "'90834|call first'")
            .with("patientid", "'P7'")
            .with("PatientAcct", "'A-4'"));
    add(anAppointment("Service only").with("CapptNote", "'90834'"));

    open();

    EXPECT_EQ(item("Noted").ItemNote, "90834|call first|P7|A-4");
    EXPECT_EQ(item("Service only").ItemNote, "90834|||");
    EXPECT_TRUE(item("Noted").ItemNoteIcon);
    EXPECT_FALSE(item("Service only").ItemNoteIcon);
}

TEST_F(DayItems, TheFlagsOfTheRowShowAsIcons) {
    add(anAppointment("All")
            .with("CLOCATION", "'Main office'")
            .with("BLOCATEICO", "1")
            .with("BremindIco", "1")
            .with("BTentIco", "1")
            .with("NoteID", "77"));
    add(anAppointment("None"));

    open();

    const CalendarItem& all = item("All");
    EXPECT_TRUE(all.ItemLocationIcon && all.ItemReminderIcon && all.ItemTentativeIcon);
    EXPECT_EQ(all.ItemLocation, "Main office");
    EXPECT_EQ(all.ItemSessionIcon, 1);
    const CalendarItem& none = item("None");
    EXPECT_FALSE(none.ItemLocationIcon || none.ItemReminderIcon || none.ItemTentativeIcon);
    EXPECT_EQ(none.ItemSessionIcon, 0);
}

TEST_F(DayItems, AnAppointmentOfASeriesShowsItsIcon) {
    add(anAppointment("Weekly").with("repeating", "1").with("repeating_ref", "7"));
    add(anAppointment("Was weekly").with("repeating", "0").with("repeating_ref", "7"));
    add(anAppointment("Of no series").with("repeating", "1"));

    open();

    EXPECT_EQ(item("Weekly").ItemSeriesIcon, 1);
    EXPECT_EQ(item("Was weekly").ItemSeriesIcon, 0);
    EXPECT_EQ(item("Of no series").ItemSeriesIcon, 0);
}

TEST_F(DayItems, EveryStatusIsToldInWordsToo) {
    add(anAppointment("Kept one").status(ncolor::Kept));
    add(anAppointment("Cancelled one").status(ncolor::PatientCancelled));

    open();

    EXPECT_EQ(item("Kept one").ItemStatusText, "Kept");
    EXPECT_EQ(item("Kept one").ItemStatusMark, StatusMark::Kept);
    EXPECT_EQ(item("Cancelled one").ItemStatusText, "Patient Cancelled");
}
