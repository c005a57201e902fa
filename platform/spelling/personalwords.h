#pragma once

#include <QString>
#include <QStringList>

/// Reads a list of a user's own words, one a line in UTF-8. Lines that are no words are passed over. A missing file is
/// an empty list.
[[nodiscard]] QStringList ReadPersonalWords(const QString& file);

/// Adds a word at the end of the list. The file is made for its owner alone, with its folder; what other windows or
/// other programs add meanwhile stays. Returns false where it cannot be written.
[[nodiscard]] bool AppendPersonalWord(const QString& file, const QString& word);
