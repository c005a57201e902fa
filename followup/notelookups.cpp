#include "followup/notelookups.h"

#include "appointments/patientcontacts.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

QString NotedAppointmentStatement(int key) {
    return Sql("Select * from appointments where NkeyId = {}", key);
}

std::optional<int> GetApptNoteId(int key) {
    const Recordset row(NotedAppointmentStatement(key), Session().Connection);
    if (row.Eof())
        return std::nullopt;
    return static_cast<int>(row["NoteID"].integer());
}

QString GetApptPatientId(int key) {
    const Recordset row(NotedAppointmentStatement(key), Session().Connection);
    return row.Eof() ? QString() : row["patientid"].text();
}

QString SessionProviderStatement(int noteId) {
    return Sql("Select providerid from sessions where id = {}", noteId);
}

QString GetSessionProvider(int noteId) {
    const Recordset row(SessionProviderStatement(noteId), Session().Connection);
    return row.Eof() ? QString() : row[0].text();
}

QString SessionTypeStatement(int noteId) {
    return Sql("Select stype from sessions where id = {}", noteId);
}

std::optional<int> GetSessionType(int noteId) {
    const Recordset row(SessionTypeStatement(noteId), Session().Connection);
    if (row.Eof())
        return std::nullopt;
    return static_cast<int>(row[0].integer());
}

db::Value GetPatientField(const QString& patientId, const QString& field) {
    const Recordset row(FieldStatement(patientId, field), Session().Connection);
    if (field == QLatin1String("incident_nbr"))
        return row.Eof() ? db::Value() : row[0].value();
    return row.Eof() ? QString() : row[0].text();
}

QString TreatmentProgramStatement(const QString& patientId) {
    return Sql("Select treatment_program from incident_hx Where Patient_id = '{}' Order by incident_nbr DESC",
               patientId);
}

QString GetTreatmentProgram(const QString& patientId) {
    const Recordset rows(TreatmentProgramStatement(patientId), Session().Connection);
    return rows.Eof() ? QString() : rows[0].text();
}

void HoldAppointment(int key) {
    Session().Connection.Execute(Sql("Update appointments Set NoteID = NoteID Where nKeyid = {}", key));
}
