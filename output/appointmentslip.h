#pragma once

#include <functional>
#include <optional>
#include <QDate>
#include <QString>

class QWidget;

/// What an appointment slip tells: the paper that reminds of an appointment, or of a meeting in a room.
struct AppointmentSlip {
    QString appointmentFor;   ///< The patient, or the text of a meeting.
    QString appointmentWith;  ///< The provider. It is empty for a meeting.
    QString location;
    QDate date;
    std::optional<int> start;  ///< Minutes since midnight; nothing for an appointment of the whole day.
    bool namesPatient = true;  ///< Whether `appointmentFor` is hidden while the names of patients are hidden.
};

/// Returns date and time as the slip tells them, in English in every locale: "Wednesday Mar 11, 2026 at 9:00 AM", or
/// "Wednesday, 11 Mar 2026 at 9:00 AM" where the session's date order is day first.
[[nodiscard]] QString SlipDateText(const AppointmentSlip& slip);

/// Whether an appointment of this `ncolor` and `appttype` has a slip: it is still to come and belongs to a patient. A
/// slot of an appointment type has no patient yet.
[[nodiscard]] bool HasSlip(int code, int apptType);

/// An appointment whose slip the user wants, as the view shows it.
struct SlipRequest {
    int key = 0;  ///< nkeyid
    QDate date;
    int start = 0;
    QString room = {};  ///< The room in which the user chose it; empty outside the rooms.
    /// Whether the view prints slips of appointments with this `ncolor` and `appttype`.
    std::function<bool(int code, int apptType)> has = HasSlip;
    QString whyNot;  ///< What the view says where it has none.
};

/// Shows the slip of an appointment as it is stored now, so that no patient is handed the old time of an appointment
/// that another desk has moved. The user is told when it was deleted, when it has come to have no slip, or when it
/// cannot be read. `reload` is called when the view shows it otherwise than it is stored.
void OpenAppointmentSlip(const SlipRequest& request, QWidget* window, const std::function<void()>& reload);
