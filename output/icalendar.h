#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QTimeZone>
#include <vector>

#include "output/exportedappointment.h"

/// Who writes a calendar file, and when.
struct CalendarStamp {
    QDateTime now;    ///< The local time, as Now() gives it.
    QString version;  ///< The program's version: "1.0.0".
};

/// Returns the calendar file in its fixed form, in UTF-8. Every appointment is written, in the given order and as often
/// as it is given. Times are local, and nothing is escaped but the line ends and bars of the note. Programs that read
/// these files expect the form as it is, including eight digits in the time of DTSTAMP.
[[nodiscard]] QByteArray FixedCalendar(const std::vector<ExportedAppointment>& appointments,
                                       const CalendarStamp& stamp);

/// Returns the calendar file of RFC 5545. Each appointment is written once, in the order of date, start and key, with a
/// UID that it keeps for as long as its row exists. Its times are in the time zone `zone`, which the file describes. An
/// appointment without a date is left out, and one that ends before it starts ends where it starts.
[[nodiscard]] QByteArray StandardCalendar(std::vector<ExportedAppointment> appointments, const QTimeZone& zone,
                                          const CalendarStamp& stamp);
