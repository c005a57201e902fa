#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <vector>

#include "platform/mail/address.h"

namespace mail {

/// A message of plain text.
struct Message {
    Address from;
    std::vector<Address> to, cc, bcc;
    QString subject;
    QString text;
};

/// Returns everybody whom the message goes to, each once.
[[nodiscard]] std::vector<Address> Recipients(const Message& message);
/// Returns the first address of the message that needs a server with SMTPUTF8, or null.
[[nodiscard]] const Address* InternationalAddress(const Message& message);

/// Returns the message as it is sent (RFC 5322), without those in `bcc`. `date` is shown to the reader in its own
/// time zone. `id` is unique among all messages of the world; its first part holds only letters and digits.
[[nodiscard]] QByteArray MessageText(const Message& message, const QDateTime& date, const QByteArray& id);

}  // namespace mail
