#pragma once

#include <QString>

/// A connection text given on a command line, completed by the password of an environment variable where the text has
/// none: a password on a command line can be read by everybody on the machine. The program's own variables are
/// SVSCHEDULER_PASSWORD_SVS for the main database and SVSCHEDULER_PASSWORD_FH for the companion.
[[nodiscard]] QString WithPassword(const QString& connectionText, const char* variable);
