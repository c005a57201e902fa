#include "followup/sessionnote.h"

#include <QScopeGuard>

#include "data/codes.h"
#include "followup/frmmsdapt.h"
#include "followup/frmsnotetype.h"
#include "followup/missednote.h"
#include "followup/newsession.h"
#include "followup/notelookups.h"
#include "followup/notesprogram.h"
#include "platform/controls/noticebar.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/session.h"

using db::Recordset;

namespace {

constexpr int SessionIcon = 1;
constexpr int MissedNoteIcon = 2;

const QString NoticeSubject = QStringLiteral("session note");

int keyOf(const ShownAppointment& appointment) {
    return appointment.stored.ItemKey.toInt();
}

bool isClinicalNote(int stype) {
    return stype == 1 || stype == 2;
}

bool isMissed(int code) {
    return MissedTypeOfColour(code) != MissedType::None;
}

void tellNothingToNote() {
    MsgBox(QStringLiteral("No appointment selected. First select a Kept or Missed appointment."), ExclamationBox,
           QStringLiteral("Warning"));
}

void tellGone(const NoteCalendar& calendar) {
    TellAppointmentIsGone();
    calendar.reload();
}

void tellFailure(const QString& text, const db::DatabaseError& error, const NoteCalendar& calendar) {
    TellError(text, error);
    if (error.number == db::RowChanged)
        calendar.reload();
}

// The calendar of all providers and the board take what they show from the rows alone.
void showNote(int icon, const NoteCalendar& calendar) {
    if (!calendar.isBoard && (Session().CurrentView == View::Day || Session().CurrentView == View::Week))
        calendar.showIcon(icon);
    else
        calendar.reload();
}

void openMissedNote(int noteId, const ShownAppointment& appointment, const NoteCalendar& calendar) {
    const CalendarItem& item = appointment.stored;
    frmmsdApt form({noteId, keyOf(appointment), item.ItemColor, item.ItemDay, !MayWrite()}, calendar.window);
    ShowModal(form);
    if (form.NoteSaved())
        showNote(MissedNoteIcon, calendar);
}

void openByType(int noteId, const ShownAppointment& appointment, const NoteCalendar& calendar) {
    // A note that is gone has no type; OpenExistingNote says so.
    const std::optional<int> stype = GetSessionType(noteId);
    if (!stype || isClinicalNote(*stype))
        OpenExistingNote(noteId, keyOf(appointment));
    else if (MissedTypeOfSession(*stype) != MissedType::None)
        openMissedNote(noteId, appointment, calendar);
    else
        ShowNotice({.text = QStringLiteral("A note of this type cannot be opened from here. Open it in Solvane."),
                    .subject = NoticeSubject});
}

void openNote(const ShownAppointment& appointment, const NoteCalendar& calendar) {
    const int key = keyOf(appointment);
    const db::ReadTogether row(Session().Connection, {NotedAppointmentStatement(key)});
    const std::optional<int> noteId = GetApptNoteId(key);
    if (!noteId)
        return tellGone(calendar);
    const db::ReadTogether note(Session().Connection, {SessionProviderStatement(*noteId), SessionTypeStatement(*noteId),
                                                       StoredNoteStatement(*noteId)});
    if (!MayOpenNote(GetSessionProvider(*noteId), GetApptPatientId(key))) {
        TellNoAccessToNote();
        return;
    }
    openByType(*noteId, appointment, calendar);
    // Another desk has taken the link away.
    if (*noteId < 1)
        calendar.reload();
}

bool mayMakeNote(const ShownAppointment& appointment, const NoteCalendar& calendar) {
    if (calendar.isBoard)
        return IsLoggedOn(appointment.clinicianId);
    if (!IsLoggedOn(Session().ProviderId))
        return false;
    // The session's provider need not be the one of the row that was chosen here. A holiday is nobody's.
    const bool isRowOfAnyProvider = Session().CurrentView == View::AllProviders && keyOf(appointment) > 0;
    return !isRowOfAnyProvider || IsLoggedOn(appointment.clinicianId);
}

/// Whether a note can be begun on the appointment as it is stored now. If not, all that is to be done has been done.
bool isStillWithoutNote(const ShownAppointment& appointment, const NoteCalendar& calendar) {
    const Recordset row(NotedAppointmentStatement(keyOf(appointment)), Session().Connection);
    if (row.Eof()) {
        tellGone(calendar);
        return false;
    }
    if (row["NoteID"].integer() > 0) {
        showNote(SessionIcon, calendar);
        openNote(appointment, calendar);
        return false;
    }
    if (!IsForTheSame(row, appointment))
        throw db::RowChangedError();
    return true;
}

void askForType(const ShownAppointment& appointment, const NoteCalendar& calendar) {
    frmSNoteType types(calendar.window);
    if (ShowModal(types) == QDialog::Accepted)
        CreateSessionFromAppointment(appointment, types.NoteType(), calendar);
}

void makeNote(const ShownAppointment& appointment, const NoteCalendar& calendar) {
    if (!mayMakeNote(appointment, calendar)) {
        MsgBox(
            QStringLiteral(
                "In order to create a note or view an existing associated note, you must be logged on as the rendering provider for this appointment."),
            ExclamationBox, QStringLiteral("Solvane"));
        return;
    }
    calendar.showCommand(false);
    const auto shownAgain = qScopeGuard([&calendar] { calendar.showCommand(true); });
    const int code = appointment.apptType == ApptTypeSlot ? 0 : appointment.stored.ItemColor;
    if (code != ncolor::Kept && !isMissed(code))
        tellNothingToNote();
    else if (!isStillWithoutNote(appointment, calendar))
        return;
    else if (code == ncolor::Kept)
        askForType(appointment, calendar);
    else
        openMissedNote(0, appointment, calendar);
}

}  // namespace

void OpenSessionNote(const std::optional<ShownAppointment>& selected, const NoteCalendar& calendar) {
    DropNotice(NoticeSubject);
    if (!selected)
        return tellNothingToNote();
    try {
        if (selected->stored.ItemSessionIcon > 0)
            openNote(*selected, calendar);
        else
            makeNote(*selected, calendar);
    } catch (const db::DatabaseError& error) {
        tellFailure(QStringLiteral("Error opening note. "), error, calendar);
    }
}

void CreateSessionFromAppointment(const ShownAppointment& appointment, int stype, const NoteCalendar& calendar) {
    if (stype == 0)
        return;
    const MadeSession made = MakeSession(appointment, stype);
    if (made.failure)
        return tellFailure(QStringLiteral("Error generating note. "), *made.failure, calendar);
    if (!made.IsDone())
        return tellGone(calendar);
    showNote(SessionIcon, calendar);
    if (made.id > 0)
        StartNotesProgram(made.id, NoteMode::New, made.patientId);
    else
        TellNoteStartedElsewhere();
}

void OpenExistingNote(int noteId, int key) {
    OpenStoredNote(noteId, GetApptPatientId(key));
}
