#pragma once

#include <array>

/// The codes of `appointments.ncolor`. A code is status, kind and painted colour at once, as a Windows colour value
/// 0xBBGGRR.
namespace ncolor {

inline constexpr int Blank = 0xFF0000;           ///< 16711680, a patient appointment with no status chosen.
inline constexpr int Tentative = 0x7878650;      ///< 126322256, as it is stored and tested.
inline constexpr int Pending = 0xFF0001;         ///< 16711681
inline constexpr int CheckedIn = 0xFFFFFF;       ///< 16777215
inline constexpr int Kept = 0xC000;              ///< 49152
inline constexpr int Missed = 0xC0;              ///< 192
inline constexpr int PatientCancelled = 0xC1;    ///< 193
inline constexpr int TherapistCancelled = 0xC2;  ///< 194
/// 12632256. The colour legend, the Find screen and the recurrence screen use this value for Tentative. It differs from
/// the stored code on purpose.
inline constexpr int LegendTentative = 0xC0C0C0;
inline constexpr int Activity = 0xFFFF80;         ///< 16777088, Activity/Event
inline constexpr int Unavailable = 0xFF80FF;      ///< 16744703, Unavailable Time
inline constexpr int Group = 0xC0C000;            ///< 12632064, Group Therapy
inline constexpr int AppointmentType = 0x80FFFF;  ///< 8454143. It is painted for rows of appttype 4 and never stored.
inline constexpr int Holiday = 0xC0C0;            ///< 49344. It is painted for holidays and never stored.

/// The codes of rows that belong to a patient, in the order of the editor's status list.
inline constexpr std::array PatientRows{Blank, Tentative, Pending,          CheckedIn,
                                        Kept,  Missed,    PatientCancelled, TherapistCancelled};

}  // namespace ncolor

/// The kinds of entry that the editor makes and edits.
namespace apptkind {

inline constexpr int Patient = 1;
inline constexpr int Activity = 2;     ///< Activity/Event
inline constexpr int Unavailable = 3;  ///< Unavailable Time
inline constexpr int TypeSlot = 4;     ///< A slot of an appointment type.

}  // namespace apptkind

/// The only `appttype` that is written or tested. It marks a slot that was booked by appointment type and has no
/// patient yet.
inline constexpr int ApptTypeSlot = 4;

/// The `clinicianid` of an Activity whose providers are listed in `appointmentsevents`.
inline constexpr char EventClinicianId[] = "~EVT";

/// The `passwords.pswd_type_of_access` of the System Administrator.
inline constexpr int SystemAdministrator = 2;

/// Whether an `ncolor` code belongs to a patient's row.
[[nodiscard]] bool IsPatientRow(int code);
