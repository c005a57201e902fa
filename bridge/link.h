#pragma once

#include <QString>

#include "platform/database/connection.h"

/// Finding the companion database and the pairs that its rows form with ours. `main` is the connection to the main
/// database; the companion is reached by a connection of one routine, on the text of GetFHConnectionString.

/// The two settings of the link; each is on only when the column is exactly 1.
struct FHLinkSettings {
    bool FHAutoExport = false;    ///< New patients are exported without being asked.
    bool UseFHSchedView = false;  ///< The companion's schedule view is offered.
    friend bool operator==(const FHLinkSettings&, const FHLinkSettings&) = default;
};

/// The connection text of the companion database; empty when the settings name no server or no database, and after a
/// failing read, which is told. A folder in FHServer that is not absolute is taken from `iniPath`, where the password
/// comes from too.
[[nodiscard]] QString GetFHConnectionString(db::Connection& main, const QString& iniPath);

[[nodiscard]] FHLinkSettings GetFHLinkSettings(db::Connection& main);

/// The identity of the companion database, which its pairs carry; empty when it has none, and when it cannot be
/// reached, which is told. Empty means that the link is off.
[[nodiscard]] QString GetFHDBId(const QString& companionText);

/// The companion's provider paired with ours; 0 for none.
[[nodiscard]] int GetFHProviderId(db::Connection& main, const QString& fhDatabase, const QString& svProviderId);
/// Our provider paired with the companion's; empty for none.
[[nodiscard]] QString GetSVProviderFromFH(db::Connection& main, const QString& fhDatabase, int fhProviderId);
/// Our patient paired with the companion's client; empty for none.
[[nodiscard]] QString GetSVPatientFromFH(db::Connection& main, const QString& fhDatabase, int fhClientId);
