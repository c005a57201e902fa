#pragma once

#include <QDate>
#include <QString>

/// Reads into the session's ALEnabled whether the practice keeps an audit log. A failing read is told to the user and
/// leaves it off.
void GetALSettings();

/// Writes one line of the audit log when the practice keeps one. Empty notes are written as "-". A line that cannot be
/// written never stops the action that it records; the window's bar then says so.
void AuditLog(const QString& user, const QString& location, const QString& listId, const QString& notes,
              const QString& description);

/// Returns a date as audit lines write it: two digits of month and day, four of the year, in the date order of the
/// session.
[[nodiscard]] QString AuditDate(QDate date);
/// Writes the audit line of a deleted appointment. `date` and `timeText` are in the user's format, and `text` is what
/// the calendar showed.
void AuditDeletedAppointment(const QString& date, const QString& timeText, const QString& text);
