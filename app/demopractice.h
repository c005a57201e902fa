#pragma once

#include <QString>

/// Returns the data folder of the user's demo practice, which is `svscheduler-demo` in the user's data folder. Where it
/// has no practice yet, one is made, dated around today; meanwhile a small window says so. When that fails, the user is
/// told why and the routine returns "".
[[nodiscard]] QString DemoPracticeFolder();
