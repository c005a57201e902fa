#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <QStringList>

namespace db {
class Recordset;
}

/// The columns of a companion appointment that the editor shows and writes.
struct CompanionAppointment {
    int TranId = 0;
    QDate date;                ///< Invalid for null.
    std::optional<int> start;  ///< In minutes since midnight; nothing for null.
    int duration = 0;          ///< In minutes.
    QString memo;
    int status = 0;  ///< 1 to 5; 0 for any other value, which no entry of the status list stands for.
    friend bool operator==(const CompanionAppointment&, const CompanionAppointment&) = default;
};

/// Returns the appointment of the cursor's current row. Throws db::DatabaseError when the row lacks a column.
[[nodiscard]] CompanionAppointment AppointmentOf(const db::Recordset& row);

/// Whether the appointment of the cursor's current row is not charged yet, in any case of letters as the server
/// compares.
[[nodiscard]] bool IsScheduled(const db::Recordset& row);

/// The changes of a user in an appointment, laid over the row as the companion program left it meanwhile.
struct MergedAppointment {
    CompanionAppointment appointment;
    QStringList kept;      ///< The names of the fields that only the companion changed.
    QStringList replaced;  ///< The names of the fields that both changed to different values; the user's stands.
};

/// Merges three states of an appointment: `before` as the user read it, `wanted` as the user leaves it and `now` as it
/// is stored. A field that the user left alone keeps what the row holds now, unless the row has lost a field that every
/// appointment needs. Date and start are one field.
[[nodiscard]] MergedAppointment MergeAppointment(const CompanionAppointment& before, const CompanionAppointment& wanted,
                                                 const CompanionAppointment& now);
