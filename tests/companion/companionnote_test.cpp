#include "companion/companionnote.h"

#include <QDialog>
#include <QPushButton>

#include "followup/frmsnotetype.h"
#include "platform/controls/ctlist.h"
#include "tests/companion/writesfixture.h"
#include "tests/support/fulldisk.h"

namespace {

const char* const NoPatient = "This patient is not linked to a patient in Solvane. Unable to do a note.";
const char* const NoProvider =
    "The provider for this session is not linked to a provider in Solvane. Unable to do a note.";
const char* const NotTheProvider =
    "In order to create a note, you must be logged on as the rendering provider for this appointment.";
const char* const NoAccess =
    "You do not have access rights to open the selected note associated with this appointment.";
const char* const NoteGone = "Note for this appointment not found. It may have been deleted.";
const char* const ApptGone = "Appointment not found in database. It may have been deleted by another user.";
const char* const StartedElsewhere = "Another user has already started the note of this appointment.";
const QString Linking = QStringLiteral("Error linking appointment/charge in Fernhal to this note. ");
const QString Generating = QStringLiteral("Error generating note. ");
const QString Opening = QStringLiteral("Error opening note. ");
const QString RowChanged =
    QStringLiteral("Row cannot be located for updating. Some values may have been changed since it was last read.");

class CompanionNote : public WritesFixture {
  protected:
    CompanionNote() {
        here(
            "Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access) Values('REED', 0, '333333336')");
        here(
            "Insert Into patient_info (id, last_name, first_name, provider_id, incident_nbr, defaultCPT) Values('P1', 'O''Brien', 'Anna', 'LANE', 3, '90837-95')");
        for (const char* type : {"Progress Note", "Intake", "Plan", "Letter", "Test", "Missed", "Patient", "Therapist"})
            here(db::Sql("Insert Into NoteTypes (NoteType, applyauths) Values('{}', 1)", type));
        Desktop().startProgram = [this](const QString& path, const QString& arguments, const QString& folder) {
            events << QStringLiteral("start %1 [%2] in [%3]").arg(path, arguments, folder);
            return true;
        };
    }

    /// The command on the appointment of provider 1.
    void press(int key, int provider = 1) {
        OpenCompanionNote({.CtrnId = key,
                           .ProvId = provider,
                           .service = service,
                           .isNoted = isNoted,
                           .showNote = [this] { events << QStringLiteral("icon"); },
                           .reload = [this] { events << QStringLiteral("reload"); }});
    }
    /// The user chooses the type in the list of note types, which is in the order of the alphabet: 5 is the progress
    /// note, 1 in the table.
    void expectType(
        int row = Progress, const std::function<void()>& meanwhile = [] {}) {
        desk.expectForm("frmSNoteType", [row, meanwhile](QDialog& dialog) {
            auto& form = dynamic_cast<frmSNoteType&>(dialog);
            form.List1->SelectRow(row);
            meanwhile();
            form.cmdOk->click();
        });
    }
    void expectBox(const QString& text, const char* title) { desk.expectBox(text, QString::fromLatin1(title)); }
    NotedTransaction noted(int key) {
        return {.CtrnId = key,
                .ClntId = 1,
                .ProvId = 1,
                .patientId = QStringLiteral("P1"),
                .providerId = QStringLiteral("REED"),
                .service = service};
    }
    /// A column of the newest session, "Null" for null.
    [[nodiscard]] QString session(const char* column) {
        const db::Recordset row(QStringLiteral("Select %1 from sessions Order by id Desc").arg(QLatin1String(column)),
                                database_.connection());
        if (row.Eof())
            return QStringLiteral("(none)");
        return row[0].isNull() ? QStringLiteral("Null") : row[0].text();
    }
    int addSession(int stype, const char* provider, const char* patient = "P1") {
        here(db::Sql("Insert Into sessions (stype, providerid, patientid) Values ({}, '{}', '{}')", stype, provider,
                     patient));
        return static_cast<int>(database_.connection().LastIdentity());
    }
    void expectNothingWritten(int key) {
        EXPECT_EQ(countHere("sessions"), 0);
        EXPECT_EQ(countHere("MissedAppt"), 0);
        EXPECT_EQ(stored(key, "SVSessionID"), "");
        expectNoTransactionIsOpen();
    }
    static QString started(const QString& arguments) {
        return QStringLiteral("start /opt/solvane/solvaned.exe [%1] in []").arg(arguments);
    }

