#pragma once

#include <optional>
#include <QDate>
#include <QStringList>

#include "appointments/appointmentitem.h"
#include "appointments/writeoutcome.h"
#include "session/slot.h"

/// How a write that the view shows ended.
struct RowOutcome : WriteOutcome {
    ShownAppointment row;  ///< As it stands after a write that was done.
};

/// What a save of an item in place reads, for who reads it together with others.
[[nodiscard]] QStringList InPlaceStatements(int key);
/// Stores what was changed of an item in place, and the time and text of its room: `read` is the item as its row was
/// read, `wanted` as the user leaves it. What the user left alone keeps what the row holds.
[[nodiscard]] RowOutcome SaveInPlace(const CalendarItem& read, const CalendarItem& wanted, const ItemPainting& painted);

/// Where an appointment goes that was dragged or resized.
struct AppointmentMove {
    ShownAppointment before;  ///< As the view read it last.
    QDate day;
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;
    QString text;       ///< By which the audit log names it.
    bool room = false;  ///< It has a room, which goes along.
    /// Where providers stand as columns: whose it becomes, and the name of whose it was.
    std::optional<BookedProvider> provider;
    QString providerBefore;
};

/// Writes the new time, and day and provider with it. A row that does not stand where the view read it has been moved
/// by another desk, which is a failure.
[[nodiscard]] RowOutcome MoveAppointment(const AppointmentMove& move, const ItemPainting& painted);

/// Gives the appointment a status code (data/codes.h).
[[nodiscard]] WriteOutcome SetApptStatus(int key, int code);
/// Stores the arrival (followup/checkintime.h) and the status Checked-In.
[[nodiscard]] WriteOutcome CheckIn(int key, const QString& arrival);
/// Stores another arrival and leaves the status alone.
[[nodiscard]] WriteOutcome CorrectArrival(int key, const QString& arrival);
