#include "followup/newsession.h"

#include "appointments/patientcontacts.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "followup/missednote.h"
#include "followup/notelookups.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/text/plaintext.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int Noon = 720;
constexpr int ServiceCodeLength = 5;

const QString IncidentField = QStringLiteral("incident_nbr");
const QString ServiceField = QStringLiteral("defaultcpt");
const QString NameField = QStringLiteral("last_name + ', ' + first_name");

// Types 3 to 9 are notes that nothing is charged for.
bool hasService(int stype) {
    return stype < 3 || stype > 9;
}

QString sessionTime(int minutes) {
    if (minutes == Noon)
        return QStringLiteral("12:00 pm");
    if (minutes == 0)
        return QStringLiteral("12:00 am");
    return MinutesToTimeText(minutes, Session().MilitaryTime);
}

QString patientOf(const ShownAppointment& appointment) {
    return GetPipeField(appointment.stored.ItemNote, 3);
}

/// What a session takes from its patient.
struct NotedPatient {
    QString id;
    db::Value incident;
    QString service, program, name;
};

NotedPatient readPatient(const QString& id) {
    const db::ReadTogether together(Session().Connection,
                                    {FieldStatement(id, IncidentField), FieldStatement(id, ServiceField),
                                     TreatmentProgramStatement(id), FieldStatement(id, NameField)});
    return {id, GetPatientField(id, IncidentField), GetPatientField(id, ServiceField).text(), GetTreatmentProgram(id),
            GetPatientField(id, NameField).text()};
}

QString serviceOf(const Recordset& row, const NotedPatient& patient) {
    const QString service = GetPipeField(row["capptNote"].text(), 1);
    return service.isEmpty() ? patient.service : FirstCharacters(service, ServiceCodeLength);
}

void setTimes(Recordset& session, const Recordset& row) {
    const auto minutes = [&row](const char* column) { return static_cast<int>(row[column].integer()); };
    session.Set("StartTime", sessionTime(minutes("nStartTime")));
    session.Set("EndTime", sessionTime(minutes("nEndTime")));
    if (const int length = minutes("nEndTime") - minutes("nStartTime"); length > 0)
        session.Set("sessionlength", length);
}

int addSession(const Recordset& row, const NotedPatient& patient, int stype) {
    Recordset session(QStringLiteral("Select * from sessions Where 0=1"), Session().Connection, db::Lock::Optimistic);
    session.AddNew();
    session.Set("stype", stype);
    session.Set("patientid", patient.id);
    session.Set("DateMarker", row["dapptdate"].value());
    session.Set("providerid", row["ClinicianId"].value());
    session.Set("incident", patient.incident);
    if (hasService(stype))
        session.Set("CPTCode", serviceOf(row, patient));
    setTimes(session, row);
    session.Set("location", row["clocation"].value());
    session.Set("program", patient.program);
    session.Set("Patient", patient.name);
    session.Update();
    return static_cast<int>(session["id"].integer());
}

void link(int key, int id, int stype) {
    db::Connection& connection = Session().Connection;
    if (MissedTypeOfSession(stype) != MissedType::None)
        connection.Execute(Sql("Insert into MissedAppt (id, reason) Values({}, '')", id));
    if (connection.Execute(Sql("Update appointments Set NoteID = {} Where nKeyid = {}", id, key)) == 0)
        throw db::RowChangedError();
}

/// Makes the rows for the appointment as it is stored at this moment.
void makeRows(const ShownAppointment& shown, int stype, const NotedPatient& patient, MadeSession& made) {
    const int key = shown.stored.ItemKey.toInt();
    HoldAppointment(key);
    const Recordset row(NotedAppointmentStatement(key), Session().Connection);
    if (row.Eof()) {
        made.end = WriteOutcome::End::Gone;
        return;
    }
    if (row["NoteID"].integer() > 0)
        return;
    if (!IsForTheSame(row, shown))
        throw db::RowChangedError();
    const int id = addSession(row, patient, stype);
    link(key, id, stype);
    made.id = id;
    made.patientId = patient.id;
}

}  // namespace

MadeSession MakeSession(const ShownAppointment& appointment, int stype) {
    MadeSession made = AttemptWrite<MadeSession>([&](MadeSession& outcome) {
        // A read that fails would end the transaction on a server.
        const NotedPatient patient = readPatient(patientOf(appointment));
        db::InTransaction(Session().Connection, [&] { makeRows(appointment, stype, patient, outcome); });
    });
    if (!made.IsDone())
        made.id = 0;
    return made;
}

bool IsForTheSame(const Recordset& row, const ShownAppointment& shown) {
    return row["ncolor"].integer() == shown.stored.ItemColor && row["clinicianid"].text() == shown.clinicianId &&
           row["patientid"].text() == patientOf(shown);
}
