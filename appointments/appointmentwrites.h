#pragma once

#include <optional>
#include <QDate>
#include <QStringList>

#include "appointments/appointmentitem.h"
#include "appointments/writeoutcome.h"
#include "session/slot.h"

/// How a write ended, with the row that the view shows afterwards.
struct RowOutcome : WriteOutcome {
    ShownAppointment row;  ///< The row after a successful write.
};

/// The statements that SaveInPlace reads, for a caller that reads them together with others.
[[nodiscard]] QStringList InPlaceStatements(int key);
/// Stores the changes that the user made to an item in place, and the time and text of its room. `read` is the item as
/// its row was read, and `wanted` is the item with the changes. Columns that the user did not change keep their values.
[[nodiscard]] RowOutcome SaveInPlace(const CalendarItem& read, const CalendarItem& wanted, const ItemPainting& painted);

/// The new place of an appointment that was dragged or resized.
struct AppointmentMove {
    ShownAppointment before;  ///< The row as the view last read it.
    QDate day;
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;
    QString text;       ///< The name of the appointment in the audit log.
    bool room = false;  ///< Whether the appointment has a room, which then moves too.
    /// The new provider in a view with providers as columns, and the name of the previous one.
    std::optional<BookedProvider> provider;
    QString providerBefore;
};

/// Writes the new time, day and provider. The move fails when another desk has moved the row since the view read it.
[[nodiscard]] RowOutcome MoveAppointment(const AppointmentMove& move, const ItemPainting& painted);

/// Writes the audit line of a move. `before` tells where the appointment stood: "03/11/2026 at 9:00 AM".
void AuditMove(const AppointmentMove& move, const QString& before);

/// Sets the status code (data/codes.h) of an appointment.
[[nodiscard]] WriteOutcome SetApptStatus(int key, int code);
/// Stores the time of arrival as text, and the status Checked-In.
[[nodiscard]] WriteOutcome CheckIn(int key, const QString& arrival);
/// Stores another time of arrival and keeps the status.
[[nodiscard]] WriteOutcome CorrectArrival(int key, const QString& arrival);
