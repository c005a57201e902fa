#pragma once

#include <QString>

/// Returns the "mailto:" target by which the desktop opens a new mail to this address, or to several that are joined by
/// commas or semicolons. Everything else in the text is escaped, and control characters are left out, so that a text
/// such as "a@example.org?bcc=b@example.org" cannot add anything to the mail.
[[nodiscard]] QString MailTarget(const QString& address);
