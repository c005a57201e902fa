#pragma once

#include <optional>
#include <QByteArray>
#include <QString>

#include "platform/signature/strokes.h"

// A signature as a text, which the database keeps and which the web signature service sends.
//
// The text is plain ASCII without blanks, quotes, bars or semicolons, in parts that are joined by points:
//
//     SVSIG1.0.0.BODY.CHECK      an open text, which anybody can read and write
//     SVSIG1.2.1.BODY            a text that is sealed under a key
//
// The first number is the encryption mode (0 open, 2 sealed), the second one the compression mode (0 numbers, 1
// differences). BODY is base64 with the characters of URLs ("-" and "_") and without "=" at the end.
//
// A signature service writes open texts of compression 0:
// - BODY holds "9600,2400/320,800 336,812,140/5000,900": the width and height of the drawing surface, then each stroke
//   after a slash, its points "x,y" or "x,y,pressure" parted by a blank. All are whole numbers in sixteenths of a pixel
//   from the top left corner; the surface is at most 65535 wide and high. The pressure is 0 to 255, and 128 where it is
//   missing. There are 1 to 10000 points.
// - CHECK is the CRC-32 (as of zip and PNG files) of all characters before the last point, as eight small hex digits.
//
// A sealed BODY holds the 24 bytes of a nonce and the numbers under XChaCha20-Poly1305 (libsodium's "ietf" form), with
// "SVSIG1.2.1." as additional data.

/// The longest text that is written or read.
inline constexpr qsizetype MostSignatureText = 262144;

enum class SignaturePacking { Numbers = 0, Differences = 1 };

/// Returns the key that a key text stands for.
///
/// The key text is no secret, since it is read from the note itself: the key ties a signature to one state of the note.
/// It is therefore made by a plain hash, and not by a slow one, which would protect a password from being guessed.
[[nodiscard]] QByteArray SealingKey(const QString& keyText);

/// Returns the text of a sound signature (IsSound) with at least one point: sealed under the key, or open for an empty
/// key. Two sealed texts of the same signature differ.
[[nodiscard]] QString WriteSignature(const Signature& signature, SignaturePacking packing, const QByteArray& key);

/// Returns the signature of a text that was sealed under this key, or of an open text for an empty key. Any other text
/// gives nothing, whatever it holds; so does one in which a single character was changed.
[[nodiscard]] std::optional<Signature> ReadSignature(const QString& text, const QByteArray& key);
