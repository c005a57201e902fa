#include <QPushButton>

#include "followup/frmmsdapt.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formstate.h"
#include "platform/controls/notefield.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"

namespace {

void tellUnsaved(const db::DatabaseError& error) {
    MsgBox(QStringLiteral("Error saving note. ") + error.description, ErrorBox, QStringLiteral("Error Saving"));
}

/// Puts what a field holds into its column, unless the field still shows what the column holds. A field may show less
/// than that: a date shows no time.
template <typename Shows>
void put(db::RowState& row, const char* column, const db::Value& value, const Shows& shows) {
    const db::Value* stored = row.Find(QString::fromLatin1(column));
    if (stored == nullptr || !shows(*stored))
        row.Set(QString::fromLatin1(column), value);
}

}  // namespace

void frmmsdApt::cmdOk_Click() {
    if (!mayChange())
        return accept();
    settleFields();
    if (!isComplete())
        return;
    if (save())
        accept();
    else if (!IsChanged())
        reject();  // Nothing is lost, and nothing is left to be done about a note that is gone.
}

// Enter and the Alt key do not leave the field in which the user stands.
void frmmsdApt::settleFields() {
    cboprovider->Settle();
    ctdate->setText(ctdate->Text());
}

bool frmmsdApt::hasReason() const {
    return !txtreason->toPlainText().trimmed().isEmpty();
}

bool frmmsdApt::isComplete() {
    if (cboprovider->ListIndex() < 0)
        return refuse(QStringLiteral("Enter who appointment was with."), cboprovider, QStringLiteral("Provider"));
    if (!hasReason())
        return refuse(QStringLiteral("Enter a Reason for Missed Appointment."), txtreason, QStringLiteral("Reason"));
    // A note without a date would be in nobody's record of a day.
    if (ctdate->Value() < FirstValidDate)
        return refuse(QStringLiteral("Enter a valid date."), ctdate, QStringLiteral("Solvane"));
    return true;
}

bool frmmsdApt::refuse(const QString& message, QWidget* field, const QString& title) {
    MsgBox(message, InformationBox, title);
    field->setFocus();
    return false;
}

bool frmmsdApt::save() {
    return noteId_ != 0 ? savenote() : savenewnote();
}

bool frmmsdApt::savenewnote() {
    NoteOutcome outcome;
    {
        const BusyPointer busy;
        outcome = AddMissedNote({request_.ItemKey, appointmentNote_, noteId_, patientName_, entered()});
    }
    if (outcome.failure)
        tellUnsaved(*outcome.failure);
    if (!outcome.IsDone())
        return false;
    noteId_ = outcome.noteId;
    appointmentNote_ = noteId_;
    keep(outcome.state);
    audit("Add", "Added new Missed Appointment Note of %1 for patient, %2");
    return true;
}

bool frmmsdApt::savenote() {
    NoteOutcome outcome;
    {
        const BusyPointer busy;
        outcome = UpdateMissedNote(noteId_, stored_, entered());
    }
    if (outcome.end == WriteOutcome::End::Gone)
        return saveAnew();
    if (outcome.failure)
        tellUnsaved(*outcome.failure);
    if (!outcome.IsDone())
        return false;
    keep(outcome.state);
    if (outcome.changed)
        audit("Modify", "Modified Missed Appointment Note of %1 for patient, %2");
    return true;
}

// What the user typed is not lost with the note that somebody else deleted.
bool frmmsdApt::saveAnew() {
    MsgBox(QStringLiteral("Another user has deleted this note."), ExclamationBox, QStringLiteral("Note Deleted"));
    return MsgBox(tr("Do you want to save it as a new note?"), YesNoBox, QStringLiteral("Note Deleted")) ==
               Answer::Yes &&
           savenewnote();
}

// What the form fills in by itself, such as the current provider in a note without one, is no change of the user's.
MissedNoteState frmmsdApt::entered() const {
    return stored_ && !IsChanged() ? *stored_ : shownNote();
}

MissedNoteState frmmsdApt::shownNote() const {
    const QDate date = ctdate->Date();
    const QString provider = providerId();
    const db::Value stype = type_ == MissedType::None ? db::Value() : db::Value(static_cast<int>(type_));
    MissedNoteState state = stored_.value_or(MissedNoteState());
    put(state.session, "DateMarker", date, [&](const db::Value& stored) { return stored.date() == date; });
    put(state.session, "stype", stype,
        [&](const db::Value& stored) { return MissedTypeOfSession(stored.integer()) == type_; });
    put(state.session, "providerid", provider,
        [&](const db::Value& stored) { return stored.text().compare(provider, Qt::CaseInsensitive) == 0; });
    put(state.missed, "reason", txtreason->StoredText(),
        [&](const db::Value&) { return txtreason->toPlainText() == shownReason_; });
    return state;
}

void frmmsdApt::keep(const MissedNoteState& stored) {
    noteSaved_ = true;
    // The text keeps its cursor and what can be undone, unless another desk has changed the note as well.
    if (stored != entered())
        showNote(stored);
    stored_ = stored;
    shownReason_ = txtreason->toPlainText();
    savedState_ = FormState(*this);
}
