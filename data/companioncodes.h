#pragma once

#include <QString>

/// `ClientTransactions.CtrnStatus` of an appointment that is not yet charged: the only status that the scheduler
/// writes, and the only one that may be moved, edited and deleted. Any other is charged and read-only here.
inline constexpr char CtrnScheduled[] = "S";

/// The `FHDataPairs.FHDataList` of what is paired.
inline constexpr int PairedProviders = 1;  ///< Providers.ProvId with provider_info.id
inline constexpr int PairedPatients = 4;   ///< Clients.ClntId with patient_info.id

/// The word for `ClientTransactions.appt_status`. 0 and 1 read alike, since rows older than the column hold 0; a value
/// outside 0 to 5 has no word, and -1, which a report gives to events, none either.
[[nodiscard]] QString ApptStatusText(int apptStatus);
