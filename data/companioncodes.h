#pragma once

#include <QString>

/// The `ClientTransactions.CtrnStatus` of an appointment that is not charged yet. The scheduler writes no other status,
/// and only such rows may be moved, edited and deleted. Rows with any other status are charged and read-only here.
inline constexpr char CtrnScheduled[] = "S";

/// The values of `FHDataPairs.FHDataList`, which say what is paired.
inline constexpr int PairedProviders = 1;  ///< Providers.ProvId with provider_info.id
inline constexpr int PairedPatients = 4;   ///< Clients.ClntId with patient_info.id

/// Returns the word for `ClientTransactions.appt_status`. 0 and 1 have the same word, because rows older than the
/// column hold 0. Returns an empty text for a value outside 0 to 5, also for the -1 that a report gives to events.
[[nodiscard]] QString ApptStatusText(int apptStatus);
