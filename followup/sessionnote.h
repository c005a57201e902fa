#pragma once

#include <functional>
#include <optional>
#include <QString>

#include "appointments/appointmentitem.h"

class QWidget;

/// What a calendar does for its command "Session Note...".
struct NoteCalendar {
    QWidget* window = nullptr;  ///< The window that dialogs stand over.
    /// Shows or hides the command. It is hidden while a dialog asks about a new note.
    std::function<void(bool shown)> showCommand;
    /// Sets the ItemSessionIcon of the appointment, whose note was made or saved. The views of all providers reload
    /// instead.
    std::function<void(int icon)> showIcon;
    /// Reads the view anew, because the appointment is no longer as it is shown.
    std::function<void()> reload;
    /// Whether rows of any provider stand here, whoever's schedule the main window shows. Only the row's own provider
    /// then decides who makes a note.
    bool isBoard = false;
};

/// The command mnuANote: opens the note of the selected appointment, or makes one. A note of a kept visit is written in
/// the notes program, which is started for it; that of a missed one in frmmsdApt.
///
/// A user opens the notes that MayOpenNote allows, and makes notes only of their own appointments. Nothing is made of
/// an appointment that another desk has changed or deleted since it was shown; the user is told, and the view reloads.
/// A note that another desk has made meanwhile is opened instead of a second one being made. A failing read or write is
/// told and leaves nothing half done.
void OpenSessionNote(const std::optional<ShownAppointment>& selected, const NoteCalendar& calendar);

/// Makes the session of a kept appointment (MakeSession), shows that it has a note, and starts the notes program with
/// it. When the program cannot be started, the session stays linked, and the next command opens it. A type of 0 makes
/// nothing.
void CreateSessionFromAppointment(const ShownAppointment& appointment, int stype, const NoteCalendar& calendar);

/// Starts the notes program with an existing note. The user is told when the note is not there any more; the
/// appointment keeps its link. Throws db::DatabaseError.
void OpenExistingNote(int noteId, int key);
