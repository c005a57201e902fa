#pragma once

#include <QByteArray>
#include <QString>

namespace mail {

/// Adds the text to the end of a log, in one piece, so that the desks of a practice can share the file. It holds
/// addresses, and so it is readable like the program's other files (platform/files/privatefile.h). A log that has grown
/// beyond a megabyte becomes `*.old` in place of an earlier one. A log that cannot be written is passed over, because
/// it must not stop a message.
void AddToLog(const QString& file, const QByteArray& text);

}  // namespace mail
