#include "companion/companionnote.h"

#include "bridge/link.h"
#include "companion/companiontime.h"
#include "companion/sessioncolumn.h"
#include "followup/frmsnotetype.h"
#include "followup/newsession.h"
#include "followup/notesprogram.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/session.h"

using db::Connection;
using db::Recordset;
using db::Sql;

namespace {

const QString OpeningFailed = QStringLiteral("Error opening note. ");

/// The first field of the first row; 0 for null and without a row.
int firstInteger(Connection& companion, const QString& statement) {
    const Recordset row(statement, companion);
    return row.Eof() ? 0 : static_cast<int>(row[0].integer());
}

void openCompanion(Connection& companion) {
    companion.Open(Session().FHConnectionString);
}

// Whoever makes a note of the same appointment at this moment waits for the end of the transaction.
QString heldRowStatement(int CtrnId) {
    return Sql(
        "Select ClntId, ProvId, ProvIdAdditional, CtrnDate, CtrnTime, CtrnDuration, SVSessionID from ClientTransactions With (UpdLock) Where CtrnId = {}",
        CtrnId);
}

bool isForTheSame(const Recordset& row, const NotedTransaction& noted) {
    return row["ClntId"].integer() == noted.ClntId &&
           (row["ProvId"].integer() == noted.ProvId || row["ProvIdAdditional"].integer() == noted.ProvId);
}

std::optional<SessionTime> timeOf(const Recordset& row) {
    const std::optional<int> start = CompanionMinutes(row["CtrnTime"]);
    if (!start)
        return std::nullopt;
    return SessionTime{*start, *start + static_cast<int>(row["CtrnDuration"].integer())};
}

int addSession(const Recordset& row, const NotedTransaction& noted, const NotedPatient& patient, int stype) {
    return AddSession({.stype = stype,
                       .patient = patient,
                       .DateMarker = row["CtrnDate"].value(),
                       .providerid = noted.providerId,
                       .service = noted.service,
                       .time = HasService(stype) ? timeOf(row) : std::nullopt});
}

/// The making of one note. Its steps say in `made` what was under way.
struct Making {
    const NotedTransaction& noted;
    int stype;
    MadeCompanionNote& made;
    bool isSessionStored = false;

    void Make() {
        const NotedPatient patient = ReadNotedPatient(noted.patientId);
        made.part = MadeCompanionNote::Part::Link;
        Connection companion;
        openCompanion(companion);
        try {
            db::InTransaction(companion, [&] { makeRows(companion, patient); });
        } catch (const db::DatabaseError&) {
            if (!isSessionStored || !isLinkedAfterAll())
                throw;
        }
    }

  private:
    void makeRows(Connection& companion, const NotedPatient& patient) {
        const Recordset row(heldRowStatement(noted.CtrnId), companion);
        if (row.Eof()) {
            made.end = WriteOutcome::End::Gone;
            return;
        }
        if (row["SVSessionID"].integer() > 0)
            return;
        made.part = MadeCompanionNote::Part::Session;
        if (!isForTheSame(row, noted))
            throw db::RowChangedError();
        db::InTransaction(Session().Connection, [&] {
            made.id = addSession(row, noted, patient, stype);
            made.part = MadeCompanionNote::Part::Link;
            LinkNoteToFH(companion, noted.CtrnId, made.id);
            made.part = MadeCompanionNote::Part::Session;
        });
        isSessionStored = true;
        made.part = MadeCompanionNote::Part::Link;
    }

