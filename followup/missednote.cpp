#include "followup/missednote.h"

#include <algorithm>
#include <array>

#include "appointments/appointmentrows.h"
#include "data/codes.h"
#include "followup/notelookups.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

constexpr qint64 LeastMove = 60;  // Seconds. A signature's key tells the minute.
constexpr char ServerTimeStatement[] = "Select GetDate() as [ServerTime]";

QString sessionStatement(int noteId) {
    return Sql("Select * from sessions Where id = {}", noteId);
}

QString reasonStatement(int noteId) {
    return Sql("Select * from missedappt Where id = {}", noteId);
}

db::RowState sessionState(const Recordset& row) {
    static constexpr std::array columns{"DateMarker", "stype", "providerid"};
    return {row, columns};
}

db::RowState reasonState(const Recordset& row) {
    static constexpr std::array columns{"reason"};
    return {row, columns};
}

void setAll(Recordset& row, const db::RowState& values) {
    for (const db::RowState::ColumnValue& each : values.Values())
        row.Set(each.column, each.value);
}

/// Returns the appointment's row, which must be as the form has read it.
Recordset appointmentOf(const NewMissedNote& note) {
    HoldAppointment(note.appointmentKey);
    Recordset row(AppointmentStatement(note.appointmentKey), Session().Connection);
    if (row.Eof())
        throw db::DatabaseError(db::RowChanged, QStringLiteral("Another user has deleted this appointment."));
    const qint64 linked = row["NoteID"].integer();
    if (linked > 0 && linked != note.appointmentNote.value_or(0) && linked != note.replacedNote)
        throw db::DatabaseError(db::RowChanged,
                                QStringLiteral("Another user has written a note for this appointment."));
    return row;
}

void insertNote(const NewMissedNote& note, NoteOutcome& outcome) {
    db::Connection& connection = Session().Connection;
    const Recordset appointment = appointmentOf(note);
    Recordset session(QStringLiteral("Select * from sessions where 0=1"), connection, Lock::Optimistic);
    Recordset missed(QStringLiteral("Select * from missedappt where 0=1"), connection, Lock::Optimistic);
    session.AddNew();
    session.Set("incident", GetPatientField(appointment["patientid"].text(), QStringLiteral("incident_nbr")));
    session.Set("Patient", note.patientName.isEmpty() ? appointment["cappttext"].text() : note.patientName);
    setAll(session, note.fields.session);
    session.Update();
    outcome.noteId = static_cast<int>(session["id"].integer());
    missed.AddNew();
    missed.Set("id", outcome.noteId);
    setAll(missed, note.fields.missed);
    missed.Update();
    connection.Execute(
        Sql("Update appointments Set NoteID = {} Where nKeyid = {}", outcome.noteId, note.appointmentKey));
    outcome.state = {sessionState(session), reasonState(missed)};
}

/// Sets in the row what the user changed. Whether the row differs by that from what is stored.
bool setChanges(Recordset& row, const db::RowState& read, const db::RowState& wanted, const db::RowState& stored) {
    db::SetChanges(row, read, wanted, stored);
    return std::ranges::any_of(db::Merge(read, wanted, stored).changes,
                               [&](const auto& change) { return *stored.Find(change.column) != change.value; });
}

/// Returns the moment of a change: the server's time, or a minute after the last change where that is later.
QDateTime momentAfter(const QDateTime& lastChange) {
    const QDateTime now = Recordset(QString::fromLatin1(ServerTimeStatement), Session().Connection)[0].dateTime();
    return lastChange.isValid() ? std::max(now, lastChange.addSecs(LeastMove)) : now;
}

}  // namespace

MissedType MissedTypeOfColour(int ncolor) {
    switch (ncolor) {
        case ncolor::Missed:
            return MissedType::Missed;
        case ncolor::PatientCancelled:
            return MissedType::PatientCancel;
        case ncolor::TherapistCancelled:
            return MissedType::TherapistCancel;
        default:
            return MissedType::None;
    }
}

