#pragma once

#include <optional>
#include <QHash>
#include <vector>

#include "companion/recurringevent.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"

/// What a load reads for one provider: a column of the day, or all days of the week.
struct CompanionSpan {
    int column =
        0;  ///< The grid's column, counted from 1. 0 in the week, whose items stand in the column of their day.
    int provId = 0;
    QDate first;
    QDate last;  ///< The last day that is read, included.
};

/// The rows that belong to a span.
struct CompanionRows {
    CompanionSpan span;
    db::Recordset appointments;
    db::Recordset events;
};

/// The series of events among the rows of one load. They are read in two trips, however many there are: all patterns,
/// then the exceptions of all dates that a pattern names.
class SeriesDays {
  public:
    /// Reads the series of all rows. The cursors of the events are moved to their first row afterwards. The connection
    /// must outlive the object.
    SeriesDays(db::Connection& companion, std::vector<CompanionRows>& rows);

    /// Returns the days of the span on which the series of the event's row takes place for the span's provider. Throws
    /// db::DatabaseError as RecurringEvent::IsDateInSeries does.
    [[nodiscard]] std::vector<QDate> DaysOf(const db::Recordset& event, const CompanionSpan& span);

  private:
    const RecurringEvent& seriesOf(const db::Recordset& event);

    db::Connection& companion_;
    QHash<QString, RecurringEvent> series_;  ///< By CEveId.
    std::optional<db::ReadTogether> exceptions_;
};
