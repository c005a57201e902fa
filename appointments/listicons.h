#pragma once

#include <QIcon>

/// A patch of a colour (0xBBGGRR), as the lists of appointment types show it before the name.
[[nodiscard]] QIcon ColourIcon(int colour);
/// The colour of a status code (data/codes.h) with its glyph in it, so that nobody needs the colour; a patch alone for
/// a code that has no glyph.
[[nodiscard]] QIcon StatusIcon(int code);
