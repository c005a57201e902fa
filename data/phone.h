#pragma once

#include <QString>

/// The display format of a telephone mask: each "A", "N" and "#" becomes the placeholder "@", anything else stays. A
/// blank mask gives "".
QString MaskToFormat(const QString& mask);

/// The format of a work telephone, with room for an extension behind the number; "" without a format, where that room
/// would be all there is.
QString WithExtension(const QString& format);

/// Puts the characters of a telephone number in place of the "@" of a format, from left to right. Characters beyond the
/// last placeholder follow at the end; what the format holds after the last character used is left out. A number that
/// already holds anything but digits stays as it was typed, and so does any number under an empty format.
QString FormatPhone(const QString& number, const QString& format);
