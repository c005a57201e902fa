#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "appointments/appointmentdelete.h"
#include "appointments/seriescopies.h"
#include "appointments/seriesmark.h"
#include "platform/database/recordset.h"

/// How far the work on a series has come. Each row is written or deleted in one transaction, together with all that
/// belongs to it.
struct SeriesOutcome {
    int done = 0;
    int planned = 0;
    int passed = 0;  ///< Rows that were left as they are, because another desk has changed or deleted them.
    int past = 0;    ///< Rows that were left as they are, because the work was cut off and they are past by now.
    std::optional<db::DatabaseError> failure;  ///< The failure that ended a booking, or the last of a deletion.
};

/// Makes the current row of `rows`, a writable cursor on `appointments`, a member of the series and books its copies
/// one after the other until one fails. The copies that were booked before stay. The mark is removed when all are
/// booked.
[[nodiscard]] SeriesOutcome BookSeries(db::Recordset& rows, const SeriesCopy& copy, SeriesMark& mark);
/// Deletes the rows one after the other. A row that cannot be deleted stays whole, and the work goes on with the next.
/// A row that is already gone counts as deleted. The mark is removed when no row has failed.
[[nodiscard]] SeriesOutcome DeleteSeries(const std::vector<SeriesRow>& rows, SeriesMark& mark);

/// Takes the steps of a mark of the rest of a series one after the other. A row that another desk has changed or
/// deleted is left and counted in `passed`. A row that the database refuses stays whole, and the work goes on with the
/// next, unless the database does not answer any more. The mark is removed when no row has failed.
[[nodiscard]] SeriesOutcome ChangeSeries(SeriesMark& mark);
/// Tells how the work on the rest of a series went: "7 of 8 appointments of the series are changed. ...".
[[nodiscard]] QString ChangedText(const SeriesWork& work, const SeriesOutcome& outcome);
/// Returns the text that the user is shown before the reason why the work failed.
[[nodiscard]] QString SeriesTrouble(const SeriesWork& work);

/// Tells by a notice how far the work has come and offers to do the rest. The user is then asked about each date on
/// which something else is booked by then, and `rowsChanged` reloads the view after the work. Closing the notice gives
/// up the rest.
void OfferRest(const std::shared_ptr<SeriesMark>& mark, const SeriesOutcome& outcome,
               const std::function<void()>& rowsChanged);
/// Offers to finish the work on series that killed or interrupted programs of the session's user left behind. Work that
/// the user may not do any more is not offered, and its mark stays. What is past by now stays as it is, and the user is
/// told.
void OfferCutOffSeries(const std::function<void()>& rowsChanged);
