#pragma once

#include <QString>

/// The account of the desktop user, for the audit log; "UNKNOWN" when the system does not tell.
[[nodiscard]] QString OsUserName();
/// The name of this computer, for the audit log; "UNKNOWN" when the system does not tell.
[[nodiscard]] QString ComputerName();
