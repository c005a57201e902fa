#pragma once

#include <QString>

// Text from the database or the clipboard is shown exactly as it is, in one line where one line is meant.

/// Returns the text in one line. A line break (carriage return and line feed count as one), a tab and every other
/// control character become one blank each.
[[nodiscard]] QString OneLine(const QString& text);

/// Returns the text with line feeds as its only line breaks. Other control characters become one blank each.
[[nodiscard]] QString ManyLines(const QString& text);

/// Returns the text so that a tool tip shows exactly it. A tip would otherwise take what looks like markup for markup,
/// and could load a picture from the disk.
[[nodiscard]] QString TipText(const QString& text);

/// Returns the first `most` UTF-16 units of the text, for a column that takes no more. A character of two units is not
/// cut in half.
[[nodiscard]] QString FirstCharacters(const QString& text, int most);

/// Returns the text for a caption in which "&" marks an Alt key.
[[nodiscard]] QString CaptionText(const QString& text);
