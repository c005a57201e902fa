#pragma once

#include <QColor>

struct CalendarItem;

/// The least contrast of text against what lies behind it.
inline constexpr double ReadableContrast = 4.5;

/// The colour of a Windows colour value 0xBBGGRR; higher bits (system colours, status codes) are ignored.
QColor ColorFromWindows(int value);

/// Contrast of two opaque colours by their relative luminance, 1 (equal) to 21 (black on white).
double ContrastRatio(const QColor& one, const QColor& other);

/// `from` with the share (0 to 1) of `to` mixed in.
QColor Mixed(const QColor& from, const QColor& to, double share);

/// `preferred`, moved towards black or white only as far as it must to be readable on the background.
QColor ReadableOn(const QColor& background, const QColor& preferred);

/// The colours of an item's card.
struct CardColors {
    QColor fill;
    QColor pattern;  ///< Hatching over the fill; the text is readable on it too.
    QColor edge;     ///< The strong bar at the left.
    QColor outline;
    QColor text;
    QColor dimText;  ///< Second line.

    friend bool operator==(const CardColors&, const CardColors&) = default;
};

/// Whatever colours a practice has picked, text and dimText have ReadableContrast against fill and pattern. `base` and
/// `text` are the palette's, light or dark.
CardColors CardColorsFor(const CalendarItem& item, const QColor& base, const QColor& text);
