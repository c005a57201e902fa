#pragma once

#include <QColor>

struct CalendarItem;

/// The least contrast of text against its background.
inline constexpr double ReadableContrast = 4.5;

/// Returns the colour of a Windows colour value 0xBBGGRR. Higher bits (system colours, status codes) are ignored, with
/// one exception: 0x1000000, which is stored for a type with the colour white, is white.
QColor ColorFromWindows(int value);

/// Returns the contrast of two opaque colours by their relative luminance, from 1 (equal) to 21 (black on white).
double ContrastRatio(const QColor& one, const QColor& other);

/// Returns `from` with the share (0 to 1) of `to` mixed in.
QColor Mixed(const QColor& from, const QColor& to, double share);

/// Returns `preferred`, moved towards black or white only as far as needed to be readable on the background.
QColor ReadableOn(const QColor& background, const QColor& preferred);

/// The lightness that all cards have on a dark ground, from 0 to 1. On a light ground a type's colour is shown as the
/// practice picked it.
inline constexpr double DarkCardLightness = 0.42;

/// Returns how light a colour looks, from 0 (black) to 1 (white), in a space in which equal steps look equal.
[[nodiscard]] double PerceivedLightness(const QColor& color);

/// Returns the colour of the same hue with that lightness. It is no stronger than `mostStrength` (0 is grey, 0.3 is the
/// strongest red), and greyer where a screen cannot show it as strong.
[[nodiscard]] QColor AtLightness(const QColor& color, double lightness, double mostStrength);

/// The colours of an item's card.
struct CardColors {
    QColor fill;
    QColor pattern;  ///< The colour of hatching over the fill. The text is readable on it too.
    QColor edge;     ///< The strong bar at the left.
    QColor outline;
    QColor text;
    QColor dimText;  ///< The colour of the second line.

    friend bool operator==(const CardColors&, const CardColors&) = default;
};

/// Returns the colours of an item's card. Whatever colours a practice has picked, `text` and `dimText` have
/// ReadableContrast against `fill` and `pattern`. The arguments `base` and `text` are the palette's, light or dark. On
/// a dark ground every fill has DarkCardLightness.
CardColors CardColorsFor(const CalendarItem& item, const QColor& base, const QColor& text);
