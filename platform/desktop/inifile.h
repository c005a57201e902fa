#pragma once

#include <QString>

/// Reads one key of an ini file in the Windows format. Names of sections and keys match in any case. Blanks around
/// names and values are dropped, one pair of quotes around a value is removed, and lines that begin with ";" or have no
/// "=" are skipped. The first line with the key counts. A missing file, section or key gives "". A value is cut to 500
/// characters. The file may be UTF-8, UTF-16 with a byte order mark, or Latin-1.
[[nodiscard]] QString ReadIniValue(const QString& file, const QString& section, const QString& key);

/// Writes one key. Every other line, comments, the order, the line ends and the encoding stay as they are. A missing
/// file, section or key is added. The file is replaced as a whole or not at all. Line breaks in the value become
/// blanks, and the value is quoted where reading would otherwise strip it. A Latin-1 file becomes UTF-8 when the value
/// needs it. Returns false when the file could not be written.
bool WriteIniValue(const QString& file, const QString& section, const QString& key, const QString& value);
