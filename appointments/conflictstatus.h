#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

#include "appointments/conflicts.h"
#include "platform/database/connection.h"

/// Returns the status of a row in one or two words: "Kept", "Unavailable Time" or, for a slot of an appointment type,
/// "Open slot". A row without a status, and a code that is none, give "".
[[nodiscard]] QString StatusWords(int code, int apptType);

/// Returns for each conflict what the status of its booking is, or "" where that is not known: the conflict lists tell
/// who and when, and a cancelled visit looks like any other there. Bookings that are alike in date, time and text are
/// told with all their statuses. Throws db::DatabaseError.
[[nodiscard]] QStringList StatusesOf(db::Connection& connection, const std::vector<Conflict>& conflicts);

/// Returns for each busy provider, by id, the times and the statuses of what is in the way of `start` to `end` (minutes
/// since midnight). `ids` are the quoted ids of the providers, separated by commas. Throws db::DatabaseError.
[[nodiscard]] QHash<QString, QStringList> BusyStatuses(db::Connection& connection, const QString& ids, QDate date,
                                                       int start, int end);
