#pragma once

#include <QByteArray>
#include <QString>

namespace mail {

/// The text of a message as it is sent.
struct BodyText {
    QByteArray encoding;  ///< The Content-Transfer-Encoding: "7bit" or "quoted-printable".
    QByteArray lines;     ///< Each line ends with CRLF.
    friend bool operator==(const BodyText&, const BodyText&) = default;
};

/// Encodes a text. ASCII in lines of at most 78 characters is sent as it is. Any other text is sent as UTF-8 in
/// quoted-printable, which every server passes on unchanged, whether or not it takes eight bits, and which has no limit
/// for a paragraph. Every kind of line break counts as one; control characters other than tabs become blanks.
[[nodiscard]] BodyText EncodeBody(const QString& text);

}  // namespace mail
