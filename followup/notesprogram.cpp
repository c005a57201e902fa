#include "followup/notesprogram.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/installation.h"
#include "session/session.h"

void StartNotesProgram(int noteId, NoteMode mode, const QString& patientId) {
    const QStringList fields{QString::number(noteId), Session().UID, QString::number(static_cast<int>(mode)),
                             patientId};
    StartProgram(NotesProgram(InstallationFile(), Session().AppPath), fields.join(u'|'), {});
}

QString StoredNoteStatement(int noteId) {
    return db::Sql("Select * from sessions Where ID = {}", noteId);
}

void OpenStoredNote(int noteId, const QString& patientId) {
    if (db::Recordset(StoredNoteStatement(noteId), Session().Connection).Eof())
        TellNoteIsGone();
    else
        StartNotesProgram(noteId, NoteMode::Existing, patientId);
}

bool IsLoggedOn(const QString& providerId) {
    return providerId.compare(Session().UID, Qt::CaseInsensitive) == 0;
}

void TellNoAccessToNote() {
    MsgBox(QStringLiteral("You do not have access rights to open the selected note associated with this appointment."),
           ExclamationBox, QStringLiteral("Access Denied"));
}

void TellNoteIsGone() {
    MsgBox(QStringLiteral("Note for this appointment not found. It may have been deleted."), ExclamationBox,
           QStringLiteral("Solvane"));
}

void TellNoteStartedElsewhere() {
    MsgBox(QStringLiteral("Another user has already started the note of this appointment."), ExclamationBox,
           QStringLiteral("Solvane"));
}

void TellAppointmentIsGone() {
    MsgBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
           ExclamationBox, QStringLiteral("Appointment not found"));
}
