#pragma once

#include <QDate>
#include <QStringList>
#include <vector>

#include "appointments/overlap.h"

/// A booked time that a proposed one conflicts with, as the conflict dialog lists it.
struct Conflict {
    QDate date;
    MinuteSpan time;
    QString text;               ///< Who or what is booked.
    QString place;              ///< The provider's last name, or the room.
    bool namesPatient = false;  ///< The text may be a patient's name.
};

/// Whether an appointment that was cancelled is in the way.
enum class Cancelled { Conflicts, LeftOut };

/// Returns what the provider has booked on `date` in conflict with `start` to `end` (minutes since midnight), ordered
/// by time. Where `patientId` is not empty, the patient's conflicting appointments with any provider are returned too.
/// The row `key` (0: none) and rows of appttype 4 never conflict; missed and cancelled appointments do, unless
/// cancelled ones are left out. Two rows that
/// are equal in every column are listed once. The database gives appttype 0 to a row that is written without one, so
/// that the row is found like any other; only a database that was never mended holds rows without an appttype, and
/// those are left out. A provider who is no longer known is named by the id. Throws db::DatabaseError.
[[nodiscard]] std::vector<Conflict> FindApptConflicts(int key, QDate date, double start, double end,
                                                      const QString& patientId, const QString& providerId,
                                                      Cancelled cancelled = Cancelled::Conflicts);

/// Returns what those who attend an activity have booked in conflict with it, by the same rule: rows of their own and
/// other activities that they attend. `key` is that of the activity. Throws db::DatabaseError.
[[nodiscard]] std::vector<Conflict> FindAttendeeConflicts(int key, QDate date, double start, double end);

/// Returns what is booked in the room in conflict with `start` to `end` (minutes since midnight), ordered by time. When
/// `byAppointment` is not 0, `key` is the key of an appointment, whose own booking is left out; a booking with a null
/// apptid is then not found either (new bookings get 0 from the database). When `byAppointment` is 0, `key` is the key
/// of a booking, and that booking is left out. The search has three steps and ends with the first that finds a booking:
/// bookings that hold the start, bookings that hold the end, and bookings that start within the time. Throws
/// db::DatabaseError.
[[nodiscard]] std::vector<Conflict> FindRoomConflicts(int key, QDate date, double start, double end, int roomId,
                                                      int byAppointment);

/// The statements that the three searches read, for a caller that reads them together with others.
[[nodiscard]] QString ApptConflictStatement(int key, QDate date, double start, double end, const QString& patientId,
                                            const QString& providerId, Cancelled cancelled = Cancelled::Conflicts);
[[nodiscard]] QString AttendeeConflictStatement(int key, QDate date, double s, double e);
[[nodiscard]] QStringList RoomConflictStatements(int key, QDate date, double start, double end, int roomId,
                                                 int byAppointment);

/// Shows the conflicts of a proposed appointment, if there are any, in the dialog AppointmentConflict. Returns true
/// when the caller must stop its save, because the user chose to reschedule or closed the dialog without a choice.
/// Returns false when there is no conflict or the user accepts it.
///
/// When the database cannot be asked, the user is told "Error checking for conflicts. Nothing has been saved. " with
/// the reason, and the answer is true. An appointment that was not checked is then not booked behind the user's back,
/// and the open dialog keeps what was typed for another attempt.
[[nodiscard]] bool CheckApptConflicts(int key, QDate date, double start, double end, const QString& patientId,
                                      const QString& providerId, Cancelled cancelled = Cancelled::Conflicts);
/// Does the same for all who attend an activity.
[[nodiscard]] bool CheckAttendeeConflicts(int key, QDate date, double start, double end);
/// Does the same for a room. The appointment screens pass the key itself as `byAppointment`.
[[nodiscard]] bool CheckRoomConflicts(int key, QDate date, double start, double end, int roomId, int byAppointment);
