#include "views/movednotice.h"

#include "appointments/conflicts.h"
#include "appointments/holdingshelf.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "platform/controls/noticebar.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

const QString MovedSubject = QStringLiteral("moved");

bool isSame(const QString& provider, const QString& other) {
    return provider.compare(other, Qt::CaseInsensitive) == 0;
}

bool hasOtherProvider(const MovedAppointment& moved) {
    return moved.move.provider && !isSame(moved.move.before.clinicianId, moved.now.clinicianId);
}

/// The provider whom the appointment has now. Only while it is moved the session's provider tells the name.
BookedProvider providerNow(const MovedAppointment& moved) {
    if (moved.move.provider)
        return *moved.move.provider;
    return {moved.now.clinicianId,
            isSame(moved.now.clinicianId, Session().ProviderId) ? Session().ProviderName : moved.now.clinicianId};
}

FoundAppointment placeOf(const ShownAppointment& row) {
    return {row.stored.ItemKey, row.stored.ItemDay, row.stored.ItemStart, false, {}};
}

void tell(MainWindow& main, const QString& text, const MovedAppointment& moved, bool backAgain);

/// The way back: from the row as it is now to where it was.
AppointmentMove wayBack(const MovedAppointment& moved) {
    const CalendarItem& old = moved.move.before.stored;
    AppointmentMove back{moved.now, old.ItemDay, old.ItemStart, old.ItemEnd, moved.move.text, false, {}, {}};
    if (moved.move.provider) {
        back.provider = BookedProvider{moved.move.before.clinicianId, moved.move.providerBefore};
        back.providerBefore = moved.move.provider->name;
    }
    return back;
}

// Where something else was booked meanwhile the user decides; the row itself must be as it was left.
void putBack(MainWindow& main, const MovedAppointment& moved) {
    const AppointmentMove back = wayBack(moved);
    const CalendarItem& item = moved.now.stored;
    if (CheckApptConflicts(item.ItemKey.toInt(), back.day, back.start, back.end, GetPipeField(item.ItemNote, 3),
                           moved.move.before.clinicianId))
        return TellMoved(main, moved);
    const MoveOutcome outcome = MoveWithRoom(back, RoomQuestion::Ask, UnpaintedItems());
    if (outcome.failure)
        TellError(WriteTrouble(outcome.step), *outcome.failure);
    else if (outcome.end == WriteOutcome::End::Gone)
        TellMovedRowGone();
    if (outcome.IsMoved()) {
        const MovedAppointment returned{back, outcome.row};
        tell(main, QStringLiteral("Put back to %1.").arg(WeekdayText(back.day, back.start)), returned, false);
    } else if (outcome.end != WriteOutcome::End::Gone &&
               !(outcome.failure && outcome.failure->number == db::RowChanged)) {
        TellMoved(main, moved);
    }
    main.cycledate(2);
}

void tell(MainWindow& main, const QString& text, const MovedAppointment& moved, bool backAgain) {
    Notice notice{text};
    notice.subject = MovedSubject;
    notice.actions = {{QStringLiteral("Show"), [&main, place = placeOf(moved.now), provider = providerNow(moved)] {
                           GoToAppointment(main, place, provider);
                       }}};
    if (backAgain)
        notice.actions.push_back({QStringLiteral("Put back"), [&main, moved] { putBack(main, moved); }});
    ShowNotice(std::move(notice));
}

}  // namespace

void TellMoved(MainWindow& main, const MovedAppointment& moved) {
    const QString when = WeekdayText(moved.now.stored.ItemDay, moved.now.stored.ItemStart);
    tell(main,
         hasOtherProvider(moved) ? QStringLiteral("Moved to %1 with %2.").arg(when, moved.move.provider->name)
                                 : QStringLiteral("Moved to %1.").arg(when),
         moved, true);
}

bool MayWorkOn(const BookedProvider& provider) {
    if (Session().AllProviders || provider.id == QLatin1String(EventClinicianId) ||
        isSame(provider.id, Session().ProviderId))
        return true;
    Notice notice{QStringLiteral("The appointment belongs to the schedule of %1 now, which you may not work on.")
                      .arg(provider.name),
                  Notice::Kind::Caution};
    notice.subject = MovedSubject;
    ShowNotice(std::move(notice));
    return false;
}

void GoToAppointment(MainWindow& main, FoundAppointment found, const BookedProvider& provider) {
    if (!MayWorkOn(provider))
        return;
    // An Activity of several stands in the schedule of each who attends it, and in no column of all providers.
    const bool shared = provider.id == QLatin1String(EventClinicianId);
    found.provider = shared ? QString() : provider.id;
    if (shared && Session().CurrentView == View::AllProviders)
        return main.OpenFound(found);
    main.LeaveFound(found);
    main.SetDate(found.date);
    if (Session().CurrentView == View::AllProviders)
        return main.cycledate(2);
    const bool other = !shared && !isSame(provider.id, Session().ProviderId);
    if (other) {
        Session().ProviderId = provider.id;
        Session().ProviderName = provider.name;
    }
    if (Session().CurrentView != View::Week)
        main.changeview(View::Day);
    if (other)
        main.ProviderChosen();
    else
        main.cycledate(2);
}
