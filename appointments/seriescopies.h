#pragma once

#include "appointments/seriesmark.h"
#include "appointments/writeoutcome.h"
#include "platform/database/recordset.h"

/// The data that every copy takes from its appointment.
struct SeriesCopy {
    QString text;
    QString location;
    QString note;  ///< Service and note, joined by "|".
    QString patientId;
    QString account;
    int color = 0;  ///< The `ncolor` of the source, from which the status of the copy is made.
    db::Value appttype;
    db::Value category;
};

/// Makes the current row of a writable cursor on `appointments` a member of the series of `work`. A row that is a
/// member already stays as it is. Throws db::DatabaseError.
void JoinSeries(db::Recordset& row, const SeriesWork& work);
/// Adds one copy on a date through a writable cursor on `appointments`, together with its attendees or members, and
/// with the room that `room` names, if any.
[[nodiscard]] WriteOutcome AddCopy(db::Recordset& rows, const SeriesCopy& copy, const SeriesWork& work,
                                   const QString& room, QDate date);
