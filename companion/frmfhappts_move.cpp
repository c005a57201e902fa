#include "companion/companionitem.h"
#include "companion/companionnote.h"
#include "companion/companionrefusals.h"
#include "companion/companionwrites.h"
#include "companion/frmfhappts.h"
#include "data/minutetime.h"
#include "platform/calendar/ctmday.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/session.h"

namespace {

void tellMoveFailed(const db::DatabaseError& error) {
    TellError(QStringLiteral("Error updating appointment in Fernhall. Error "), error, ExclamationBox);
}

/// The minutes that an item takes at its new place. An item that ends behind midnight is shown, and dragged, as if it
/// ended there; it keeps its length.
int lengthAt(const CalendarItem& item, const ItemPlace& old) {
    const int shown = item.ItemEnd - item.ItemStart;
    const bool isMoved = old.end > MinutesPerDay && shown == MinutesPerDay - old.start;
    return isMoved ? old.end - old.start : shown;
}

}  // namespace

void frmFHAppts::bindMoves(ctMDay& grid) {
    connect(&grid, &ctMDay::ItemChanged, this, &frmFHAppts::moveItem);
    connect(&grid, &ctMDay::MoveRefused, this, &frmFHAppts::tellMoveRefused);
}

void frmFHAppts::tellMoveRefused(int index) {
    const QString why = RefusalOf(std::as_const(Grid()).Item(index), NotModified);
    if (!MayWrite())
        TellRefusal(QStringLiteral("You do not have rights to modify appointments or events."));
    else if (!why.isEmpty())
        TellRefusal(why);
    else
        tellInBar(tr("An event cannot be dragged. Open it to change its time."));
}

bool frmFHAppts::isMovable(const CalendarItem& item) const {
    return item.ItemColor == companioncolor::Scheduled ||
           (mode_ == Mode::Week && item.ItemColor == companioncolor::PlainBlue);
}

void frmFHAppts::moveItem(int index, const ItemPlace& old) {
    dropNotice();
    const CalendarItem item = std::as_const(Grid()).Item(index);
    const int column = Grid().ColumnOfItem(index);
    const std::optional<CompanionProvider> before = ProviderOfColumn(old.column);
    const std::optional<CompanionProvider> provider = ProviderOfColumn(column);
    if (!isMovable(item) || !before || !provider)
        return;
    try {
        if (HasNoteIcon(item))
            warnOfNote(item.ItemKey.toInt(), provider->provId);
    } catch (const db::DatabaseError& error) {
        tellMoveFailed(error);
        Reload();
        return;
    }
    const CompanionPlace from{DateOfColumn(old.column), old.start, old.end, before->provId};
    const CompanionPlace to{DateOfColumn(column), item.ItemStart, item.ItemStart + lengthAt(item, old),
                            provider->provId};
    storeMove(item.ItemKey, from, to);
}

// The connection is closed before the box, since nobody knows how long the user reads.
void frmFHAppts::warnOfNote(int CtrnId, int ProvId) {
    int rendering = 0;
    {
        const BusyPointer busy;
        db::Connection companion;
        companion.Open(Session().FHConnectionString);
        rendering = GetProviderForAppt(companion, CtrnId);
    }
    if (rendering == ProvId)
        return;
    MsgBox(
        QStringLiteral(
            "This appointment has a corresponding note in Solvane.\n\nThe change you made to the provider will not be reflected in the note."),
        ExclamationBox, QStringLiteral("Solvane-Fernhall"));
}

void frmFHAppts::storeMove(const QString& key, const CompanionPlace& from, const CompanionPlace& to) {
    const CompanionOutcome outcome = MoveFHAppointment(key.toInt(), from, to);
    if (outcome.failure) {
        tellMoveFailed(*outcome.failure);
        Reload();
        return;
    }
    const bool isAsShown = outcome.IsDone() && outcome.hitch == CompanionHitch::None && !outcome.replaced;
    // A row of two providers has an item in the column of each, and one at midnight has none.
    if (!isAsShown || itemsOf(key) > 1 || to.start == 0 || to.end > MinutesPerDay)
        Reload();
    tellOfMove(outcome, to);
}

int frmFHAppts::itemsOf(const QString& key) const {
    const ctMDay& grid = Grid();
    int count = 0;
    for (int index = 1; index <= grid.ItemCount(); ++index)
        count += grid.Item(index).ItemKey == key && IsCompanionAppointment(grid.Item(index)) ? 1 : 0;
    return count;
}

void frmFHAppts::tellOfMove(const CompanionOutcome& outcome, const CompanionPlace& to) {
    if (outcome.hitch == CompanionHitch::Charged)
        TellRefusal(QString::fromLatin1(NotModified.charged));
    else if (outcome.hitch == CompanionHitch::Recurring)
        TellRefusal(QString::fromLatin1(NotModified.ofSeries));
    else if (outcome.hitch == CompanionHitch::OnOtherDay)
        tellInBar(tr("The appointment was not moved. Another user has put it on another day meanwhile."));
    else if (!outcome.IsDone())
        tellInBar(tr("The appointment was not moved. Another user has deleted it meanwhile."));
    else if (outcome.replaced)
        tellInBar(tr(
            "Another user had changed the time or the provider of the appointment meanwhile. Your change has replaced theirs."));
    else if (to.start == 0)
        tellInBar(tr("The appointment was moved, but the schedule shows none that starts at midnight."));
    else if (outcome.newProvider)
        tellInBar(tr(
            "The appointment had another provider, and was shown here because of its second provider. It now has the provider of this schedule."));
}