    /// Settles what a failing commit of the link leaves behind. Returns false when there is no link; the session is
    /// then taken away. Throws when the companion cannot say.
    [[nodiscard]] bool isLinkedAfterAll() const {
        if (IsNoteLinkedInFH(noted.CtrnId) == made.id)
            return true;
        Connection& main = Session().Connection;
        db::InTransaction(main, [&] {
            main.Execute(Sql("Delete from MissedAppt Where id = {}", made.id));
            main.Execute(Sql("Delete from sessions Where id = {}", made.id));
        });
        return false;
    }
};

void refuse(const QString& text) {
    MsgBox(text, ExclamationBox, QStringLiteral("Solvane"));
}

// A pair that could not be looked up may be there.
void requireLookUp(const std::optional<db::DatabaseError>& failure) {
    if (failure)
        throw db::DatabaseError(*failure);
}

/// Finds the patient and the provider of a new note. Returns false when there is none to be made; the user has then
/// been told the reason.
bool findPairs(NotedTransaction& noted) {
    const SessionValues& session = Session();
    std::optional<db::DatabaseError> failure;
    noted.patientId = GetSVPatientFromFH(Session().Connection, session.FHDatabaseId, noted.ClntId, &failure);
    requireLookUp(failure);
    if (noted.patientId.isEmpty()) {
        refuse(QStringLiteral("This patient is not linked to a patient in Solvane. Unable to do a note."));
        return false;
    }
    noted.providerId = GetSVProviderFromFH(Session().Connection, session.FHDatabaseId, noted.ProvId, &failure);
    requireLookUp(failure);
    if (noted.providerId.isEmpty()) {
        refuse(QStringLiteral(
            "The provider for this session is not linked to a provider in Solvane. Unable to do a note."));
        return false;
    }
    if (!IsLoggedOn(noted.providerId)) {
        refuse(QStringLiteral(
            "In order to create a note, you must be logged on as the rendering provider for this appointment."));
        return false;
    }
    return true;
}

void tellGone(const CompanionNoteRequest& request) {
    TellAppointmentIsGone();
    request.reload();
}

void tellFailure(const MadeCompanionNote& made, const CompanionNoteRequest& request) {
    TellError(made.part == MadeCompanionNote::Part::Link
                  ? QStringLiteral("Error linking appointment/charge in Fernhal to this note. ")
                  : QStringLiteral("Error generating note. "),
              *made.failure);
    if (made.failure->number == db::RowChanged)
        request.reload();
}

void startNote(const NotedTransaction& noted, int stype, const CompanionNoteRequest& request) {
    const MadeCompanionNote made = GenerateNewSVNote(noted, stype);
    if (made.failure)
        return tellFailure(made, request);
    if (!made.IsDone())
        return tellGone(request);
    request.showNote();
    if (made.id > 0)
        StartNotesProgram(made.id, NoteMode::New, noted.patientId);
    else
        TellNoteStartedElsewhere();
}

void makeNote(const CompanionNoteRequest& request) {
    NotedTransaction noted{.CtrnId = request.CtrnId, .ProvId = request.ProvId, .service = request.service};
    noted.ClntId = GetClientID(request.CtrnId);
    if (noted.ClntId == 0)
        return tellGone(request);
    if (!findPairs(noted))
        return;
    frmSNoteType types(request.window);
    // The line between the types has the type 0, which makes nothing.
    if (ShowModal(types) == QDialog::Accepted && types.NoteType() != 0)
        startNote(noted, types.NoteType(), request);
}

}  // namespace

int GetClientID(int CtrnId) {
    Connection companion;
    openCompanion(companion);
    return firstInteger(companion, Sql("select ClntID from clienttransactions  where ctrnID = {}", CtrnId));
}

int GetProviderForAppt(Connection& companion, int CtrnId) {
    return firstInteger(companion, Sql("Select provid From ClientTransactions Where ctrnid = {}", CtrnId));
}

int IsNoteLinkedInFH(int CtrnId) {
    Connection companion;
    openCompanion(companion);
    try {
        return firstInteger(companion, Sql("Select SVSessionID from ClientTransactions Where ctrnID = {}", CtrnId));
    } catch (const db::DatabaseError& error) {
        // The engines do not agree on the number of an unknown column.
        if (db::IsLinkFailure(error) || IsSVSessionIDColThere(companion))
            throw;
        return 0;
    }
}

void LinkNoteToFH(Connection& companion, int CtrnId, int session) {
    if (companion.Execute(Sql("Update clienttransactions Set SVSessionID = {} Where ctrnID = {}", session, CtrnId)) ==
        0)
        throw db::RowChangedError();
}

MadeCompanionNote GenerateNewSVNote(const NotedTransaction& noted, int stype) {
    const BusyPointer busy;
    MadeCompanionNote made = AttemptWrite<MadeCompanionNote>([&](MadeCompanionNote& outcome) {
        Making{noted, stype, outcome}.Make();
    });
    if (!made.IsDone())
        made.id = 0;
    return made;
}

void OpenSVNote(int sessionId) {
    try {
        const Recordset note(StoredNoteStatement(sessionId), Session().Connection);
        if (note.Eof())
            TellNoteIsGone();
        else if (!MayOpenNote(note["providerid"].text(), note["patientid"].text()))
            TellNoAccessToNote();
        else
            StartNotesProgram(sessionId, NoteMode::Existing, note["patientid"].text());
    } catch (const db::DatabaseError& error) {
        TellError(OpeningFailed, error);
    }
}

void OpenCompanionNote(const CompanionNoteRequest& request) {
    int linked = 0;
    try {
        linked = IsNoteLinkedInFH(request.CtrnId);
    } catch (const db::DatabaseError& error) {
        return TellError(OpeningFailed, error);
    }
    if (linked > 0) {
        if (!request.isNoted)
            request.showNote();
        return OpenSVNote(linked);
    }
    try {
        makeNote(request);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error generating note. "), error);
    }
}
