#include "output/exportedappointment.h"

#include "data/namedpatients.h"
#include "data/pipefields.h"
#include "platform/database/recordset.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

// The columns that are addressed by their place in the table.
constexpr int KeyColumn = 0;
constexpr int DateColumn = 1;
constexpr int StartColumn = 2;
constexpr int EndColumn = 3;
constexpr int TextColumn = 4;
constexpr int NoteColumn = 5;
constexpr int LocationColumn = 15;

QString textFor(const ExportedAppointment& appointment, PatientNaming naming) {
    if (naming == PatientNaming::FullName)
        return appointment.cappttext;
    if (naming == PatientNaming::PatientNumber && !appointment.patientNumber.isEmpty())
        return appointment.patientNumber;
    return InitialsOf(appointment.cappttext);
}

}  // namespace

ExportedAppointment ExportedRow(const db::Recordset& row) {
    const QString account = row["PatientAcct"].text().trimmed();
    const QString patient = row["patientid"].text().trimmed();
    const int code = static_cast<int>(row["ncolor"].integer());
    return {.nkeyid = row[KeyColumn].integer(),
            .DApptDate = row[DateColumn].date(),
            .nStartTime = static_cast<int>(row[StartColumn].integer()),
            .nEndTime = static_cast<int>(row[EndColumn].integer()),
            .cappttext = row[TextColumn].text(),
            .CapptNote = row[NoteColumn].text(),
            .CLOCATION = row[LocationColumn].text(),
            .ncolor = code,
            .allday = row["allday"].boolean(),
            .createddate = row["createddate"].dateTime(),
            .namesPatient = NamesPatient(code, !patient.isEmpty()),
            .patientNumber = account.isEmpty() ? patient : account};
}

ExportedAppointment Named(ExportedAppointment appointment, PatientNaming naming) {
    if (!appointment.namesPatient)
        return appointment;
    if (Session().HidePatientNames) {
        appointment.cappttext = ShownName(appointment.cappttext);
        const QString service = GetPipeField(appointment.CapptNote, 1);
        const QString note = ShownName(appointment.CapptNote.section(u'|', 1));
        appointment.CapptNote = note.isEmpty() ? service : service + u'|' + note;
        return appointment;
    }
    appointment.cappttext = textFor(appointment, naming);
    return appointment;
}
