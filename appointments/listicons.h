#pragma once

#include <QIcon>

/// Returns a patch of a colour (0xBBGGRR), which the lists of appointment types show before the name.
[[nodiscard]] QIcon ColourIcon(int colour);
/// Returns the colour of a status code (data/codes.h) with the code's glyph in it, so that nobody needs the colour to
/// tell it. A code without a glyph gives a plain patch.
[[nodiscard]] QIcon StatusIcon(int code);