    static constexpr int Progress = 5;
    QString service = QStringLiteral("90834-X");
    bool isNoted = false;
    QStringList events;  ///< What happened to the schedule, and what was started.
};

}  // namespace

TEST_F(CompanionNote, OfAnAppointmentIsMadeLinkedShownAndStarted) {
    for (const char* status : {"S", "C"}) {
        events.clear();
        const int key = add({.status = status});
        expectType();
        press(key);
        const QString id = session("id");
        EXPECT_EQ(stored(key, "SVSessionID"), id);
        EXPECT_EQ(events, (QStringList{"icon", started(id + QStringLiteral("|REED|1|P1"))})) << status;
    }
    EXPECT_EQ(countHere("sessions"), 2);
    expectNoTransactionIsOpen();
}

TEST_F(CompanionNote, HoldsWhatTheAppointmentAndThePatientSay) {
    const int key = add({});
    expectType();
    press(key);
    const std::pair<const char*, const char*> columns[]{
        {"stype", "1"},          {"patientid", "P1"},      {"Patient", "O'Brien, Anna"}, {"providerid", "REED"},
        {"incident", "3"},       {"CPTCode", "90834"},     {"StartTime", "9:00 AM"},     {"EndTime", "9:50 AM"},
        {"sessionlength", "50"}, {"location", "Null"},     {"program", "Null"},          {"ModifiedDate", "Null"},
        {"Signature", "Null"},   {"SignatureName", "Null"}};
    for (const auto& [column, value] : columns)
        EXPECT_EQ(session(column), QString::fromLatin1(value)) << column;
    EXPECT_EQ(db::Recordset("Select DateMarker from sessions", database_.connection())[0].dateTime(),
              QDateTime(QDate(2026, 3, 11), QTime(0, 0), Qt::UTC));
}

TEST_F(CompanionNote, TakesTheUsualServiceOfThePatientWhereTheAppointmentHasNone) {
    service.clear();
    expectType();
    press(add({}));
    EXPECT_EQ(session("CPTCode"), "90837-95");
}

TEST_F(CompanionNote, OfTypesThreeToNineHasNeitherServiceNorTimes) {
    for (int stype = 1; stype <= 11; ++stype) {
        const MadeCompanionNote made = GenerateNewSVNote(noted(add({})), stype);
        EXPECT_TRUE(made.IsDone());
        const bool isCharged = stype < 3 || stype > 9;
        EXPECT_EQ(session("stype"), QString::number(stype));
        EXPECT_EQ(session("CPTCode"), isCharged ? "90834" : "Null") << stype;
        EXPECT_EQ(session("StartTime"), isCharged ? "9:00 AM" : "Null") << stype;
        EXPECT_EQ(session("EndTime"), isCharged ? "9:50 AM" : "Null") << stype;
        EXPECT_EQ(session("sessionlength"), isCharged ? "50" : "Null") << stype;
        EXPECT_EQ(database_.number(db::Sql("Select Count(*) from MissedAppt Where id = {}", made.id)),
                  stype >= 6 && stype <= 8 ? 1 : 0)
            << stype;
    }
}

TEST_F(CompanionNote, WritesNoonAndMidnightAsWords) {
    struct Case {
        const char* time;
        int duration;
        const char *start, *end, *length;
    };
    for (const Case& shown : {Case{"2026/03/11 12:00 PM", 60, "12:00 pm", "1:00 PM", "60"},
                              Case{"2026/03/11 11:00 AM", 60, "11:00 AM", "12:00 pm", "60"},
                              Case{"2026/03/11 00:00", 30, "12:00 am", "12:30 AM", "30"},
                              Case{"2026/03/11 12:59 PM", 1, "0:59 PM", "1:00 PM", "1"},
                              Case{"1899/12/30 9:30 AM", 0, "9:30 AM", "9:30 AM", "Null"},
                              Case{"2026/03/11 11:30 PM", 90, "11:30 PM", "1:00 AM", "90"}}) {
        EXPECT_TRUE(GenerateNewSVNote(noted(add({.time = shown.time, .duration = shown.duration})), 1).IsDone());
        EXPECT_EQ(session("StartTime"), shown.start) << shown.time;
        EXPECT_EQ(session("EndTime"), shown.end) << shown.time;
        EXPECT_EQ(session("sessionlength"), shown.length) << shown.time;
    }
}

