#pragma once

#include <QString>

/// Returns a connection text of the command line, with the password of an environment variable added where the text has
/// none. A password on a command line could be read by everybody on the computer. The program's own variables are
/// SVSCHEDULER_PASSWORD_SVS for the main database and SVSCHEDULER_PASSWORD_FH for the companion.
[[nodiscard]] QString WithPassword(const QString& connectionText, const char* variable);
