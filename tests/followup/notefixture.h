#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "appointments/appointmentrows.h"
#include "data/codes.h"
#include "followup/sessionnote.h"
#include "platform/controls/noticebar.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/files.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// Reed before the day of Wednesday, March 11, 2026, with a calendar that tells what is done to it.
class NoteFixture : public testing::Test {
  protected:
    NoteFixture() {
        ResetSession();
        SessionValues& session = Session();
        session.Connection.Open(database.connectionText());
        session.UID = session.ProviderId = QStringLiteral("REED");
        session.ScreenAccess = 3;
        session.CurrentView = View::Day;
        session.AppPath = QStringLiteral("/opt/solvane");
        // Notes access, but none to the patients of others.
        run("Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access) Values('REED', 0, '333333336')");
        run("Insert Into patient_info (id, last_name, first_name, provider_id, incident_nbr, defaultCPT) Values('P1', 'O''Brien', 'Anna', 'LANE', 3, '90837-95')");
        run("Insert Into incident_hx (patient_id, incident_nbr, treatment_program) Values('P1', 2, 'Day clinic')");
        run("Insert Into incident_hx (patient_id, incident_nbr, treatment_program) Values('P1', 3, 'Outpatient')");
        Desktop().startProgram = [this](const QString& path, const QString& arguments, const QString& folder) {
            events << QStringLiteral("start %1 [%2] in [%3]").arg(path, arguments, folder);
            return starts;
        };
    }
    ~NoteFixture() override { ResetSession(); }

    struct Row {
        int code = ncolor::Kept;
        QString provider = QStringLiteral("REED");
        int start = 540;
        int end = 590;
        QString note = QStringLiteral("90834  Psychotherapy|bring the card");
        QString patient = QStringLiteral("P1");
        int noteId = 0;
        int apptType = 0;
    };
    int add(const Row& row) {
        database.connection().Execute(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, CapptNote, ncolor, clinicianid, patientid, CLOCATION, NoteID, appttype) Values ('2026/03/11', {}, {}, 'O''Brien, Anna', '{}', {}, '{}', '{}', 'Main Office', {}, {})",
            row.start, row.end, row.note, row.code, row.provider, row.patient,
            db::Raw{row.noteId > 0 ? QString::number(row.noteId) : QStringLiteral("Null")}, row.apptType));
        return static_cast<int>(database.connection().LastIdentity());
    }
    /// A row of `sessions`, and its key.
    int addSession(int stype, const char* provider = "REED") {
        database.connection().Execute(
            db::Sql("Insert Into sessions (stype, providerid, Patient) Values ({}, '{}', 'O''Brien, Anna')", stype,
                    QLatin1String(provider)));
        return static_cast<int>(database.connection().LastIdentity());
    }
    void run(const char* statement) { database.connection().Execute(QString::fromUtf8(statement)); }
    void run(const QString& statement) { database.connection().Execute(statement); }

    /// The appointment as the calendar shows it.
    static ShownAppointment shown(int key) {
        const db::Recordset row(AppointmentStatement(key), Session().Connection);
        return RowOf(row, ItemFromAppointment(row, {false, [](const QString&) { return -1; }, false}));
    }
    /// The command on an appointment.
    void press(const ShownAppointment& appointment) { OpenSessionNote(appointment, calendar); }
    void press(int key) { press(shown(key)); }
    /// The user chooses a type in the list of note types.
    void expectType(
        int row, const std::function<void()>& meanwhile = [] {});

    [[nodiscard]] qint64 noteOf(int key) {
        return database.number(db::Sql("Select NoteID from appointments Where nkeyid = {}", key));
    }
    [[nodiscard]] qint64 count(const char* table) {
        return database.number(QStringLiteral("Select Count(*) from ") + QLatin1String(table));
    }
    /// A column of the newest session, "Null" for null.
    [[nodiscard]] QString session(const char* column) {
        const db::Recordset row(QStringLiteral("Select %1 from sessions Order by id Desc").arg(QLatin1String(column)),
                                database.connection());
        if (row.Eof())
            return QStringLiteral("(none)");
        return row[0].isNull() ? QStringLiteral("Null") : row[0].text();
    }
    /// Whether nothing was written: no session, no row of a missed appointment, no link.
    void expectNothingWritten(int key) {
        EXPECT_EQ(count("sessions"), 0);
        EXPECT_EQ(count("MissedAppt"), 0);
        EXPECT_EQ(noteOf(key), 0);
        // Throws where one is open still.
        Session().Connection.BeginTrans();
        Session().Connection.RollbackTrans();
    }
    static QString started(const QString& arguments) {
        return QStringLiteral("start /opt/solvane/solvaned.exe [%1] in []").arg(arguments);
    }

    TestDatabase database;
    ScriptedDesk desk;
    NoticeBar bar;
    bool starts = true;  ///< Whether the notes program can be started.
    QStringList events;  ///< What happened to the calendar, and what was started.
    const NoteCalendar calendar{nullptr, [this](bool isShown) { events << QLatin1String(isShown ? "show" : "hide"); },
                                [this](int icon) { events << QStringLiteral("icon %1").arg(icon); },
                                [this] { events << "reload"; }};
};