MissedType MissedTypeOfSession(qint64 stype) {
    const auto type = static_cast<MissedType>(stype);
    return MissedTypeText(type).isEmpty() ? MissedType::None : type;
}

QString MissedTypeText(MissedType type) {
    switch (type) {
        case MissedType::Missed:
            return QStringLiteral("Missed");
        case MissedType::PatientCancel:
            return QStringLiteral("Patient Cancel");
        case MissedType::TherapistCancel:
            return QStringLiteral("Therapist Cancel");
        case MissedType::None:
            break;
    }
    return {};
}

QString MissedNoteStatement(int noteId) {
    return Sql(
        "Select * from sessions inner join missedappt on sessions.id = missedappt.id Left join SessionSignatures on sessions.id = SessionSignatures.session_id where sessions.id = {}",
        noteId);
}

MissedNoteState MissedNoteStateOf(const Recordset& rows) {
    return {sessionState(rows), reasonState(rows)};
}

StoredSignature StoredSignatureOf(Recordset& rows) {
    StoredSignature signature;
    QDateTime newest;
    for (; !rows.Eof(); rows.MoveNext()) {
        signature.date = rows["SignatureDate"].dateTime();
        signature.name = rows["SignatureName"].text();
        // Of signatures at the same moment, and of those without one, the row that was added last is read last.
        const QDateTime drawnAt = rows["signature_date"].dateTime();
        if (newest.isValid() && !(drawnAt >= newest))
            continue;
        newest = drawnAt;
        signature.drawn = rows["SessionSignatures.signature"].text();
    }
    return signature;
}

NoteOutcome AddMissedNote(const NewMissedNote& note) {
    return AttemptWrite<NoteOutcome>([&](NoteOutcome& outcome) {
        db::InTransaction(Session().Connection, [&] { insertNote(note, outcome); });
        outcome.changed = true;
    });
}

NoteOutcome UpdateMissedNote(int noteId, const std::optional<MissedNoteState>& read, const MissedNoteState& wanted) {
    db::Connection& connection = Session().Connection;
    const db::ReadTogether together(
        connection, {sessionStatement(noteId), reasonStatement(noteId), QString::fromLatin1(ServerTimeStatement)});
    return AttemptWrite<NoteOutcome>([&](NoteOutcome& outcome) {
        Recordset session(sessionStatement(noteId), connection, Lock::Optimistic);
        Recordset missed(reasonStatement(noteId), connection, Lock::Optimistic);
        if (session.Eof() || missed.Eof()) {
            outcome.end = WriteOutcome::End::Gone;
            return;
        }
        if (!read)
            throw db::RowChangedError();
        const bool sessionChanged = setChanges(session, read->session, wanted.session, sessionState(session));
        const bool reasonChanged = setChanges(missed, read->missed, wanted.missed, reasonState(missed));
        outcome.state = {sessionState(session), reasonState(missed)};
        outcome.changed = sessionChanged || reasonChanged;
        if (!outcome.changed)
            return;
        session.Set("ModifiedDate", momentAfter(session["ModifiedDate"].dateTime()));
        db::InTransaction(connection, [&] {
            session.Update();
            missed.Update();
        });
    });
}

WriteOutcome TakeSignatureAway(int noteId, const StoredSignature& judged) {
    return AttemptWrite([&](WriteOutcome&) {
        db::Connection& connection = Session().Connection;
        db::InTransaction(connection, [&] {
            Recordset rows(MissedNoteStatement(noteId), connection);
            if (StoredSignatureOf(rows) != judged)
                throw db::RowChangedError();
            connection.Execute(Sql(
                "Update sessions Set SignatureDateSuper = NULL, SignatureDate = NULL, SignatureName = NULL, SignatureNameSuper = NULL, Signature = NULL where ID = {}",
                noteId));
            connection.Execute(Sql("Delete from SessionSignatures where session_id = {}", noteId));
        });
    });
}
