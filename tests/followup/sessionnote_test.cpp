#include <QDialog>

#include "tests/followup/notefixture.h"

namespace {

const char* const NothingToNote = "No appointment selected. First select a Kept or Missed appointment.";
const char* const NotTheProvider =
    "In order to create a note or view an existing associated note, you must be logged on as the rendering provider for this appointment.";
const char* const NoAccess =
    "You do not have access rights to open the selected note associated with this appointment.";
const char* const NoteGone = "Note for this appointment not found. It may have been deleted.";
const char* const ApptGone = "Appointment not found in database. It may have been deleted by another user.";
const char* const RowChanged =
    "Row cannot be located for updating. Some values may have been changed since it was last read.";

/// The command on an appointment that has no note yet.
class NewNote : public NoteFixture {
  protected:
    NewNote() {
        for (const char* type : {"Progress Note", "Intake", "Plan", "Letter", "Test", "Missed", "Patient", "Therapist"})
            run(db::Sql("Insert Into NoteTypes (NoteType, applyauths) Values('{}', 1)", QLatin1String(type)));
    }
    /// The row of the list of note types.
    static constexpr int Progress = 5;
    void expectBox(const char* text, const char* title) {
        desk.expectBox(QString::fromLatin1(text), QString::fromLatin1(title));
    }
    const QStringList hiddenAndShown{"hide", "show"};
};

/// The command on an appointment that has a note.
class ExistingNote : public NoteFixture {
  protected:
    void expectBox(const char* text, const char* title) {
        desk.expectBox(QString::fromLatin1(text), QString::fromLatin1(title));
    }
};

}  // namespace

