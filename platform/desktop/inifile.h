#pragma once

#include <QString>

/// Reads one key of an ini file in the Windows format: names of sections and keys in any case, blanks around names and
/// values dropped, one pair of quotes around a value taken off, lines that begin with ";" skipped. The first line with
/// the key counts. A missing file, section or key, and a line that is no "key=value", read as "". A value is cut to 500
/// characters. The file may be UTF-8, UTF-16 with a byte order mark, or Latin-1.
[[nodiscard]] QString ReadIniValue(const QString& file, const QString& section, const QString& key);

/// Writes one key and leaves every other line, comment, the order, the line ends and the encoding as they are; a
/// missing file, section or key is made. The file is replaced as a whole or not at all. A value is kept on its line
/// (line breaks become blanks) and is quoted where reading would otherwise take something off it. A Latin-1 file
/// becomes UTF-8 when the value needs it. False when the file could not be written.
bool WriteIniValue(const QString& file, const QString& section, const QString& key, const QString& value);
