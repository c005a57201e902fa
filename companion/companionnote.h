#pragma once

#include <functional>
#include <QString>

#include "appointments/writeoutcome.h"
#include "platform/database/connection.h"

class QWidget;

// Session notes of the companion's appointments. A note is a row of `sessions` in the main database; the companion's
// row is linked to it by its column SVSessionID. The companion is reached by a connection of each routine's own, unless
// one is handed in. The look-ups throw db::DatabaseError.

/// Returns the client of an appointment; 0 when there is no such row.
[[nodiscard]] int GetClientID(int CtrnId);
/// Returns the rendering provider of an appointment; 0 where it is null.
[[nodiscard]] int GetProviderForAppt(db::Connection& companion, int CtrnId);
/// Returns the key of the session that is linked to an appointment; 0 when there is none, no such row or no such
/// column.
[[nodiscard]] int IsNoteLinkedInFH(int CtrnId);
/// Links an appointment to a session. Throws RowChangedError when the appointment is not there.
void LinkNoteToFH(db::Connection& companion, int CtrnId, int session);

/// What a new note is about.
struct NotedTransaction {
    int CtrnId = 0;
    int ClntId = 0;
    int ProvId = 0;           ///< The companion's provider in whose schedule the appointment stands.
    QString patientId = {};   ///< The patient that is paired with the client.
    QString providerId = {};  ///< The provider that is paired with ours.
    QString service = {};     ///< The code of the appointment; empty for the patient's usual one.
};

/// How the making of a note ended. Done with an `id` of 0 means that another desk has linked a note first; nothing was
/// then written.
struct MadeCompanionNote : WriteOutcome {
    enum class Part { Session, Link };
    Part part = Part::Session;  ///< At which the making failed.
    int id = 0;                 ///< `sessions.id` of the new row.
};

/// Makes the row of a note in `sessions` and links the appointment to it. The rows stand in two databases, each with a
/// transaction of its own. The companion's row is held first, and its transaction is committed last. When only that
/// commit fails, the session is taken away again unless the companion says that the link was stored after all. When the
/// companion cannot say, the session stays: a note without an appointment can be found in the notes program, a link to
/// nothing could not be mended.
///
/// The write fails with RowChanged when the appointment is another client's by now, or none of this provider's.
[[nodiscard]] MadeCompanionNote GenerateNewSVNote(const NotedTransaction& noted, int stype);

/// Starts the notes program with an existing note. A user without access to it is told so, and so is one whose note is
/// gone.
void OpenSVNote(int sessionId);

/// The selected appointment, and what the schedule does for its note.
struct CompanionNoteRequest {
    int CtrnId = 0;
    int ProvId = 0;                       ///< Of the column that the appointment stands in.
    QString service = {};                 ///< The code of the appointment.
    bool isNoted = false;                 ///< Whether the schedule shows that there is a note.
    QWidget* window = nullptr;            ///< The window that dialogs stand over.
    std::function<void()> showNote = {};  ///< Shows that the appointment has a note.
    std::function<void()> reload = {};    ///< Reads the schedule anew, because it is not as it is shown.
};

/// The command mnuSessionNote on an appointment: opens its note, or makes one. A note is made by the rendering provider
/// alone, of a client and a provider who are paired with ours. A failing read or write is told and leaves nothing half
/// done.
void OpenCompanionNote(const CompanionNoteRequest& request);
