#include "output/patientnaming.h"

#include "output/exportedappointment.h"
#include "session/hiddennames.h"
#include "session/preferences.h"
#include "tests/output/exportfixture.h"

using PatientNames = ExportFixture;

namespace {

ExportedAppointment mary() {
    return {.cappttext = QStringLiteral("Jones, Mary Ann"),
            .CapptNote = QStringLiteral("90834|call first|again"),
            .ncolor = ncolor::Pending,
            .namesPatient = true,
            .patientNumber = QStringLiteral("A-55")};
}

ExportedAppointment lunch() {
    return {.cappttext = QStringLiteral("Lunch, outside"),
            .CapptNote = QStringLiteral("|bring an umbrella"),
            .ncolor = ncolor::Unavailable};
}

}  // namespace

TEST_F(PatientNames, InitialsHaveTheSurnameLast) {
    EXPECT_EQ(InitialsOf("Jones, Mary"), "M. J.");
    EXPECT_EQ(InitialsOf("O'Brien, Anna M."), "A. M. O.");
    EXPECT_EQ(InitialsOf("Mary Jones"), "M. J.");
    EXPECT_EQ(InitialsOf("van der Berg, Jan"), "J. V. D. B.");
    EXPECT_EQ(InitialsOf("  jones ,  mary "), "M. J.");
    EXPECT_EQ(InitialsOf("Jones, Mary (\"Molly\")"), "M. M. J.");
    EXPECT_EQ(InitialsOf("Jones, - *"), "J.");
    EXPECT_EQ(InitialsOf(""), "");
    EXPECT_EQ(InitialsOf(", ,"), "");
}

TEST_F(PatientNames, InitialsOfEveryScriptAreWhole) {
    EXPECT_EQ(InitialsOf("Åkesson, Élodie"), "É. Å.");
    EXPECT_EQ(InitialsOf(QStringLiteral("E\u0301lan, Zoe\u0308")), QStringLiteral("Z. E\u0301."));
    EXPECT_EQ(InitialsOf("山田, 太郎"), "太. 山.");
    EXPECT_EQ(InitialsOf("כהן, דוד"), "ד. כ.");
    EXPECT_EQ(InitialsOf("😀 Smith, 𝒜nn"), "𝒜. S.");
}

TEST_F(PatientNames, APatientIsNamedAsChosenAndOthersStayAsTheyAre) {
    EXPECT_EQ(Named(mary(), PatientNaming::FullName), mary());
    EXPECT_EQ(Named(mary(), PatientNaming::Initials).cappttext, "M. A. J.");
    EXPECT_EQ(Named(mary(), PatientNaming::PatientNumber).cappttext, "A-55");
    for (const PatientNaming naming : AllPatientNamings)
        EXPECT_EQ(Named(lunch(), naming), lunch());
}

TEST_F(PatientNames, APatientWithoutANumberIsNotNamedInFullAllTheSame) {
    ExportedAppointment appointment = mary();
    appointment.patientNumber.clear();
    EXPECT_EQ(Named(appointment, PatientNaming::PatientNumber).cappttext, "M. A. J.");
}

TEST_F(PatientNames, HiddenNamesAreHiddenHoweverPatientsAreNamed) {
    SetNamesHidden(true);
    for (const PatientNaming naming : AllPatientNamings) {
        const ExportedAppointment hidden = Named(mary(), naming);
        EXPECT_EQ(hidden.cappttext, "(hidden)");
        EXPECT_EQ(hidden.CapptNote, "90834|(hidden)");
        EXPECT_EQ(Named(lunch(), naming), lunch());
    }
    ExportedAppointment withoutNote = mary();
    withoutNote.CapptNote = QStringLiteral("90834");
    EXPECT_EQ(Named(withoutNote, PatientNaming::FullName).CapptNote, "90834");
}

TEST_F(PatientNames, UntilTheUserChoosesTheStandardFileHasInitialsAndTheOthersFullNames) {
    EXPECT_EQ(NamingIn(ExportFormat::FixedCalendar), PatientNaming::FullName);
    EXPECT_EQ(NamingIn(ExportFormat::HtmlPage), PatientNaming::FullName);
    EXPECT_EQ(NamingIn(ExportFormat::StandardCalendar), PatientNaming::Initials);
}

TEST_F(PatientNames, WhatTheUserChoosesIsKeptForEachFormat) {
    EXPECT_TRUE(KeepNaming(ExportFormat::StandardCalendar, PatientNaming::FullName));
    EXPECT_TRUE(KeepNaming(ExportFormat::HtmlPage, PatientNaming::PatientNumber));
    EXPECT_EQ(NamingIn(ExportFormat::StandardCalendar), PatientNaming::FullName);
    EXPECT_EQ(NamingIn(ExportFormat::HtmlPage), PatientNaming::PatientNumber);
    EXPECT_EQ(NamingIn(ExportFormat::FixedCalendar), PatientNaming::FullName);
    Session().UID = QStringLiteral("LANE");
    EXPECT_EQ(NamingIn(ExportFormat::HtmlPage), PatientNaming::FullName);
    SetPreference("Nonsense", "NamesInHTML", "Export");
    EXPECT_EQ(NamingIn(ExportFormat::HtmlPage), PatientNaming::FullName);
}

TEST_F(PatientNames, AChoiceThatTheDatabaseRefusesIsToldToTheCaller) {
    (void)database.refuse("Insert", "User_Preferences");
    EXPECT_FALSE(KeepNaming(ExportFormat::HtmlPage, PatientNaming::Initials));
}
