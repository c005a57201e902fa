#pragma once

#include <QString>

// What comes out of the database or off the clipboard is text: it is shown as it stands, in one line where a line is
// meant.

/// The text in one line: a line break (carriage return and line feed are one), a tab and every other control character
/// become one blank each.
[[nodiscard]] QString OneLine(const QString& text);

/// The text without control characters, its line breaks as line feeds; the others become one blank each.
[[nodiscard]] QString ManyLines(const QString& text);

/// What a tool tip shows as this very text. A tip takes what looks like markup for markup, and would fetch a picture
/// from the disk.
[[nodiscard]] QString TipText(const QString& text);

/// The text as a caption shows it whose "&" marks an Alt key.
[[nodiscard]] QString CaptionText(const QString& text);
