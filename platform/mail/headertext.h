#pragma once

#include <QByteArray>
#include <vector>

#include "platform/mail/address.h"

namespace mail {

// Headers of a message, in lines that end with CRLF and have at most 78 octets, unless a single address or word is
// longer. Text beyond ASCII stands in encoded words (RFC 2047), so that every server and mail program can read it. Only
// an address itself may be UTF-8 (RFC 6532).

/// Returns a header with a text. Line breaks and other control characters in it become blanks. An empty text gives no
/// header.
[[nodiscard]] QByteArray TextHeader(const QByteArray& name, const QString& text);
/// Returns a header with addresses. Without any it gives no header.
[[nodiscard]] QByteArray AddressHeader(const QByteArray& name, const std::vector<Address>& addresses);

}  // namespace mail
