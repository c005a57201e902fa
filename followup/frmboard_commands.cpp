#include <QPointer>

#include "appointments/commandrow.h"
#include "appointments/frmnore.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "followup/boardlist.h"
#include "followup/frmboard.h"
#include "followup/sessionnote.h"
#include "followup/statuscommands.h"
#include "platform/controls/noticebar.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "shell/mainwindow.h"

namespace {

/// The board shows no picture of a courtesy call.
ItemPainting plainPainting() {
    return {Session().HidePatientNames, [](const QString&) { return -1; }, false};
}

bool setsStatus(BoardCommand command) {
    return command < BoardCommand::Edit;
}

bool canHaveNote(const BoardVisit& visit) {
    return visit.noteId > 0 || (!visit.IsAwaited() && visit.code != ncolor::CheckedIn);
}

/// Whether the row is still the one on the card: of the same day and provider, and for a status or a note with the same
/// status, patient and time. The editor shows the rest itself.
bool isAsShown(const ShownAppointment& row, const BoardVisit& shown, BoardCommand command) {
    if (row.stored.ItemDay != shown.date || row.clinicianId != shown.providerId)
        return false;
    if (command == BoardCommand::Edit)
        return true;
    return row.stored.ItemColor == shown.code && GetPipeField(row.stored.ItemNote, 3) == shown.patientId &&
           (!shown.start || row.stored.ItemStart == *shown.start);
}

}  // namespace

QAction& frmboard::Command(BoardCommand command) const {
    return *commands_[static_cast<std::size_t>(command)];
}

QString frmboard::whyNot(BoardCommand command, BoardPlace place, const BoardVisit& visit) const {
    if (command == BoardCommand::GoTo)
        return {};
    const bool isOfToday = place != BoardPlace::UnwrittenNote && place != BoardPlace::EndingSeries;
    if (command == BoardCommand::Note)
        return canHaveNote(visit) ? QString() : tr("A note is about a visit that was kept, missed or cancelled.");
    if (!MayWrite())
        return tr("Not available to you.");
    if (setsStatus(command) && !isOfToday)
        return tr("The board sets the status of today's visits only.");
    return command == BoardCommand::Pend && visit.code == ncolor::Pending ? tr("The visit is pending.") : QString();
}

void frmboard::suitCommands() {
    const BoardVisit* visit = visitOf(active_, List(active_).SelectedKey());
    for (int i = 0; i < static_cast<int>(commands_.size()); ++i) {
        const auto command = static_cast<BoardCommand>(i);
        QAction& action = Command(command);
        const QString why = visit == nullptr ? tr("Select a visit first.") : whyNot(command, active_, *visit);
        action.setEnabled(why.isEmpty());
        const QString name = action.text().remove(u'&');
        action.setToolTip(
            why.isEmpty() ? QStringLiteral("%1 (%2)").arg(name, action.shortcut().toString(QKeySequence::NativeText))
                          : why);
    }
}

void frmboard::runOnSelected(BoardCommand command) {
    Run(command, active_, List(active_).SelectedKey());
}

// The visit is copied, since a dialog lets the board be read anew.
void frmboard::Run(BoardCommand command, BoardPlace place, int key) {
    const BoardVisit* found = visitOf(place, key);
    if (found == nullptr || !whyNot(command, place, *found).isEmpty())
        return;
    const BoardVisit visit = *found;
    if (command == BoardCommand::GoTo)
        return goTo(visit);
    const std::optional<ShownAppointment> row = currentRow(command, visit);
    if (!row)
        return;
    switch (command) {
        case BoardCommand::CheckIn:
            return checkIn(*row);
        case BoardCommand::Keep:
            return saveStatus(*row, ncolor::Kept);
        case BoardCommand::Miss:
            return changeStatus(*row, ncolor::Missed);
        case BoardCommand::PatientCancel:
            return changeStatus(*row, ncolor::PatientCancelled);
        case BoardCommand::TherapistCancel:
            return changeStatus(*row, ncolor::TherapistCancelled);
        case BoardCommand::Pend:
            return changeStatus(*row, ncolor::Pending);
        case BoardCommand::Note:
            return openNote(*row);
        case BoardCommand::Edit:
        case BoardCommand::GoTo:
            return edit(*row);
    }
}

std::optional<ShownAppointment> frmboard::currentRow(BoardCommand command, const BoardVisit& shown) {
    try {
        std::optional<ShownAppointment> row = RowForCommand(shown.key, plainPainting());
        if (row && !isAsShown(*row, shown, command))
            throw db::RowChangedError();
        if (!row)
            written();
        return row;
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment. "), error);
        Load();
    }
    return std::nullopt;
}

// What this desk wrote, or found changed, is to be seen in the calendar too.
void frmboard::written() {
    Load();
    main_.cycledate(2);
}

// The bar of the main window, in which it is told, may stand behind the board.
void frmboard::noteTrouble(const WriteOutcome& outcome) {
    trouble_ = outcome.failure ? OneLine(StatusUnsaved + outcome.failure->description) : QString();
}

// The form writes the arrival; the rest is for who confirmed it.
void frmboard::checkIn(const ShownAppointment& row) {
    if (!AskArrival(row.stored.ItemKey.toInt(), this))
        return;
    saveStatus(row, ncolor::CheckedIn);
    AfterArrival(GetPipeField(row.stored.ItemNote, 3));
}

void frmboard::saveStatus(const ShownAppointment& row, int code) {
    CalendarItem wanted = row.stored;
    wanted.ItemColor = code;
    wanted.ItemTentativeIcon = false;
    const RowOutcome outcome = SaveInPlace(row.stored, wanted, plainPainting());
    noteTrouble(outcome);
    if (outcome.failure)
        TellUnsaved(outcome, StatusUnsaved);
    else if (!outcome.IsDone())
        TellSavedRowIsGone();
    else
        DropNotice(StatusUnsaved);
    written();
}

void frmboard::changeStatus(const ShownAppointment& row, int code) {
    const WriteOutcome outcome = ChangeStatus(row.stored.ItemKey.toInt(), code);
    noteTrouble(outcome);
    written();
}

void frmboard::edit(const ShownAppointment& row) {
    const EditorRequest request{apptkind::Patient,
                                false,
                                row.stored.ItemKey.toInt(),
                                View::AllProviders,
                                {row.clinicianId, contents_.ProviderName(row.clinicianId)},
                                std::nullopt};
    const auto afterwards = [board = QPointer<frmboard>(this)] {
        if (board != nullptr)
            board->written();
    };
    RunEditor(std::make_unique<frmnore>(request, this), afterwards, afterwards);
}

void frmboard::openNote(const ShownAppointment& row) {
    OpenSessionNote(row, {.window = this,
                          .showCommand = [](bool) {},
                          .showIcon = [](int) {},
                          .reload = [this] { written(); },
                          .isBoard = true});
}

// The day of the visit opens in its provider's schedule.
void frmboard::goTo(const BoardVisit& visit) {
    SessionValues& session = Session();
    if (session.ProviderId.compare(visit.providerId, Qt::CaseInsensitive) != 0 && !visit.providerId.isEmpty()) {
        session.ProviderId = visit.providerId;
        session.ProviderName = contents_.ProviderName(visit.providerId);
        main_.WritePanels();
    }
    main_.OpenFound({QString::number(visit.key), visit.date, visit.start.value_or(0), !visit.start});
    if (QWidget* window = parentWidget()) {
        window->show();
        window->raise();
        window->activateWindow();
    }
}
