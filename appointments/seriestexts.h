#pragma once

#include <QDate>
#include <QString>

#include "appointments/overlap.h"
#include "platform/database/recordset.h"

// The words in which the lists of a series tell dates and what is booked.

/// Returns a date with its weekday, in the session's order: "Wed 03/11/2026".
[[nodiscard]] QString WeekdayAndDate(QDate date);
/// Returns the times of an appointment: "9:00 AM - 10:00 AM".
[[nodiscard]] QString TimesText(MinuteSpan time);
/// Returns who is booked and when: "Smith, Zed 9:00 AM - 10:00 AM".
[[nodiscard]] QString BookedText(const QString& who, MinuteSpan time);
/// Returns the text of the current row of `appointments`, or "A patient" where that is a patient's name.
[[nodiscard]] QString TextWithoutName(const db::Recordset& row);
/// Adds the status to a text where it decides whether the booking matters: "Smith, Zed (Missed)". Who is simply
/// expected is not told so.
[[nodiscard]] QString WithStatus(const QString& text, int code);
