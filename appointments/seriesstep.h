#pragma once

#include <QString>

#include "appointments/seriesmark.h"
#include "appointments/writeoutcome.h"
#include "platform/database/recordset.h"

/// Returns the statement that reads rows of `appointments` with their rooms. `condition` is a piece of SQL that chooses
/// the rows. A row with several bookings of rooms is read several times.
[[nodiscard]] QString PlacesStatement(const QString& condition);
/// Returns the place of the current row of a PlacesStatement.
[[nodiscard]] SeriesPlace PlaceOf(const db::Recordset& row);

/// Takes one step: deletes the row with all that hangs on it, or writes what differs between `before` and `after`, the
/// room included. The audit line is part of the transaction, because the work on a series may be cut off between two
/// rows and continue later; a status alone has none, as where a status is set on the calendar.
///
/// The outcome is Gone when another desk has deleted the row. It is a failure with the number RowChanged when the row
/// no longer stands as `before` tells, or has a session note or a member marked as kept by now. Nothing is written in
/// both cases.
[[nodiscard]] WriteOutcome TakeStep(const SeriesStep& step);
