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

QString firstCharactersOr(const QString& service, const QString& usual) {
    return service.isEmpty() ? usual : FirstCharacters(service, ServiceCodeLength);
}

void setTime(Recordset& session, const SessionTime& time) {
    session.Set("StartTime", sessionTime(time.start));
    session.Set("EndTime", sessionTime(time.end > MinutesPerDay ? time.end % MinutesPerDay : time.end));
    if (const int length = time.end - time.start; length > 0)
        session.Set("sessionlength", length);
}

SessionTime timeOf(const Recordset& row) {
    return {static_cast<int>(row["nStartTime"].integer()), static_cast<int>(row["nEndTime"].integer())};
}

void link(int key, int id) {
    if (Session().Connection.Execute(Sql("Update appointments Set NoteID = {} Where nKeyid = {}", id, key)) == 0)
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
    const int id = AddSession({.stype = stype,
                               .patient = patient,
                               .DateMarker = row["dapptdate"].value(),
                               .providerid = row["ClinicianId"].value(),
                               .service = GetPipeField(row["capptNote"].text(), 1),
                               .time = timeOf(row),
                               .location = row["clocation"].value(),
                               .program = patient.program});
    link(key, id);
    made.id = id;
    made.patientId = patient.id;
}

}  // namespace

bool HasService(int stype) {
    return stype < 3 || stype > 9;
}

NotedPatient ReadNotedPatient(const QString& patientId) {
    const db::ReadTogether together(Session().Connection,
                                    {FieldStatement(patientId, IncidentField), FieldStatement(patientId, ServiceField),
                                     TreatmentProgramStatement(patientId), FieldStatement(patientId, NameField)});
    return {patientId, GetPatientField(patientId, IncidentField), GetPatientField(patientId, ServiceField).text(),
            GetTreatmentProgram(patientId), GetPatientField(patientId, NameField).text()};
}

int AddSession(const NewSession& values) {
    db::Connection& connection = Session().Connection;
    Recordset session(QStringLiteral("Select * from sessions Where 0=1"), connection, db::Lock::Optimistic);
    session.AddNew();
    session.Set("stype", values.stype);
    session.Set("patientid", values.patient.id);
    session.Set("DateMarker", values.DateMarker);
    session.Set("providerid", values.providerid);
    session.Set("incident", values.patient.incident);
    if (HasService(values.stype))
        session.Set("CPTCode", firstCharactersOr(values.service, values.patient.service));
    if (values.time)
        setTime(session, *values.time);
    session.Set("location", values.location);
    session.Set("program", values.program);
    session.Set("Patient", values.patient.name);
    session.Update();
    const int id = static_cast<int>(session["id"].integer());
    if (MissedTypeOfSession(values.stype) != MissedType::None)
        connection.Execute(Sql("Insert into MissedAppt (id, reason) Values({}, '')", id));
    return id;
}

MadeSession MakeSession(const ShownAppointment& appointment, int stype) {
    MadeSession made = AttemptWrite<MadeSession>([&](MadeSession& outcome) {
        // A read that fails would end the transaction on a server.
        const NotedPatient patient = ReadNotedPatient(patientOf(appointment));
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
