#pragma once

#include <optional>
#include <QByteArray>

#include "platform/signature/strokes.h"

// The two ways in which the body of a signature text holds its points. What is read may be any bytes. It is a signature
// where it has that form, at least one point, and is sound (IsSound).

/// The points in full: "9600,2400/320,800 336,812,140/5000,900".
[[nodiscard]] QByteArray NumbersOf(const Signature& signature);
[[nodiscard]] std::optional<Signature> SignatureOfNumbers(const QByteArray& bytes);

/// The differences from point to point, as numbers of one to three bytes, seven bits a byte, the low bits first.
[[nodiscard]] QByteArray DifferencesOf(const Signature& signature);
[[nodiscard]] std::optional<Signature> SignatureOfDifferences(const QByteArray& bytes);
