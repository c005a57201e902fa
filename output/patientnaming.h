#pragma once

#include <array>
#include <QString>

/// How patients are named in what leaves the program.
enum class PatientNaming { FullName, Initials, PatientNumber };

inline constexpr std::array AllPatientNamings{PatientNaming::FullName, PatientNaming::Initials,
                                              PatientNaming::PatientNumber};

/// The files that appointments leave the program in.
enum class ExportFormat {
    FixedCalendar,     ///< The calendar file in the form that it has always had.
    StandardCalendar,  ///< The calendar file of RFC 5545.
    HtmlPage,
};

/// Returns how the user wants patients to be named in files of this format. Until the user has chosen, the standard
/// calendar file has initials, because it is the one that other people's programs read, and the others full names.
[[nodiscard]] PatientNaming NamingIn(ExportFormat format);
/// Keeps the user's choice. Returns false when it could not be stored.
bool KeepNaming(ExportFormat format, PatientNaming naming);

/// Returns the initials of a patient's name, with the surname last: "M. J." for "Jones, Mary". Parts of the name
/// without a letter or digit are left out.
[[nodiscard]] QString InitialsOf(const QString& name);
