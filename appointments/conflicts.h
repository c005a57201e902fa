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

/// What the provider has booked on `date` in conflict with `start` to `end` (minutes since midnight) and, where
/// `patientId` is not empty, what the patient has booked with anybody; by time. The row `key` (0: none) and rows of
/// appttype 4 never conflict; missed and cancelled ones do. Two rows that look the same in every column are listed
/// once. A row that is written without an appttype gets 0 from the database and is seen like any other; only in a
/// database that was never mended is one without it left out. A provider who is no longer known is named by the id.
/// Throws db::DatabaseError.
[[nodiscard]] std::vector<Conflict> FindApptConflicts(int key, QDate date, double start, double end,
                                                      const QString& patientId, const QString& providerId);

/// What is booked in the room in conflict with `start` to `end`; by time. `byAppointment` other than 0 leaves out the
/// booking of the appointment `key` (and does not see one whose apptid is null; new ones get 0 from the database), 0
/// the booking whose own key it is. Bookings that hold the start come first: with any, those that only hold the end are
/// not looked for, nor after these those that lie within. Throws db::DatabaseError.
[[nodiscard]] std::vector<Conflict> FindRoomConflicts(int key, QDate date, double start, double end, int roomId,
                                                      int byAppointment);

/// The statements by which the searches below look for conflicts, for who makes both and reads them together.
[[nodiscard]] QString ApptConflictStatement(int key, QDate date, double start, double end, const QString& patientId,
                                            const QString& providerId);
[[nodiscard]] QStringList RoomConflictStatements(int key, QDate date, double start, double end, int roomId,
                                                 int byAppointment);

/// Shows the conflicts of a proposed appointment, if any, in the dialog AppointmentConflict. True when the caller must
/// stop its save: the user chose to reschedule, or closed the dialog without choosing, so that nothing is booked by
/// accident. False when there was no conflict or the user accepted it.
///
/// Where the database cannot be asked, the user is told "Error checking for conflicts. Nothing has been saved. " with
/// the reason, and the answer is true: an appointment that nobody checked is not booked behind the user's back, and the
/// open dialog keeps what was typed for another attempt.
[[nodiscard]] bool CheckApptConflicts(int key, QDate date, double start, double end, const QString& patientId,
                                      const QString& providerId);
/// The same for a room. The appointment screens pass the key itself as `byAppointment`.
[[nodiscard]] bool CheckRoomConflicts(int key, QDate date, double start, double end, int roomId, int byAppointment);
