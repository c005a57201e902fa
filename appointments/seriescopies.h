#pragma once

#include "appointments/seriesmark.h"
#include "appointments/writeoutcome.h"
#include "platform/database/recordset.h"

/// What every copy of an appointment takes from it.
struct SeriesCopy {
    QString text;
    QString location;
    QString note;  ///< Service and note, joined by "|".
    QString patientId;
    QString account;
    int color = 0;  ///< The source's own code, of which the copy's status is made.
    db::Value appttype;
    db::Value category;
};

/// Makes the row under a writable cursor on `appointments` the first member of the series of `work`; one that is a
/// member stays as it is. Throws db::DatabaseError.
void JoinSeries(db::Recordset& row, const SeriesWork& work);
/// Adds one copy on a date by a writable cursor on `appointments`, with its room, where `room` names it, and with who
/// comes along.
[[nodiscard]] WriteOutcome AddCopy(db::Recordset& rows, const SeriesCopy& copy, const SeriesWork& work,
                                   const QString& room, QDate date);
