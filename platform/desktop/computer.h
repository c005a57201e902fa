#pragma once

#include <QString>

/// Returns the account of the desktop user, for the audit log, or "UNKNOWN" when the system does not report it.
[[nodiscard]] QString OsUserName();
/// Returns the name of this computer, for the audit log, or "UNKNOWN" when the system does not report it.
[[nodiscard]] QString ComputerName();