TEST_F(NewNote, WithoutASelectedAppointmentIsRefused) {
    expectBox(NothingToNote, "Warning");
    OpenSessionNote(std::nullopt, calendar);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(NewNote, OfAKeptVisitIsMadeShownAndStarted) {
    const int key = add({});
    expectType(Progress);

    press(key);

    const qint64 id = noteOf(key);
    EXPECT_GT(id, 0);
    EXPECT_EQ(count("sessions"), 1);
    EXPECT_EQ(count("MissedAppt"), 0);
    EXPECT_EQ(events, (QStringList{"hide", "icon 1", started(QStringLiteral("%1|REED|1|P1").arg(id)), "show"}));
}

TEST_F(NewNote, HoldsWhatTheAppointmentAndThePatientSay) {
    const int key = add({});
    expectType(Progress);

    press(key);

    EXPECT_EQ(session("id"), QString::number(noteOf(key)));
    const std::pair<const char*, const char*> columns[]{{"stype", "1"},
                                                        {"patientid", "P1"},
                                                        {"Patient", "O'Brien, Anna"},
                                                        {"providerid", "REED"},
                                                        {"incident", "3"},
                                                        {"CPTCode", "90834"},
                                                        {"StartTime", "9:00 AM"},
                                                        {"EndTime", "9:50 AM"},
                                                        {"sessionlength", "50"},
                                                        {"location", "Main Office"},
                                                        {"program", "Outpatient"},
                                                        {"ModifiedDate", "Null"},
                                                        {"SignatureDate", "Null"},
                                                        {"Signature", "Null"}};
    for (const auto& [column, value] : columns)
        EXPECT_EQ(session(column), QString::fromLatin1(value)) << column;
    EXPECT_EQ(db::Recordset("Select DateMarker from sessions", database.connection())[0].dateTime(),
              QDateTime(QDate(2026, 3, 11), QTime(0, 0), Qt::UTC));
}

TEST_F(NewNote, TakesTheUsualServiceOfThePatientWhereTheVisitNamesNone) {
    for (const char* note : {"", "|bring the card", "|", "||P1|"}) {
        const int key = add({.note = QString::fromLatin1(note)});
        expectType(Progress);
        press(key);
        EXPECT_EQ(session("CPTCode"), "90837-95") << note;
    }
}

TEST_F(NewNote, TakesTheFirstFiveCharactersOfTheVisitsService) {
    const std::pair<const char*, const char*> services[]{
        {"90834", "90834"}, {"9083", "9083"}, {"90834X", "90834"}, {"Brief|call", "Brief"}};
    for (const auto& [note, code] : services) {
        const int key = add({.note = QString::fromLatin1(note)});
        expectType(Progress);
        press(key);
        EXPECT_EQ(session("CPTCode"), QString::fromLatin1(code)) << note;
    }
}

TEST_F(NewNote, OfAVisitWithoutAnyFieldHasNone) {
    run("Update patient_info Set defaultCPT = Null");
    const int key = add({.note = QString()});
    run("Update appointments Set CapptNote = Null, CLOCATION = Null");
    expectType(Progress);
    press(key);
    EXPECT_EQ(session("CPTCode"), "");
    EXPECT_EQ(session("location"), "Null");
}

TEST_F(NewNote, OfTypesThreeToNineHasNoService) {
    for (int stype = 1; stype <= 11; ++stype) {
        const int key = add({});
        CreateSessionFromAppointment(shown(key), stype, calendar);
        EXPECT_EQ(session("stype"), QString::number(stype));
        EXPECT_EQ(session("CPTCode"), stype < 3 || stype > 9 ? "90834" : "Null") << stype;
    }
}

TEST_F(NewNote, OfAMissedTypeHasARowWithoutAReason) {
    for (int stype = 5; stype <= 9; ++stype) {
        run("Delete from MissedAppt");
        const int key = add({});
        CreateSessionFromAppointment(shown(key), stype, calendar);
        const bool isMissed = stype >= 6 && stype <= 8;
        EXPECT_EQ(count("MissedAppt"), isMissed ? 1 : 0) << stype;
        if (isMissed) {
            EXPECT_EQ(database.number("Select id from MissedAppt"), noteOf(key)) << stype;
            EXPECT_EQ(database.text("Select reason from MissedAppt"), "") << stype;
        }
    }
}

TEST_F(NewNote, WritesMidnightAndNoonInItsOwnWay) {
    struct Times {
        int start, end;
        const char *startText, *endText, *length;
    };
    const Times times[]{{0, 30, "12:00 am", "12:30 AM", "30"},     {690, 720, "11:30 AM", "12:00 pm", "30"},
                        {720, 779, "12:00 pm", "0:59 PM", "59"},   {1380, 1440, "11:00 PM", "12:00 Mid", "60"},
                        {600, 540, "10:00 AM", "9:00 AM", "Null"}, {600, 600, "10:00 AM", "10:00 AM", "Null"},
                        {7, 8, "12:07 AM", "12:08 AM", "1"},       {1410, 1470, "11:30 PM", "12:30 AM", "60"}};
    for (const Times& each : times) {
        CreateSessionFromAppointment(shown(add({.start = each.start, .end = each.end})), 1, calendar);
        EXPECT_EQ(session("StartTime"), each.startText) << each.start;
        EXPECT_EQ(session("EndTime"), each.endText) << each.end;
        EXPECT_EQ(session("sessionlength"), each.length) << each.start;
    }
}

TEST_F(NewNote, WritesTimesAsTheUserReadsThem) {
    Session().MilitaryTime = true;
    CreateSessionFromAppointment(shown(add({.start = 780, .end = 825})), 1, calendar);
    EXPECT_EQ(session("StartTime"), "13:00");
    EXPECT_EQ(session("EndTime"), "13:45");
}

TEST_F(NewNote, OfAPatientWithoutIncidentOrNameIsMadeAllTheSame) {
    run("Update patient_info Set incident_nbr = Null, first_name = Null");
    run("Delete from incident_hx");
    CreateSessionFromAppointment(shown(add({})), 1, calendar);
    EXPECT_EQ(session("incident"), "Null");
    EXPECT_EQ(session("program"), "");
    EXPECT_EQ(session("Patient"), "");
    EXPECT_EQ(session("patientid"), "P1");
}

TEST_F(NewNote, OfAPatientWhomAnotherDeskDeletedKeepsThePatientsId) {
    run("Delete from patient_info");
    const int key = add({});
    CreateSessionFromAppointment(shown(key), 1, calendar);
    EXPECT_EQ(session("patientid"), "P1");
    EXPECT_EQ(session("Patient"), "");
    EXPECT_EQ(events.last(), started(QStringLiteral("%1|REED|1|P1").arg(noteOf(key))));
}

TEST_F(NewNote, KeepsLettersOfAnyScript) {
    run(QString::fromUtf8("Update patient_info Set last_name = 'Åkesson''s', first_name = '\U0001F600|;\"'"));
    run(QString::fromUtf8("Update incident_hx Set treatment_program = 'Ж''|'"));
    const int key = add({.note = QString::fromUtf8("\U0001F600\U0001F600\U0001F600|")});
    CreateSessionFromAppointment(shown(key), 1, calendar);
    EXPECT_EQ(session("Patient"), QString::fromUtf8("Åkesson's, \U0001F600|;\""));
    EXPECT_EQ(session("program"), QString::fromUtf8("Ж'|"));
    EXPECT_EQ(session("CPTCode"), QString::fromUtf8("\U0001F600\U0001F600")) << "No character is cut in half.";
}

TEST_F(NewNote, OfAVisitThatIsNeitherKeptNorMissedIsRefused) {
    for (const int code : {ncolor::Blank, ncolor::Tentative, ncolor::Pending, ncolor::CheckedIn, ncolor::Group,
                           ncolor::Activity, ncolor::Unavailable}) {
        events.clear();
        const int key = add({.code = code});
        expectBox(NothingToNote, "Warning");
        press(key);
        EXPECT_EQ(events, hiddenAndShown) << code;
        expectNothingWritten(key);
    }
}

TEST_F(NewNote, OfASlotOfAnAppointmentTypeIsRefusedWhateverItsColour) {
    const int key = add({.apptType = ApptTypeSlot});
    expectBox(NothingToNote, "Warning");
    press(key);
    expectNothingWritten(key);
}

TEST_F(NewNote, OfAHolidayIsRefused) {
    ShownAppointment holiday;
    holiday.stored = HolidayBanner(QStringLiteral("Founders"), QDate(2026, 3, 11));
    for (const View view : {View::Day, View::Week, View::AllProviders}) {
        Session().CurrentView = view;
        expectBox(NothingToNote, "Warning");
        press(holiday);
    }
}

TEST_F(NewNote, InTheScheduleOfAnotherProviderIsRefusedEvenToWhoWorksOnAll) {
    Session().AllProviders = true;
    Session().ProviderId = QStringLiteral("LANE");
    for (const int code : {ncolor::Kept, ncolor::Missed, ncolor::Pending}) {
        const int key = add({.code = code, .provider = QStringLiteral("LANE")});
        expectBox(NotTheProvider, "Solvane");
        press(key);
        expectNothingWritten(key);
    }
    EXPECT_TRUE(events.isEmpty()) << "The command was never hidden.";
}

TEST_F(NewNote, IsTheProvidersInWhateverLettersTheIdIsWritten) {
    Session().UID = QStringLiteral("reed");
    const int key = add({});
    expectType(Progress);
    press(key);
    EXPECT_GT(noteOf(key), 0);
    EXPECT_EQ(session("providerid"), "REED");
}

TEST_F(NewNote, InTheViewOfAllProvidersMustAlsoBeOfTheColumnsProvider) {
    Session().CurrentView = View::AllProviders;
    Session().AllProviders = true;
    const int lanes = add({.provider = QStringLiteral("LANE")});
    expectBox(NotTheProvider, "Solvane");
    press(lanes);
    expectNothingWritten(lanes);

    Session().ProviderId = QStringLiteral("LANE");
    const int reeds = add({});
    expectBox(NotTheProvider, "Solvane");
    press(reeds);
    expectNothingWritten(reeds);
}

TEST_F(NewNote, InTheViewOfAllProvidersIsShownByAReload) {
    Session().CurrentView = View::AllProviders;
    const int key = add({});
    expectType(Progress);
    press(key);
    EXPECT_EQ(events,
              (QStringList{"hide", "reload", started(QStringLiteral("%1|REED|1|P1").arg(noteOf(key))), "show"}));
}

TEST_F(NewNote, OfNoTypeIsNotMade) {
    run("Insert Into DocNewMenu (NoteID, NoteName, UID) Values(1, 'Mine', 'REED')");
    const int key = add({});
    expectType(1);  // The line.
    press(key);
    EXPECT_EQ(events, hiddenAndShown);
    expectNothingWritten(key);
}

TEST_F(NewNote, ThatIsCancelledIsNotMade) {
    const int key = add({});
    desk.expectForm("frmSNoteType", [](QDialog& form) { form.reject(); });
    press(key);
    EXPECT_EQ(events, hiddenAndShown);
    expectNothingWritten(key);
}

TEST_F(NewNote, StaysLinkedWhenTheNotesProgramDoesNotStart) {
    starts = false;
    const int key = add({});
    expectType(Progress);
    press(key);
    const QString id = QString::number(noteOf(key));
    EXPECT_EQ(session("id"), id);

    events.clear();
    press(key);
    EXPECT_EQ(events, QStringList{started(id + "|REED|2|P1")}) << "The next time it is opened.";
    EXPECT_EQ(count("sessions"), 1);
}

TEST_F(NewNote, StartsTheNotesProgramThatTheInstallationNames) {
    const QTemporaryDir folder;
    PutFile(folder.filePath("installation.ini"), "[Programs]\nNotes=/usr/bin/notes program\n");
    qputenv("SVSCHEDULER_INSTALLATION", folder.filePath("installation.ini").toUtf8());
    const int key = add({});
    CreateSessionFromAppointment(shown(key), 1, calendar);
    qunsetenv("SVSCHEDULER_INSTALLATION");
    EXPECT_EQ(events.last(), QStringLiteral("start /usr/bin/notes program [%1|REED|1|P1] in []").arg(noteOf(key)));
}

TEST_F(NewNote, OfAnAppointmentThatAnotherDeskDeletedIsToldAndTheDayReadAnew) {
    for (const int code : {ncolor::Kept, ncolor::Missed}) {
        events.clear();
        const int key = add({.code = code});
        const ShownAppointment before = shown(key);
        run("Delete from appointments");
        expectBox(ApptGone, "Appointment not found");
        press(before);
        EXPECT_EQ(events, (QStringList{"hide", "reload", "show"}));
        EXPECT_EQ(count("sessions"), 0);
    }
}

TEST_F(NewNote, OfAnAppointmentThatIsDeletedWhileTheTypeIsChosenIsTold) {
    const int key = add({});
    expectType(Progress, [this] { run("Delete from appointments"); });
    expectBox(ApptGone, "Appointment not found");
    press(key);
    EXPECT_EQ(events, (QStringList{"hide", "reload", "show"}));
    EXPECT_EQ(count("sessions"), 0);
}

TEST_F(NewNote, OfAnAppointmentThatAnotherDeskChangedIsNotMade) {
    for (const char* change : {"ncolor = 16711681", "ncolor = 192", "clinicianid = 'LANE'", "patientid = 'P2'"}) {
        events.clear();
        const int key = add({});
        const ShownAppointment before = shown(key);
        run(QStringLiteral("Update appointments Set %1").arg(QLatin1String(change)));
        desk.expectBox(QStringLiteral("Error opening note. ") + RowChanged, QStringLiteral("Error"));
        press(before);
        EXPECT_EQ(events, (QStringList{"hide", "show", "reload"})) << change;
        expectNothingWritten(key);
    }
}

TEST_F(NewNote, OfAnAppointmentThatIsChangedWhileTheTypeIsChosenIsNotMade) {
    for (const char* change : {"ncolor = 16711681", "clinicianid = 'LANE'", "patientid = 'P2'"}) {
        events.clear();
        const int key = add({});
        expectType(Progress, [&] { run(QStringLiteral("Update appointments Set %1").arg(QLatin1String(change))); });
        desk.expectBox(QStringLiteral("Error generating note. ") + RowChanged, QStringLiteral("Error"));
        press(key);
        EXPECT_EQ(events, (QStringList{"hide", "reload", "show"})) << change;
        expectNothingWritten(key);
    }
}

TEST_F(NewNote, ThatAnotherDeskHasMadeIsOpenedInstead) {
    const int key = add({});
    const ShownAppointment before = shown(key);
    const int id = addSession(1);
    run(db::Sql("Update appointments Set NoteID = {}", id));
    press(before);
    EXPECT_EQ(events, (QStringList{"hide", "icon 1", started(QStringLiteral("%1|REED|2|P1").arg(id)), "show"}));
    EXPECT_EQ(count("sessions"), 1);
}

TEST_F(NewNote, ThatAnotherDeskMakesWhileTheTypeIsChosenIsToldAndNotDoubled) {
    const int key = add({});
    int id = 0;
    expectType(Progress, [&] {
        id = addSession(1);
        run(db::Sql("Update appointments Set NoteID = {}", id));
    });
    expectBox("Another user has already started the note of this appointment.", "Solvane");
    press(key);
    EXPECT_EQ(events, (QStringList{"hide", "icon 1", "show"}));
    EXPECT_EQ(count("sessions"), 1);
    EXPECT_EQ(noteOf(key), id);
}

namespace {

struct Refused {
    const char* operation;
    const char* table;
};

class RefusedNote : public NewNote, public testing::WithParamInterface<Refused> {};

}  // namespace

TEST_P(RefusedNote, LeavesNothingHalfDone) {
    const int key = add({});
    const QString why = database.refuse(QLatin1String(GetParam().operation), QLatin1String(GetParam().table));
    desk.expectBox(QStringLiteral("Error generating note. ") + why, QStringLiteral("Error"));

    CreateSessionFromAppointment(shown(key), 6, calendar);

    EXPECT_TRUE(events.isEmpty()) << "Neither shown nor started.";
    expectNothingWritten(key);
    database.allow(QLatin1String(GetParam().operation), QLatin1String(GetParam().table));
    CreateSessionFromAppointment(shown(key), 6, calendar);
    EXPECT_GT(noteOf(key), 0) << "The next try works.";
}

INSTANTIATE_TEST_SUITE_P(Statement, RefusedNote,
                         testing::Values(Refused{"Insert", "sessions"}, Refused{"Insert", "MissedAppt"},
                                         Refused{"Update", "appointments"}),
                         [](const auto& tested) { return std::string(tested.param.operation) + tested.param.table; });

namespace {

class UnreadNote : public NewNote, public testing::WithParamInterface<const char*> {};

}  // namespace

TEST_P(UnreadNote, LeavesNothingHalfDone) {
    const int key = add({});
    const ShownAppointment before = shown(key);
    const QString why = DropTable(database.connection(), QLatin1String(GetParam()));
    desk.expectBox(QStringLiteral("Error generating note. ") + why, QStringLiteral("Error"));

    CreateSessionFromAppointment(before, 1, calendar);

    EXPECT_TRUE(events.isEmpty());
    expectNothingWritten(key);
}

// As the statements name them.
INSTANTIATE_TEST_SUITE_P(Table, UnreadNote, testing::Values("Patient_info", "incident_hx"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_F(NewNote, OfAVisitWithAVeryLongServiceAndNoteIsMade) {
    const QString longText(60000, u'x');
    const int key = add({.note = longText + u'|' + longText});
    expectType(Progress);
    press(key);
    EXPECT_EQ(session("CPTCode"), "xxxxx");
}

TEST_F(NewNote, WithoutADatabaseIsTold) {
    const int key = add({});
    const ShownAppointment before = shown(key);
    Session().Connection.Close();
    const QString why = QStringLiteral(
        "The connection cannot be used to perform this operation. It is either closed or invalid in this context.");
    desk.expectBox(QStringLiteral("Error opening note. ") + why, QStringLiteral("Error"));
    press(before);
    EXPECT_EQ(events, hiddenAndShown);
}

TEST_F(NewNote, IsThereForWhoMayOnlyRead) {
    Session().ScreenAccess = 1;
    const int key = add({});
    expectType(Progress);
    press(key);
    EXPECT_GT(noteOf(key), 0);
}

TEST_F(ExistingNote, OfTheUserIsOpenedInTheNotesProgram) {
    for (const int stype : {1, 2}) {
        events.clear();
        const int id = addSession(stype);
        press(add({.noteId = id}));
        EXPECT_EQ(events, QStringList{started(QStringLiteral("%1|REED|2|P1").arg(id))}) << stype;
    }
}

TEST_F(ExistingNote, IsTheUsersInWhateverLettersTheIdIsWritten) {
    const int id = addSession(1, "rEEd");
    press(add({.provider = QStringLiteral("LANE"), .noteId = id}));
    EXPECT_EQ(events, QStringList{started(QStringLiteral("%1|REED|2|P1").arg(id))});
}

TEST_F(ExistingNote, OpensWhateverTheStatusAndTheProviderOfTheDay) {
    Session().ProviderId = QStringLiteral("LANE");
    const int id = addSession(1);
    press(add({.code = ncolor::Pending, .provider = QStringLiteral("LANE"), .noteId = id}));
    EXPECT_EQ(events, QStringList{started(QStringLiteral("%1|REED|2|P1").arg(id))});
}

TEST_F(ExistingNote, OfAnotherIsRefusedToWhoHasNoAccessToThePatient) {
    for (const int stype : {1, 6, 4}) {
        const int id = addSession(stype, "LANE");
        expectBox(NoAccess, "Access Denied");
        press(add({.noteId = id}));
    }
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(ExistingNote, OfAnotherOpensForWhoHasAccessToThePatient) {
    run("Insert Into PatientAccess (patientid, providerid) Values('P1', 'REED')");
    const int id = addSession(1, "LANE");
    press(add({.noteId = id}));
    EXPECT_EQ(events, QStringList{started(QStringLiteral("%1|REED|2|P1").arg(id))});
}

TEST_F(ExistingNote, ThatIsNotThereAnyMoreIsToldAndTheLinkStays) {
    run("Update patient_info Set provider_id = 'REED'");
    const int key = add({.noteId = 4711});
    expectBox(NoteGone, "Solvane");
    press(key);
    EXPECT_EQ(noteOf(key), 4711);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(ExistingNote, ThatIsNotThereAnyMoreIsNobodysSoThatThePatientCounts) {
    expectBox(NoAccess, "Access Denied");
    press(add({.noteId = 4711}));
}

TEST_F(ExistingNote, ThatAnotherDeskUnlinkedIsToldAndTheDayReadAnew) {
    run("Update patient_info Set provider_id = 'REED'");
    const ShownAppointment before = shown(add({.noteId = addSession(1)}));
    run("Update appointments Set NoteID = Null");
    expectBox(NoteGone, "Solvane");
    press(before);
    EXPECT_EQ(events, QStringList{"reload"});
}

TEST_F(ExistingNote, OfAnAppointmentThatAnotherDeskDeletedIsTold) {
    const ShownAppointment before = shown(add({.noteId = addSession(1)}));
    run("Delete from appointments");
    expectBox(ApptGone, "Appointment not found");
    press(before);
    EXPECT_EQ(events, QStringList{"reload"});
}

TEST_F(ExistingNote, OfATypeThatIsNotOpenedFromHereOpensNothingAndSaysWhy) {
    for (const int stype : {0, 3, 4, 5, 9, 10}) {
        press(add({.noteId = addSession(stype)}));
        EXPECT_TRUE(events.isEmpty()) << stype;
        EXPECT_EQ(bar.Texts(), QStringList{"A note of this type cannot be opened from here. Open it in Solvane."});
    }
    run("Update sessions Set stype = Null");
    press(add({.noteId = 1}));
    EXPECT_TRUE(events.isEmpty());

    press(add({.noteId = addSession(1)}));
    EXPECT_TRUE(bar.Texts().isEmpty()) << "The notice goes with the next command.";
}

TEST_F(ExistingNote, ThatCannotBeReadIsTold) {
    for (const char* table : {"sessions", "appointments"}) {
        const ShownAppointment before = shown(add({.noteId = addSession(1)}));
        const QString why = DropTable(database.connection(), QLatin1String(table));
        desk.expectBox(QStringLiteral("Error opening note. ") + why, QStringLiteral("Error"));
        press(before);
        EXPECT_TRUE(events.isEmpty());
        if (qstrcmp(table, "sessions") == 0)
            run("Create Table sessions (id int identity(1,1) not null primary key, stype smallint null, providerid nvarchar(20) null, Patient nvarchar(255) null)");
    }
}

TEST_F(ExistingNote, ThatTheNotesProgramCannotOpenStaysAsItIs) {
    starts = false;
    const int key = add({.noteId = addSession(2)});
    press(key);
    EXPECT_GT(noteOf(key), 0);
    EXPECT_EQ(count("sessions"), 1);
}
