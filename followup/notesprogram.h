#pragma once

#include <QString>

// Session notes are written in the notes program. It is started with a note and forgotten.

enum class NoteMode { New = 1, Existing = 2 };

/// Starts the notes program with a note, given by the key of its row in `sessions`. The user is told when the program
/// cannot be started.
void StartNotesProgram(int noteId, NoteMode mode, const QString& patientId);

[[nodiscard]] QString StoredNoteStatement(int noteId);
/// Starts the notes program with an existing note. The user is told when the note is not there any more. Throws
/// db::DatabaseError.
void OpenStoredNote(int noteId, const QString& patientId);

/// Whether this provider is the user who is logged on.
[[nodiscard]] bool IsLoggedOn(const QString& providerId);

/// What the user is told instead of seeing a note, or of beginning one.
void TellNoAccessToNote();
void TellNoteIsGone();
void TellNoteStartedElsewhere();
void TellAppointmentIsGone();
