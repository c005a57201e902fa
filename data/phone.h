#pragma once

#include <QString>

/// Returns the display format of a telephone mask: each "A", "N" and "#" becomes the placeholder "@", and any other
/// character stays. A blank mask gives "".
QString MaskToFormat(const QString& mask);

/// Returns the format of a work telephone, with room for an extension after the number, or "" for an empty format.
QString WithExtension(const QString& format);

/// Puts the characters of a telephone number in place of the "@" of a format, from left to right. Characters beyond the
/// last placeholder follow at the end, and the rest of the format after the last character is left out. A number that
/// contains anything but digits stays as it was typed, and so does any number under an empty format.
QString FormatPhone(const QString& number, const QString& format);

/// Returns a telephone number as the schedule reports write it: blanks around it are left out, ten characters become
/// "(555) 123-4567" and seven "123-4567". A number of any other length stays as it is.
QString FormatPhoneNo(const QString& number);
