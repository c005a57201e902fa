#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "appointments/appointmentdelete.h"
#include "appointments/seriescopies.h"
#include "appointments/seriesmark.h"
#include "platform/database/recordset.h"

/// How far work on a series has come. Each row is written or deleted with all that hangs on it in one transaction.
struct SeriesOutcome {
    int done = 0;
    int planned = 0;
    std::optional<db::DatabaseError> failure;  ///< Of the row at which it ended, or of the last that failed.
};

/// Makes the row under `rows`, a writable cursor on `appointments`, a member of the series and books its copies one
/// after the other until one fails; what was booked stays. The mark goes when all are booked.
[[nodiscard]] SeriesOutcome BookSeries(db::Recordset& rows, const SeriesCopy& copy, SeriesMark& mark);
/// Deletes the rows one after the other; a row that cannot be deleted stays whole, and the next goes on. One that is
/// gone already counts as deleted. The mark goes when none is left.
[[nodiscard]] SeriesOutcome DeleteSeries(const std::vector<SeriesRow>& rows, SeriesMark& mark);

/// Tells by a notice how far the work has come and offers to do the rest, by `rowsChanged` the view reads anew after
/// that. Dates on which something stands in the way by then are asked for. Closing the notice gives the rest up.
void OfferRest(const std::shared_ptr<SeriesMark>& mark, const SeriesOutcome& outcome,
               const std::function<void()>& rowsChanged);
/// Offers the rest of what programs that were killed or cut off have left of the session's user.
void OfferCutOffSeries(const std::function<void()>& rowsChanged);
