#pragma once

#include <QString>

/// Reads whether the practice keeps an audit log into the session's ALEnabled; a failing read says so and leaves it
/// off.
void GetALSettings();

/// Writes one line of the audit log, when the practice keeps one. Empty notes are written as "-". A line that cannot be
/// written never stops the action that it records.
void AuditLog(const QString& user, const QString& location, const QString& listId, const QString& notes,
              const QString& description);

/// The line for a deleted appointment: its date and time as the user reads them, and what the calendar showed.
/// A date as audit lines write it: two digits of month and day, four of the year, in the order of the desk.
[[nodiscard]] QString AuditDate(QDate date);
void AuditDeletedAppointment(const QString& date, const QString& timeText, const QString& text);