TEST_F(CompanionNote, OfAnAppointmentWithoutATimeHasNone) {
    const int key = add({});
    there("Update ClientTransactions Set CtrnTime = Null, CtrnDuration = Null");
    EXPECT_TRUE(GenerateNewSVNote(noted(key), 1).IsDone());
    EXPECT_EQ(session("StartTime"), "Null");
    EXPECT_EQ(session("sessionlength"), "Null");
}

TEST_F(CompanionNote, IsNotMadeWhenTheListOfTypesIsCancelled) {
    const int key = add({});
    desk.expectForm("frmSNoteType", [](QDialog& dialog) { dialog.reject(); });
    press(key);
    expectNothingWritten(key);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(CompanionNote, IsNotMadeOfTheLineBetweenTheTypes) {
    here("Insert Into DocNewMenu (NoteID, NoteName, UID) Values(1, 'Progress Note', 'REED')");
    const int key = add({});
    expectType(1);
    press(key);
    expectNothingWritten(key);
}

TEST_F(CompanionNote, OfAClientWithoutAPairIsRefusedFirst) {
    Session().UID = QStringLiteral("LANE");
    const int key = add({.client = 2, .provider = 3});
    expectBox(QString::fromLatin1(NoPatient), "Solvane");
    press(key, 3);
    expectNothingWritten(key);
}

TEST_F(CompanionNote, OfAProviderWithoutAPairIsRefusedBeforeTheLoginIsCompared) {
    const int key = add({.provider = 3});
    expectBox(QString::fromLatin1(NoProvider), "Solvane");
    press(key, 3);
    expectNothingWritten(key);
}

TEST_F(CompanionNote, OfAProviderUnpairedMeanwhileIsRefused) {
    const int key = add({});
    here("Delete from FHDataPairs Where FHDataList = 1");
    expectBox(QString::fromLatin1(NoProvider), "Solvane");
    press(key);
    expectNothingWritten(key);
}

TEST_F(CompanionNote, WithAPairOfAnotherCompanionIsRefused) {
    const int key = add({});
    here("Update FHDataPairs Set FHDatabase = 'FH-2' Where FHDataList = 4");
    expectBox(QString::fromLatin1(NoPatient), "Solvane");
    press(key);
    expectNothingWritten(key);
}

TEST_F(CompanionNote, OfAnotherProviderIsRefused) {
    const int key = add({.provider = 2});
    expectBox(QString::fromLatin1(NotTheProvider), "Solvane");
    press(key, 2);
    expectNothingWritten(key);
}

TEST_F(CompanionNote, TakesALoginInSmallLettersForTheProvider) {
    Session().UID = QStringLiteral("reed");
    expectType();
    press(add({}));
    EXPECT_EQ(countHere("sessions"), 1);
}

TEST_F(CompanionNote, IsMadeInTheScheduleOfTheSecondProvider) {
    const int key = add({.provider = 3, .second = 1});
    expectType();
    press(key);
    EXPECT_EQ(stored(key, "SVSessionID"), session("id"));
}

TEST_F(CompanionNote, OfAnAppointmentThatIsGoneIsToldAndReloads) {
    expectBox(QString::fromLatin1(ApptGone), "Appointment not found");
    press(99);
    EXPECT_EQ(events, QStringList{"reload"});
    EXPECT_EQ(countHere("sessions"), 0);
}

TEST_F(CompanionNote, OfAnAppointmentDeletedWhileTheTypeIsChosenIsToldAndReloads) {
    const int key = add({});
    expectType(Progress, [this] { there("Delete from ClientTransactions"); });
    expectBox(QString::fromLatin1(ApptGone), "Appointment not found");
    press(key);
    EXPECT_EQ(events, QStringList{"reload"});
    EXPECT_EQ(countHere("sessions"), 0);
    expectNoTransactionIsOpen();
}

TEST_F(CompanionNote, OfAnAppointmentGivenToSomebodyElseWhileTheTypeIsChosenIsNotMade) {
    for (const char* change : {"ClntId = 2", "ProvId = 2", "ProvId = Null", "ClntId = Null"}) {
        events.clear();
        const int key = add({});
        expectType(Progress,
                   [this, change] { there(QStringLiteral("Update ClientTransactions Set ") + QLatin1String(change)); });
        expectBox(Generating + RowChanged, "Error");
        press(key);
        EXPECT_EQ(events, QStringList{"reload"}) << change;
        expectNothingWritten(key);
    }
}

TEST_F(CompanionNote, OfAnAppointmentChargedOrMovedWhileTheTypeIsChosenHasTheTimeAsStored) {
    const int key = add({});
    expectType(Progress, [this] {
        there(
            "Update ClientTransactions Set CtrnStatus = 'C', CtrnTime = '2026/03/11 3:00 PM', CtrnDate = '2026/03/12'");
    });
    press(key);
    EXPECT_EQ(session("StartTime"), "3:00 PM");
    EXPECT_EQ(db::Recordset("Select DateMarker from sessions", database_.connection())[0].date(), QDate(2026, 3, 12));
    EXPECT_EQ(stored(key, "SVSessionID"), session("id"));
}

TEST_F(CompanionNote, BegunByAnotherDeskWhileTheTypeIsChosenIsNotMadeTwice) {
    const int key = add({});
    expectType(Progress, [this] { there("Update ClientTransactions Set SVSessionID = 77"); });
    expectBox(QString::fromLatin1(StartedElsewhere), "Solvane");
    press(key);
    EXPECT_EQ(stored(key, "SVSessionID"), "77");
    EXPECT_EQ(countHere("sessions"), 0);
    EXPECT_EQ(events, QStringList{"icon"});
}

TEST_F(CompanionNote, ThatCannotBeLinkedLeavesNoSessionBehind) {
    const int key = add({});
    const QString reason = companion.refuse("Update", "ClientTransactions");
    for (int time = 0; time < 2; ++time) {
        expectType();
        expectBox(Linking + FailureOf(companion.connection(),
                                      QStringLiteral("Update clienttransactions Set SVSessionID = 1")),
                  "Error");
        press(key);
        expectNothingWritten(key);
        EXPECT_TRUE(events.isEmpty());
    }
    EXPECT_FALSE(reason.isEmpty());
    companion.allow("Update", "ClientTransactions");
    expectType();
    press(key);
    EXPECT_EQ(stored(key, "SVSessionID"), session("id"));
}

TEST_F(CompanionNote, WhoseSessionCannotBeWrittenLeavesNoLink) {
    const int key = add({});
    for (const char* table : {"sessions", "MissedAppt"}) {
        database_.refuse("Insert", QString::fromLatin1(table));
        const MadeCompanionNote made = GenerateNewSVNote(noted(key), 6);
        EXPECT_EQ(made.end, WriteOutcome::End::Failed) << table;
        EXPECT_EQ(made.part, MadeCompanionNote::Part::Session) << table;
        EXPECT_EQ(made.id, 0);
        expectNothingWritten(key);
        database_.allow("Insert", QString::fromLatin1(table));
    }
    EXPECT_TRUE(GenerateNewSVNote(noted(key), 6).IsDone());
}

TEST_F(CompanionNote, WhosePatientCannotBeReadIsTold) {
    const int key = add({});
    expectType();
    desk.expectBox(Generating + DropTable(database_.connection(), QStringLiteral("incident_hx")),
                   QStringLiteral("Error"));
    press(key);
    expectNothingWritten(key);
}

TEST_F(CompanionNote, WhosePairsCannotBeReadIsNoNoteOfAnUnpairedPatient) {
    const int key = add({});
    desk.expectBox(Generating + DropTable(database_.connection(), QStringLiteral("FHDataPairs")),
                   QStringLiteral("Error"));
    press(key);
    expectNothingWritten(key);
}

// The commit in the companion comes last; when it fails, the session is stored already.
TEST_F(CompanionNote, WhoseLinkIsLostWithItsCommitIsTakenAway) {
    if (companion.isOnServer())
        GTEST_SKIP() << "No disk of a server can be filled.";
    const int key = add({});
    // The companion's log becomes longer than ours, and its last write stands at its end: the next one has no room.
    const QString log = companion.file() + QStringLiteral("-wal");
    const qint64 enough = QFile(database_.file() + QStringLiteral("-wal")).size() + 200'000;
    qint64 size = QFile(log).size();
    for (qint64 before = size, write = 0; size <= enough || size == before; ++write) {
        ASSERT_LT(write, 1000);
        before = size;
        there(
            db::Sql("Update ClientTransactions Set CtrnNotes = '{}'", QString(20'000, u'x') + QString::number(write)));
        size = QFile(log).size();
    }
    std::optional<MadeCompanionNote> made;
    {
        const FullDisk full(size);
        made = GenerateNewSVNote(noted(key), 6);
    }
    EXPECT_EQ(made->end, WriteOutcome::End::Failed);
    EXPECT_EQ(made->part, MadeCompanionNote::Part::Link);
    expectNothingWritten(key);
}

TEST_F(CompanionNote, ThatIsLinkedIsOpened) {
    const int id = addSession(1, "REED");
    isNoted = true;
    press(add({.session = id}));
    EXPECT_EQ(events, QStringList{started(QStringLiteral("%1|REED|2|P1").arg(id))});
}

TEST_F(CompanionNote, OfAnyTypeOpensInTheNotesProgram) {
    isNoted = true;
    for (const int stype : {0, 2, 5, 6, 8, 11}) {
        events.clear();
        const int id = addSession(stype, "REED");
        press(add({.session = id}));
        EXPECT_EQ(events, QStringList{started(QStringLiteral("%1|REED|2|P1").arg(id))}) << stype;
    }
}

TEST_F(CompanionNote, LinkedByAnotherDeskIsOpenedAndShown) {
    const int id = addSession(1, "REED");
    press(add({.session = id}));
    EXPECT_EQ(events, (QStringList{"icon", started(QStringLiteral("%1|REED|2|P1").arg(id))}));
}

TEST_F(CompanionNote, OfAnotherProvidersPatientIsClosedToAUserWithoutAccess) {
    isNoted = true;
    const int key = add({.session = addSession(1, "LANE")});
    expectBox(QString::fromLatin1(NoAccess), "Access Denied");
    press(key);
    EXPECT_TRUE(events.isEmpty());
    here("Insert Into PatientAccess (patientId, providerid) Values('P1', 'REED')");
    press(key);
    EXPECT_EQ(events.size(), 1);
}

TEST_F(CompanionNote, WhoseSessionIsGoneIsToldAndStaysLinked) {
    isNoted = true;
    const int key = add({.session = 77});
    expectBox(QString::fromLatin1(NoteGone), "Solvane");
    press(key);
    EXPECT_EQ(stored(key, "SVSessionID"), "77");
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(CompanionNote, ThatCannotBeReadIsToldOnce) {
    isNoted = true;
    const int key = add({.session = addSession(1, "REED")});
    desk.expectBox(Opening + DropTable(database_.connection(), QStringLiteral("sessions")), QStringLiteral("Error"));
    press(key);
    desk.expectBox(Generating + DropTable(companion.connection(), QStringLiteral("clienttransactions")),
                   QStringLiteral("Error"));
    press(key);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(CompanionNote, IsNoneInACompanionWithoutTheColumn) {
    dropSessionColumn();
    const int key = addPlain();
    EXPECT_EQ(IsNoteLinkedInFH(key), 0);
    const QString reason =
        FailureOf(companion.connection(), QStringLiteral("Select SVSessionID from ClientTransactions"));
    expectType();
    desk.expectBox(Linking + reason, QStringLiteral("Error"));
    press(key);
    EXPECT_EQ(countHere("sessions"), 0);
    expectNoTransactionIsOpen();
}

TEST_F(CompanionNote, LooksUpClientProviderAndLink) {
    const int key = add({.client = 2, .provider = 3, .session = 41});
    EXPECT_EQ(GetClientID(key), 2);
    EXPECT_EQ(GetClientID(99), 0);
    EXPECT_EQ(GetProviderForAppt(companion.connection(), key), 3);
    there("Update ClientTransactions Set ProvId = Null");
    EXPECT_EQ(GetProviderForAppt(companion.connection(), key), 0);
    EXPECT_EQ(GetProviderForAppt(companion.connection(), 99), 0);
    EXPECT_EQ(IsNoteLinkedInFH(key), 41);
    EXPECT_EQ(IsNoteLinkedInFH(99), 0);
    there("Update ClientTransactions Set SVSessionID = Null");
    EXPECT_EQ(IsNoteLinkedInFH(key), 0);
}
