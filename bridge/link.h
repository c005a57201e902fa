#pragma once

#include <optional>
#include <QString>

#include "platform/database/connection.h"

/// Finds the companion database and the pairs between its rows and ours. `main` is the connection to the main database.
/// Each routine reaches the companion by a connection of its own, opened with the text of GetFHConnectionString.

/// The two settings of the link. Each is on only when its column is exactly 1.
struct FHLinkSettings {
    bool FHAutoExport = false;    ///< New patients are exported without a question.
    bool UseFHSchedView = false;  ///< The companion's schedule view is offered.
    friend bool operator==(const FHLinkSettings&, const FHLinkSettings&) = default;
};

/// Returns the connection text of the companion database. It is empty when the settings name no server or no database,
/// and after a failing read, of which the user is told. A relative folder in FHServer is taken from `iniPath`, which
/// also holds the password.
[[nodiscard]] QString GetFHConnectionString(db::Connection& main, const QString& iniPath);

[[nodiscard]] FHLinkSettings GetFHLinkSettings(db::Connection& main);

/// Returns the identity of the companion database, which its pairs carry. It is empty when the companion has none, and
/// when it cannot be reached, of which the user is told. An empty identity means that the link is off.
[[nodiscard]] QString GetFHDBId(const QString& companionText);

// A look-up of a pair that fails finds none. `failure`, where it is given, then gets the error, since the pair may be
// there.

/// Returns the companion's provider that is paired with ours, or 0.
[[nodiscard]] int GetFHProviderId(db::Connection& main, const QString& fhDatabase, const QString& svProviderId,
                                  std::optional<db::DatabaseError>* failure = nullptr);
/// Returns our provider that is paired with the companion's, or an empty text.
[[nodiscard]] QString GetSVProviderFromFH(db::Connection& main, const QString& fhDatabase, int fhProviderId,
                                          std::optional<db::DatabaseError>* failure = nullptr);
/// Returns our patient who is paired with the companion's client, or an empty text.
[[nodiscard]] QString GetSVPatientFromFH(db::Connection& main, const QString& fhDatabase, int fhClientId,
                                         std::optional<db::DatabaseError>* failure = nullptr);
